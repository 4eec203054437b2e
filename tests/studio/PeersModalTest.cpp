// Modal forms and message boxes on the Qt toolkit: nested loops that end when the form goes.
#include <QLabel>
#include <QMessageBox>
#include <QMetaEnum>
#include <QPushButton>
#include <QScreen>
#include <cstdlib>
#include <string>
#include <vector>

#include "PeersFixture.h"
#include "runtime/VbConstants.h"
#include "runtime/forms/CommandButton.h"
#include "runtime/forms/Form.h"
#include "runtime/forms/Label.h"
#include "runtime/forms/TextBox.h"
#include "studio/peers/MessageBoxPlan.h"

namespace {

using Log = std::vector<std::string>;

// "Replace all?": Yes unloads, No (the Cancel button) only hides, the title bar's close asks.
class frmAsk : public vb::Form {
 public:
  frmAsk(vb::Runtime& runtime, Log& log) : Form(runtime, u"frmAsk"), log_(log) {
    SetCaption(u"Replace All");
    SetBorderStyle(3);
    Move(1200, 1200, 4500, 1900);
    lblPrompt.SetCaption(u"Replace 12 occurrences in 3 modules?");
    lblPrompt.Move(120, 120, 4100, 400);
    txtNote.Move(120, 560, 4100, 300);
    cmdYes.SetCaption(u"&Yes");
    cmdYes.SetDefault(true);
    cmdYes.Move(1800, 960, 1215, 375);
    cmdNo.SetCaption(u"&No");
    cmdNo.SetCancel(true);
    cmdNo.Move(3120, 960, 1215, 375);
    cmdYes.Click = [this] {
      log_.push_back("cmdYes_Click");
      Unload();
    };
    cmdNo.Click = [this] {
      log_.push_back("cmdNo_Click");
      Hide();
    };
  }
  vb::Label lblPrompt{*this, u"lblPrompt"};
  vb::TextBox txtNote{*this, u"txtNote"};
  vb::CommandButton cmdYes{*this, u"cmdYes"};
  vb::CommandButton cmdNo{*this, u"cmdNo"};
  int refuseCloses = 0;

 protected:
  void Form_QueryUnload(int& cancel, int unloadMode) override {
    log_.push_back("QueryUnload " + std::to_string(unloadMode));
    if (refuseCloses > 0) {
      --refuseCloses;
      cancel = 1;
    }
  }

