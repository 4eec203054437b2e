// quillmark resave: loads a group or project into the embedded IDE and saves every file into
// another folder through the IDE's own save operations. Unchanged files come out identical.
#include <filesystem>
#include <ostream>

#include "cli/Args.h"
#include "cli/Commands.h"
#include "cli/Workspace.h"
#include "host/Component.h"
#include "host/Project.h"
#include "host/files/FileIo.h"
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

  for (auto& project : ws.ide->ProjectList()->List()) {
    for (auto& c : project->ComponentList()->List()) {
      try {
        fs::create_directories(destination(c->Path()).parent_path());
        c->SaveAs(vb::FromUtf8(destination(c->Path()).string()));
        // Companion binaries are never rewritten, only copied beside their module.
        for (auto& companion : c->Companions())
          host::files::WriteFileAtomically(destination(companion),
                                           host::files::ReadFileBytes(companion));
      } catch (const vb::Error& e) {
        io.err << c->Path().string() << ": " << vb::ToUtf8(e.Description()) << "\n";
        ++problems;
      }
    }
    try {
      fs::create_directories(destination(project->Path()).parent_path());
      project->SaveAs(vb::FromUtf8(destination(project->Path()).string()));
    } catch (const vb::Error& e) {
      io.err << project->Path().string() << ": " << vb::ToUtf8(e.Description()) << "\n";
      ++problems;
    }
  }
  if (!ws.ide->GroupPath().empty()) {
    try {
      ws.ide->SaveGroupAs(destination(ws.ide->GroupPath()));
    } catch (const vb::Error& e) {
      io.err << ws.ide->GroupPath().string() << ": " << vb::ToUtf8(e.Description()) << "\n";
      ++problems;
    }
  }
  io.out << "saved " << files.size() << " files into " << target.string() << "\n";
  return problems ? 1 : 0;
}

}  // namespace cli
