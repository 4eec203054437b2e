// The add-in's button faces and image-list pictures, registered with a vb::Resources.
#pragma once

#include <string_view>
#include <vector>

#include "runtime/Resources.h"

namespace quillmark {

// Faces 101 search, 104 close all windows, 105 clear debug window, 107 component viewer and
// "NewMember"; and one picture for every image-list key ("Method", "Form", "Search", ...), by
// name. All are 16 x 16.
void RegisterQuillmarkResources(vb::Resources& resources);

// The image-list keys registered by name, in the order the image lists hold them.
const std::vector<std::u16string_view>& ImageListKeys();

}  // namespace quillmark
