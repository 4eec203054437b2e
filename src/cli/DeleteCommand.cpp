// quillmark delete: deletes a member or control through the Component Viewer: the row is
// selected, Delete is chosen from its popup menu and the question answered from the options;
// then every changed file is saved through the IDE (with --dry-run, only the changes are shown).
#include <ostream>

#include "cli/Args.h"
#include "cli/Commands.h"
#include "cli/ComponentChanges.h"
#include "cli/ViewerSession.h"
#include "runtime/MessageBoxes.h"
#include "runtime/VbConstants.h"

namespace cli {
namespace {

void Delete(ViewerSession& session, const Args& args, Streams io) {
  bool keepCode = args.Flag("keep-code");
  auto target = session.SelectTarget(args);

  ComponentChanges changes(session.Component(), session.Label());
  auto& boxes = session.GetDesk().runtime->MessageBoxService();
  // A member's box asks Yes or No; a control's Yes (its code too), No (the control only) or
  // Cancel.
  boxes.ScriptAnswer(target.control && keepCode ? vb::vbNo : vb::vbYes);
  session.PopupCommand(u"mnuPopupDelete");
  if (boxes.PendingAnswers() > 0)
    throw Refused("the Component Viewer did not ask before deleting " + target.name);
  boxes.ClearTranscript();

  auto counts = changes.Print(io.out);
  if (!counts.Any())
    throw Refused("--member " + target.name +
                  ": the Component Viewer deletes a Sub or Function only; a property, variable, "
                  "constant, event or Declare stays");
  if (counts.controls > 0) io.out << counts.controls << " control(s) and ";
  io.out << counts.removed << " line(s) removed";
  if (args.Flag("dry-run")) io.out << " (dry run, nothing saved)";
  io.out << "\n";
}

}  // namespace

int DeleteCommand(const std::vector<std::string>& argv, Streams io) {
  auto options = kViewerOptions;
  options.insert({"member", "control"});
  Args args(argv, {"dry-run", "with-code", "keep-code"}, options);
  bool withCode = args.Flag("with-code");
  bool keepCode = args.Flag("keep-code");
  if (args.Option("control") && withCode == keepCode)
    throw UsageError("--control needs one of --with-code and --keep-code");
  if (args.Option("member") && (withCode || keepCode))
    throw UsageError("--with-code and --keep-code go with --control");
  ViewerSession session(args, io.err);
  return session.EditAndSave(args, io.out, io.err, [&] { Delete(session, args, io); });
}

}  // namespace cli
