// Modal forms driven by scripted user actions: they return when unloaded, and fail fast.
#include <gtest/gtest.h>

#include "EventLog.h"
#include "runtime/ScriptError.h"
#include "runtime/UserActions.h"
#include "runtime/forms/ControlArray.h"
#include "runtime/forms/OptionButton.h"
#include "support/VbErrorOf.h"

namespace {

using vbtest::Log;
using vbtest::LoggingForm;

// A small dialog in the add-in's style: Replace returns whether the user accepted.
class frmAsk : public vb::Form {
 public:
  explicit frmAsk(vb::Runtime& runtime) : Form(runtime, u"frmAsk") {
    cmdOK.Click = [this] {
      accepted = true;
      answer = txtAnswer.Text();
      Unload();
    };
    cmdCancel.Click = [this] { Unload(); };
  }
  bool Ask() {
    Show(vb::vbModal);
    return accepted;
  }
  vb::TextBox txtAnswer{*this, u"txtAnswer"};
  vb::CommandButton cmdOK{*this, u"cmdOK"};
  vb::CommandButton cmdCancel{*this, u"cmdCancel"};
  bool accepted = false;
  std::u16string answer;
};

class ModalScriptTest : public ::testing::Test {
 protected:
  std::shared_ptr<vb::Runtime> runtime = vb::Runtime::CreateHeadless();
};

TEST_F(ModalScriptTest, ModalShowReturnsAfterTheScriptedClickUnloadsTheForm) {
  vb::Script(*runtime).Type(u"frmAsk", u"txtAnswer", u"dog").Click(u"frmAsk", u"cmdOK");
  frmAsk form(*runtime);
  EXPECT_TRUE(form.Ask());
  EXPECT_EQ(form.answer, u"dog");
  EXPECT_FALSE(form.IsLoaded());
  EXPECT_EQ(runtime->Loop().PendingScripted(), 0u);
  vb::Script(*runtime).Type(u"frmAsk", u"txtAnswer", u"cat").Click(u"frmAsk", u"cmdCancel");
  frmAsk cancelled(*runtime);
  EXPECT_FALSE(cancelled.Ask());
  EXPECT_EQ(cancelled.answer, u"");
}

TEST_F(ModalScriptTest, AModalFormWithNothingScriptedFailsNamingTheForm) {
  frmAsk form(*runtime);
  try {
    form.Ask();
    FAIL() << "the modal loop returned with nothing scripted";
  } catch (const vb::ScriptError& e) {
    EXPECT_NE(std::string(e.what()).find("frmAsk"), std::string::npos) << e.what();
  }
  EXPECT_FALSE(form.IsModal());
}

TEST_F(ModalScriptTest, RunningOutOfActionsOrActingOnAFormNotLoadedAlsoFails) {
  vb::Script(*runtime).Type(u"frmAsk", u"txtAnswer", u"dog");
  frmAsk form(*runtime);
  EXPECT_THROW(form.Ask(), vb::ScriptError);
  vb::Script(*runtime).Click(u"frmElsewhere", u"cmdOK");
  frmAsk other(*runtime);
  EXPECT_THROW(other.Ask(), vb::ScriptError);
}

TEST_F(ModalScriptTest, HidingAModalFormEndsTheLoopAndKeepsItLoaded) {
  vb::Script(*runtime).On(u"frmAsk", [](vb::UserActions&) {});
  frmAsk form(*runtime);
  runtime->Loop().Script([&] { form.Hide(); });
  form.Show(vb::vbModal);
  EXPECT_TRUE(form.IsLoaded());
  EXPECT_FALSE(form.Visible());
}

TEST_F(ModalScriptTest, ShowingAVisibleFormModallyIsError400) {
  frmAsk form(*runtime);
  form.Show();
  EXPECT_EQ(qmtest::ErrorNumberOf([&] { form.Show(vb::vbModal); }), 400);
}

TEST_F(ModalScriptTest, ScriptErrorsPassThroughTheErrorGuard) {
  // A click whose handler opens a modal form with nothing scripted must fail the test, not be
  // swallowed into an error message box.
  Log log;
  LoggingForm owner(*runtime, log);
  frmAsk dialog(*runtime);
  owner.cmdOK.Click = [&] { dialog.Ask(); };
  owner.Show();
  EXPECT_THROW(vb::UserActions(owner).Click(u"cmdOK"), vb::ScriptError);
  EXPECT_TRUE(runtime->MessageBoxService().Transcript().empty());
}

TEST_F(ModalScriptTest, OptionButtonArraysAreExclusiveAndTheirHandlersGetTheIndex) {
  class frmOpts : public vb::Form {
   public:
    explicit frmOpts(vb::Runtime& rt) : Form(rt, u"frmOpts") {
      optReplace.Wire(&vb::OptionButton::Click, [this](int index) { clicks.push_back(index); });
    }
    vb::ControlArray<vb::OptionButton> optReplace{*this, u"optReplace", {0, 1}};
    std::vector<int> clicks;
  } form(*runtime);
  form.Show();
  vb::UserActions act(form);
  act.Click(u"optReplace", 1);
  EXPECT_TRUE(form.optReplace(1).Value());
  form.optReplace(0).SetValue(true);  // by code, as Form_Load would
  EXPECT_FALSE(form.optReplace(1).Value());
  EXPECT_EQ(form.clicks, (std::vector<int>{1, 0}));
  EXPECT_THROW(form.optReplace(2), vb::Error);
}

}  // namespace
