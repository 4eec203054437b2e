// The New Member dialog in the studio: opened from the add-in's toolbar over the code window of
// the module being edited, every caption whole on each tab, Enter and Escape as OK and Cancel,
// and what it writes shown at once in that code window.
#include <QAbstractButton>
#include <QCheckBox>
#include <QDir>
#include <QLabel>
#include <QLineEdit>
#include <QRadioButton>
#include <QTabBar>
#include <QTest>
#include <QToolBar>

#include "host/CodeModule.h"
#include "host/Component.h"
#include "host/Project.h"
#include "newmember/frmNewMember.h"
#include "studio/ClippedCaptions.h"
#include "studio/CodeEditor.h"
#include "studio/CommandBarView.h"
#include "studio/StudioFixture.h"

namespace studiotest {
namespace {

class StudioNewMember : public StudioTest {
 protected:
  // Opens the module's code window, presses the toolbar's New Member button and returns the
  // dialog's window.
  QWidget* OpenOn(std::u16string_view module) {
    Named(module)->Activate();
    Settle();
    QToolBar* bar = Window().Bars().ToolBarNamed(QStringLiteral("Quillmark Tools"));
    EXPECT_NE(bar, nullptr);
    for (QAction* action : bar->actions())
      if (action->text() == QStringLiteral("New Member")) action->trigger();
    Settle();
    return studio::WidgetOf(*studioPtr->Desk().Addin()->Main().gfrmNewMember);
  }
  QString CodeWindowText(std::u16string_view module) {
    for (auto* editor : Window().findChildren<studio::CodeEditor*>())
      if (editor->Pane()->CodeModule()->Parent()->Name() == module) return editor->toPlainText();
    return QStringLiteral("(no code window)");
  }
};

// Letters whose case the key event's text carries, with no Shift held: what Caps Lock or an
// input method sends. The typed name once came out in lower case.
void TypeKeys(QWidget* widget, const char* text) {
  QTest::keyClicks(widget, QString::fromLatin1(text));
}

TEST_F(StudioNewMember, EveryTabShowsItsCaptionsWholeBelowTheTabs) {
  Start();
  QWidget* dialog = OpenOn(u"modTax");
  ASSERT_NE(dialog, nullptr);
  ASSERT_TRUE(dialog->isVisible());
  auto* tabs = dialog->findChild<QTabBar*>();
  ASSERT_NE(tabs, nullptr);
  ASSERT_EQ(tabs->count(), 3);
  QDir().mkpath(QString(QM_BINARY_DIR) + "/studio-screenshots");
  for (int tab = 0; tab < 3; ++tab) {
    QTest::mouseClick(tabs, Qt::LeftButton, {}, tabs->tabRect(tab).center());
    Settle();
    EXPECT_EQ(tabs->currentIndex(), tab);
    // Written into the build folder for a person to look at.
    dialog->grab().save(QString(QM_BINARY_DIR) + "/studio-screenshots/frmNewMember-" +
                        tabs->tabText(tab) + ".png");
    EXPECT_EQ(ClippedCaptions(dialog), "") << tabs->tabText(tab).toStdString();
    for (auto* panel : dialog->findChildren<QWidget*>(QStringLiteral("picNew"))) {
      if (!panel->isVisibleTo(dialog)) continue;
      EXPECT_GE(panel->mapTo(dialog, QPoint(0, 0)).y(),
                tabs->mapTo(dialog, QPoint(0, tabs->height())).y())
          << "the panel stands below the row of tabs";
    }
  }
}

TEST_F(StudioNewMember, EnterWritesIntoTheOpenCodeWindowAtOnceAndEscapeCancels) {
  Start();
  QWidget* dialog = OpenOn(u"modTax");
  ASSERT_NE(dialog, nullptr);
  QTest::mouseClick(dialog->findChild<QTabBar*>(), Qt::LeftButton, {},
                    dialog->findChild<QTabBar*>()->tabRect(0).center());
  auto* name = dialog->findChild<QLineEdit*>(QStringLiteral("txtMethodName"));
  ASSERT_NE(name, nullptr);
  TypeKeys(name, "RoundUp");
  QTest::keyClick(name, Qt::Key_Return);
  Settle();
  EXPECT_FALSE(dialog->isVisible());
  EXPECT_TRUE(CodeWindowText(u"modTax").contains(QStringLiteral("Public Sub RoundUp()\n\nEnd Sub")))
      << CodeWindowText(u"modTax").toStdString();

  dialog = OpenOn(u"modTax");
  name = dialog->findChild<QLineEdit*>(QStringLiteral("txtMethodName"));
  TypeKeys(name, "Dropped");
  QTest::keyClick(name, Qt::Key_Escape);
  Settle();
  EXPECT_FALSE(dialog->isVisible());
  EXPECT_FALSE(CodeWindowText(u"modTax").contains(QStringLiteral("Dropped")));
}

}  // namespace
}  // namespace studiotest
