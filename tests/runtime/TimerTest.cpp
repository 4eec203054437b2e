// Timers on the virtual clock, DoEvents and posted work.
#include <gtest/gtest.h>

#include <chrono>

#include "runtime/Error.h"
#include "runtime/Runtime.h"
#include "runtime/UserActions.h"
#include "runtime/forms/CommandButton.h"
#include "runtime/forms/Form.h"
#include "runtime/forms/Label.h"
#include "runtime/forms/Timer.h"

namespace {

using namespace std::chrono_literals;

// The auto-save shape: a slow check timer and a one-second count-down timer.
class frmClock : public vb::Form {
 public:
  explicit frmClock(vb::Runtime& rt) : Form(rt, u"frmClock") {
    tmrSave.SetInterval(10000);
    tmrCount.SetInterval(1000);
    tmrCount.SetEnabled(false);
    tmrSave.Tick = [this] { ticks.push_back("save@" + Seconds()); };
    tmrCount.Tick = [this] { ticks.push_back("count@" + Seconds()); };
  }
  std::string Seconds() const {
    auto since = GetRuntime().Now() - start;
    return std::to_string(std::chrono::duration_cast<std::chrono::seconds>(since).count());
  }
  vb::Timer tmrSave{*this, u"tmrSave"};
  vb::Timer tmrCount{*this, u"tmrCount"};
  std::vector<std::string> ticks;
  vb::Date start = GetRuntime().Now();
};

class TimerTest : public ::testing::Test {
 protected:
  std::shared_ptr<vb::Runtime> runtime = vb::Runtime::CreateHeadless();
};

TEST_F(TimerTest, TimersFireAtTheirVirtualTimesInOrder) {
  frmClock form(*runtime);
  form.Load();
  form.tmrCount.SetEnabled(true);
  runtime->Loop().Advance(12s);
  EXPECT_EQ(form.ticks,
            (std::vector<std::string>{"count@1", "count@2", "count@3", "count@4", "count@5",
                                      "count@6", "count@7", "count@8", "count@9", "save@10",
                                      "count@10", "count@11", "count@12"}));
  EXPECT_EQ(form.Seconds(), "12");
}

TEST_F(TimerTest, NothingFiresBeforeTheFormIsLoadedOrAfterItIsUnloaded) {
  frmClock form(*runtime);
  runtime->Loop().Advance(30s);
  EXPECT_TRUE(form.ticks.empty());
  form.Load();
  runtime->Loop().Advance(10s);
  form.Unload();
  runtime->Loop().Advance(30s);
  EXPECT_EQ(form.ticks, (std::vector<std::string>{"save@40"}));
}

TEST_F(TimerTest, DisabledTimersAndZeroIntervalsDoNotFire) {
  frmClock form(*runtime);
  form.Load();
  form.tmrSave.SetEnabled(false);
  form.tmrCount.SetEnabled(true);
  form.tmrCount.SetInterval(0);
  runtime->Loop().Advance(60s);
  EXPECT_TRUE(form.ticks.empty());
  EXPECT_THROW(form.tmrCount.SetInterval(70000), vb::Error);
}

TEST_F(TimerTest, ReEnablingStartsTheIntervalAgainFromNow) {
  frmClock form(*runtime);
  form.Load();
  runtime->Loop().Advance(8s);
  form.tmrSave.SetEnabled(false);
  form.tmrSave.SetEnabled(true);  // the count restarts at 8 s
  runtime->Loop().Advance(12s);
  EXPECT_EQ(form.ticks, (std::vector<std::string>{"save@18"}));
}

TEST_F(TimerTest, ATickThatDisablesItsOwnTimerIsTheLast) {
  frmClock form(*runtime);
  form.Load();
  form.tmrSave.Tick = [&] {
    form.ticks.push_back("save@" + form.Seconds());
    form.tmrSave.SetEnabled(false);
  };
  runtime->Loop().Advance(100s);
  EXPECT_EQ(form.ticks, (std::vector<std::string>{"save@10"}));
}

TEST_F(TimerTest, AnErrorInATickIsReportedAndTheTimerKeepsRunning) {
  frmClock form(*runtime);
  form.Load();
  form.tmrSave.Tick = [] { throw vb::Error::Standard(vb::err::kPathNotFound); };
  runtime->Loop().Advance(20s);
  EXPECT_EQ(runtime->MessageBoxService().Transcript().size(), 2u);
}

TEST_F(TimerTest, DoEventsRunsPostedWorkAndTimersDueNowButDoesNotMoveTheClock) {
  frmClock form(*runtime);
  form.Load();
  std::vector<int> ran;
  runtime->Loop().Post([&] { ran.push_back(1); });
  runtime->Loop().Post([&] {
    ran.push_back(2);
    runtime->Loop().Post([&] { ran.push_back(3); });  // waits for the next DoEvents
  });
  auto before = runtime->Now();
  runtime->DoEvents();
  EXPECT_EQ(ran, (std::vector<int>{1, 2}));
  EXPECT_EQ(runtime->Now(), before);
  EXPECT_TRUE(form.ticks.empty());
  runtime->DoEvents();
  EXPECT_EQ(ran, (std::vector<int>{1, 2, 3}));
}

TEST_F(TimerTest, AClickPostedForTheNextDoEventsInterruptsALongOperation) {
  class frmWork : public vb::Form {
   public:
    explicit frmWork(vb::Runtime& rt) : Form(rt, u"frmWork") {
      cmdStop.Click = [this] { stop = true; };
    }
    int Work() {  // the search's shape: work in slices, DoEvents between them
      int slices = 0;
      while (!stop && slices < 100) {
        ++slices;
        GetRuntime().DoEvents();
      }
      return slices;
    }
    vb::CommandButton cmdStop{*this, u"cmdStop"};
    bool stop = false;
  } form(*runtime);
  form.Show();
  vb::Script(*runtime, vb::Script::When::AtNextDoEvents).Click(u"frmWork", u"cmdStop");
  EXPECT_EQ(form.Work(), 1);
}

TEST_F(TimerTest, TheSystemClockCannotBeAdvanced) {
  vb::Runtime real(vb::Clock::System());
  EXPECT_THROW(real.Loop().Advance(1s), vb::Error);
}

}  // namespace
