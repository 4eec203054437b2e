// quillmark::Connect: the "&Quillmark Tools" menu, the "Quillmark Tools" toolbar, their
// placement, the recent-search box and the click handlers.
#include "addin/Connect.h"

#include "addin/WindowCommands.h"
#include "addin/frmAbout.h"
#include "base/ResumeNext.h"
#include "newmember/frmNewMember.h"
#include "options/frmOptions.h"
#include "runtime/Resources.h"
#include "search/frmSearch.h"
#include "vbide/CommandBars.h"
#include "vbide/VBE.h"

namespace quillmark {
namespace {

constexpr std::u16string_view kMenuCaption = u"&Quillmark Tools";
constexpr std::u16string_view kToolbarName = u"Quillmark Tools";
constexpr std::u16string_view kToolbarErrorTitle = u"Error creating toolbar";
constexpr int kSearchComboWidth = 150;

// Button faces: resource bitmaps by number, and one by name.
constexpr int kFaceSearch = 101;
constexpr int kFaceClosePane = 104;
constexpr int kFaceClearDebug = 105;
constexpr int kFaceListView = 107;
constexpr std::u16string_view kFaceNewMember = u"NewMember";
constexpr int kNoFace = 0;

}  // namespace

vbide::CommandBarControlPtr Connect::AddControl(
    const vbide::CommandBarControlsPtr& controls, int type, std::u16string_view caption, int faceId,
    std::u16string_view faceName, bool beginGroup,
    std::function<void(const vbide::CommandBarControlPtr&)> handler) {
  auto control = controls->Add(type);
  if (!caption.empty()) control->SetCaption(caption);
  if (faceId != kNoFace || !faceName.empty()) {
    // The face goes through the clipboard; its previous content is not restored.
    auto& resources = main_.Rt().GetResources();
    main_.Rt().GetClipboard().SetData(faceId != kNoFace ? resources.LoadResPicture(faceId)
                                                        : resources.LoadResPicture(faceName));
    control->PasteFace();
  }
  if (beginGroup) control->SetBeginGroup(true);
  auto source = main_.gVBInstance->Events()->CommandBarEvents(control);
  clickSinks_.push_back(source->Click.Subscribe(
      [handler](vbide::CommandBarControlPtr c, bool&, bool&) { handler(c); }));
  clickSources_.push_back(source);
  return control;
}

void Connect::BuildMenu() {
  auto tools = main_.gVBInstance->CommandBars()->Item(u"Tools");
  menuPopup_ = tools->Controls()->Add(vbide::msoControlPopup);
  menuPopup_->SetCaption(kMenuCaption);
  auto items = menuPopup_->Controls();
  using C = const vbide::CommandBarControlPtr&;
  menuItems_ = {
      AddControl(items, vbide::msoControlButton, u"&Component Viewer", kFaceListView, {}, false,
                 [this](C) { Menu_ListView_Click(); }),
      AddControl(items, vbide::msoControlButton, u"&Visual Search and Replace", kFaceSearch, {},
                 true, [this](C) { Menu_Search_Click(); }),
      AddControl(items, vbide::msoControlButton, u"Close All &Windows", kFaceClosePane, {}, true,
                 [this](C) { Menu_ClosePane_Click(); }),
      AddControl(items, vbide::msoControlButton, u"Clear &Debug Window", kFaceClearDebug, {}, false,
                 [this](C) { Menu_ClearDebug_Click(); }),
      AddControl(items, vbide::msoControlButton, u"&Options...", kNoFace, {}, true,
                 [this](C) { Menu_Options_Click(); }),
      AddControl(items, vbide::msoControlButton, u"&About Quillmark Tools", kNoFace, {}, false,
                 [this](C) { Menu_About_Click(); }),
  };
}

void Connect::BuildToolbar() {
  try {
    toolbar_ = main_.gVBInstance->CommandBars()->Add(kToolbarName);
    toolbar_->SetProtection(vbide::msoBarNoCustomize);
    auto controls = toolbar_->Controls();
    using C = const vbide::CommandBarControlPtr&;
    toolbarControls_.push_back(AddControl(controls, vbide::msoControlButton, u"Component Viewer",
                                          kFaceListView, {}, false,
                                          [this](C) { Button_ListView_Click(); }));
    toolbarControls_.push_back(AddControl(controls, vbide::msoControlButton, u"New Member", kNoFace,
                                          kFaceNewMember, false,
                                          [this](C) { Button_NewMember_Click(); }));
    toolbarControls_.push_back(AddControl(controls, vbide::msoControlButton,
                                          u"Visual Search and Replace", kFaceSearch, {}, true,
                                          [this](C) { Button_Search_Click(); }));
    auto combo = AddControl(controls, vbide::msoControlComboBox, {}, kNoFace, {}, false,
                            [this](C c) { Button_SearchCombo_Click(c); });
    toolbarControls_.push_back(combo);
    combo->SetWidth(kSearchComboWidth);
    LoadSearchCombo();
    toolbarControls_.push_back(AddControl(controls, vbide::msoControlButton, u"Close All Windows",
                                          kFaceClosePane, {}, true,
                                          [this](C) { Button_ClosePane_Click(); }));
    toolbarControls_.push_back(AddControl(controls, vbide::msoControlButton, u"Clear Debug Window",
                                          kFaceClearDebug, {}, false,
                                          [this](C) { Button_ClearDebug_Click(); }));

    auto settings = main_.Settings();
    using namespace options::CommandBar;
    toolbar_->SetPosition(settings.Whole(kPosition));
    toolbar_->SetLeft(settings.Whole(kLeft));
    toolbar_->SetTop(settings.Whole(kTop));
    // The row matters only when docked at the top; elsewhere the stored row is left alone.
    if (toolbar_->Position() == vbide::msoBarTop) toolbar_->SetRowIndex(settings.Whole(kRowIndex));
    toolbar_->SetVisible(settings.WordBoolean(kVisible));
  } catch (const vb::Error& e) {
    // Building stops here; the toolbar stays as far as it was built and the menu is unaffected.
    main_.Rt().MsgBox(e.Description(), vb::vbExclamation, kToolbarErrorTitle);
  }
}

void Connect::SaveToolbar() {
  auto& bar = Obj(toolbar_);
  auto settings = main_.Settings();
  using namespace options::CommandBar;
  settings.WriteWordBoolean(kVisible, bar.Visible());
  settings.WriteWhole(kPosition, bar.Position());
  settings.WriteWhole(kLeft, bar.Left());
  settings.WriteWhole(kTop, bar.Top());
  if (bar.Position() == vbide::msoBarTop) settings.WriteWhole(kRowIndex, bar.RowIndex());
  bar.Delete();
  toolbar_.reset();
}

vbide::CommandBarComboBoxPtr Connect::SearchCombo() const {
  for (auto& c : toolbarControls_)
    if (auto combo = std::dynamic_pointer_cast<vbide::CommandBarComboBox>(c)) return combo;
  return nullptr;
}

void Connect::LoadSearchCombo() {
  auto combo = SearchCombo();
  auto& box = Obj(combo);
  box.Clear();
  // The list position is the number after "Recent" in the key (Recent3 goes to position 3).
  for (auto& [position, text] : main_.Settings().RecentSearches()) box.AddItem(text, position);
}

// ---- Handlers ----------------------------------------------------------------------------------

void Connect::Menu_ListView_Click() {
  ShowListView();
}

void Connect::Menu_Search_Click() {
  ShowSearch(true);
}

void Connect::Menu_ClosePane_Click() {
  CloseAllWindows(*main_.gVBInstance);
}

void Connect::Menu_ClearDebug_Click() {
  ClearDebugWindow(*main_.gVBInstance, main_.Rt());
}

void Connect::Menu_Options_Click() {
  main_.gfrmOptions = vb::New<frmOptions>(main_);
  main_.gfrmOptions->Show(vb::vbModal);
  main_.gfrmOptions.reset();
}

void Connect::Menu_About_Click() {
  auto about = vb::New<frmAbout>(main_);
  about->Show(vb::vbModal);
}

// Opens the dialog modeless on the component the user is working on, on the tab it last showed.
void Connect::Button_NewMember_Click() {
  Obj(main_.gfrmNewMember).Add(frmNewMember::kKeepTab);
}

void Connect::Button_SearchCombo_Click(const vbide::CommandBarControlPtr& control) {
  auto combo = std::dynamic_pointer_cast<vbide::CommandBarComboBox>(control);
  ResumeNext([&] { ShowResults(); });
  ResumeNext([&] { main_.SearchText = Obj(combo).Text(); });
  ResumeNext([&] {
    // Picked from the list: the entry moves to the top. Typed: it is inserted again, even when
    // the list already holds it (intended).
    if (Obj(combo).ListIndex() == 0) return;
    for (int i = 1; i <= combo->ListCount(); ++i) {
      if (combo->List(i) == main_.SearchText) {
        combo->RemoveItem(combo->ListIndex());
        break;
      }
    }
  });
  ResumeNext([&] { Obj(combo).AddItem(main_.SearchText, 1); });
  ResumeNext([&] { Obj(combo).SetListIndex(1); });
  ResumeNext([&] { Obj(main_.gfrmSearch).ToolbarSearch(); });
  ResumeNext([&] {
    std::vector<std::u16string> entries;
    for (int i = 1; i <= Obj(combo).ListCount(); ++i) entries.push_back(combo->List(i));
    // Only ten are stored; the box keeps the rest until the add-in is disconnected.
    main_.Settings().SaveRecentSearches(entries);
  });
  ResumeNext([&] { Obj(main_.gfrmSearch).LoadSearchCombo(); });
}

}  // namespace quillmark
