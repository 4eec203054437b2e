// quillmark::frmSearch: the search engine: the match rule on the dialog's options and the scope
// workers that walk projects, modules, procedures and the selection.
#include <array>

#include "base/ResumeNext.h"
#include "runtime/VbStrings.h"
#include "search/ResultColumns.h"
#include "search/docResults.h"
#include "search/frmSearch.h"
#include "vbide/CodeModule.h"
#include "vbide/CodePane.h"
#include "vbide/VBComponent.h"
#include "vbide/VBE.h"
#include "vbide/VBProject.h"

namespace quillmark {

MatchOptions frmSearch::CheckedOptions() const {
  return {chkMatchCase.Value() == 1, chkWholeWord.Value() == 1, chkExcludeComments.Value() == 1};
}

std::int32_t frmSearch::MatchText(std::u16string_view line, std::int32_t start) {
  EnsureLoaded();
  return MatchLine(line, start, Finder(), CheckedOptions());
}

const FoldedFinder& frmSearch::Finder() {
  if (finder_.SearchText() != main_.SearchText)
    finder_ = FoldedFinder(main_.SearchText, scanWidth_);
  return finder_;
}

void frmSearch::ToolbarSearch() {
  StartSearch();
}

void frmSearch::StartSearch() {
  main_.Searching = true;
  std::shared_ptr<docResults> results;
  try {
    // Held here: the window may be released while the search yields.
    results = main_.connect->ShowResults();
    Obj(results).InitSearch();
  } catch (...) {
    main_.Searching = false;  // the connection is gone: no window to finish
    throw;
  }
  try {
    SearchScope(*results);
  } catch (...) {
    // An error (a project or module no longer there) goes on to the caller, but the search is
    // over: the window must not stay with Stop enabled and Searching set.
    results->EndSearch();
    main_.Searching = false;
    throw;
  }
  results->EndSearch();
  main_.Searching = false;
}

void frmSearch::SearchScope(docResults& results) {
  EnsureLoaded();
  auto vbe = main_.gVBInstance;
  if (chkSelected.Value() == 1 && chkSelected.Enabled()) {
    SearchSelection(results);
  } else if (cboProject.Text() == kAllProjects) {
    // The maximum ends as 1 + every component, so the bar never shows 100% before "Complete.".
    for (auto& project : vbe->VBProjects()->Items())
      results.SetProgressMax(results.ProgressMax() + project->VBComponents()->Count());
    SearchAllProjects(results);
  } else {
    auto project = vbe->VBProjects()->Item(cboProject.Text());
    if (cboModule.Text() == kAllModules) {
      results.SetProgressMax(project->VBComponents()->Count());
      SearchProject(results, project);
    } else {
      auto component = project->VBComponents()->Item(cboModule.Text());
      if (cboProcedure.Text() != kAllProcedures) {
        SearchProcedure(results, project, component, cboProcedure.Text());
      } else {
        SearchModule(results, project, component);
      }
    }
  }
}

void frmSearch::SearchAllProjects(docResults& results) {
  // No stop test here: a stop ends only the project being searched, and the next one starts.
  for (auto& project : main_.gVBInstance->VBProjects()->Items()) {
    SearchProject(results, project);
    main_.Rt().DoEvents();
  }
}

void frmSearch::SearchProject(docResults& results, const vbide::VBProjectPtr& project) {
  for (auto& component : project->VBComponents()->Items()) {
    SearchModule(results, project, component);
    main_.Rt().DoEvents();
    if (main_.StopSearch) {
      main_.StopSearch = false;
      break;
    }
  }
}

void frmSearch::SearchModule(docResults& results, const vbide::VBProjectPtr& project,
                             const vbide::VBComponentPtr& component) {
  vbide::CodeModulePtr code;
  ResumeNext([&] { code = component->CodeModule(); });
  if (code) {
    // MatchText's search text and options, read once: nothing can change them before the
    // module is done, as the search yields only between modules.
    EnsureLoaded();
    const FoldedFinder& finder = Finder();
    const MatchOptions options = CheckedOptions();
    std::array<std::u16string_view, 512> batch;
    std::vector<std::uint32_t> holding;
    int count = code->CountOfLines();
    for (int first = 1; first <= count;) {
      int got = code->LineViews(first, batch);
      holding.clear();
      LinesHolding(std::span(batch.data(), static_cast<std::size_t>(got)), finder, holding);
      for (std::uint32_t i : holding) {
        if (MatchLine(batch[i], 1, finder, options) != 0)
          results.AddResult(project, component, first + static_cast<int>(i), batch[i]);
      }
      first += got;
    }
  }
  results.IncrementProgressBar(1);
}

void frmSearch::SearchProcedure(docResults& results, const vbide::VBProjectPtr& project,
                                const vbide::VBComponentPtr& component,
                                std::u16string_view procName) {
  auto code = component->CodeModule();
  if (code) {
    int count = code->CountOfLines();
    // Every line is visited, so all bodies bearing the name (Get, Let and Set) are searched.
    for (int line = 1; line <= count; ++line) {
      vbide::vbext_ProcKind kind = vbide::vbext_pk_Proc;
      std::u16string_view name = code->ProcOfLineView(line, kind);
      if (name.empty()) name = kDeclarations;
      if (name != procName) continue;
      std::u16string_view text = code->LineView(line);
      if (MatchText(text, 1) != 0) results.AddResult(project, component, line, text);
    }
  }
  results.IncrementProgressBar(1);
}

void frmSearch::SearchSelection(docResults& results) {
  auto vbe = main_.gVBInstance;
  auto code = vbe->ActiveCodePane()->CodeModule();
  int startLine = 0, startColumn = 0, endLine = 0, endColumn = 0;
  code->CodePane()->GetSelection(startLine, startColumn, endLine, endColumn);
  for (int line = startLine; line <= endLine; ++line) {
    std::u16string whole = code->Lines(line, 1);
    // The first line is tested from the start column to its end, even when the selection ends
    // on it; the recorded text is always the whole line, and the project the active one.
    std::u16string tested = line == startLine ? vb::Mid(whole, startColumn)
                            : line == endLine ? vb::Left(whole, endColumn)
                                              : whole;
    if (MatchText(tested, 1) != 0)
      results.AddResult(vbe->ActiveVBProject(), code->Parent(), line, whole);
  }
}

}  // namespace quillmark
