// quillmark::frmSearch: the "Visual Search and Replace" dialog, its history of search texts, and
// the search engine that walks the chosen scope and hands matching lines to the results window.
#pragma once

#include <cstdint>
#include <string>
#include <string_view>

#include "base/mdlMain.h"
#include "runtime/forms/CheckBox.h"
#include "runtime/forms/ComboBox.h"
#include "runtime/forms/CommandButton.h"
#include "runtime/forms/Form.h"
#include "runtime/forms/Frame.h"
#include "runtime/forms/Label.h"
#include "search/MatchRules.h"
#include "vbide/Event.h"
#include "vbide/Fwd.h"

namespace quillmark {

class docResults;

inline constexpr std::u16string_view kAllProjects = u"(All Projects)";
inline constexpr std::u16string_view kAllModules = u"(All Modules)";
inline constexpr std::u16string_view kAllProcedures = u"(All Procedures)";

// Line numbers count from 1. The match options are read from the check boxes for every line
// tested, so a change made while a search yields takes effect at once.
class frmSearch final : public vb::Form {
 public:
  explicit frmSearch(mdlMain& main);
  ~frmSearch() override;

  // Runs a search with the current SearchText over the scope the dialog shows.
  void ToolbarSearch();
  // Refills the search box's list from the stored history.
  void LoadSearchCombo();
  // Sets Selected Code (and, for a selection inside one line, the search text) from the
  // active code pane's selection.
  void CheckSelected();
  // The 1-based position of the first occurrence of SearchText at or after `start` when it
  // passes the options now checked, else 0 (see MatchLine).
  std::int32_t MatchText(std::u16string_view line, std::int32_t start);
  // The finder's scan width for the searches to come (the benchmark compares the two).
  void SetScanWidth(ScanWidth width) { scanWidth_ = width; }

  void ProjectEvents_ItemAdded(const vbide::VBProjectPtr& project);
  void ProjectEvents_ItemRemoved(const vbide::VBProjectPtr& project);
  void ProjectEvents_ItemRenamed(const vbide::VBProjectPtr& project, const std::u16string& oldName);

  vb::Label lblSearch{*this, u"lblSearch"};
  vb::ComboBox cboSearch{*this, u"cboSearch"};
  vb::CheckBox chkMatchCase{*this, u"chkMatchCase"};
  vb::CheckBox chkWholeWord{*this, u"chkWholeWord"};
  vb::CheckBox chkExcludeComments{*this, u"chkExcludeComments"};
  vb::Frame fraSearchIn{*this, u"fraSearchIn"};
  vb::ComboBox cboProject{*this, u"cboProject"};
  vb::ComboBox cboModule{*this, u"cboModule"};
  vb::ComboBox cboProcedure{*this, u"cboProcedure"};
  vb::CheckBox chkSelected{*this, u"chkSelected"};
  vb::CommandButton cmdSearch{*this, u"cmdSearch"};

 protected:
  void Form_Load() override;
  void Form_Activate() override;
  void Form_Unload(int& cancel) override;
  void Form_Terminate() override;
  void Form_KeyDown(int& keyCode, int shift) override;

 private:
  void Layout();
  // Dialog (frmSearch.cpp)
  void cmdSearch_Click();
  void cboSearch_Change();
  void cboSearch_GotFocus();
  void chkSelected_Click();
  void cboProject_Click();
  void cboModule_Click();
  void LoadProjects();
  void LoadModules();
  // VB loads a form whose controls are touched; the public operations do the same.
  void EnsureLoaded();
  // The finder for the current search text, remade when the text changes.
  const FoldedFinder& Finder();

  // Engine (frmSearchEngine.cpp)
  void StartSearch();
  void SearchScope(docResults& results);  // the scope shown in the dialog, searched
  void SearchAllProjects(docResults& results);
  void SearchProject(docResults& results, const vbide::VBProjectPtr& project);
  void SearchModule(docResults& results, const vbide::VBProjectPtr& project,
                    const vbide::VBComponentPtr& component);
  void SearchProcedure(docResults& results, const vbide::VBProjectPtr& project,
                       const vbide::VBComponentPtr& component, std::u16string_view procName);
  void SearchSelection(docResults& results);
  MatchOptions CheckedOptions() const;

  mdlMain& main_;
  vbide::VBProjectsEventsPtr projectEvents_;
  vbide::Subscription projectAdded_, projectRemoved_, projectRenamed_;
  // SearchText's finder, set up again when SearchText changes.
  FoldedFinder finder_;
  ScanWidth scanWidth_ = ScanWidth::Widest;
};

}  // namespace quillmark
