// Auto-Save and the Options dialog in the studio, driven through the real widgets: a code edit
// marked in the Project window, the countdown over the main window answered with Escape and
// Enter, and the results window's columns changed by Options at once.
#include <QCheckBox>
#include <QLabel>
#include <QListWidget>
#include <QMdiArea>
#include <QMdiSubWindow>
#include <QPushButton>
#include <QTest>
#include <QTimer>
#include <chrono>

#include "host/CodeModule.h"
#include "host/CodePane.h"
#include "host/Component.h"
#include "host/Project.h"
#include "options/frmAutoSave.h"
#include "options/frmOptions.h"
#include "runtime/SettingsStore.h"
#include "search/docResults.h"
#include "studio/ClippedCaptions.h"
#include "studio/CodeEditor.h"
#include "studio/ProjectExplorer.h"
#include "studio/StudioFixture.h"
#include "studio/peers/QtToolkit.h"
#include "support/TempFolder.h"

namespace studiotest {
namespace {

using namespace std::chrono_literals;
using StudioOptions = StudioTest;

QPushButton* Button(QWidget* window, const QString& text) {
  for (auto* button : window->findChildren<QPushButton*>())
    if (button->text() == text) return button;
  return nullptr;
}

TEST_F(StudioOptions, AnEditedModuleIsMarkedThenAutoSavedAfterTheCountdownOverTheMainWindow) {
  Start();
  auto& settings = studioPtr->Desk().runtime->Settings();
  settings.SaveSetting(u"Quillmark Tools", u"Options", u"AutoSave", u"1");
  settings.SaveSetting(u"Quillmark Tools", u"Options", u"SaveInterval", u"1");
  std::shared_ptr<host::Component> component = Named(u"modMain");
  ASSERT_NE(component, nullptr);
  auto file = component->Path();
  std::string before = qmtest::TempFolder::Read(file);
  component->Module()->CodePane()->Show();
  Settle();
  studio::CodeEditor* editor = Window().CodeEditors().at(0);
  QMdiSubWindow* codeWindow = Window().Area().activeSubWindow();
  ASSERT_NE(codeWindow, nullptr);
  editor->setFocus();
  QTest::keyClicks(editor, "' kept ");
  Settle();
  auto* explorer = Window().findChild<studio::ProjectExplorer*>();
  EXPECT_EQ(explorer->ItemOf(component)->text(0), QStringLiteral("modMain *"));

  auto& loop = studioPtr->Desk().runtime->Loop();
  auto* autoSave = studioPtr->Desk().Addin()->Main().gfrmAutoSave.get();
  QWidget* countdown = studio::WidgetOf(*autoSave);
  loop.Advance(2min);  // the second minute boundary after connecting
  Settle();
  ASSERT_TRUE(countdown->isVisible());
  EXPECT_EQ(ClippedCaptions(countdown), "");
  EXPECT_TRUE(Window().frameGeometry().contains(countdown->frameGeometry().center()));
  EXPECT_EQ(Window().Area().activeSubWindow(), codeWindow);  // the code window keeps its place
  QTest::keyClick(countdown, Qt::Key_Escape);
  Settle();
  EXPECT_FALSE(countdown->isVisible());
  EXPECT_EQ(qmtest::TempFolder::Read(file), before);

  loop.Advance(2min);
  Settle();
  ASSERT_TRUE(countdown->isVisible());
  QTest::keyClick(countdown, Qt::Key_Return);
  Settle();
  EXPECT_FALSE(countdown->isVisible());
  // Only the edited line differs: it stands where the first code line stood.
  std::string header = "Attribute VB_Name = \"modMain\"\r\n";
  std::string expected = before;
  expected.insert(before.find(header) + header.size(), "' kept ");
  EXPECT_EQ(qmtest::TempFolder::Read(file), expected);
  EXPECT_EQ(explorer->ItemOf(component)->text(0), QStringLiteral("modMain"));
  EXPECT_EQ(Window().Area().activeSubWindow(), codeWindow);
}

TEST_F(StudioOptions, OptionsFromTheToolsMenuReordersTheResultsColumnsAtOnce) {
  Start();
  auto& main = studioPtr->Desk().Addin()->Main();
  main.connect->ShowResults();
  Settle();
  bool acted = false;
  QTimer::singleShot(0, [&] {
    QWidget* dialog = studio::WidgetOf(*main.gfrmOptions);
    EXPECT_EQ(ClippedCaptions(dialog), "");
    auto* list = dialog->findChild<QListWidget*>(QStringLiteral("lstColumns"));
    ASSERT_NE(list, nullptr);
    // Code to the top with the keyboard and the Move Up button, then Line hidden with Space.
    QTest::mouseClick(list->viewport(), Qt::LeftButton, {},
                      list->visualItemRect(list->item(4)).center());
    for (int i = 0; i < 4; ++i) QTest::mouseClick(Button(dialog, "Move &Up"), Qt::LeftButton);
    list->setFocus();
    QTest::mouseClick(list->viewport(), Qt::LeftButton, {},
                      list->visualItemRect(list->item(4)).center());
    QTest::keyClick(list, Qt::Key_Space);
    EXPECT_TRUE(Button(dialog, "Apply")->isEnabled());
    QTest::mouseClick(Button(dialog, "OK"), Qt::LeftButton);
    acted = true;
  });
  QAction* options = Item(Menu(QStringLiteral("&Quillmark Tools")), QStringLiteral("&Options..."));
  ASSERT_NE(options, nullptr);
  options->trigger();
  Settle();
  EXPECT_TRUE(acted);
  EXPECT_EQ(main.gfrmOptions, nullptr);
  EXPECT_EQ(studioPtr->Desk().runtime->Settings().GetSetting(u"Quillmark Tools", u"Options",
                                                             u"Columns", u""),
            u"Code,1|Project,1|Module,1|Procedure,1|Line,0");
  auto& headers = main.gdocResults->lvwSearch.ColumnHeaders();
  ASSERT_EQ(headers.Count(), 4);
  EXPECT_EQ(headers.Item(1).Text(), u"Code");
}

}  // namespace
}  // namespace studiotest
