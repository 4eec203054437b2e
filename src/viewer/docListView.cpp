// quillmark::docListView: the document's controls, its layout, and filling the list.
#include "viewer/docListView.h"

#include "base/ResumeNext.h"
#include "base/SettingsVocabulary.h"
#include "base/mdlMain.h"
#include "base/mdlMainHelpers.h"
#include "runtime/CaseFold.h"
#include "runtime/Resources.h"
#include "runtime/VbStrings.h"
#include "vbide/CodeModule.h"
#include "vbide/Events.h"
#include "vbide/Member.h"
#include "vbide/VBComponent.h"
#include "vbide/VBE.h"
#include "vbide/VBForm.h"
#include "viewer/ViewerRows.h"

namespace quillmark {
namespace {

using viewer::RowKey;

// The images the list may show, by key; the rows use the member kinds and "Control".
constexpr std::u16string_view kImageKeys[] = {
    u"Method",      u"Property",        u"Variable",     u"Event",         u"Constant",
    u"Control",     u"ActiveX Control", u"Enumeration",  u"UDT",           u"Code Pane",
    u"Designer",    u"Document",        u"UserDocument", u"Resource File", u"ActiveX DLL",
    u"ActiveX EXE", u"Class",           u"Form",         u"MDI Child",     u"MDI Form",
    u"Module",      u"Property Page",   u"Standard EXE", u"UserControl"};
constexpr std::u16string_view kPopupCaptions[] = {u"&Method", u"&Property", u"&Constant",
                                                  u"&Variable", u"&Event"};
constexpr float kMargin = 30;
constexpr int kMembersPerPump = 20;
constexpr int kAutomaticLabelEdit = 0;

}  // namespace

docListView::docListView(vb::Runtime& runtime)
    : UserDocument(runtime, u"docListView"), runtime_(runtime) {
  SetKeyPreview(true);  // F5 and Alt+letter reach the document whichever control has the focus
  cboListView.SetContainer(&picListView);
  lvwExplorer.SetContainer(&picListView);
  picListView.SetBorderStyle(0);
  picListView.Resize = [this] { picListView_Resize(); };

  for (auto key : kImageKeys) {
    vb::Picture picture;
    ResumeNext([&] { picture = runtime.GetResources().LoadResPicture(key); });
    ImageList1.Add(0, std::u16string(key), picture);
  }
  lvwExplorer.SetView(3);            // report
  lvwExplorer.SetMultiSelect(true);  // Select acts on every selected row
  lvwExplorer.SetHideSelection(false);
  lvwExplorer.SetLabelEdit(kAutomaticLabelEdit);  // a slow click on a row edits it, gated
  lvwExplorer.SetSmallIcons(&ImageList1);
  lvwExplorer.Click = [this] { lvwExplorer_Click(); };
  lvwExplorer.DblClick = [this] { lvwExplorer_DblClick(); };
  lvwExplorer.BeforeLabelEdit = [this](int& cancel) { lvwExplorer_BeforeLabelEdit(cancel); };
  lvwExplorer.AfterLabelEdit = [this](int& cancel, std::u16string& text) {
    lvwExplorer_AfterLabelEdit(cancel, text);
  };
  lvwExplorer.MouseUp = [this](int button, int shift, float x, float y) {
    lvwExplorer_MouseUp(button, shift, x, y);
  };

  for (auto caption : viewer::kViewCaptions) cboListView.AddItem(std::u16string(caption));
  cboListView.SetListIndex(0);
  cboListView.Click = [this] { cboListView_Click(); };
  cboListView.KeyPress = [this](int& keyAscii) { cboListView_KeyPress(keyAscii); };

  // The popup is a top-level menu that is never shown as a bar.
  mnuPopup.SetCaption(u"Popup");
  mnuPopup.SetVisible(false);
  mnuPopupNew.SetCaption(u"&New");
  mnuPopupNew.SetParentMenu(&mnuPopup);
  for (int i = kNewMethod; i <= kNewEvent; ++i) {
    mnuPopupNewMember(i).SetCaption(std::u16string(kPopupCaptions[i]));
    mnuPopupNewMember(i).SetParentMenu(&mnuPopupNew);
  }
  mnuPopupNewMember.Wire(&vb::Control::Click,
                         [this](int index) { mnuPopupNewMember_Click(index); });
  mnuPopupRename.SetCaption(u"&Rename");
  mnuPopupRename.SetParentMenu(&mnuPopup);
  mnuPopupRename.Click = [this] { mnuPopupRename_Click(); };
  mnuPopupDelete.SetCaption(u"&Delete");
  mnuPopupDelete.SetParentMenu(&mnuPopup);
  mnuPopupDelete.Click = [this] { mnuPopupDelete_Click(); };
  mnuPopupSep1.SetCaption(u"-");
  mnuPopupSep1.SetParentMenu(&mnuPopup);
  mnuPopupSelect.SetCaption(u"&Select");
  mnuPopupSelect.SetParentMenu(&mnuPopup);
  mnuPopupSelect.Click = [this] { mnuPopupSelect_Click(); };
}

docListView::~docListView() = default;

void docListView::SetConnect(ConnectRef connect) {
  connect_ = std::move(connect);
  auto events = Main().gVBInstance->Events();
  componentEvents_ = events->VBComponentsEvents(nullptr);
  reloaded_ = componentEvents_->ItemReloaded.Subscribe(
      [this](vbide::VBComponentPtr c) { ComponentEvents_ItemReloaded(c); });
  selected_ = componentEvents_->ItemSelected.Subscribe(
      [this](vbide::VBComponentPtr c) { ComponentEvents_ItemSelected(c); });
  controlEvents_ = events->VBControlsEvents(nullptr, nullptr);
  controlAdded_ = controlEvents_->ItemAdded.Subscribe(
      [this](vbide::VBControlPtr c) { ControlEvents_ItemAdded(c); });
  controlRemoved_ = controlEvents_->ItemRemoved.Subscribe(
      [this](vbide::VBControlPtr c) { ControlEvents_ItemRemoved(c); });
  controlRenamed_ = controlEvents_->ItemRenamed.Subscribe(
      [this](vbide::VBControlPtr c, std::u16string oldName, int oldIndex) {
        ControlEvents_ItemRenamed(c, oldName, oldIndex);
      });
  codeModified_ = connect_->codeModified.Subscribe([this] { Connect_CodeModified(); });
  Refresh();
}

void docListView::UserDocument_Terminate() {
  // The current view's widths, as a switch of views would save them.
  if (!lvwExplorer.Tag().empty()) {
    ResumeNext([&] {
      SaveColumnWidths(runtime_, options::ColumnWidths::kListViewSection, lvwExplorer,
                       viewer::SettingsCaption(lvwExplorer.Tag()));
    });
  }
}

// ---- Layout ------------------------------------------------------------------------------------

void docListView::UserDocument_Resize() {
  // A window too small for the margins gives a negative size; the box then stays as it was.
  ResumeNext([&] {
    picListView.Move(kMargin, kMargin, ScaleWidth() - 2 * kMargin, ScaleHeight() - 2 * kMargin);
  });
}

void docListView::picListView_Resize() {
  float width = picListView.ScaleWidth();
  float combo = cboListView.Height();
  ResumeNext([&] { cboListView.Move(0, {}, width); });
  ResumeNext([&] {
    lvwExplorer.Move(0, combo + kMargin, width, picListView.ScaleHeight() - combo - kMargin);
  });
}

// ---- Filling -----------------------------------------------------------------------------------

void docListView::Refresh() {
  if (suspended_) return;
  if (filling_) {
    // Called from the running fill's pump, which lies below on this same stack: waiting for it
    // would never end. The fill stops at its next check and starts over for this request.
    if (cancelFill_) return;
    cancelFill_ = true;
    restartFill_ = true;
    return;
  }
  filling_ = true;
  struct EndOfFill {
    docListView& self;
    ~EndOfFill() {
      self.lvwExplorer.SetVisible(true);
      self.filling_ = self.cancelFill_ = self.restartFill_ = false;
    }
  } end{*this};
  do {
    restartFill_ = false;
    lvwExplorer.SetVisible(false);
    lvwExplorer.ListItems().Clear();
    std::u16string caption = cboListView.Text();
    BuildColumns(caption);
    switch (int view = viewer::ViewNumber(caption)) {
      case viewer::kControlsView:
        FillControls({});
        break;
      case viewer::kCustomView:
        FillControls(caption);
        if (!restartFill_) FillMembers(view, caption);
        break;
      default:
        FillMembers(view, {});
        break;
    }
  } while (restartFill_);
}

void docListView::BuildColumns(std::u16string_view caption) {
  auto section = options::ColumnWidths::kListViewSection;
  if (lvwExplorer.Tag() == caption) return;
  if (!lvwExplorer.Tag().empty())
    SaveColumnWidths(runtime_, section, lvwExplorer, viewer::SettingsCaption(lvwExplorer.Tag()));
  lvwExplorer.ColumnHeaders().Clear();
  lvwExplorer.ColumnHeaders().Add(0, {}, u"Name");
  LoadColumnWidths(runtime_, section, lvwExplorer, viewer::SettingsCaption(caption));
  lvwExplorer.SetTag(std::u16string(caption));
}

void docListView::AddRow(std::u16string_view key, std::u16string_view text,
                         std::u16string_view icon) {
  // A module or designer that names one thing twice (it would not compile) lists it once: the
  // first occurrence keeps the key.
  if (lvwExplorer.ListItems().Find(key)) return;
  lvwExplorer.ListItems().Add(0, key, text, {}, icon);
}

void docListView::FillMembers(int view, std::u16string_view filter) {
  vbide::CodeModulePtr code = SelectedCode();
  if (!code) {
    cancelFill_ = false;
    return;
  }
  AddRow(RowKey::Declarations(), viewer::kDeclarationsText, {});
  std::u16string folded = vb::FoldCase(filter);
  int counter = 0;
  for (auto& member : code->Members()->Items()) {
    std::u16string name = member->Name();
    auto type = member->Type();
    bool passes = filter.empty() || vb::InStrFolded(1, name, folded) > 0;
    if (passes && viewer::ViewLists(view, type))
      AddRow(RowKey::Member(name, type), name, viewer::KindWord(type));
    if (++counter % kMembersPerPump == 0) runtime_.DoEvents();
    if (cancelFill_) break;
  }
  cancelFill_ = false;
}

void docListView::FillControls(std::u16string_view filter) {
  vbide::VBFormPtr designer = SelectedDesigner();
  if (!designer) {
    cancelFill_ = false;
    return;
  }
  std::u16string folded = vb::FoldCase(filter);
  for (auto& control : designer->VBControls()->Items()) {
    std::u16string name = control->Name();
    if (filter.empty() || vb::InStrFolded(1, name, folded) > 0) {
      int index = control->Index();
      AddRow(RowKey::Control(name, index), viewer::ControlRowText(name, index),
             viewer::kControlIcon);
    }
    if (cancelFill_) break;
  }
  cancelFill_ = false;
}

// ---- The IDE's selection
// -------------------------------------------------------------------------

vbide::VBComponentPtr docListView::SelectedComponent() const {
  return Main().gVBInstance->SelectedVBComponent();
}

vbide::CodeModulePtr docListView::SelectedCode() const {
  auto component = SelectedComponent();
  return component ? component->CodeModule() : nullptr;
}

vbide::VBFormPtr docListView::SelectedDesigner() const {
  auto component = SelectedComponent();
  return component ? component->Designer() : nullptr;
}

std::u16string docListView::SelectedKey() const {
  auto* item = lvwExplorer.SelectedItem();
  return item ? std::u16string(item->Key()) : std::u16string();
}

}  // namespace quillmark
