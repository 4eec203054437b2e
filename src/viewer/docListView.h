// quillmark::docListView: the Component Viewer tool window's document. It lists the controls on
// the designer of the component selected in the IDE, or the members of its code module, and
// renames, deletes and selects them from its popup menu.
#pragma once

#include <cstdint>
#include <string>
#include <string_view>

#include "base/ConnectRef.h"
#include "runtime/UserDocument.h"
#include "runtime/forms/ComboBox.h"
#include "runtime/forms/ControlArray.h"
#include "runtime/forms/ImageList.h"
#include "runtime/forms/ListView.h"
#include "runtime/forms/Menu.h"
#include "runtime/forms/PictureBox.h"
#include "vbide/Event.h"
#include "vbide/Fwd.h"

namespace quillmark {

struct mdlMain;

// The list is rebuilt only by Refresh, never patched, except that a rename rewrites its row.
// A fill pumps the message loop every 20 members, so a refresh can arrive while one runs: it
// cancels the running fill, which then starts over with the selector's text of that moment; a
// third request that arrives while that cancellation is pending is dropped, as the fill that
// starts over already serves it. Intended; keep it.
class docListView final : public vb::UserDocument {
 public:
  explicit docListView(vb::Runtime& runtime);
  ~docListView() override;
  // The connection hands over a reference to itself when it creates the window; the document
  // then subscribes to the IDE's component and control events and to CodeModified.
  void SetConnect(ConnectRef connect);

  // Rebuilds the list for the selector's text.
  void Refresh();
  bool Filling() const { return filling_; }
  bool CancelFill() const { return cancelFill_; }
  bool Suspended() const { return suspended_; }

  // The event handlers: every one ends in a full Refresh (the control events only while the
  // controls are shown).
  void ComponentEvents_ItemReloaded(const vbide::VBComponentPtr& component);
  void ComponentEvents_ItemSelected(const vbide::VBComponentPtr& component);
  void Connect_CodeModified();
  void ControlEvents_ItemAdded(const vbide::VBControlPtr& control);
  void ControlEvents_ItemRemoved(const vbide::VBControlPtr& control);
  void ControlEvents_ItemRenamed(const vbide::VBControlPtr& control, const std::u16string& oldName,
                                 int oldIndex);

  // mnuPopupNewMember's entries, by index.
  static constexpr int kNewMethod = 0;
  static constexpr int kNewProperty = 1;
  static constexpr int kNewConstant = 2;
  static constexpr int kNewVariable = 3;
  static constexpr int kNewEvent = 4;

  vb::PictureBox picListView{*this, u"picListView"};
  vb::ComboBox cboListView{*this, u"cboListView"};
  vb::ListView lvwExplorer{*this, u"lvwExplorer"};
  vb::ImageList ImageList1{*this, u"ImageList1"};
  vb::Menu mnuPopup{*this, u"mnuPopup"};
  vb::Menu mnuPopupNew{*this, u"mnuPopupNew"};
  vb::ControlArray<vb::Menu> mnuPopupNewMember{
      *this,
      u"mnuPopupNewMember",
      {kNewMethod, kNewProperty, kNewConstant, kNewVariable, kNewEvent}};
  vb::Menu mnuPopupRename{*this, u"mnuPopupRename"};
  vb::Menu mnuPopupDelete{*this, u"mnuPopupDelete"};
  vb::Menu mnuPopupSep1{*this, u"mnuPopupSep1"};
  vb::Menu mnuPopupSelect{*this, u"mnuPopupSelect"};

 protected:
  void UserDocument_Resize() override;
  void UserDocument_Show() override { UserDocument_Resize(); }
  void UserDocument_KeyDown(int& keyCode, int shift) override;
  void UserDocument_Terminate() override;

 private:
  // Listing (docListView.cpp).
  void BuildColumns(std::u16string_view caption);
  void FillMembers(int view, std::u16string_view filter);
  void FillControls(std::u16string_view filter);
  void AddRow(std::u16string_view key, std::u16string_view text, std::u16string_view icon);
  void picListView_Resize();
  // Interaction (docListViewInteraction.cpp).
  void cboListView_Click() { Refresh(); }
  void cboListView_KeyPress(int& keyAscii);
  void lvwExplorer_Click();
  void lvwExplorer_DblClick();
  void lvwExplorer_BeforeLabelEdit(int& cancel);
  void lvwExplorer_MouseUp(int button, int shift, float x, float y);
  bool ControlEventRefreshes() const;
  // Editing (docListViewEditing.cpp).
  void mnuPopupNewMember_Click(int index);
  void mnuPopupRename_Click();
  void mnuPopupDelete_Click();
  void mnuPopupSelect_Click();
  void lvwExplorer_AfterLabelEdit(int& cancel, std::u16string& newString);
  bool RenameMember(std::u16string_view oldName, std::u16string_view newName);
  void RenameControl(std::u16string_view oldName, int index, std::u16string_view newName);
  void DeleteMember(std::u16string_view name);
  void DeleteControl(std::u16string_view name, int index, bool withCode);
  // The key of the selected row, "" when none is selected.
  std::u16string SelectedKey() const;
  // The component the IDE reports as selected (null when none), and its code module and
  // designer (null when it has none).
  vbide::VBComponentPtr SelectedComponent() const;
  vbide::CodeModulePtr SelectedCode() const;
  vbide::VBFormPtr SelectedDesigner() const;
  // The add-in's state while connected; run-time error 91 once the connection is gone.
  mdlMain& Main() const { return connect_.Main(); }

  vb::Runtime& runtime_;
  ConnectRef connect_;
  bool filling_ = false;
  bool cancelFill_ = false;
  bool suspended_ = false;
  bool restartFill_ = false;  // a cancelled fill starts over
  vbide::VBComponentsEventsPtr componentEvents_;
  vbide::VBControlsEventsPtr controlEvents_;
  vbide::Subscription reloaded_, selected_, codeModified_, controlAdded_, controlRemoved_,
      controlRenamed_;
};

}  // namespace quillmark
