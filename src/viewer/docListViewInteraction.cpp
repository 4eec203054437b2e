// quillmark::docListView: how the document answers the IDE's events and the user: the
// selector, clicks on rows, the label-edit gate, the popup menu and keys.
#include "base/ResumeNext.h"
#include "base/mdlMain.h"
#include "base/mdlMainHelpers.h"
#include "vbide/CodeModule.h"
#include "vbide/CodePane.h"
#include "vbide/Member.h"
#include "vbide/VBComponent.h"
#include "vbide/VBForm.h"
#include "viewer/ViewerRows.h"
#include "viewer/docListView.h"

namespace quillmark {
namespace {

using viewer::RowKey;
constexpr int kEnter = 13;
constexpr int kF5 = 116;
constexpr int kRightButton = 2;

}  // namespace

// ---- IDE events --------------------------------------------------------------------------------

void docListView::ComponentEvents_ItemReloaded(const vbide::VBComponentPtr&) {
  Refresh();
}

void docListView::ComponentEvents_ItemSelected(const vbide::VBComponentPtr&) {
  // The IDE reports the new selection once its own handling of the click is done.
  runtime_.DoEvents();
  Refresh();
}

void docListView::Connect_CodeModified() {
  Refresh();
}

bool docListView::ControlEventRefreshes() const {
  return cboListView.Text() == viewer::kViewCaptions[viewer::kControlsView] ||
         cboListView.ListIndex() == -1;
}

void docListView::ControlEvents_ItemAdded(const vbide::VBControlPtr&) {
  if (ControlEventRefreshes()) Refresh();
}

void docListView::ControlEvents_ItemRemoved(const vbide::VBControlPtr&) {
  if (ControlEventRefreshes()) Refresh();
}

void docListView::ControlEvents_ItemRenamed(const vbide::VBControlPtr&, const std::u16string&,
                                            int) {
  if (ControlEventRefreshes()) Refresh();
}

// ---- The selector ------------------------------------------------------------------------------

void docListView::cboListView_KeyPress(int& keyAscii) {
  if (keyAscii != kEnter) return;
  const std::u16string& text = cboListView.Text();
  // A typed filter joins the list, once per Enter: the same text twice is listed twice.
  if (cboListView.ListIndex() == -1 && !text.empty() &&
      viewer::ViewNumber(text) == viewer::kCustomView)
    cboListView.AddItem(text);
  Refresh();
  keyAscii = 0;
}

// ---- Rows --------------------------------------------------------------------------------------

void docListView::lvwExplorer_Click() {
  auto* item = lvwExplorer.SelectedItem();
  if (!item) return;
  RowKey row = RowKey::Parse(item->Key());
  if (row.tag != RowKey::Tag::Control) return;
  auto designer = SelectedDesigner();
  if (!designer) return;
  for (auto& control : designer->VBControls()->Items()) {
    if (control->Name() == row.name && control->Index() == row.number)
      control->ControlObject()->ZOrder(0);
  }
}

void docListView::lvwExplorer_DblClick() {
  auto* item = lvwExplorer.SelectedItem();
  auto component = SelectedComponent();
  if (!item || !component) return;
  RowKey row = RowKey::Parse(item->Key());
  if (row.tag == RowKey::Tag::Member || row.tag == RowKey::Tag::Declarations) {
    auto code = component->CodeModule();
    if (!code) return;
    auto pane = code->CodePane();
    pane->Show();
    // A caret at the start of the declaration line, nothing selected.
    int line = row.tag == RowKey::Tag::Member
                   ? code->Members()->Item(std::u16string(item->Text()))->CodeLocation()
                   : 1;
    pane->SetSelection(line, 1, line, 1);
    return;
  }
  component->Activate();
}

void docListView::lvwExplorer_BeforeLabelEdit(int& cancel) {
  std::u16string key = SelectedKey();
  if (key.empty() || (key[0] != u'M' && key[0] != u'C')) cancel = 1;
}

void docListView::lvwExplorer_MouseUp(int button, int, float, float) {
  if (button != kRightButton) return;
  // Errors are ignored: with no row selected the tag is empty and only New is enabled.
  ResumeNext([&] {
    if (!SelectedComponent()) return;
    auto tag = RowKey::Parse(SelectedKey()).tag;
    mnuPopupSelect.SetEnabled(tag == RowKey::Tag::Control);
    mnuPopupRename.SetEnabled(tag == RowKey::Tag::Control || tag == RowKey::Tag::Member);
    mnuPopupDelete.SetEnabled(mnuPopupRename.Enabled());
    PopupMenu(mnuPopup);
  });
}

// ---- Keys --------------------------------------------------------------------------------------

void docListView::UserDocument_KeyDown(int& keyCode, int shift) {
  if (keyCode == kF5) {
    Refresh();
    return;
  }
  PassAltKeyToIDE(Main(), *this, keyCode, shift);
}

}  // namespace quillmark
