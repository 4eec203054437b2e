// quillmark replace: searches as quillmark search does, runs the results window's Replace with the
// dialog answered from the options, and saves every changed component (or, with --dry-run, only
// shows the changes).
#include <charconv>
#include <map>
#include <ostream>
#include <set>

#include "cli/Args.h"
#include "cli/Commands.h"
#include "cli/SearchSession.h"
#include "cli/TourSteps.h"
#include "runtime/Error.h"
#include "runtime/UserActions.h"
#include "runtime/Utf.h"
#include "runtime/VbStrings.h"
#include "search/ResultRowKey.h"
#include "vbide/CodeModule.h"
#include "vbide/VBComponent.h"
#include "vbide/VBE.h"
#include "vbide/VBProject.h"

namespace cli {
namespace {

std::string Utf8(std::u16string_view text) {
  return vb::ToUtf8(text);
}

// "2,5,9" as row numbers, each within 1..count.
std::vector<int> ParseRows(const std::string& text, int count) {
  std::vector<int> rows;
  std::size_t start = 0;
  while (start <= text.size()) {
    std::size_t comma = text.find(',', start);
    std::string item =
        text.substr(start, comma == std::string::npos ? std::string::npos : comma - start);
    int row = 0;
    auto [end, ec] = std::from_chars(item.data(), item.data() + item.size(), row);
    if (ec != std::errc() || end != item.data() + item.size() || row < 1 || row > count)
      throw UsageError("--selected-rows: '" + item + "' is not a row number from 1 to " +
                       std::to_string(count));
    rows.push_back(row);
    if (comma == std::string::npos) break;
    start = comma + 1;
  }
  return rows;
}

// A line a row points at, with its text before the replace.
struct Target {
  vbide::VBComponentPtr component;
  std::u16string project, module;
  int line = 0;
  std::u16string before;
};

std::vector<Target> Targets(SearchSession& session, const std::set<int>& rows) {
  std::vector<Target> targets;
  auto vbe = session.GetDesk().Addin()->Main().gVBInstance;
  auto& items = session.Results().lvwSearch.ListItems();
  for (int i = 1; i <= items.Count(); ++i) {
    if (!rows.empty() && !rows.contains(i)) continue;
    auto key = quillmark::ResultRowKey::Parse(items.Item(i).Key());
    Target t;
    t.project = key.project;
    t.module = key.module;
    t.line = key.line;
    t.component = key.Component(*vbe);
    t.before = t.component->CodeModule()->Lines(t.line, 1);
    targets.push_back(std::move(t));
  }
  return targets;
}

}  // namespace

int ReplaceCommand(const std::vector<std::string>& argv, Streams io) {
  auto flags = kSearchFlags;
  flags.insert("dry-run");
  auto options = kSearchOptions;
  options.insert({"with", "selected-rows"});
  Args args(argv, flags, options);
  auto with = args.Option("with");
  if (!with) throw UsageError("replace needs --with TEXT");
  SearchSession session(args, io.err);
  if (!session.Search(vb::FromUtf8(args.Positional()[1]), io.err)) return 1;
  int count = session.RowCount();
  std::set<int> chosen;
  if (auto rows = args.Option("selected-rows")) {
    if (count == 0) throw UsageError("--selected-rows: the search found no rows");
    auto list = ParseRows(*rows, count);
    chosen.insert(list.begin(), list.end());
    vb::UserActions(session.Results()).SelectRows(u"lvwSearch", list);
  }
  auto targets = Targets(session, chosen);

  auto& runtime = *session.GetDesk().runtime;
  std::u16string replacement = vb::FromUtf8(*with);
  bool all = chosen.empty();
  vb::Script(runtime).On(u"frmReplace", [replacement, all](vb::UserActions& ui) {
    ui.Type(u"txtReplace", replacement);
    ui.Click(u"optReplace", all ? 0 : 1);
    ui.Click(u"cmdReplace");
  });
  vb::UserActions(session.Results()).Click(u"cmdToolbar", quillmark::docResults::kReplaceButton);
  if (session.ReportMessageBoxes(io.err) > 0) {
    io.err << "quillmark: nothing was saved\n";
    return 1;
  }

  // Lines changed, per component; a component's lines count as changed only once it is saved.
  std::map<vbide::VBComponent*, int> changedLines;
  for (auto& t : targets) {
    std::u16string after = t.component->CodeModule()->Lines(t.line, 1);
    if (after == t.before) continue;
    ++changedLines[t.component.get()];
    if (args.Flag("dry-run"))
      io.out << Utf8(t.project) << "/" << Utf8(t.module) << ":" << t.line << "\t" << Utf8(t.before)
             << "\t" << Utf8(after) << "\n";
  }
  int problems = session.LoadProblems();
  int changed = 0;
  int unsaved = 0;
  for (auto& [component, lines] : changedLines) {
    if (args.Flag("dry-run")) {
      changed += lines;
      continue;
    }
    try {
      component->SaveAs(component->FileNames(1));
      changed += lines;
    } catch (const vb::Error& e) {
      io.err << "quillmark: " << Utf8(e.Description()) << "\n";
      unsaved += lines;
      ++problems;
    }
  }
  session.PrintStatus(io.err);
  problems += FinishAndReportSettings(session.GetDesk(), io.err);
  io.out << changed << " line(s) changed"
         << (args.Flag("dry-run") ? " (dry run, nothing saved)" : "");
  if (unsaved > 0) io.out << "; " << unsaved << " line(s) replaced but not saved";
  io.out << "\n";
  return problems == 0 && count > 0 ? 0 : 1;
}

}  // namespace cli
