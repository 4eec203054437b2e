// The tour's steps.
#include "cli/TourSteps.h"

#include "host/CommandBars.h"
#include "runtime/UserActions.h"
#include "runtime/Utf.h"
#include "search/docResults.h"
#include "search/frmSearch.h"

namespace cli {
namespace {

// A word the sample group uses in several modules.
constexpr std::u16string_view kTourSearch = u"Balance";

}  // namespace

int FinishAndReportSettings(composition::Desk& desk, std::ostream& err) {
  desk.Disconnect();
  auto problems = desk.settings->TakeProblems();
  for (auto& problem : problems) err << problem << "\n";
  return static_cast<int>(problems.size());
}

int RunTourSteps(composition::Desk& desk, Streams io) {
  auto& main = desk.Addin()->Main();
  // The search dialog's scope first, as a user would set it, then the toolbar's box.
  auto& dialog = *main.gfrmSearch;
  dialog.Load();
  for (int i = 0; i < dialog.cboProject.ListCount(); ++i)
    if (dialog.cboProject.List(i) == quillmark::kAllProjects)
      vb::UserActions(dialog).Pick(u"cboProject", i);
  auto combo = std::dynamic_pointer_cast<host::CommandBarComboBox>(desk.Addin()->SearchCombo());
  if (!combo) return 1;
  combo->CommitTyped(kTourSearch);

  io.out << "\nToolbar search for \"" << vb::ToUtf8(kTourSearch) << "\" over (All Projects):\n";
  auto& results = *main.gdocResults;
  auto& list = results.lvwSearch;
  for (int i = 1; i <= list.ListItems().Count(); ++i) {
    auto& row = list.ListItems().Item(i);
    std::u16string line(row.Text());
    for (int c = 2; c <= list.ColumnHeaders().Count(); ++c)
      line.append(u"\t").append(row.SubItems(c - 1));
    io.out << "  " << vb::ToUtf8(line) << "\n";
  }
  io.out << "Search Results status: " << vb::ToUtf8(results.sbarResults.Panels(1).text) << " | "
         << vb::ToUtf8(results.sbarResults.Panels(2).text) << "\n";
  return 0;
}

}  // namespace cli
