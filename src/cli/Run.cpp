// cli::Run: dispatches to the commands and turns usage errors into exit status 2.
#include <ostream>

#include "cli/Args.h"
#include "cli/Commands.h"

namespace cli {
namespace {

constexpr const char* kUsage =
    "usage: quillmark <command> [options]\n"
    "\n"
    "commands:\n"
    "  info FILE                 list the projects and components of a .vbg or .vbp\n"
    "  resave FILE --to DIR      load FILE and save every file into DIR through the IDE\n"
    "\n"
    "options:\n"
    "  --codepage N              code page of the files (default 1252)\n";

}  // namespace

int Run(const std::vector<std::string>& argv, Streams io) {
  if (argv.empty() || argv[0] == "--help" || argv[0] == "help") {
    (argv.empty() ? io.err : io.out) << kUsage;
    return argv.empty() ? 2 : 0;
  }
  std::vector<std::string> rest(argv.begin() + 1, argv.end());
  try {
    if (argv[0] == "info") return InfoCommand(rest, io);
    if (argv[0] == "resave") return ResaveCommand(rest, io);
    throw UsageError("unknown command '" + argv[0] + "'");
  } catch (const UsageError& e) {
    io.err << "quillmark: " << e.what() << "\n\n" << kUsage;
    return 2;
  }
}

}  // namespace cli
