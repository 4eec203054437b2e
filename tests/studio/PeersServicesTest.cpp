// The runtime's services on Qt: key codes, the clipboard, timers and posted work, top-most
// windows, popup menus and menu bars.
#include <QClipboard>
#include <QComboBox>
#include <QLineEdit>
#include <QMenu>
#include <QMenuBar>
#include <string>
#include <vector>

#include "PeersFixture.h"
#include "PeersForms.h"
#include "runtime/VbConstants.h"
#include "runtime/forms/Form.h"
#include "runtime/forms/Menu.h"
#include "runtime/forms/Timer.h"
#include "studio/peers/KeyMap.h"
#include "studio/peers/LoopDriver.h"

namespace {

using namespace std::chrono_literals;

TEST(KeyMap, QtKeysBecomeWindowsKeyCodes) {
  struct Case {
    int qtKey;
    Qt::KeyboardModifiers modifiers;
    int keyCode;
    int shift;
    bool engineTypes;
  };
  const std::vector<Case> cases{
      {Qt::Key_A, Qt::NoModifier, 'A', 0, true},
      {Qt::Key_Z, Qt::ShiftModifier, 'Z', vb::vbShiftMask, true},
      {Qt::Key_C, Qt::ControlModifier, 'C', vb::vbCtrlMask, false},
      {Qt::Key_7, Qt::NoModifier, '7', 0, true},
      {Qt::Key_7, Qt::ShiftModifier, '7', vb::vbShiftMask, false},  // types '&', not the engine's
      {Qt::Key_F5, Qt::NoModifier, vb::vbKeyF5, 0, false},
      {Qt::Key_Return, Qt::NoModifier, vb::vbKeyReturn, 0, false},
      {Qt::Key_Enter, Qt::KeypadModifier, vb::vbKeyReturn, 0, false},
      {Qt::Key_Backtab, Qt::ShiftModifier, vb::vbKeyTab, vb::vbShiftMask, false},
      {Qt::Key_Delete, Qt::AltModifier, vb::vbKeyDelete, vb::vbAltMask, false},
      {Qt::Key_Backspace, Qt::NoModifier, vb::vbKeyBack, 0, true},
      {Qt::Key_Space, Qt::NoModifier, vb::vbKeySpace, 0, true},
      {Qt::Key_Period, Qt::NoModifier, 0, 0, false},  // no code: the widget types it alone
  };
  for (const auto& c : cases) {
    SCOPED_TRACE(c.qtKey);
    auto key = studio::VbKeyOf(c.qtKey, c.modifiers);
    EXPECT_EQ(key.keyCode, c.keyCode);
    EXPECT_EQ(key.shift, c.shift);
    EXPECT_EQ(studio::EngineTypes(key), c.engineTypes);
  }
}

class PeersServicesTest : public peerstest::PeersFixture {};

TEST_F(PeersServicesTest, TheClipboardIsMirroredBothWays) {
  runtime->GetClipboard().SetText(u"Public Sub Main()");
  EXPECT_EQ(QGuiApplication::clipboard()->text(), "Public Sub Main()");

  QGuiApplication::clipboard()->setText("Dim i As Long");
  EXPECT_EQ(runtime->GetClipboard().GetText(), std::u16string(u"Dim i As Long"));

  vb::Picture face{2, 1, {0xFFFF0000, 0xFF00FF00}};
  runtime->GetClipboard().SetData(face);
  QImage image = QGuiApplication::clipboard()->image();
  ASSERT_EQ(image.size(), QSize(2, 1));
  EXPECT_EQ(image.pixel(1, 0), 0xFF00FF00u);

  QImage pasted(1, 2, QImage::Format_ARGB32);
  pasted.setPixel(0, 0, 0xFF0000FF);
  pasted.setPixel(0, 1, 0xFFFFFFFF);
  QGuiApplication::clipboard()->setImage(pasted);
  auto picture = runtime->GetClipboard().GetData();
  ASSERT_TRUE(picture.has_value());
  EXPECT_EQ(*picture, (vb::Picture{1, 2, {0xFF0000FF, 0xFFFFFFFF}}));
  EXPECT_FALSE(runtime->GetClipboard().GetText().has_value());
}

// The driver's own runtime, on a virtual clock that only the test moves.
TEST_F(PeersServicesTest, TheDriverWakesForPostedWorkAndForTimersWhenTheyFallDue) {
  auto own = vb::Runtime::CreateHeadless();
  studio::LoopDriver driver(*own);
  std::vector<std::string> log;
  EXPECT_EQ(driver.MillisecondsToNext(), -1);
  own->Loop().StartTimer(250, [&] { log.push_back("tick"); });
  EXPECT_EQ(driver.MillisecondsToNext(), 250);
  own->Loop().Post([&] { log.push_back("posted"); });
  EXPECT_EQ(driver.MillisecondsToNext(), 0);
  Settle();
  EXPECT_EQ(log, (std::vector<std::string>{"posted"}));
  EXPECT_EQ(driver.MillisecondsToNext(), 250);

  own->GetClock().AdvanceTo(own->Now() + 250ms);
  driver.Rearm();
  Settle();
  EXPECT_EQ(log, (std::vector<std::string>{"posted", "tick"}));
  EXPECT_EQ(driver.MillisecondsToNext(), 250);
}

class frmMenus : public vb::Form {
 public:
  explicit frmMenus(vb::Runtime& runtime, std::vector<std::string>& log)
      : Form(runtime, u"frmMenus") {
    mnuFile.SetCaption(u"&File");
    mnuSave.SetCaption(u"&Save");
    mnuSep.SetCaption(u"-");
    mnuExit.SetCaption(u"E&xit");
    mnuSave.SetParentMenu(&mnuFile);
    mnuSep.SetParentMenu(&mnuFile);
    mnuExit.SetParentMenu(&mnuFile);
    mnuPopup.SetCaption(u"Popup");
    mnuPopup.SetVisible(false);
    mnuCopy.SetCaption(u"&Copy");
    mnuCopy.SetParentMenu(&mnuPopup);
    mnuWrap.SetCaption(u"&Wrap");
    mnuWrap.SetChecked(true);
    mnuWrap.SetParentMenu(&mnuPopup);
    for (auto* item : {&mnuSave, &mnuExit, &mnuCopy, &mnuWrap}) {
      item->Click = [&log, item] { log.push_back(std::string("click ") + char(item->Name()[3])); };
    }
  }
  vb::Menu mnuFile{*this, u"mnuFile"};
  vb::Menu mnuSave{*this, u"mnuSave"};
  vb::Menu mnuSep{*this, u"mnuSep"};
  vb::Menu mnuExit{*this, u"mnuExit"};
  vb::Menu mnuPopup{*this, u"mnuPopup"};
  vb::Menu mnuCopy{*this, u"mnuCopy"};
  vb::Menu mnuWrap{*this, u"mnuWrap"};
};

TEST_F(PeersServicesTest, VisibleMenusMakeTheMenuBarAndItsItemsClick) {
  std::vector<std::string> log;
  auto form = vb::New<frmMenus>(*runtime, log);
  form->Show();
  Settle();
  auto* bar = studio::WidgetOf(*form)->findChild<QMenuBar*>();
  ASSERT_NE(bar, nullptr);
  ASSERT_EQ(bar->actions().size(), 1);  // the invisible popup menu is not on the bar
  EXPECT_EQ(bar->actions()[0]->text(), "&File");
  QMenu* file = bar->actions()[0]->menu();
  ASSERT_EQ(file->actions().size(), 3);
  EXPECT_TRUE(file->actions()[1]->isSeparator());
  file->actions()[2]->trigger();

  form->mnuSave.SetEnabled(false);
  Settle();
  file = bar->actions()[0]->menu();
  EXPECT_FALSE(file->actions()[0]->isEnabled());
  EXPECT_EQ(log, (std::vector<std::string>{"click E"}));
}

TEST_F(PeersServicesTest, APopupMenuReturnsAfterTheUsersChoice) {
  std::vector<std::string> log;
  auto form = vb::New<frmMenus>(*runtime, log);
  form->Show();
  QStringList shown;
  bool wrapChecked = false;
  WhenModal([&] {
    auto* popup = qobject_cast<QMenu*>(QApplication::activePopupWidget());
    ASSERT_NE(popup, nullptr);
    for (auto* action : popup->actions()) shown << action->text();
    wrapChecked = popup->actions()[1]->isChecked();
    popup->setActiveAction(popup->actions()[0]);
    PressKey(popup, Qt::Key_Return);
  });
  form->PopupMenu(form->mnuPopup, 600, 300);
  EXPECT_EQ(shown, (QStringList{"&Copy", "&Wrap"}));
  EXPECT_TRUE(wrapChecked);
  EXPECT_EQ(log, (std::vector<std::string>{"click C"}));
  EXPECT_TRUE(form->PoppedMenus().empty());  // shown by Qt, not recorded for a script
}

TEST_F(PeersServicesTest, TopMostFollowsTheWindowSystemCall) {
  std::vector<std::string> log;
  auto form = vb::New<frmMenus>(*runtime, log);
  form->Show();
  QWidget* window = studio::WidgetOf(*form);
  int keep = vb::kSwpNoMove | vb::kSwpNoSize;
  runtime->Windows().SetWindowPos(form->hWnd(), vb::kHwndTopMost, 0, 0, 0, 0, keep);
  EXPECT_TRUE(window->windowFlags() & Qt::WindowStaysOnTopHint);
  EXPECT_TRUE(window->isVisible());
  runtime->Windows().SetWindowPos(form->hWnd(), vb::kHwndNoTopMost, 0, 0, 0, 0, keep);
  EXPECT_FALSE(window->windowFlags() & Qt::WindowStaysOnTopHint);

  runtime->Windows().SetWindowPos(form->hWnd(), 0, 20, 30, 300, 200, 0);
  EXPECT_EQ(form->Left(), 300);
  EXPECT_EQ(window->pos(), QPoint(20, 30));
}

TEST_F(PeersServicesTest, TheFocusMovesTogetherInTheEngineAndInQt) {
  peerstest::Log log;
  auto form = vb::New<peerstest::frmContract>(*runtime, log);
  form->Show();
  QWidget* window = studio::WidgetOf(*form);
  window->activateWindow();
  Settle();
  form->cboHistory.SetFocus();  // code moves it: Qt follows
  EXPECT_EQ(QApplication::focusWidget(), window->findChild<QComboBox*>("cboHistory"));

  auto* find = window->findChild<QLineEdit*>("txtFind");
  find->setFocus(Qt::MouseFocusReason);  // the user moves it: the engine follows
  EXPECT_EQ(form->ActiveControl(), &form->txtFind);
  EXPECT_EQ(log, (peerstest::Log{"txtFind_GotFocus"}));
}

class frmSizable : public vb::Form {
 public:
  explicit frmSizable(vb::Runtime& runtime) : Form(runtime, u"frmSizable") {
    Move(1500, 1500, 4800, 3600);
  }
  std::vector<float> resized;

