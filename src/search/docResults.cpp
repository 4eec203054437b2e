// quillmark::docResults: the rows, columns, progress, status and layout of the results window,
// and opening and sorting rows.
#include "search/docResults.h"

#include "base/ResultsWindow.h"
#include "base/ResumeNext.h"
#include "base/mdlMainHelpers.h"
#include "runtime/Resources.h"
#include "runtime/VbStrings.h"
#include "search/ResultColumns.h"
#include "search/ResultRowKey.h"
#include "vbide/CodeModule.h"
#include "vbide/CodePane.h"
#include "vbide/VBComponent.h"
#include "vbide/VBE.h"
#include "vbide/VBProject.h"

namespace quillmark {
namespace {

constexpr std::u16string_view kImageKeys[] = {u"ActiveX Control",
                                              u"Search",
                                              u"Constant",
                                              u"Stop",
                                              u"Replace",
                                              u"Control",
                                              u"Variable",
                                              u"Enumeration",
                                              u"Event",
                                              u"Method",
                                              u"Property",
                                              u"UDT",
                                              u"Code Pane",
                                              u"Designer",
                                              u"Document",
                                              u"UserDocument",
                                              u"Resource File",
                                              u"ActiveX DLL",
                                              u"ActiveX EXE",
                                              u"Class",
                                              u"Form",
                                              u"MDI Child",
                                              u"MDI Form",
                                              u"Module",
                                              u"Property Page",
                                              u"Standard EXE",
                                              u"UserControl"};
constexpr std::u16string_view kButtonTips[] = {u"Search", u"Stop Search", u"Replace",
                                               u"Export Results"};
constexpr std::u16string_view kButtonPictures[] = {u"Search", u"Stop", u"Replace", u"Document"};
constexpr float kButtonSize = 360;
constexpr float kStatusBarHeight = 300;
constexpr float kMargin = 30;
constexpr int kManualLabelEdit = 1;

std::u16string_view TrimmedView(std::u16string_view text) {
  auto first = text.find_first_not_of(u' ');
  if (first == std::u16string_view::npos) return {};
  return text.substr(first, text.find_last_not_of(u' ') - first + 1);
}

}  // namespace

docResults::docResults(vb::Runtime& runtime)
    : UserDocument(runtime, u"docResults"), runtime_(runtime) {
  for (int i = kSearchButton; i <= kExportButton; ++i) {
    auto& button = cmdToolbar(i);
    button.SetContainer(&picToolbar);
    button.SetStyle(1);  // graphical
    button.SetToolTipText(std::u16string(kButtonTips[i]));
    button.Move(0, kButtonSize * static_cast<float>(i), kButtonSize, kButtonSize);
    ResumeNext(
        [&] { button.SetPicture(runtime.GetResources().LoadResPicture(kButtonPictures[i])); });
  }
  cmdToolbar(kStopButton).SetEnabled(false);
  cmdToolbar(kReplaceButton).SetEnabled(false);
  cmdToolbar.Wire(&vb::Control::Click, [this](int index) { cmdToolbar_Click(index); });
  for (auto key : kImageKeys) {
    vb::Picture picture;
    ResumeNext([&] { picture = runtime.GetResources().LoadResPicture(key); });
    ImageList1.Add(0, std::u16string(key), picture);
  }
  lvwSearch.SetView(3);  // report
  lvwSearch.SetMultiSelect(true);
  lvwSearch.SetHideSelection(false);
  lvwSearch.SetLabelEdit(kManualLabelEdit);
  lvwSearch.DblClick = [this] { lvwSearch_DblClick(); };
  lvwSearch.ColumnClick = [this](vb::ColumnHeader& column) { lvwSearch_ColumnClick(column); };
  sbarResults.AddPanel();
  sbarResults.SetHeight(kStatusBarHeight);
}

docResults::~docResults() = default;

void docResults::SetConnect(ConnectRef connect) {
  connect_ = std::move(connect);
  connected_ = true;
  // What the document does when it is created, once it can reach the add-in's settings.
  LoadColumnHeaders();
  SetFullRowSelect(runtime_, lvwSearch.hWnd());
  Layout();
}

void docResults::UserDocument_Terminate() {
  // The widths live in the settings store, which the runtime keeps after the add-in is gone.
  if (!connected_) return;
  ResumeNext([&] {
    SaveColumnWidths(runtime_, options::ColumnWidths::kSearchSection, lvwSearch,
                     options::ColumnWidths::kSearchPrefix);
  });
}

void LoadColumnHeaders(docResults& results) {
  results.LoadColumnHeaders();
}

void docResults::LoadColumnHeaders() {
  lvwSearch.ColumnHeaders().Clear();
  lvwSearch.ListItems().Clear();
  columnValues_.clear();
  for (auto& caption :
       ShownColumns(options::Settings(runtime_.Settings()).Text(options::Options::kColumns))) {
    columnValues_.push_back(ColumnValueIndex(caption));
    lvwSearch.ColumnHeaders().Add(0, {}, caption);
  }
  lvwSearch.SetSmallIcons(&ImageList1);
  LoadColumnWidths(runtime_, options::ColumnWidths::kSearchSection, lvwSearch,
                   options::ColumnWidths::kSearchPrefix);
}

// ---- The search's producer side ----------------------------------------------------------------

void docResults::InitSearch() {
  lvwSearch.ListItems().Clear();
  progressValue_ = 0;
  progressMaximum_ = 1;
  cachedComponent_.reset();
  cmdToolbar(kStopButton).SetEnabled(true);
  cmdToolbar(kReplaceButton).SetEnabled(false);
}

void docResults::AddResult(const vbide::VBProjectPtr& project,
                           const vbide::VBComponentPtr& component, int line,
                           std::u16string_view code) {
  if (component != cachedComponent_ || cachedProjectObject_ != project) {
    cachedProjectObject_ = project;
    cachedComponent_ = component;
    cachedProject_ = project->Name();
    cachedModule_ = component->Name();
    cachedIcon_ = RowIcon(component->Type());
    cachedCode_ = component->CodeModule();
  }
  vbide::vbext_ProcKind kind = vbide::vbext_pk_Proc;
  std::u16string_view procedure = Obj(cachedCode_).ProcOfLineView(line, kind);
  if (procedure.empty()) procedure = kDeclarations;
  std::u16string lineText = vb::CStr(static_cast<std::int64_t>(line));
  RowValues values{cachedProject_, cachedModule_, procedure, lineText, code};

  key_.clear();
  ResultRowKey::AppendTo(key_, cachedProject_, cachedModule_, procedure, lineText);
  std::u16string_view text =
      columnValues_.empty() ? std::u16string_view() : ValueAt(values, columnValues_[0]);
  auto& item = lvwSearch.ListItems().Add(0, key_, text, {}, cachedIcon_);
  item.SetTag(code);
  // The code column shows the stored tag, trimmed: the row keeps one copy of the line.
  values.code = item.Tag();
  // The first column keeps the value as it is; the others are trimmed of spaces.
  for (std::size_t i = 1; i < columnValues_.size(); ++i)
    item.SetSubItems(static_cast<int>(i), TrimmedView(ValueAt(values, columnValues_[i])));
}

void docResults::IncrementProgressBar(std::int16_t step) {
  progressValue_ += step;
  cachedComponent_.reset();  // the IDE may rename things while the search yields
  sbarResults.SetPanelText(1, ProgressText(progressValue_, progressMaximum_));
}

void docResults::EndSearch() {
  progressMaximum_ = 1;
  progressValue_ = 0;
  cachedComponent_.reset();
  cachedCode_.reset();
  sbarResults.SetPanelText(1, u"Complete.");
  sbarResults.SetPanelText(2, MatchingLinesText(lvwSearch.ListItems().Count()));
  cmdToolbar(kStopButton).SetEnabled(false);
  cmdToolbar(kReplaceButton).SetEnabled(true);
}

// ---- User actions ------------------------------------------------------------------------------

void docResults::cmdToolbar_Click(int index) {
  switch (index) {
    case kSearchButton:
      connect_->ShowSearch(true);
      break;
    case kStopButton:
      Main().StopSearch = true;
      break;
    case kReplaceButton:
      Replace();
      break;
    default:
      Export();
      break;
  }
}

void docResults::lvwSearch_DblClick() {
  // Every failure (a renamed module, a line that is gone) leaves things as they are.
  ResumeNext([&] {
    auto& main = Main();
    if (main.Searching) main.StopSearch = true;
    auto* item = lvwSearch.SelectedItem();
    if (!item) return;
    auto key = ResultRowKey::Parse(item->Key());
    auto code = key.Component(Obj(main.gVBInstance))->CodeModule();
    int line = key.line;
    auto pane = Obj(code).CodePane();
    ResumeNext([&] { pane->Show(); });
    // The current search text, found without the match options: it may differ from the text
    // of the search that made the row. Intended.
    std::int32_t at = vb::InStr(1, code->Lines(line, 1), main.SearchText, vb::CompareMethod::Text);
    pane->SetSelection(line, at, line, at + static_cast<std::int32_t>(main.SearchText.size()));
  });
}

void docResults::lvwSearch_ColumnClick(vb::ColumnHeader& column) {
  int key = column.Index() - 1;
  if (lvwSearch.SortKey() == key) {
    sortAscending_ = !sortAscending_;
    lvwSearch.SetSortOrder(lvwSearch.SortOrder() == vb::lvwAscending ? vb::lvwDescending
                                                                     : vb::lvwAscending);
  } else {
    lvwSearch.SetSortKey(key);
    lvwSearch.SetSortOrder(vb::lvwAscending);
    sortAscending_ = true;
  }
  lvwSearch.SetSorted(true);  // the list's own text sort: "10" comes before "9"
}

void docResults::Layout() {
  float width = ScaleWidth();
  float height = ScaleHeight();
  float status = sbarResults.Height();
  float button = cmdToolbar(kSearchButton).Width();
  ResumeNext([&] { sbarResults.Move(0, height - status, width, status); });
  ResumeNext(
      [&] { picToolbar.Move(kMargin, kMargin, button + kMargin, height - 2 * kMargin - status); });
  ResumeNext([&] {
    lvwSearch.Move(kMargin + picToolbar.Width(), kMargin, width - 2 * kMargin - picToolbar.Width(),
                   height - 2 * kMargin - status);
  });
}

}  // namespace quillmark