 private:
  Log& log_;
};

class PeersModalTest : public peerstest::PeersFixture {
 protected:
  Log log;
};

TEST_F(PeersModalTest, ClickingTheQtButtonRunsClickAndEndsTheLoop) {
  auto form = vb::New<frmAsk>(*runtime, log);
  QWidget* window = studio::WidgetOf(*form);
  ASSERT_NE(window, nullptr);
  bool shownModal = false;
  WhenModal([&] {
    shownModal = window->isVisible() && window->isModal();
    Child<QPushButton>(window, u"cmdYes")->click();
  });
  form->Show(vb::vbModal);
  EXPECT_TRUE(shownModal);
  EXPECT_EQ(log, (Log{"cmdYes_Click", "QueryUnload 1"}));
  EXPECT_FALSE(form->IsLoaded());
  EXPECT_FALSE(window->isVisible());
  EXPECT_EQ(runtime->Loop().PendingScripted(), 0u);
}

// The Cancel button's Click hides the form: code ends the loop as well as an unload does.
TEST_F(PeersModalTest, EscapeInAnyControlPressesTheCancelButtonWhichHidesTheForm) {
  auto form = vb::New<frmAsk>(*runtime, log);
  QWidget* window = studio::WidgetOf(*form);
  QRect placed;
  QString title, prompt;
  WhenModal([&] {
    title = window->windowTitle();
    placed = Child(window, u"cmdNo")->geometry();
    prompt = Child<QLabel>(window, u"lblPrompt")->text();
    PressKey(Child(window, u"txtNote"), Qt::Key_Escape);
  });
  form->Show(vb::vbModal);
  EXPECT_EQ(title, "Replace All");
  EXPECT_EQ(prompt, "Replace 12 occurrences in 3 modules?");
  EXPECT_EQ(placed, QRect(208, 64, 81, 25));  // twips / 15 at 96 dpi
  EXPECT_EQ(log, (Log{"cmdNo_Click"}));
  EXPECT_TRUE(form->IsLoaded());
  EXPECT_FALSE(form->Visible());
  EXPECT_FALSE(window->isVisible());
}

TEST_F(PeersModalTest, EnterPressesTheDefaultButtonAndTypingReachesTheTextBox) {
  auto form = vb::New<frmAsk>(*runtime, log);
  QWidget* window = studio::WidgetOf(*form);
  std::u16string typed;
  WhenModal([&] {
    QWidget* note = Child(window, u"txtNote");
    PressKey(note, Qt::Key_O, Qt::NoModifier, "o");
    PressKey(note, Qt::Key_K, Qt::ShiftModifier, "K");
    typed = form->txtNote.Text();
    PressKey(note, Qt::Key_Return);
  });
  form->Show(vb::vbModal);
  EXPECT_EQ(typed, u"oK");
  EXPECT_EQ(log, (Log{"cmdYes_Click", "QueryUnload 1"}));
}

TEST_F(PeersModalTest, TheTitleBarsCloseAsksQueryUnloadWhichMayRefuse) {
  auto form = vb::New<frmAsk>(*runtime, log);
  form->refuseCloses = 1;
  QWidget* window = studio::WidgetOf(*form);
  WhenModal([&] {
    window->close();  // refused: the loop goes on
    QTimer::singleShot(0, qApp, [&] { window->close(); });
  });
  form->Show(vb::vbModal);
  EXPECT_EQ(log, (Log{"QueryUnload 0", "QueryUnload 0"}));
  EXPECT_FALSE(form->IsLoaded());
}

TEST_F(PeersModalTest, AFormNobodyPlacedOpensCentredAndTheEngineKnowsWhere) {
  auto form = vb::New<frmAsk>(*runtime, log);
  form->Move(0, 0);
  form->Show();
  QWidget* window = studio::WidgetOf(*form);
  QRect screen = QGuiApplication::primaryScreen()->availableGeometry();
  QPoint centre = window->frameGeometry().center();
  EXPECT_LE(std::abs(centre.x() - screen.center().x()), 1);
  EXPECT_LE(std::abs(centre.y() - screen.center().y()), 1);
  EXPECT_EQ(form->Left(), window->x() * 15.0f);
  EXPECT_EQ(form->Top(), window->y() * 15.0f);
  form->Hide();
  form->Move(0, 0);
  form->Show();  // placed once: code may put it in the corner afterwards
  EXPECT_EQ(window->pos(), QPoint(0, 0));
}

// The message box the toolkit shows: title, text, icon, buttons and the default button.
class PeersMessageBoxTest : public peerstest::PeersFixture {
 protected:
  studio::QtToolkitOptions Options() const override {
    return {.realClock = false, .showMessageBoxes = true};
  }
};

TEST_F(PeersMessageBoxTest, AQuestionIsAskedInAQMessageBoxAndItsButtonIsTheAnswer) {
  QString title, text, defaultButton;
  QMessageBox::Icon icon = QMessageBox::NoIcon;
  int buttons = 0;
  WhenModal([&] {
    auto* box = qobject_cast<QMessageBox*>(QApplication::activeModalWidget());
    ASSERT_NE(box, nullptr);
    title = box->windowTitle();
    text = box->text();
    icon = box->icon();
    buttons = static_cast<int>(box->buttons().size());
    defaultButton = box->defaultButton()->text();
    box->button(QMessageBox::No)->click();
  });
  int answer = runtime->MsgBox(u"Save changes to Module1?",
                               vb::vbYesNoCancel | vb::vbQuestion | vb::vbDefaultButton2,
                               u"Quillmark Tools");
  EXPECT_EQ(answer, vb::vbNo);
  EXPECT_EQ(title, "Quillmark Tools");
  EXPECT_EQ(text, "Save changes to Module1?");
  EXPECT_EQ(icon, QMessageBox::Question);
  EXPECT_EQ(buttons, 3);
  EXPECT_EQ(defaultButton.remove('&'), "No");
  ASSERT_EQ(runtime->MessageBoxService().Transcript().size(), 1u);
  EXPECT_EQ(runtime->MessageBoxService().Transcript()[0].answer, vb::vbNo);
}

TEST_F(PeersMessageBoxTest, EscapeAnswersCancelWhenTheBoxHasIt) {
  WhenModal([&] { PressKey(QApplication::activeModalWidget(), Qt::Key_Escape); });
  EXPECT_EQ(runtime->MsgBox(u"Stop the search?", vb::vbOKCancel | vb::vbExclamation), vb::vbCancel);
}

TEST(MessageBoxPlan, StylesGiveIconsButtonsDefaultsAndEscapes) {
  using B = QMessageBox;
  struct Case {
    int style;
    QMessageBox::Icon icon;
    const char* buttons;
    int defaultIndex;
    int escapeIndex;
  };
  const Case cases[] = {
      {vb::vbOKOnly, B::NoIcon, "Ok", 0, 0},
      {vb::vbOKCancel | vb::vbCritical, B::Critical, "Ok Cancel", 0, 1},
      {vb::vbAbortRetryIgnore | vb::vbDefaultButton3, B::NoIcon, "Abort Retry Ignore", 2, -1},
      {vb::vbYesNoCancel | vb::vbInformation | vb::vbDefaultButton2, B::Information,
       "Yes No Cancel", 1, 2},
      {vb::vbYesNo | vb::vbQuestion | vb::vbDefaultButton2, B::Question, "Yes No", 1, -1},
      // A default button the box lacks falls back to the first.
      {vb::vbRetryCancel | vb::vbExclamation | vb::vbDefaultButton3, B::Warning, "Retry Cancel", 0,
       1},
  };
  const QMetaEnum names = QMetaEnum::fromType<QMessageBox::StandardButtons>();
  for (const auto& c : cases) {
    SCOPED_TRACE("style " + std::to_string(c.style));
    auto plan = studio::PlanMessageBox(c.style);
    EXPECT_EQ(plan.icon, c.icon);
    QStringList buttons;
    for (const auto& b : plan.buttons) buttons << names.valueToKey(b.button);
    EXPECT_EQ(buttons.join(u' ').toStdString(), c.buttons);
    EXPECT_EQ(plan.defaultIndex, c.defaultIndex);
    EXPECT_EQ(plan.escapeIndex, c.escapeIndex);
  }
}

}  // namespace
