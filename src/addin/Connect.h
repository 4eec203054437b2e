// quillmark::Connect: the add-in's connection class ("QuillmarkTools.Connect"). The IDE calls its
// four IDTExtensibility operations; everything else is created, wired and torn down from here.
#pragma once

#include <memory>
#include <vector>

#include "base/ConnectRef.h"
#include "base/IConnect.h"
#include "base/mdlMain.h"
#include "vbide/Event.h"
#include "vbide/Events.h"
#include "vbide/Extensibility.h"

namespace quillmark {

inline constexpr std::u16string_view kProgId = u"QuillmarkTools.Connect";
inline constexpr std::u16string_view kListViewProgId = u"QuillmarkTools.docListView";
inline constexpr std::u16string_view kResultsProgId = u"QuillmarkTools.docResults";

class Connect final : public vbide::IDTExtensibility, public IConnect {
 public:
  explicit Connect(std::shared_ptr<vb::Runtime> runtime);
  ~Connect() override;

  // ---- IDTExtensibility
  void OnConnection(const vbide::VBEPtr& application, vbide::ext_ConnectMode connectMode,
                    const vbide::AddInPtr& addInInst) override;
  void OnDisconnection(vbide::ext_DisconnectMode removeMode) override;
  void OnAddInsUpdate() override;
  void OnStartupComplete() override;

  // ---- Public operations (IConnect), called back by the dialogs and tool windows
  void ShowListView() override;
  std::shared_ptr<docResults> ShowResults() override;
  void ShowSearch(bool show) override;
  void HideListView() override;
  void HideResults() override;
  void HideSearch() override;
  void LoadSearchCombo() override;
  void CodeModified() override;
  mdlMain& Main() override { return main_; }

  // ---- Menu and toolbar handlers
  void Menu_ListView_Click();
  void Menu_Search_Click();
  void Menu_ClosePane_Click();
  void Menu_ClearDebug_Click();
  void Menu_Options_Click();
  void Menu_About_Click();
  void Button_ListView_Click() { Menu_ListView_Click(); }
  void Button_NewMember_Click();
  void Button_Search_Click() { Menu_Search_Click(); }
  void Button_SearchCombo_Click(const vbide::CommandBarControlPtr& control);
  void Button_ClosePane_Click() { Menu_ClosePane_Click(); }
  void Button_ClearDebug_Click() { Menu_ClearDebug_Click(); }

  // ---- IDE events
  void ProjectEvents_ItemActivated(const vbide::VBProjectPtr& project);
  void ComponentEvents_ItemActivated(const vbide::VBComponentPtr& component);
  void ComponentEvents_ItemSelected(const vbide::VBComponentPtr& component);

  // What the menu and toolbar hold (tests and the tour read them).
  const vbide::CommandBarControlPtr& MenuPopup() const { return menuPopup_; }
  const vbide::CommandBarPtr& Toolbar() const { return toolbar_; }
  vbide::CommandBarComboBoxPtr SearchCombo() const;

 private:
  void ReopenWindows(bool atStartup);
  void FindMainWindow();
  void BuildMenu();
  void BuildToolbar();
  void SaveToolbar();
  // Adds a control, sets its caption, face and group line, and binds its click to `handler`.
  vbide::CommandBarControlPtr AddControl(
      const vbide::CommandBarControlsPtr& controls, int type, std::u16string_view caption,
      int faceId, std::u16string_view faceName, bool beginGroup,
      std::function<void(const vbide::CommandBarControlPtr&)> handler);

  mdlMain main_;
  // Cut at disconnection: the tool windows that outlive it get error 91, not freed memory.
  ConnectAnchor anchor_{*this};
  vbide::AddInPtr addIn_;
  vbide::CommandBarControlPtr menuPopup_;
  std::vector<vbide::CommandBarControlPtr> menuItems_;
  vbide::CommandBarPtr toolbar_;
  std::vector<vbide::CommandBarControlPtr> toolbarControls_;
  // One click sink per menu item and toolbar control, kept for as long as clicks are wanted.
  std::vector<vbide::CommandBarEventsPtr> clickSources_;
  std::vector<vbide::Subscription> clickSinks_;
  vbide::VBProjectsEventsPtr projectEvents_;
  vbide::VBComponentsEventsPtr componentEvents_;
  std::vector<vbide::Subscription> ideSinks_;
};

}  // namespace quillmark
