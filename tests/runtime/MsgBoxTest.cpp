// MsgBox: scripted answers, the transcript, the OK-only default and fail-fast questions.
#include <gtest/gtest.h>

#include "runtime/Error.h"
#include "runtime/Runtime.h"
#include "runtime/ScriptError.h"
#include "runtime/UserActions.h"
#include "runtime/VbConstants.h"
#include "support/VbErrorOf.h"

namespace {

class MsgBoxTest : public ::testing::Test {
 protected:
  std::shared_ptr<vb::Runtime> runtime = vb::Runtime::CreateHeadless();
  vb::MessageBoxes& boxes = runtime->MessageBoxService();
};

TEST_F(MsgBoxTest, ScriptedAnswersAreUsedInOrderAndEveryBoxIsRecorded) {
  vb::Script(*runtime).Answer(vb::vbNo).Answer(vb::vbCancel);
  EXPECT_EQ(runtime->MsgBox(u"Delete the selected member?", 36), vb::vbNo);
  EXPECT_EQ(runtime->MsgBox(u"Delete code?", 35, u"Viewer"), vb::vbCancel);
  EXPECT_EQ(runtime->MsgBox(u"Done."), vb::vbOK);
  EXPECT_EQ(boxes.Transcript(), (std::vector<vb::MsgBoxRecord>{
                                    {u"Delete the selected member?", 36, u"", vb::vbNo},
                                    {u"Delete code?", 35, u"Viewer", vb::vbCancel},
                                    {u"Done.", 0, u"", vb::vbOK},
                                }));
}

TEST_F(MsgBoxTest, WithoutAScriptedAnswerAnOkBoxIsAnsweredOkAndAQuestionFailsFast) {
  EXPECT_EQ(runtime->MsgBox(u"Invalid Auto-Save Interval.", vb::vbExclamation), vb::vbOK);
  EXPECT_THROW(runtime->MsgBox(u"Save?", vb::vbYesNo), vb::ScriptError);
  ASSERT_EQ(boxes.Transcript().size(), 2u);
  EXPECT_EQ(boxes.Transcript()[0].style, 48);
  EXPECT_EQ(boxes.Transcript()[1].prompt, u"Save?");
}

TEST_F(MsgBoxTest, AScriptedAnswerMustBeOneOfTheBoxButtons) {
  struct Case {
    int style;
    int answer;
    bool fits;
  };
  const Case cases[] = {
      {vb::vbOKOnly, vb::vbOK, true},
      {vb::vbOKOnly, vb::vbYes, false},
      {vb::vbOKCancel, vb::vbCancel, true},
      {vb::vbAbortRetryIgnore, vb::vbIgnore, true},
      {vb::vbAbortRetryIgnore, vb::vbOK, false},
      {vb::vbYesNoCancel, vb::vbCancel, true},
      {vb::vbYesNo, vb::vbCancel, false},
      {vb::vbRetryCancel, vb::vbRetry, true},
      {vb::vbYesNo + vb::vbQuestion + vb::vbDefaultButton2, vb::vbNo, true},
  };
  for (const auto& c : cases) {
    boxes.ScriptAnswer(c.answer);
    if (c.fits) {
      EXPECT_EQ(runtime->MsgBox(u"q", c.style), c.answer) << c.style;
    } else {
      EXPECT_THROW(runtime->MsgBox(u"q", c.style), vb::ScriptError) << c.style;
    }
  }
}

TEST_F(MsgBoxTest, StylesOutsideVbRangesAreError5) {
  for (int style : {6, 15, 80, 128}) {
    EXPECT_EQ(qmtest::ErrorNumberOf([&] { runtime->MsgBox(u"x", style); }), 5) << style;
  }
  EXPECT_TRUE(boxes.Transcript().empty());
}

TEST_F(MsgBoxTest, APresenterAnswersWhenNothingIsScripted) {
  std::u16string shown;
  boxes.presenter = [&](const vb::MsgBoxRecord& box) {
    shown = box.prompt;
    return vb::vbYes;
  };
  EXPECT_EQ(runtime->MsgBox(u"Proceed?", vb::vbYesNo), vb::vbYes);
  EXPECT_EQ(shown, u"Proceed?");
}

}  // namespace
