// Registers the add-in's classes with a host, as installing a COM add-in registers its ProgIDs:
// the connection class "QuillmarkTools.Connect" and the two tool-window documents.
#pragma once

#include <memory>

#include "runtime/Runtime.h"
#include "vbide/ClassRegistry.h"

namespace quillmark {

// Every object the host creates from these classes works on `runtime`'s services.
void RegisterQuillmarkTools(vbide::ClassRegistry& registry, std::shared_ptr<vb::Runtime> runtime);

}  // namespace quillmark
