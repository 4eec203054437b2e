// quillmark options: the Options dialog driven headlessly through its controls, as a user sets
// it and presses OK; with no option it prints what the dialog shows.
#include <algorithm>
#include <map>
#include <ostream>

#include "base/mdlMain.h"
#include "cli/Args.h"
#include "cli/Commands.h"
#include "composition/Composition.h"
#include "options/ColumnList.h"
#include "options/frmOptions.h"
#include "runtime/UserActions.h"
#include "runtime/Utf.h"
#include "runtime/forms/FormBase.h"

namespace cli {
namespace {

const std::map<std::string, int> kNotifyIndex = {{"none", 0}, {"beep", 1}, {"message", 2}};

void PrintShown(std::ostream& out, quillmark::frmOptions& form) {
  std::vector<quillmark::options::ColumnEntry> columns;
  for (int i = 0; i < form.lstColumns.ListCount(); ++i)
    columns.push_back({form.lstColumns.List(i), form.lstColumns.Selected(i)});
  out << "Auto-Save: " << (form.chkSave.Value() == 1 ? "on" : "off") << "\n"
      << "Save Interval: " << vb::ToUtf8(form.txtSave.Text()) << " minutes\n"
      << "Auto-Save notification: " << vb::ToUtf8(form.cboSave.Text()) << "\n"
      << "Search Result Columns: " << vb::ToUtf8(quillmark::options::ColumnListText(columns))
      << "\n";
}

// Moves and checks the list's entries, as a user would, until it shows `wanted`. The names must
// be the list's own, each once.
void ArrangeColumns(quillmark::frmOptions& form, vb::UserActions& user, const std::string& text) {
  auto wanted = quillmark::options::ParseColumnList(vb::FromUtf8(text));
  auto& list = form.lstColumns;
  std::vector<std::u16string> names, have;
  for (auto& entry : wanted) names.push_back(entry.name);
  for (int i = 0; i < list.ListCount(); ++i) have.push_back(list.List(i));
  if (!std::is_permutation(names.begin(), names.end(), have.begin(), have.end())) {
    std::string each;
    for (auto& name : have) each += (each.empty() ? "" : ", ") + vb::ToUtf8(name);
    throw UsageError("--columns must name each of the columns " + each + " once, not '" + text +
                     "'");
  }
  for (int target = 0; target < static_cast<int>(wanted.size()); ++target) {
    int at = target;
    while (list.List(at) != wanted[target].name) ++at;
    if (at != target) user.Pick(u"lstColumns", at);
    for (; at > target; --at) user.Click(u"cmdMoveCol", 0);
  }
  for (int i = 0; i < static_cast<int>(wanted.size()); ++i)
    if (list.Selected(i) != wanted[i].shown) user.CheckItem(u"lstColumns", i, wanted[i].shown);
}

}  // namespace

int OptionsCommand(const std::vector<std::string>& argv, Streams io) {
  Args args(argv, {}, {"autosave", "interval", "notify", "columns", "config-dir"});
  if (!args.Positional().empty()) throw UsageError("options takes no FILE");
  auto autoSave = args.Option("autosave");
  if (autoSave && *autoSave != "on" && *autoSave != "off")
    throw UsageError("--autosave takes on or off, not '" + *autoSave + "'");
  auto interval = args.Option("interval");
  if (interval && (interval->empty() || !std::all_of(interval->begin(), interval->end(),
                                                     [](char c) { return c >= '0' && c <= '9'; })))
    throw UsageError("--interval takes whole minutes, not '" + *interval + "'");
  auto notify = args.Option("notify");
  if (notify && !kNotifyIndex.contains(*notify))
    throw UsageError("--notify takes none, beep or message, not '" + *notify + "'");
  auto columns = args.Option("columns");

  auto desk = composition::MakeDesk(composition::ConfigFolder(args.Option("config-dir")), 1252);
  // The dialog needs only the add-in's shared state: no project, no connection.
  quillmark::mdlMain main(desk->runtime);
  main.gLastSave = desk->runtime->Now();
  auto form = vb::New<quillmark::frmOptions>(main);
  form->Load();
  vb::UserActions user(*form);
  if (!autoSave && !interval && !notify && !columns) {
    // Left open: closing writes the dialog's position, and a look stores nothing.
    PrintShown(io.out, *form);
    return 0;
  }

  // The interval and notification boxes take input only while Auto-Save is checked.
  bool wasOn = form->chkSave.Value() == 1;
  if (interval || notify) user.SetCheck(u"chkSave", 1);
  if (interval) user.Type(u"txtSave", vb::FromUtf8(*interval));
  if (notify) user.Pick(u"cboSave", kNotifyIndex.at(*notify));
  user.SetCheck(u"chkSave", autoSave ? (*autoSave == "on" ? 1 : 0) : (wasOn ? 1 : 0));
  if (columns) ArrangeColumns(*form, user, *columns);
  user.Click(u"cmdOK");
  if (form->IsLoaded()) {
    // The dialog refused the values and stays open (closing it would store its position): its
    // message says why, and nothing was stored.
    for (auto& box : desk->runtime->MessageBoxService().Transcript())
      io.err << "quillmark: " << vb::ToUtf8(box.prompt) << "\n";
    return 1;
  }
  auto shown = vb::New<quillmark::frmOptions>(main);
  shown->Load();
  PrintShown(io.out, *shown);
  return 0;
}

}  // namespace cli