 protected:
  void Form_Resize() override { resized.push_back(ScaleWidth()); }
};

TEST_F(PeersServicesTest, TheUsersResizeIsTheFormsResize) {
  auto form = vb::New<frmSizable>(*runtime);
  form->Show();
  QWidget* window = studio::WidgetOf(*form);
  EXPECT_EQ(window->size(), QSize(312, 206));  // the 4680 x 3090 inner area
  window->resize(400, 300);
  Settle();
  EXPECT_EQ(form->ScaleWidth(), 6000);
  EXPECT_EQ(form->ScaleHeight(), 4500);
  EXPECT_EQ(form->resized, (std::vector<float>{4680, 6000}));

  form->SetMousePointer(vb::vbHourglass);
  EXPECT_EQ(window->cursor().shape(), Qt::WaitCursor);
  form->SetMousePointer(vb::vbDefault);
  EXPECT_EQ(window->cursor().shape(), Qt::ArrowCursor);
  form->SetEnabled(false);
  EXPECT_FALSE(window->isEnabled());
  form->SetCaption(u"Results - 3 matches");
  EXPECT_EQ(window->windowTitle(), "Results - 3 matches");
  form->SetWindowState(vb::vbMinimized);
  EXPECT_TRUE(window->isMinimized());
}

}  // namespace
