// quillmark::frmOptions.
#include "options/frmOptions.h"

#include <vector>

#include "base/ResultsWindow.h"
#include "base/ResumeNext.h"
#include "base/mdlMainHelpers.h"
#include "options/ColumnList.h"
#include "runtime/VbConstants.h"

namespace quillmark {
namespace {

constexpr int kMoveUp = 0;
constexpr int kMoveDown = 1;
constexpr int kDropdownList = 2;
constexpr int kCheckBoxList = 1;
constexpr int kMinInterval = 1;
constexpr int kMaxInterval = 999;
// The entries of cboSave; an entry's index is the value of "SaveNotify".
constexpr std::u16string_view kNotifications[] = {u"<None>", u"Beep", u"Message"};

}  // namespace

frmOptions::frmOptions(mdlMain& main) : Form(main.Rt(), u"frmOptions"), main_(main) {
  SetCaption(u"Options");
  SetBorderStyle(3);  // fixed dialog
  tabOptions.Add(1, u"General", u"General");
  picOptions(0).SetBorderStyle(0);
  chkSave.SetCaption(u"Enable Auto-&Save");
  lblSaveInterval.SetCaption(u"Save Interval:");
  lblMinutes.SetCaption(u"Minutes (1 - 999)");
  lblSaveNotify.SetCaption(u"Auto-Save notification:");
  cboSave.SetStyle(kDropdownList);
  for (auto text : kNotifications) cboSave.AddItem(std::u16string(text));
  lblColumns.SetCaption(u"Search Result Columns:");
  lstColumns.SetStyle(kCheckBoxList);
  cmdMoveCol(kMoveUp).SetCaption(u"Move &Up");
  cmdMoveCol(kMoveDown).SetCaption(u"Move &Down");
  cmdOK.SetCaption(u"OK");
  cmdOK.SetDefault(true);
  cmdCancel.SetCaption(u"Cancel");
  cmdCancel.SetCancel(true);
  cmdApply.SetCaption(u"Apply");
  cmdApply.SetEnabled(false);
  for (vb::Control* c : std::vector<vb::Control*>{
           &chkSave, &lblSaveInterval, &txtSave, &lblMinutes, &lblSaveNotify, &cboSave, &lblColumns,
           &lstColumns, &cmdMoveCol(kMoveUp), &cmdMoveCol(kMoveDown)})
    c->SetContainer(&picOptions(0));
  Layout();

  tabOptions.Click = [this] { tabOptions_Click(); };
  chkSave.Click = [this] { chkSave_Click(); };
  txtSave.KeyPress = [this](int& keyAscii) { txtSave_KeyPress(keyAscii); };
  txtSave.Change = [this] { Changed(); };
  cboSave.Click = [this] { Changed(); };
  lstColumns.ItemCheck = [this](int item) { lstColumns_ItemCheck(item); };
  cmdMoveCol.Wire(&vb::CommandButton::Click, [this](int index) { cmdMoveCol_Click(index); });
  cmdOK.Click = [this] { cmdOK_Click(); };
  cmdCancel.Click = [this] { cmdCancel_Click(); };
  cmdApply.Click = [this] { cmdApply_Click(); };
}

// The dialog as the designer placed it, in twips; the General panel's controls sit inside it.
void frmOptions::Layout() {
  Move(0, 0, 5700, 5145);
  tabOptions.Move(120, 120, 5355, 4020);
  picOptions(0).Move(240, 495, 5115, 3525);
  chkSave.Move(0, 60, 2415, 255);
  lblSaveInterval.Move(255, 435, 1545, 255);
  txtSave.Move(1845, 390, 615, 300);
  lblMinutes.Move(2550, 435, 1860, 255);
  lblSaveNotify.Move(255, 840, 2340, 255);
  cboSave.Move(2640, 795, 1770, 315);
  lblColumns.Move(0, 1305, 2415, 255);
  lstColumns.Move(0, 1575, 3540, 1860);
  cmdMoveCol(kMoveUp).Move(3720, 1575, 1335, 375);
  cmdMoveCol(kMoveDown).Move(3720, 2040, 1335, 375);
  cmdOK.Move(1860, 4275, 1095, 375);
  cmdCancel.Move(3075, 4275, 1095, 375);
  cmdApply.Move(4290, 4275, 1095, 375);
}

void frmOptions::Form_Load() {
  loading_ = true;
  LoadFormPosition(main_.Rt(), *this, false);
  auto settings = main_.Settings();
  chkSave.SetValue(settings.Whole(options::Options::kAutoSave) == 1 ? 1 : 0);
  txtSave.SetText(settings.Text(options::Options::kSaveInterval));
  // A stored value that names no entry leaves none chosen; saving with Auto-Save on then asks
  // for one.
  std::int32_t notify = settings.Whole(options::Options::kSaveNotify);
  if (notify >= 0 && notify < cboSave.ListCount()) cboSave.SetListIndex(notify);
  chkSave_Click();
  lstColumns.Clear();
  for (auto& entry : options::ParseColumnList(settings.Text(options::Options::kColumns))) {
    lstColumns.AddItem(entry.name);
    if (entry.shown) lstColumns.SetSelected(lstColumns.NewIndex(), true);
  }
  loading_ = false;
}

void frmOptions::Form_Unload(int&) {
  ResumeNext([&] { SaveFormPosition(main_.Rt(), *this, false); });
}

void frmOptions::tabOptions_Click() {
  int shown = tabOptions.SelectedItem() ? tabOptions.SelectedItem()->index - 1 : 0;
  picOptions.ForEach([&](vb::PictureBox& panel) { panel.SetVisible(panel.Index() == shown); });
}

void frmOptions::chkSave_Click() {
  bool on = chkSave.Value() == 1;
  txtSave.SetEnabled(on);
  cboSave.SetEnabled(on);
  Changed();
}

void frmOptions::txtSave_KeyPress(int& keyAscii) {
  bool digit = keyAscii >= u'0' && keyAscii <= u'9';
  if (!digit && keyAscii != vb::vbKeyBack) keyAscii = 0;
}

void frmOptions::lstColumns_ItemCheck(int) {
  Changed();
}

void frmOptions::cmdMoveCol_Click(int index) {
  int from = lstColumns.ListIndex();
  if (from < 0) return;
  int to = index == kMoveUp ? from - 1 : from + 1;
  if (to < 0 || to >= lstColumns.ListCount()) return;
  // The two entries swap names and check marks; the moved one stays highlighted.
  std::u16string name = lstColumns.List(from);
  bool shown = lstColumns.Selected(from);
  lstColumns.SetList(from, lstColumns.List(to));
  lstColumns.SetSelected(from, lstColumns.Selected(to));
  lstColumns.SetList(to, name);
  lstColumns.SetSelected(to, shown);
  lstColumns.SetListIndex(to);
  Changed();
}

void frmOptions::Changed() {
  if (!loading_) cmdApply.SetEnabled(true);
}

bool frmOptions::Validate() {
  if (chkSave.Value() == 1) {
    const std::u16string& text = txtSave.Text();
    double interval = vb::IsNumeric(text) ? vb::Val(text) : 0;
    if (interval < kMinInterval || interval > kMaxInterval) {
      main_.Rt().MsgBox(kInvalidIntervalMessage, vb::vbExclamation);
      return false;
    }
    if (cboSave.ListIndex() < 0) {
      main_.Rt().MsgBox(kNoNotifyMessage, vb::vbExclamation);
      return false;
    }
  }
  for (int i = 0; i < lstColumns.ListCount(); ++i)
    if (lstColumns.Selected(i)) return true;
  main_.Rt().MsgBox(kNoColumnMessage, vb::vbExclamation);
  return false;
}

bool frmOptions::SaveOptions() {
  if (!Validate()) return false;
  auto settings = main_.Settings();
  bool on = chkSave.Value() == 1;
  settings.Write(options::Options::kAutoSave, on ? u"1" : u"0");
  // As typed: with Auto-Save off the interval is not checked, and Auto-Save reads it as a number.
  settings.Write(options::Options::kSaveInterval, txtSave.Text());
  settings.WriteWhole(options::Options::kSaveNotify, cboSave.ListIndex());
  // The interval starts again from the moment of saving.
  if (on) main_.gLastSave = main_.Rt().Now();
  std::vector<options::ColumnEntry> entries;
  for (int i = 0; i < lstColumns.ListCount(); ++i)
    entries.push_back({lstColumns.List(i), lstColumns.Selected(i)});
  std::u16string columns = options::ColumnListText(entries);
  if (columns != settings.Text(options::Options::kColumns)) {
    settings.Write(options::Options::kColumns, columns);
    if (main_.gdocResults) LoadColumnHeaders(*main_.gdocResults);
  }
  cmdApply.SetEnabled(false);
  return true;
}

void frmOptions::cmdOK_Click() {
  if (SaveOptions()) Unload();
}

}  // namespace quillmark
