// quillmark resave: loads a group or project into the embedded IDE and saves every file into
// another folder through the IDE's own save operations. Unchanged files come out identical.
#include <filesystem>
#include <functional>
#include <ostream>

#include "cli/Args.h"
#include "cli/Commands.h"
#include "cli/Workspace.h"
#include "host/Component.h"
#include "host/Project.h"
#include "host/files/FileIo.h"
#include "runtime/Error.h"
#include "runtime/Utf.h"

namespace cli {
namespace {

namespace fs = std::filesystem;

// The deepest folder that holds every file.
fs::path CommonFolder(const std::vector<fs::path>& files) {
  fs::path common = files.front().parent_path();
  for (auto& f : files) {
    fs::path folder = f.parent_path();
    fs::path shared;
    auto a = common.begin();
    auto b = folder.begin();
    for (; a != common.end() && b != folder.end() && *a == *b; ++a, ++b) shared /= *a;
    common = shared;
  }
  return common;
}

// Makes the folder that will hold `file`, or says which folder cannot be made and why.
void MakeFolderFor(const fs::path& file) {
  std::error_code ec;
  fs::create_directories(file.parent_path(), ec);
  if (ec)
    throw vb::Error::Standard(vb::err::kPathNotFound, vb::FromUtf8(file.parent_path().string() +
                                                                   " (" + ec.message() + ")"));
}

}  // namespace

int ResaveCommand(const std::vector<std::string>& argv, Streams io) {
  Args args(argv, {}, {"codepage", "to"});
  if (args.Positional().size() != 1) throw UsageError("resave takes one FILE");
  auto to = args.Option("to");
  if (!to) throw UsageError("resave needs --to DIR");
  Workspace ws = OpenWorkspace(args.Positional()[0], args.IntOption("codepage", 1252), io.err);
  int problems = ws.problems;

  std::vector<fs::path> files{fs::absolute(ws.file)};
  for (auto& project : ws.ide->ProjectList()->List()) {
    files.push_back(project->Path());
    for (auto& c : project->ComponentList()->List()) {
      if (!c->Path().empty()) files.push_back(c->Path());
      for (auto& companion : c->Companions()) files.push_back(companion);
    }
  }
  fs::path root = CommonFolder(files);
  fs::path target = fs::absolute(*to);
  auto destination = [&](const fs::path& file) { return target / fs::relative(file, root); };

  // Each file is saved on its own; a failure is reported under the file's own name.
  int saved = 0;
  auto save = [&](const fs::path& file, const std::function<void(const fs::path&)>& write) {
    try {
      MakeFolderFor(destination(file));
      write(destination(file));
      ++saved;
    } catch (const vb::Error& e) {
      io.err << file.string() << ": " << vb::ToUtf8(e.Description()) << "\n";
      ++problems;
    }
  };
  auto& writer = ws.ide->Writer();
  for (auto& project : ws.ide->ProjectList()->List()) {
    for (auto& c : project->ComponentList()->List()) {
      // A listed file that is missing was reported at load; its project line is kept as it is.
      if (c->Path().empty()) continue;
      save(c->Path(), [&](const fs::path& to) { c->SaveAs(vb::FromUtf8(to.string())); });
      // Companion binaries are never rewritten, only copied beside their module.
      for (auto& companion : c->Companions())
        save(companion,
             [&](const fs::path& to) { writer.Write(to, host::files::ReadFileBytes(companion)); });
    }
    save(project->Path(), [&](const fs::path& to) { project->SaveAs(vb::FromUtf8(to.string())); });
  }
  if (!ws.ide->GroupPath().empty())
    save(ws.ide->GroupPath(), [&](const fs::path& to) { ws.ide->SaveGroupAs(to); });
  io.out << "saved " << saved << " file(s) into " << target.string() << "\n";
  return problems ? 1 : 0;
}

}  // namespace cli
