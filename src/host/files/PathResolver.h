// host::files::PathResolver: finds the files a VB6 project names (Windows paths, compared
// ignoring case, in the project's code page) on a case-sensitive file system.
#pragma once

#include <filesystem>
#include <map>
#include <optional>
#include <string>
#include <string_view>
#include <unordered_map>

#include "runtime/CodePage.h"

namespace host::files {

// Keeps the listing of each folder it had to search, so resolving the thousands of items of a
// large group costs one listing per folder. Made for one load: the cache does not notice files
// created later.
class PathResolver {
 public:
  explicit PathResolver(const vb::CodePage& codePage) : codePage_(codePage) {}

  // `relative` as written in a project file: backslashes (or slashes), "." and ".." segments,
  // any case. Each segment is matched exactly first, then ignoring case; a name is tried both
  // as UTF-8 (how a checkout on Linux writes it) and as the code page's raw bytes (how an
  // archive made on Windows leaves it). Nullopt when no such file or folder exists, and for
  // drive-letter and UNC paths, which name another machine's disk.
  std::optional<std::filesystem::path> Resolve(const std::filesystem::path& folder,
                                               std::u16string_view relative);

  // The entry of `folder` whose name equals `name` ignoring case; nullopt when there is none.
  std::optional<std::filesystem::path> FindInFolder(const std::filesystem::path& folder,
                                                    std::u16string_view name);

 private:
  struct Listing {
    // Case-folded names (decoded as UTF-8 and with the code page) to the entry's own name; the
    // first entry in byte order wins when a folder holds names that differ only in case.
    std::unordered_map<std::u16string, std::string> byUtf8;
    std::unordered_map<std::u16string, std::string> byCodePage;
  };
  const Listing& List(const std::filesystem::path& folder);

  const vb::CodePage& codePage_;
  std::map<std::string, Listing> listings_;
};

// One-off resolution (see PathResolver::Resolve).
std::optional<std::filesystem::path> ResolvePath(const std::filesystem::path& folder,
                                                 std::u16string_view relative,
                                                 const vb::CodePage& codePage);

}  // namespace host::files
