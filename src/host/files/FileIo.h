// host::files file access: whole-file reads, and writes that never leave a half-written file.
#pragma once

#include <filesystem>
#include <string>
#include <string_view>

namespace host::files {

// The file's bytes, read with one read. Raises vb::Error 53 naming the file when it does not
// exist, 70 when it may not be read, 75 for anything else (a folder, an I/O error).
std::string ReadFileBytes(const std::filesystem::path& path);

// Writes a temporary file in the same folder, flushes it to disk and renames it over `path`, so
// readers see the old file or the new one, never a part. The new file keeps the old one's
// permissions. On failure the old file is untouched, the temporary file is removed, and
// vb::Error 70 (permission denied, read-only file system) or 75 (anything else) is raised with
// the path and the system's reason in its description.
void WriteFileAtomically(const std::filesystem::path& path, std::string_view bytes);

}  // namespace host::files
