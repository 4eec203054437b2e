// The contract between the headless engine and the Qt peers: one script of user actions, played
// once through the engine's User* calls and once by driving the widgets, leaves the same state.
#include <QCheckBox>
#include <QComboBox>
#include <QHeaderView>
#include <QLineEdit>
#include <QListWidget>
#include <QMouseEvent>
#include <QRadioButton>
#include <QTabBar>
#include <QTableView>
#include <sstream>
#include <string>
#include <vector>

#include "PeersFixture.h"
#include "PeersForms.h"
#include "runtime/Utf.h"
#include "runtime/VbConstants.h"
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

namespace {

using peerstest::frmContract;
using peerstest::Log;

// Everything a user could see of the form, one line per control.
std::string EngineState(frmContract& f) {
  std::ostringstream out;
  out << "txtFind " << vb::ToUtf8(f.txtFind.Text()) << " caret " << f.txtFind.SelStart() << "\n";
  out << "chkCase " << f.chkCase.Value() << "\n";
  out << "options " << f.optAll.Value() << f.optModule.Value() << "\n";
  out << "cboHistory " << vb::ToUtf8(f.cboHistory.Text()) << " " << f.cboHistory.ListIndex()
      << "\n";
  out << "lstTypes " << f.lstTypes.ListIndex();
  for (int i = 0; i < f.lstTypes.ListCount(); ++i) out << " " << f.lstTypes.Selected(i);
  out << "\ntabMode " << f.tabMode.SelectedItem()->index << "\nlvwRows";
  for (int i = 1; i <= f.lvwRows.ListItems().Count(); ++i) {
    auto& item = f.lvwRows.ListItems().Item(i);
    out << " " << vb::ToUtf8(item.Text()) << (item.Selected() ? "*" : "");
  }
  auto* active = f.ActiveControl();
  out << "\nactive " << (active ? vb::ToUtf8(active->Name()) : "none") << "\n";
  return out.str();
}

// The same, read from the widgets.
std::string WidgetState(QWidget* w, frmContract& f) {
  std::ostringstream out;
  auto* find = w->findChild<QLineEdit*>("txtFind");
  out << "txtFind " << find->text().toStdString() << " caret " << find->cursorPosition() << "\n";
  auto state = w->findChild<QCheckBox*>("chkCase")->checkState();
  out << "chkCase " << (state == Qt::Checked ? 1 : state == Qt::PartiallyChecked ? 2 : 0) << "\n";
  out << "options " << w->findChild<QRadioButton*>("optAll")->isChecked()
      << w->findChild<QRadioButton*>("optModule")->isChecked() << "\n";
  auto* combo = w->findChild<QComboBox*>("cboHistory");
  out << "cboHistory " << combo->currentText().toStdString() << " " << combo->currentIndex()
      << "\n";
  auto* list = w->findChild<QListWidget*>("lstTypes");
  out << "lstTypes " << list->currentRow();
  for (int i = 0; i < list->count(); ++i)
    out << " " << (list->item(i)->checkState() == Qt::Checked);
  out << "\ntabMode " << w->findChild<QTabBar*>()->currentIndex() + 1 << "\nlvwRows";
  auto* table = w->findChild<QTableView*>("lvwRows");
  for (int row = 0; row < table->model()->rowCount(); ++row) {
    out << " " << table->model()->index(row, 0).data().toString().toStdString()
        << (table->selectionModel()->isRowSelected(row, {}) ? "*" : "");
  }
  // The focus is the engine's to keep; Qt's follows it when the window is active.
  auto* active = f.ActiveControl();
  out << "\nactive " << (active ? vb::ToUtf8(active->Name()) : "none") << "\n";
  return out.str();
}

struct Step {
  std::string name;
  std::function<void(frmContract&)> headless;
  std::function<void(QWidget*)> qt;
};

void Key(frmContract& f, vb::Control& to, int code, int shift = 0) {
  if (!to.HasFocus()) to.SetFocus();
  f.UserKey(code, shift);
}

void Press(QWidget* target, int key, Qt::KeyboardModifiers modifiers, const QString& text = {}) {
  QKeyEvent press(QEvent::KeyPress, key, modifiers, text);
  QApplication::sendEvent(target, &press);
}

void ClickHeader(QTableView* table, int section) {
  auto* header = table->horizontalHeader();
  QPoint at(header->sectionViewportPosition(section) + 5, header->height() / 2);
  QPoint global = header->viewport()->mapToGlobal(at);
  QMouseEvent press(QEvent::MouseButtonPress, at, global, Qt::LeftButton, Qt::LeftButton, {});
  QApplication::sendEvent(header->viewport(), &press);
  QMouseEvent release(QEvent::MouseButtonRelease, at, global, Qt::LeftButton, Qt::NoButton, {});
  QApplication::sendEvent(header->viewport(), &release);
}

std::vector<Step> Script() {
  auto find = [](QWidget* w) { return w->findChild<QLineEdit*>("txtFind"); };
  auto typeKey = [](int qtKey, int vbCode, const char* text, bool shifted = false) {
    return Step{std::string("type ") + text,
                [=](frmContract& f) { Key(f, f.txtFind, vbCode, shifted ? vb::vbShiftMask : 0); },
                [=](QWidget* w) {
                  Press(w->findChild<QLineEdit*>("txtFind"), qtKey,
                        shifted ? Qt::ShiftModifier : Qt::NoModifier, text);
                }};
  };
  return {
      typeKey(Qt::Key_A, 'A', "a"),
      typeKey(Qt::Key_X, 'X', "x"),
      typeKey(Qt::Key_9, '9', "9"),
      typeKey(Qt::Key_B, 'B', "B", true),
      typeKey(Qt::Key_Backspace, vb::vbKeyBack, ""),
      {"click chkCase", [](frmContract& f) { f.chkCase.UserClick(); },
       [](QWidget* w) { w->findChild<QCheckBox*>("chkCase")->click(); }},
      {"click optModule", [](frmContract& f) { f.optModule.UserClick(); },
       [](QWidget* w) { w->findChild<QRadioButton*>("optModule")->click(); }},
      {"pick beta", [](frmContract& f) { f.cboHistory.UserPick(1); },
       [](QWidget* w) {
         auto* combo = w->findChild<QComboBox*>("cboHistory");
         combo->setCurrentIndex(1);
         Q_EMIT combo->activated(1);  // what the widget says when the user picks
       }},
      {"type into the combo", [](frmContract& f) { Key(f, f.cboHistory, 'Z', vb::vbShiftMask); },
       [](QWidget* w) {
         Press(w->findChild<QComboBox*>("cboHistory")->lineEdit(), Qt::Key_Z, Qt::ShiftModifier,
               "Z");
       }},
      {"check Property", [](frmContract& f) { f.lstTypes.UserCheck(2, true); },
       [](QWidget* w) {
         w->findChild<QListWidget*>("lstTypes")->item(2)->setCheckState(Qt::Checked);
       }},
      {"choose Replace", [](frmContract& f) { f.tabMode.UserSelectTab(2); },
       [](QWidget* w) { w->findChild<QTabBar*>()->setCurrentIndex(1); }},
      {"sort by Module", [](frmContract& f) { f.lvwRows.UserColumnClick(1); },
       [](QWidget* w) { ClickHeader(w->findChild<QTableView*>("lvwRows"), 0); }},
      {"select row 2", [](frmContract& f) { f.lvwRows.UserSelectRows({2}); },
       [](QWidget* w) {
         auto* table = w->findChild<QTableView*>("lvwRows");
         table->selectionModel()->setCurrentIndex(
             table->model()->index(1, 0),
             QItemSelectionModel::ClearAndSelect | QItemSelectionModel::Rows);
       }},
      {"Enter in txtFind", [](frmContract& f) { Key(f, f.txtFind, vb::vbKeyReturn); },
       [find](QWidget* w) { Press(find(w), Qt::Key_Return, Qt::NoModifier); }},
      {"Escape in txtFind", [](frmContract& f) { Key(f, f.txtFind, vb::vbKeyEscape); },
       [find](QWidget* w) { Press(find(w), Qt::Key_Escape, Qt::NoModifier); }},
  };
}

class PeersContractTest : public peerstest::PeersFixture {};

TEST_F(PeersContractTest, OneScriptGivesTheSameStatesHeadlessAndThroughTheWidgets) {
  auto headlessRuntime = vb::Runtime::CreateHeadless();
  Log headlessLog;
  Log qtLog;
  auto headless = vb::New<frmContract>(*headlessRuntime, headlessLog);
  auto drawn = vb::New<frmContract>(*runtime, qtLog);
  headless->Show();
  drawn->Show();
  QWidget* window = studio::WidgetOf(*drawn);
  ASSERT_NE(window, nullptr);
  Settle();

  for (const auto& step : Script()) {
    SCOPED_TRACE(step.name);
    step.headless(*headless);
    step.qt(window);
    Settle();
    EXPECT_EQ(EngineState(*drawn), EngineState(*headless));
    EXPECT_EQ(WidgetState(window, *drawn), EngineState(*drawn));
  }
  EXPECT_EQ(qtLog, headlessLog);
  // The script did reach every handler (a contract over nothing would pass as well).
  EXPECT_EQ(headlessLog.size(), 16u);
}

TEST_F(PeersContractTest, CodeChangesShowAtOnceInTheWidgets) {
  Log log;
  auto form = vb::New<frmContract>(*runtime, log);
  form->Show();
  QWidget* window = studio::WidgetOf(*form);
  form->txtFind.SetText(u"Public Sub");
  form->chkCase.SetValue(2);
  form->optModule.SetValue(true);
  form->cboHistory.SetListIndex(2);
  form->lstTypes.SetSelected(0, true);
  form->lstTypes.SetListIndex(1);
  form->tabMode.SetSelectedItem(form->tabMode.Tabs(2));
  form->lvwRows.ListItems().Item(3).SetSelected(true);
  form->lvwRows.ListItems().Item(1).SetText(u"Renamed");
  EXPECT_EQ(WidgetState(window, *form), EngineState(*form));

  form->chkCase.SetVisible(false);
  form->cmdFind.SetEnabled(false);
  form->cmdFind.SetCaption(u"Find &Next");
  form->txtFind.Move(240, 240, 1500, 300);
  EXPECT_TRUE(window->findChild<QCheckBox*>("chkCase")->isHidden());
  EXPECT_FALSE(window->findChild<QWidget*>("cmdFind")->isEnabled());
  EXPECT_EQ(window->findChild<QAbstractButton*>("cmdFind")->text(), "Find &Next");
  EXPECT_EQ(window->findChild<QWidget*>("txtFind")->geometry(), QRect(16, 16, 100, 20));
  EXPECT_EQ(window->findChild<QWidget*>("optModule")->parentWidget()->objectName(), "fraScope");
}

}  // namespace
