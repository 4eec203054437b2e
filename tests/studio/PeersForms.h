// A find dialog with a control of every kind, for the contract and screenshot tests.
#pragma once

#include <string>
#include <vector>

#include "runtime/Runtime.h"
#include "runtime/Utf.h"
#include "runtime/forms/CheckBox.h"
#include "runtime/forms/ComboBox.h"
#include "runtime/forms/CommandButton.h"
#include "runtime/forms/Form.h"
#include "runtime/forms/Frame.h"
#include "runtime/forms/ListBox.h"
#include "runtime/forms/ListView.h"
#include "runtime/forms/OptionButton.h"
#include "runtime/forms/TabStrip.h"
#include "runtime/forms/TextBox.h"

namespace peerstest {

using Log = std::vector<std::string>;

// A find dialog with one control of each kind, whose handlers log what they see. KeyPreview
// refuses the digit 9 everywhere; the find box types x as X.
class frmContract : public vb::Form {
 public:
  frmContract(vb::Runtime& runtime, Log& log) : Form(runtime, u"frmContract"), log_(log) {
    SetKeyPreview(true);
    Move(0, 0, 7200, 5400);
    txtFind.Move(120, 120, 3000, 300);
    chkCase.Move(120, 540, 2000, 255);
    chkCase.SetCaption(u"Match &case");
    fraScope.Move(3300, 120, 2400, 1000);
    fraScope.SetCaption(u"Scope");
    optAll.SetContainer(&fraScope);
    optModule.SetContainer(&fraScope);
    optAll.Move(120, 240, 2000, 255);
    optModule.Move(120, 540, 2000, 255);
    optAll.SetCaption(u"All projects");
    optModule.SetCaption(u"This module");
    optAll.SetValue(true);
    cboHistory.Move(120, 900, 3000, 315);
    for (auto* entry : {u"alpha", u"beta", u"gamma"}) cboHistory.AddItem(entry);
    lstTypes.SetStyle(1);
    lstTypes.Move(120, 1320, 3000, 900);
    for (auto* entry : {u"Sub", u"Function", u"Property"}) lstTypes.AddItem(entry);
    tabMode.Move(3300, 1320, 3600, 900);
    tabMode.Add(0, u"find", u"Find");
    tabMode.Add(0, u"replace", u"Replace");
    lvwRows.Move(120, 2400, 6800, 1800);
    lvwRows.ColumnHeaders().Add(0, {}, u"Module");
    lvwRows.ColumnHeaders().Add(0, {}, u"Line");
    for (auto* module : {u"mdlMain", u"Connect", u"frmSearch", u"docResults"}) {
      lvwRows.ListItems().Add(0, {}, module).SetSubItems(1, u"1");
    }
    cmdFind.Move(5700, 4400, 1215, 375);
    cmdFind.SetCaption(u"&Find");
    cmdFind.SetDefault(true);
    cmdClose.Move(4300, 4400, 1215, 375);
    cmdClose.SetCaption(u"Close");
    cmdClose.SetCancel(true);
    Wire();
  }

  vb::TextBox txtFind{*this, u"txtFind"};
  vb::CheckBox chkCase{*this, u"chkCase"};
  vb::Frame fraScope{*this, u"fraScope"};
  vb::OptionButton optAll{*this, u"optAll"};
  vb::OptionButton optModule{*this, u"optModule"};
  vb::ComboBox cboHistory{*this, u"cboHistory"};
  vb::ListBox lstTypes{*this, u"lstTypes"};
  vb::TabStrip tabMode{*this, u"tabMode"};
  vb::ListView lvwRows{*this, u"lvwRows"};
  vb::CommandButton cmdFind{*this, u"cmdFind"};
  vb::CommandButton cmdClose{*this, u"cmdClose"};

 protected:
  void Form_KeyPress(int& ascii) override {
    if (ascii == '9') ascii = 0;
  }

 private:
  void Add(std::string entry) { log_.push_back(std::move(entry)); }
  void Wire() {
    txtFind.KeyPress = [this](int& ascii) {
      if (ascii == 'x') ascii = 'X';
    };
    txtFind.Change = [this] { Add("txtFind_Change " + vb::ToUtf8(txtFind.Text())); };
    txtFind.GotFocus = [this] { Add("txtFind_GotFocus"); };
    chkCase.Click = [this] { Add("chkCase_Click " + std::to_string(chkCase.Value())); };
    optModule.Click = [this] { Add("optModule_Click"); };
    cboHistory.Click = [this] { Add("cboHistory_Click " + vb::ToUtf8(cboHistory.Text())); };
    cboHistory.Change = [this] { Add("cboHistory_Change " + vb::ToUtf8(cboHistory.Text())); };
    lstTypes.ItemCheck = [this](int item) { Add("lstTypes_ItemCheck " + std::to_string(item)); };
    tabMode.Click = [this] { Add("tabMode_Click " + vb::ToUtf8(tabMode.SelectedItem()->key)); };
    lvwRows.ItemClick = [this](vb::ListItem& item) {
      Add("lvwRows_ItemClick " + vb::ToUtf8(item.Text()));
    };
    lvwRows.ColumnClick = [this](vb::ColumnHeader& column) {
      Add("lvwRows_ColumnClick " + std::to_string(column.Index()));
      lvwRows.SetSortKey(column.SubItemIndex());
      lvwRows.SetSorted(true);
    };
    cmdFind.Click = [this] { Add("cmdFind_Click " + vb::ToUtf8(txtFind.Text())); };
    cmdClose.Click = [this] { Add("cmdClose_Click"); };
  }
  Log& log_;
};

}  // namespace peerstest
