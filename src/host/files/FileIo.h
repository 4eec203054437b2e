// host::files file access: whole-file reads (writes go through vb::AtomicWriter).
#pragma once

#include <filesystem>
#include <string>
#include <string_view>

namespace host::files {

// The file's bytes, read with one read. Raises vb::Error 53 naming the file when it does not
// exist, 70 when it may not be read, 75 for anything else (a folder, an I/O error).
std::string ReadFileBytes(const std::filesystem::path& path);

}  // namespace host::files
