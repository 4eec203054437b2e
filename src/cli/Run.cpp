// cli::Run: dispatches to the commands; usage errors exit with 2, any other error with 1.
#include <filesystem>
#include <ostream>

#include "cli/Args.h"
#include "cli/Commands.h"
#include "cli/EscapingStream.h"
#include "runtime/Error.h"
#include "runtime/Utf.h"

namespace cli {
namespace {

constexpr const char* kUsage =
    "usage: quillmark <command> [options]\n"
    "\n"
    "commands:\n"
    "  info FILE                 list the projects and components of a .vbg or .vbp\n"
    "  resave FILE --to DIR      load FILE and save every file into DIR through the IDE\n"
    "  tour [FILE]               connect the add-in to FILE (default: the sample) as the IDE\n"
    "                            does at start-up, show its menu and toolbar, search, disconnect\n"
    "  search FILE TEXT          search the code of FILE; prints one row per matching line\n"
    "                            (exit 0 with matches, 1 without)\n"
    "  replace FILE TEXT --with TEXT\n"
    "                            search, replace in the rows found and save the changed files\n"
    "  add-member FILE --component PROJECT/MODULE (--method NAME | --property NAME --type TYPE |\n"
    "             --constant NAME --value VALUE)\n"
    "                            write a new member through the New Member dialog and save\n"
    "                            the module\n"
    "  options [--autosave on|off] [--interval N] [--notify none|beep|message] [--columns TEXT]\n"
    "                            set the Options dialog's values and press OK (exit 1 when it\n"
    "                            refuses them); with no option, print what it shows. TEXT is\n"
    "                            the stored form: Code,1|Project,1|Module,1|Procedure,1|Line,0\n"
    "  members FILE --component PROJECT/MODULE [--view TEXT]\n"
    "                            the Component Viewer's rows (key, text, icon) for a view\n"
    "                            caption or a filter (default (Controls)); --json\n"
    "  rename FILE --component PROJECT/MODULE (--member NAME | --control NAME) --to NEW\n"
    "                            rename through the Component Viewer and save the changed files\n"
    "  delete FILE --component PROJECT/MODULE (--member NAME |\n"
    "         --control NAME[(INDEX)] (--with-code | --keep-code))\n"
    "                            delete through the Component Viewer (--with-code also deletes\n"
    "                            the control's event procedures) and save the changed files\n"
    "\n"
    "search and replace options:\n"
    "  --match-case, --whole-word, --exclude-comments   the search dialog's options\n"
    "  --project NAME            search one project (default: (All Projects))\n"
    "  --module NAME             search one module of --project\n"
    "  --procedure NAME          search one procedure of --module, or (Declarations)\n"
    "  --selection PROJECT/MODULE:L1:C1-L2:C2   search the selected code only\n"
    "  --json                    search: one JSON object per row\n"
    "  --selected-rows N,M,...   replace: only these rows (default: all)\n"
    "  --dry-run                 replace: show the changed lines, save nothing\n"
    "\n"
    "add-member options:\n"
    "  --scope Public|Private|Friend          method and property scope (default Public)\n"
    "  --static, --returns TYPE               a Static method; a Function returning TYPE\n"
    "  --arg \"[Optional ][ByVal ][ParamArray ]NAME As TYPE[ = DEFAULT]\"   one per argument\n"
    "  --kind both|get|let                    the property procedures (default both)\n"
    "  --local NAME, --local-type TYPE        the property's module variable\n"
    "  --type TYPE, --public, --private       the constant's type and scope\n"
    "  --dry-run                              show the new lines, save nothing\n"
    "\n"
    "rename and delete options:\n"
    "  --dry-run                 show the changed and removed lines, save nothing\n"
    "\n"
    "options:\n"
    "  --codepage N              code page of the files (default 1252)\n"
    "  --config-dir DIR          where the add-in keeps its settings (default $QUILLMARK_HOME,\n"
    "                            else ~/.config/quillmark)\n";

}  // namespace

int Run(const std::vector<std::string>& argv, Streams raw) {
  EscapingStreamBuf outBuffer(raw.out.rdbuf());
  EscapingStreamBuf errBuffer(raw.err.rdbuf());
  std::ostream out(&outBuffer);
  std::ostream err(&errBuffer);
  Streams io{out, err};
  if (argv.empty() || argv[0] == "--help" || argv[0] == "help") {
    (argv.empty() ? io.err : io.out) << kUsage;
    return argv.empty() ? 2 : 0;
  }
  std::vector<std::string> rest(argv.begin() + 1, argv.end());
  // Nothing escapes: whatever a command did not report itself is reported here, naming the file.
  try {
    if (argv[0] == "info") return InfoCommand(rest, io);
    if (argv[0] == "resave") return ResaveCommand(rest, io);
    if (argv[0] == "tour") return TourCommand(rest, io);
    if (argv[0] == "search") return SearchCommand(rest, io);
    if (argv[0] == "replace") return ReplaceCommand(rest, io);
    if (argv[0] == "add-member") return AddMemberCommand(rest, io);
    if (argv[0] == "options") return OptionsCommand(rest, io);
    if (argv[0] == "members") return MembersCommand(rest, io);
    if (argv[0] == "rename") return RenameCommand(rest, io);
    if (argv[0] == "delete") return DeleteCommand(rest, io);
    throw UsageError("unknown command '" + argv[0] + "'");
  } catch (const UsageError& e) {
    io.err << "quillmark: " << e.what() << "\n\n" << kUsage;
    return 2;
  } catch (const vb::Error& e) {
    io.err << "quillmark: " << vb::ToUtf8(e.Description()) << "\n";
  } catch (const std::filesystem::filesystem_error& e) {
    io.err << "quillmark: " << e.path1().string() << ": " << e.code().message() << "\n";
  } catch (const std::exception& e) {
    io.err << "quillmark: " << e.what() << "\n";
  }
  return 1;
}

}  // namespace cli
