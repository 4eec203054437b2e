// host::files project loading.
#include "host/files/ProjectLoader.h"

#include <algorithm>
#include <array>
#include <span>

#include "host/files/Concat.h"
#include "host/files/FileIo.h"
#include "host/files/PathResolver.h"
#include "runtime/Error.h"
#include "runtime/Utf.h"

namespace host::files {
namespace {

std::span<const std::u16string_view> CompanionExtensions(ModuleKind kind) {
  static constexpr std::array<std::u16string_view, 1> kForm = {u".frx"};
  static constexpr std::array<std::u16string_view, 1> kControl = {u".ctx"};
  static constexpr std::array<std::u16string_view, 1> kPage = {u".pgx"};
  static constexpr std::array<std::u16string_view, 1> kDocument = {u".dox"};
  static constexpr std::array<std::u16string_view, 2> kDesigner = {u".dsx", u".dca"};
  switch (kind) {
    case ModuleKind::Form:
    case ModuleKind::MdiForm:
      return kForm;
    case ModuleKind::UserControl:
      return kControl;
    case ModuleKind::PropertyPage:
      return kPage;
    case ModuleKind::UserDocument:
      return kDocument;
    case ModuleKind::Designer:
      return kDesigner;
    default:
      return {};
  }
}

class Loader {
 public:
  Loader(const vb::CodePage& codePage, Problems& problems)
      : codePage_(codePage), problems_(problems), resolver_(codePage) {}

  LoadedProject Project(const std::filesystem::path& vbp) {
    LoadedProject loaded;
    loaded.path = vbp;
    loaded.project = ReadProject(ReadFileBytes(vbp), codePage_, vbp.string(), problems_);
    std::filesystem::path folder = vbp.parent_path();
    const std::vector<ProjectItem>& items = loaded.project.items;
    for (std::size_t i = 0; i < items.size(); ++i) {
      const ProjectItem& item = items[i];
      if (item.kind == ItemKind::Reference || item.kind == ItemKind::Object) continue;
      std::optional<std::filesystem::path> path = resolver_.Resolve(folder, item.path);
      if (!path)
        Report(vbp, item.line, Concat({"file not found: \"", vb::ToUtf8(item.path), "\""}));
      std::optional<ModuleKind> kind = ModuleKindOf(item.kind);
      if (!kind) {
        loaded.documents.push_back({i, path});
        continue;
      }
      if (!path) continue;
      if (auto module = Module(*path, *kind, vbp, item.line)) {
        module->item = i;
        loaded.modules.push_back(std::move(*module));
      }
    }
    return loaded;
  }

  LoadedGroup Group(const std::filesystem::path& vbg) {
    LoadedGroup loaded;
    loaded.path = vbg;
    loaded.group = ReadGroup(ReadFileBytes(vbg), codePage_, vbg.string(), problems_);
    const auto& entries = loaded.group.projects;
    std::vector<std::filesystem::path> seen;
    for (std::size_t i = 0; i < entries.size(); ++i) {
      std::optional<std::filesystem::path> path =
          resolver_.Resolve(vbg.parent_path(), entries[i].path);
      std::string quoted = Concat({"\"", vb::ToUtf8(entries[i].path), "\""});
      if (!path) {
        Report(vbg, entries[i].line, Concat({"file not found: ", quoted}));
        continue;
      }
      // A project listed twice is one project: loading it twice would give two projects of one
      // name, and an edit through either would overwrite the other's.
      std::error_code ec;
      std::filesystem::path canonical = std::filesystem::weakly_canonical(*path, ec);
      if (std::find(seen.begin(), seen.end(), canonical) != seen.end()) {
        Report(vbg, entries[i].line,
               Concat({quoted, " is already in the group; it is loaded once"}));
        continue;
      }
      seen.push_back(canonical);
      try {
        loaded.projects.push_back(Project(*path));
      } catch (const vb::Error& error) {
        // A folder or an unreadable file where the project should be: reported, the rest loads.
        Report(vbg, entries[i].line, vb::ToUtf8(error.Description()));
        continue;
      }
      loaded.entries.push_back(i);
    }
    return loaded;
  }

 private:
  void Report(const std::filesystem::path& file, int line, std::string message) {
    problems_.push_back({file.string(), line + 1, std::move(message), false});
  }

  std::optional<LoadedModule> Module(const std::filesystem::path& path, ModuleKind kind,
                                     const std::filesystem::path& vbp, int line) {
    std::string bytes;
    try {
      bytes = ReadFileBytes(path);
    } catch (const vb::Error& error) {
      // Unreadable (a folder, no permission): reported against the item, like a missing file.
      Report(vbp, line, vb::ToUtf8(error.Description()));
      return std::nullopt;
    }
    LoadedModule loaded;
    loaded.path = path;
    loaded.module = ReadModule(bytes, kind, codePage_, path.string(), problems_);
    std::u16string stem = codePage_.Decode(path.stem().native());
    for (std::u16string_view extension : CompanionExtensions(loaded.module.kind))
      if (auto companion =
              resolver_.FindInFolder(path.parent_path(), stem + std::u16string(extension)))
        loaded.companions.push_back(std::move(*companion));
    if (loaded.companions.empty()) WarnOfMissingCompanion(loaded);
    return loaded;
  }

  // A header that points into a companion file ("Form1.frx":0000) whose file is not there loads
  // all the same: the properties stay as written and the bytes they point at are simply absent.
  void WarnOfMissingCompanion(const LoadedModule& loaded) {
    for (std::size_t i = 0; i < loaded.module.header.size(); ++i) {
      const std::string& line = loaded.module.header[i].bytes;
      for (std::u16string_view extension : CompanionExtensions(loaded.module.kind)) {
        std::string ext = vb::ToUtf8(extension) + "\":";
        auto lower = line;
        for (auto& c : lower) c = static_cast<char>(std::tolower(static_cast<unsigned char>(c)));
        if (lower.find(ext) == std::string::npos) continue;
        problems_.push_back({loaded.path.string(), static_cast<int>(i) + 1,
                             "its companion file (" + vb::ToUtf8(extension) +
                                 ") is missing; the properties stored there are kept as written",
                             true});
        return;
      }
    }
  }

  const vb::CodePage& codePage_;
  Problems& problems_;
  PathResolver resolver_;
};

}  // namespace

LoadedProject LoadProject(const std::filesystem::path& vbp, const vb::CodePage& codePage,
                          Problems& problems) {
  return Loader(codePage, problems).Project(vbp);
}

LoadedGroup LoadGroup(const std::filesystem::path& vbg, const vb::CodePage& codePage,
                      Problems& problems) {
  return Loader(codePage, problems).Group(vbg);
}

}  // namespace host::files
