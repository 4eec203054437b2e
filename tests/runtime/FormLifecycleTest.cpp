// The order of a form's and a document's events, key routing, and the error guard.
#include <gtest/gtest.h>

#include <algorithm>

#include "EventLog.h"
#include "runtime/Error.h"
#include "runtime/ScriptError.h"
#include "runtime/UserActions.h"

namespace {

using vbtest::Log;
using vbtest::LoggingForm;

class FormLifecycleTest : public ::testing::Test {
 protected:
  std::shared_ptr<vb::Runtime> runtime = vb::Runtime::CreateHeadless();
  Log log;
};

TEST_F(FormLifecycleTest, ShowThenUnloadThenReleaseRaisesEventsInVbOrder) {
  auto form = vb::New<LoggingForm>(*runtime, log);
  form->Show();
  form->Unload();
  form.reset();
  EXPECT_EQ(log, (Log{"Initialize", "Load", "Resize", "Activate", "QueryUnload 1", "Unload",
                      "Terminate"}));
}

TEST_F(FormLifecycleTest, LoadAloneDoesNotShowOrActivate) {
  auto form = vb::New<LoggingForm>(*runtime, log);
  form->Load();
  EXPECT_EQ(log, (Log{"Initialize", "Load"}));
  EXPECT_TRUE(form->IsLoaded());
  EXPECT_FALSE(form->Visible());
  EXPECT_EQ(runtime->ActiveForm(), nullptr);
}

TEST_F(FormLifecycleTest, CancelledQueryUnloadOrUnloadKeepsTheFormLoaded) {
  struct Case {
    int cancelQuery;
    int cancelUnload;
    Log tail;
  };
  for (const auto& c : {Case{1, 0, {"QueryUnload 1"}}, Case{0, 1, {"QueryUnload 1", "Unload"}}}) {
    Log events;
    LoggingForm form(*runtime, events);
    form.Show();
    events.clear();
    form.cancelQueryUnload = c.cancelQuery;
    form.cancelUnload = c.cancelUnload;
    EXPECT_FALSE(form.Unload());
    EXPECT_EQ(events, c.tail);
    EXPECT_TRUE(form.IsLoaded());
    EXPECT_TRUE(form.Visible());
  }
}

TEST_F(FormLifecycleTest, ClosingFromTheControlBoxPassesUnloadModeZero) {
  LoggingForm form(*runtime, log);
  form.Show();
  log.clear();
  vb::UserActions(form).Close();
  EXPECT_EQ(log, (Log{"QueryUnload 0", "Unload"}));
  EXPECT_FALSE(form.IsLoaded());
}

TEST_F(FormLifecycleTest, ShowingASecondFormDeactivatesTheFirstAndHidingItReactivatesIt) {
  Log first, second;
  LoggingForm a(*runtime, first, u"frmA");
  LoggingForm b(*runtime, second, u"frmB");
  a.Show();
  b.Show();
  EXPECT_EQ(first.back(), "Deactivate");
  EXPECT_EQ(runtime->ActiveForm(), &b);
  b.Hide();
  EXPECT_EQ(first.back(), "Activate");
  EXPECT_EQ(runtime->ActiveForm(), &a);
}

TEST_F(FormLifecycleTest, ResizeFollowsSizeChangesOnlyWhileLoaded) {
  LoggingForm form(*runtime, log);
  form.Move(0, 0, 6000, 4000);  // not loaded: no event
  EXPECT_TRUE(log.empty());
  form.Show();
  log.clear();
  form.Move(100, 100);  // position only
  form.SetWidth(7000);
  form.SetWindowState(vb::vbMaximized);
  EXPECT_EQ(log, (Log{"Resize", "Resize"}));
  EXPECT_EQ(form.Width(), runtime->GetScreen().Width());
  EXPECT_THROW(form.SetWindowState(3), vb::Error);
}

TEST_F(FormLifecycleTest, ScaleSizeIsTheInnerAreaOfTheBorderStyle) {
  LoggingForm form(*runtime, log);
  EXPECT_EQ(form.ScaleWidth(), 4680);
  EXPECT_EQ(form.ScaleHeight(), 3090);
  form.SetBorderStyle(0);
  EXPECT_EQ(form.ScaleWidth(), 4800);
  EXPECT_EQ(form.ScaleHeight(), 3600);
}

TEST_F(FormLifecycleTest, KeyPreviewLetsTheFormSeeEachKeyBeforeTheControl) {
  struct Case {
    bool preview;
    int swallow;
    Log expected;
  };
  const Case cases[] = {
      {false, 0, {"txtName_KeyDown 65", "txtName_KeyPress 97", "txtName_KeyUp 65"}},
      {true,
       0,
       {"Form_KeyDown 65", "txtName_KeyDown 65", "Form_KeyPress 97", "txtName_KeyPress 97",
        "Form_KeyUp 65", "txtName_KeyUp 65"}},
      // Zeroing the code in the form's KeyDown keeps it from the control's KeyDown only.
      {true,
       65,
       {"Form_KeyDown 65", "Form_KeyPress 97", "txtName_KeyPress 97", "Form_KeyUp 65",
        "txtName_KeyUp 65"}},
  };
  for (const auto& c : cases) {
    Log events;
    LoggingForm form(*runtime, events);
    form.SetKeyPreview(c.preview);
    form.swallowFormKey = c.swallow;
    form.Show();
    events.clear();
    vb::UserActions(form).PressKey(u"txtName", vb::vbKeyA);
    EXPECT_EQ(events, c.expected) << "preview " << c.preview;
    EXPECT_EQ(form.txtName.Text(), u"a");
  }
}

TEST_F(FormLifecycleTest, EnterPressesTheDefaultButtonAndEscapeTheCancelButton) {
  LoggingForm form(*runtime, log);
  vb::CommandButton cmdCancel{form, u"cmdCancel"};
  int cancels = 0;
  cmdCancel.Click = [&] { ++cancels; };
  cmdCancel.SetCancel(true);
  form.cmdOK.SetDefault(true);
  form.Show();
  form.txtName.SetFocus();
  vb::UserActions(form).PressKey(vb::vbKeyEscape);
  EXPECT_EQ(cancels, 1);
  EXPECT_TRUE(form.IsLoaded());
  vb::UserActions(form).PressKey(vb::vbKeyReturn);
  EXPECT_FALSE(form.IsLoaded());  // cmdOK_Click unloads
  EXPECT_EQ(std::count(log.begin(), log.end(), "txtName_KeyDown 13"), 0);
}

TEST_F(FormLifecycleTest, OnlyOneButtonIsTheDefault) {
  LoggingForm form(*runtime, log);
  vb::CommandButton other{form, u"cmdOther"};
  form.cmdOK.SetDefault(true);
  other.SetDefault(true);
  EXPECT_FALSE(form.cmdOK.Default());
  EXPECT_TRUE(other.Default());
}

TEST_F(FormLifecycleTest, AnErrorEscapingAClickHandlerIsReportedAndTheProgramGoesOn) {
  LoggingForm form(*runtime, log);
  form.cmdOK.Click = [] { throw vb::Error::Standard(vb::err::kObjectNotSet); };
  form.Show();
  vb::UserActions(form).Click(u"cmdOK");
  ASSERT_EQ(runtime->MessageBoxService().Transcript().size(), 1u);
  const auto& box = runtime->MessageBoxService().Transcript()[0];
  EXPECT_EQ(box.prompt,
            u"Run-time error '91':\r\n\r\nObject variable or With block variable not set");
  EXPECT_EQ(box.style, vb::vbCritical);
  EXPECT_TRUE(form.IsLoaded());
}

TEST_F(FormLifecycleTest, ErrorsInFormLoadReachTheCodeThatShowedTheForm) {
  struct Failing : vb::Form {
    using Form::Form;
    void Form_Load() override { throw vb::Error::Standard(vb::err::kFileNotFound); }
  } form(*runtime, u"frmFailing");
  EXPECT_THROW(form.Show(), vb::Error);
}

TEST_F(FormLifecycleTest, ScriptsCannotClickWhatTheUserCannotReach) {
  LoggingForm form(*runtime, log);
  form.Show();
  form.cmdOK.SetEnabled(false);
  vb::UserActions act(form);
  EXPECT_THROW(act.Click(u"cmdOK"), vb::ScriptError);
  EXPECT_THROW(act.Click(u"cmdMissing"), vb::ScriptError);
  EXPECT_THROW(act.SelectRows(u"txtName", {1}), vb::ScriptError);
  EXPECT_TRUE(form.IsLoaded());
}

TEST_F(FormLifecycleTest, DocumentShowsHidesAndResizesAsItsToolWindowDoes) {
  auto doc = vb::New<vbtest::LoggingDocument>(*runtime, log);
  doc->Display(true);
  doc->Display(true);  // no change, no event
  doc->SetExtent(3000, 2000);
  doc->Display(false);
  doc.reset();
  EXPECT_EQ(log, (Log{"Initialize", "Show", "Resize 3000", "Hide", "Terminate"}));
}

}  // namespace
