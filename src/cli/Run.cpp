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
    "  tour [FILE]               connect the add-in to FILE (default: the sample) as the IDE\n"
    "                            does at start-up, show its menu and toolbar, disconnect\n"
    "\n"
    "options:\n"
    "  --codepage N              code page of the files (default 1252)\n"
    "  --config-dir DIR          where the add-in keeps its settings (default $QUILLMARK_HOME,\n"
    "                            else ~/.config/quillmark)\n";

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
    if (argv[0] == "tour") return TourCommand(rest, io);
    throw UsageError("unknown command '" + argv[0] + "'");
  } catch (const UsageError& e) {
    io.err << "quillmark: " << e.what() << "\n\n" << kUsage;
    return 2;
  }
}

}  // namespace cli
