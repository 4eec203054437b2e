// host::files::PathResolver.
#include "host/files/PathResolver.h"

#include <algorithm>
#include <vector>

#include "runtime/CaseFold.h"
#include "runtime/Utf.h"

namespace host::files {
namespace {

bool NamesAnotherDisk(std::u16string_view path) {
  bool drive = path.size() >= 2 && path[1] == u':';
  bool unc = path.starts_with(u"\\\\") || path.starts_with(u"//");
  return drive || unc;
}

std::vector<std::u16string_view> Segments(std::u16string_view path) {
  std::vector<std::u16string_view> segments;
  std::size_t start = 0;
  for (std::size_t i = 0; i <= path.size(); ++i) {
    if (i < path.size() && path[i] != u'\\' && path[i] != u'/') continue;
    if (i > start) segments.push_back(path.substr(start, i - start));
    start = i + 1;
  }
  return segments;
}

bool Exists(const std::filesystem::path& path) {
  std::error_code error;
  return std::filesystem::exists(path, error);
}

}  // namespace

const PathResolver::Listing& PathResolver::List(const std::filesystem::path& folder) {
  auto [it, added] = listings_.try_emplace(folder.native());
  if (!added) return it->second;
  std::vector<std::string> names;
  std::error_code error;
  for (const auto& entry : std::filesystem::directory_iterator(folder, error))
    names.push_back(entry.path().filename().native());
  std::sort(names.begin(), names.end());
  for (const std::string& name : names) {
    it->second.byUtf8.try_emplace(vb::FoldCase(vb::FromUtf8(name)), name);
    it->second.byCodePage.try_emplace(vb::FoldCase(codePage_.Decode(name)), name);
  }
  return it->second;
}

std::optional<std::filesystem::path> PathResolver::FindInFolder(const std::filesystem::path& folder,
                                                                std::u16string_view name) {
  std::string utf8 = vb::ToUtf8(name);
  std::string raw = codePage_.Encode(name);
  for (const std::string& candidate : {utf8, raw})
    if (Exists(folder / candidate)) return folder / candidate;
  const Listing& listing = List(folder);
  std::u16string folded = vb::FoldCase(name);
  if (auto it = listing.byUtf8.find(folded); it != listing.byUtf8.end()) return folder / it->second;
  if (auto it = listing.byCodePage.find(folded); it != listing.byCodePage.end())
    return folder / it->second;
  return std::nullopt;
}

std::optional<std::filesystem::path> PathResolver::Resolve(const std::filesystem::path& folder,
                                                           std::u16string_view relative) {
  if (NamesAnotherDisk(relative)) return std::nullopt;
  bool rooted = !relative.empty() && (relative.front() == u'/' || relative.front() == u'\\');
  std::error_code error;
  std::filesystem::path current = rooted
                                      ? std::filesystem::path("/")
                                      : std::filesystem::absolute(folder, error).lexically_normal();
  if (!current.has_filename() && current != current.root_path())
    current = current.parent_path();  // "dir/" -> "dir", so ".." below means its parent
  for (std::u16string_view segment : Segments(relative)) {
    if (segment == u".") continue;
    if (segment == u"..") {
      current = current.parent_path();
      continue;
    }
    std::optional<std::filesystem::path> next = FindInFolder(current, segment);
    if (!next) return std::nullopt;
    current = std::move(*next);
  }
  if (!Exists(current)) return std::nullopt;
  return current;
}

std::optional<std::filesystem::path> ResolvePath(const std::filesystem::path& folder,
                                                 std::u16string_view relative,
                                                 const vb::CodePage& codePage) {
  return PathResolver(codePage).Resolve(folder, relative);
}

}  // namespace host::files
