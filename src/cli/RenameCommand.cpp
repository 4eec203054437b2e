// quillmark rename: renames a member or control through the Component Viewer: the row is
// selected, Rename is chosen from its popup menu and the new label committed, as a user would;
// then every changed file is saved through the IDE (with --dry-run, only the changes are shown).
#include <ostream>

#include "cli/Args.h"
#include "cli/Commands.h"
#include "cli/ComponentChanges.h"
#include "cli/ViewerSession.h"
#include "runtime/CaseFold.h"
#include "runtime/UserActions.h"
#include "runtime/Utf.h"
#include "vbide/CodeModule.h"
#include "vbide/Member.h"
#include "vbide/VBComponent.h"
#include "vbide/VBForm.h"
#include "vbide/VBProject.h"
#include "viewer/ViewerRows.h"

namespace cli {
namespace {

using quillmark::viewer::RowKey;

// Names the component already gives to something else: VB would refuse the rename, the viewer
// does not look. A change of case only is the same name.
void RefuseTakenName(ViewerSession& session, const RowKey& row, const std::u16string& newName) {
  if (vb::EqualsText(row.name, newName)) return;
  auto component = session.Component();
  std::string taken = "--to " + vb::ToUtf8(newName) + ": " + session.Label() + " already has ";
  if (auto designer = component->Designer())
    for (auto& control : designer->VBControls()->Items())
      if (vb::EqualsText(control->Name(), newName)) throw Refused(taken + "a control of that name");
  if (auto code = component->CodeModule())
    for (auto& member : code->Members()->Items())
      if (vb::EqualsText(member->Name(), newName)) throw Refused(taken + "a member of that name");
}

void Rename(ViewerSession& session, const Args& args, const std::u16string& newName, Streams io) {
  // The viewer refuses an empty name and one with a space itself; any other text that is no
  // name is refused here, before anything changes: the IDE would not take it as a control's
  // name, while the viewer's rename would still rewrite the code.
  bool viewerRefuses = newName.empty() || newName.find(u' ') != std::u16string::npos;
  std::string why;
  if (!viewerRefuses && !IsVbName(newName, session.Project()->CodePage(), why))
    throw Refused("--to '" + vb::ToUtf8(newName) + "' is not a name: " + why);
  auto target = session.SelectTarget(args);
  RowKey row = RowKey::Parse(target.key);
  if (target.control && row.number >= 0)
    throw Refused("--control " + target.name +
                  ": an element of a control array; the Component Viewer renames the first "
                  "control of the name, which would split the array");
  constexpr std::size_t kLongestControlName = 40;
  if (target.control && newName.size() > kLongestControlName)
    throw Refused("--to '" + vb::ToUtf8(newName) + "': a control's name has at most 40 characters");
  if (!viewerRefuses) RefuseTakenName(session, row, newName);

  ComponentChanges changes(session.Component(), session.Label());
  auto& list = session.Viewer().lvwExplorer;
  std::u16string oldText(list.SelectedItem()->Text());
  session.PopupCommand(u"mnuPopupRename");
  vb::UserActions(session.Viewer()).CommitLabel(u"lvwExplorer", newName);
  if (viewerRefuses && list.SelectedItem()->Text() == oldText)
    throw Refused("the Component Viewer refused '" + vb::ToUtf8(newName) + "': " +
                  (newName.empty() ? "a name cannot be empty" : "a name cannot hold a space"));

  if (target.control) {
    bool named = false;
    for (auto& control : session.Component()->Designer()->VBControls()->Items())
      named = named || control->Name() == newName;
    if (!named)
      throw Refused("the IDE did not take '" + vb::ToUtf8(newName) + "' as the name of " +
                    target.name);
  }
  auto counts = changes.Print(io.out);
  if (!counts.Any()) {
    bool keepsCode = row.number == vbide::vbext_mt_Variable || row.number == vbide::vbext_mt_Const;
    throw Refused(keepsCode ? "--member " + target.name +
                                  ": the Component Viewer renames a variable or constant in its "
                                  "list only; no code changed"
                            : "--member " + target.name + ": no code changed");
  }
  io.out << counts.changed << " line(s) changed";
  if (args.Flag("dry-run")) io.out << " (dry run, nothing saved)";
  io.out << "\n";
}

}  // namespace

int RenameCommand(const std::vector<std::string>& argv, Streams io) {
  auto options = kViewerOptions;
  options.insert({"member", "control", "to"});
  Args args(argv, {"dry-run"}, options);
  auto to = args.Option("to");
  if (!to) throw UsageError("rename needs --to NEW");
  ViewerSession session(args, io.err);
  return session.EditAndSave(args, io.out, io.err,
                             [&] { Rename(session, args, vb::FromUtf8(*to), io); });
}

}  // namespace cli
