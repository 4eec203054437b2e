// The hooks a toolkit attaches through: new objects, late controls, top-most and focus, the
// loop's schedule, sorted rows and label edits announced to a peer.
#include <gtest/gtest.h>

#include <string>
#include <vector>

#include "RecordingPeer.h"

#include "runtime/Runtime.h"
#include "runtime/forms/CommandButton.h"
#include "runtime/forms/ControlArray.h"
#include "runtime/forms/ControlPeer.h"
#include "runtime/forms/Form.h"
#include "runtime/forms/ListView.h"

namespace {

using namespace std::chrono_literals;

using vbtest::RecordingPeer;

class ToolbarForm : public vb::Form {
 public:
  explicit ToolbarForm(vb::Runtime& runtime, std::vector<std::string>& log)
      : Form(runtime, u"frmToolbar"), log_(log) {}
  vb::CommandButton cmdOK{*this, u"cmdOK"};
  vb::ControlArray<vb::CommandButton> cmdTool{*this, u"cmdTool", {0}};

 protected:
  void Form_Initialize() override { log_.push_back("Form_Initialize"); }

 private:
  std::vector<std::string>& log_;
};

class ToolkitHooksTest : public ::testing::Test {
 protected:
  std::shared_ptr<vb::Runtime> runtime = vb::Runtime::CreateHeadless();
  std::vector<std::string> log;
};

TEST_F(ToolkitHooksTest, ObjectReadyComesOnceWithEveryControlBeforeInitialize) {
  runtime->onObjectReady = [&](vb::FormBase& object) {
    log.push_back("ready " + std::to_string(object.Controls().size()) +
                  (object.FindControl(u"cmdTool", 0) ? " with cmdTool(0)" : ""));
  };
  auto form = vb::New<ToolbarForm>(*runtime, log);
  form->Load();
  form->Show();
  EXPECT_EQ(log, (std::vector<std::string>{"ready 2 with cmdTool(0)", "Form_Initialize"}));
}

TEST_F(ToolkitHooksTest, ControlsLoadedAndUnloadedLaterReachThePeer) {
  auto form = vb::New<ToolbarForm>(*runtime, log);
  RecordingPeer peer;
  form->SetPeer(&peer);
  form->cmdTool.Load(3);
  form->cmdTool.Unload(0);
  form->SetPeer(nullptr);
  form->cmdTool.Load(4);
  EXPECT_EQ(peer.calls, (std::vector<std::string>{"ControlAdded 3", "ControlRemoved 0"}));
  EXPECT_EQ(form->Controls().size(), 3u);
}

TEST_F(ToolkitHooksTest, TopMostIsAnnouncedOnlyWhenItChanges) {
  auto form = vb::New<ToolbarForm>(*runtime, log);
  std::vector<vb::Hwnd> changed;
  runtime->Windows().onTopMostChanged = [&](vb::Hwnd hwnd) { changed.push_back(hwnd); };
  auto& windows = runtime->Windows();
  int keep = vb::kSwpNoMove | vb::kSwpNoSize;
  windows.SetWindowPos(form->hWnd(), vb::kHwndTopMost, 0, 0, 0, 0, keep);
  windows.SetWindowPos(form->hWnd(), vb::kHwndTopMost, 0, 0, 0, 0, keep);
  windows.SetWindowPos(form->hWnd(), 0, 0, 0, 0, 0, keep);
  windows.SetWindowPos(form->hWnd(), vb::kHwndNoTopMost, 0, 0, 0, 0, keep);
  EXPECT_EQ(changed, (std::vector<vb::Hwnd>{form->hWnd(), form->hWnd()}));
  EXPECT_FALSE(form->TopMost());
}

TEST_F(ToolkitHooksTest, DestroyedWindowsAreAnnouncedTheFormsLast) {
  auto form = vb::New<ToolbarForm>(*runtime, log);
  vb::Hwnd formWindow = form->hWnd();
  vb::Hwnd okWindow = form->cmdOK.hWnd();
  std::vector<vb::Hwnd> destroyed;
  runtime->Windows().onDestroyed = [&](vb::Hwnd hwnd) { destroyed.push_back(hwnd); };
  form.reset();
  ASSERT_EQ(destroyed.size(), 3u);  // cmdTool(0), cmdOK, the form
  EXPECT_EQ(destroyed[1], okWindow);
  EXPECT_EQ(destroyed.back(), formWindow);
  runtime->Windows().Destroy(formWindow);  // no longer a window: nothing to announce
  EXPECT_EQ(destroyed.size(), 3u);
}

TEST_F(ToolkitHooksTest, FocusIsAnnouncedAfterTheControlsGotFocus) {
  auto form = vb::New<ToolbarForm>(*runtime, log);
  form->Show();
  form->cmdOK.GotFocus = [&] { log.push_back("cmdOK_GotFocus"); };
  runtime->Windows().onFocusChanged = [&](vb::Hwnd hwnd) {
    log.push_back(hwnd == form->cmdOK.hWnd() ? "focus cmdOK" : "focus elsewhere");
  };
  form->cmdOK.SetFocus();
  form->cmdOK.SetFocus();  // already there: nothing moves
  EXPECT_EQ(log, (std::vector<std::string>{"Form_Initialize", "cmdOK_GotFocus", "focus cmdOK"}));
}

TEST_F(ToolkitHooksTest, TheScheduleWakesTheToolkitAndNamesTheNextTick) {
  auto& loop = runtime->Loop();
  int wakes = 0;
  int pumps = 0;
  loop.onScheduleChanged = [&] { ++wakes; };
  loop.pumpToolkit = [&] { ++pumps; };
  EXPECT_FALSE(loop.NextDue().has_value());

  auto start = runtime->Now();
  auto slow = loop.StartTimer(500, [&] { log.push_back("slow"); });
  loop.StartTimer(200, [&] { log.push_back("fast"); });
  loop.Post([&] { log.push_back("posted"); });
  EXPECT_EQ(wakes, 3);
  EXPECT_EQ(loop.NextDue(), start + 200ms);

  loop.RunPending();  // nothing due yet: only the posted work
  loop.StopTimer(slow);
  loop.Advance(200ms);
  EXPECT_EQ(loop.NextDue(), start + 400ms);
  EXPECT_EQ(pumps, 0);
  EXPECT_EQ(log, (std::vector<std::string>{"posted", "fast"}));
}

TEST_F(ToolkitHooksTest, SortedRowsAreAnnouncedAtTheEndThenResetBySettling) {
  vb::Form form(*runtime, u"docResults");
  vb::ListView lvw(form, u"lvwSearch");
  RecordingPeer peer;
  lvw.SetPeer(&peer);
  lvw.SetSorted(true);
  lvw.ListItems().Add(0, {}, u"b");
  lvw.ListItems().Add(0, {}, u"a");
  EXPECT_EQ(lvw.ListItems().Item(1).Text(), u"a");
  lvw.SetPeer(nullptr);
  EXPECT_EQ(peer.calls, (std::vector<std::string>{"RowsReset", "RowsInserted 0 1",
                                                  "RowsInserted 1 1", "RowsReset"}));
}

TEST_F(ToolkitHooksTest, AStartedLabelEditIsAnnouncedUnlessCancelled) {
  vb::Form form(*runtime, u"docListView");
  vb::ListView lvw(form, u"lvwMembers");
  lvw.ListItems().Add(0, {}, u"Name");
  lvw.SetSelectedItem(&lvw.ListItems().Item(1));
  RecordingPeer peer;
  lvw.SetPeer(&peer);
  int cancel = 1;
  lvw.BeforeLabelEdit = [&](int& c) { c = cancel; };
  lvw.StartLabelEdit();
  EXPECT_TRUE(peer.calls.empty());
  cancel = 0;
  lvw.StartLabelEdit();
  lvw.SetPeer(nullptr);
  EXPECT_EQ(peer.calls, (std::vector<std::string>{"EditingItem"}));
  EXPECT_EQ(lvw.EditingItem(), &lvw.ListItems().Item(1));
}

}  // namespace
