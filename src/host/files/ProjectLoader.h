// host::files project loading: a .vbp or .vbg with every file it lists, read from disk and
// ready for the object model.
#pragma once

#include <filesystem>
#include <optional>
#include <vector>

#include "host/files/GroupFile.h"
#include "host/files/ModuleFile.h"
#include "host/files/Problem.h"
#include "host/files/ProjectFile.h"
#include "runtime/CodePage.h"

namespace host::files {

struct LoadedModule {
  std::size_t item = 0;  // index into ProjectFile::items
  std::filesystem::path path;
  ModuleFile module;
  // The binary companions beside the file (.frx for forms, .ctx user controls, .pgx property
  // pages, .dox user documents, .dsx then .dca designers), found ignoring case. Never opened.
  std::vector<std::filesystem::path> companions;
};

// A related document or the resource file: not read, only located.
struct LoadedDocument {
  std::size_t item = 0;
  std::optional<std::filesystem::path> path;  // nullopt when the file is missing (reported)
};

struct LoadedProject {
  std::filesystem::path path;
  ProjectFile project;
  std::vector<LoadedModule> modules;      // in item order
  std::vector<LoadedDocument> documents;  // in item order
};

// Reads the project file and every module it lists. A module that is missing or unreadable is
// reported (project file and 1-based line of its item) and left out; its item stays in the
// project file, so saving the project loses nothing. Raises vb::Error 53 when the project file
// itself is missing.
LoadedProject LoadProject(const std::filesystem::path& vbp, const vb::CodePage& codePage,
                          Problems& problems);

struct LoadedGroup {
  std::filesystem::path path;
  GroupFile group;
  std::vector<LoadedProject> projects;  // the projects that could be read, in group order
  std::vector<std::size_t> entries;     // for each of them, its index in group.projects
};

// Reads the group and each of its projects; a missing project is reported and left out.
LoadedGroup LoadGroup(const std::filesystem::path& vbg, const vb::CodePage& codePage,
                      Problems& problems);

}  // namespace host::files
