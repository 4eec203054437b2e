// The window-system calls keep their Win32 contracts.
#include <gtest/gtest.h>

#include "runtime/Runtime.h"
#include "runtime/forms/Form.h"
#include "runtime/forms/Frame.h"
#include "runtime/forms/ListView.h"
#include "runtime/forms/TextBox.h"

namespace {

class WindowSystemTest : public ::testing::Test {
 protected:
  std::shared_ptr<vb::Runtime> runtime = vb::Runtime::CreateHeadless();
  vb::WindowSystem& windows = runtime->Windows();
};

TEST_F(WindowSystemTest, FindWindowMatchesTheWholeTitleOfATopLevelWindowOnly) {
  auto main = windows.Create(u"Project1 - Microsoft Visual Basic [design]");
  windows.Create(u"Immediate", main);  // a child: never found
  struct Case {
    std::u16string title;
    vb::Hwnd expected;
  };
  const Case cases[] = {
      {u"Project1 - Microsoft Visual Basic [design]", main},
      {u"project1 - microsoft visual basic [DESIGN]", main},  // case is ignored, as in Windows
      {u"Project1 - Microsoft Visual Basic", 0},
      {u"Project1 - Microsoft Visual Basic [design] ", 0},
      {u"Immediate", 0},
      {u"", 0},
  };
  for (const auto& c : cases) EXPECT_EQ(windows.FindWindow(c.title), c.expected);
  vb::Form form(*runtime, u"frmSearch");  // a form by its caption, not its name
  form.SetCaption(u"Visual Search and Replace");
  EXPECT_EQ(windows.FindWindow(u"Visual Search and Replace"), form.hWnd());
  EXPECT_EQ(windows.FindWindow(u"frmSearch"), 0);
}

TEST_F(WindowSystemTest, GetParentClimbsToTheTopLevelWindowAndThenGivesZero) {
  auto frame = windows.Create(u"Microsoft Visual Basic");
  auto dock = windows.Create(u"Search Results", frame);
  vb::Form doc(*runtime, u"docResults");
  windows.SetParent(doc.hWnd(), dock);
  vb::Frame fraBox{doc, u"fraBox"};
  vb::TextBox txtInside{doc, u"txtInside"};
  txtInside.SetContainer(&fraBox);

  std::vector<vb::Hwnd> chain;
  for (auto h = txtInside.hWnd(); h != 0; h = windows.GetParent(h)) chain.push_back(h);
  EXPECT_EQ(chain,
            (std::vector<vb::Hwnd>{txtInside.hWnd(), fraBox.hWnd(), doc.hWnd(), dock, frame}));
  EXPECT_EQ(windows.GetParent(123), 0);
}

TEST_F(WindowSystemTest, FullRowSelectBitRoundTripsThroughSendMessage) {
  vb::Form form(*runtime, u"frmList");
  vb::ListView lvw{form, u"lvwSearch"};
  auto style = windows.SendMessage(lvw.hWnd(), vb::kLvmGetExtendedListViewStyle, 0, 0);
  EXPECT_EQ(style, 0);
  windows.SendMessage(lvw.hWnd(), vb::kLvmSetExtendedListViewStyle, 0, style | 4);  // grid lines
  style = windows.SendMessage(lvw.hWnd(), vb::kLvmGetExtendedListViewStyle, 0, 0);
  auto previous = windows.SendMessage(lvw.hWnd(), vb::kLvmSetExtendedListViewStyle, 0,
                                      style | vb::kLvsExFullRowSelect);
  EXPECT_EQ(previous, 4);
  EXPECT_EQ(windows.SendMessage(lvw.hWnd(), vb::kLvmGetExtendedListViewStyle, 0, 0), 36);
  // With a mask only the masked bits change.
  windows.SendMessage(lvw.hWnd(), vb::kLvmSetExtendedListViewStyle, 4, 0);
  EXPECT_EQ(lvw.ExtendedStyle(), vb::kLvsExFullRowSelect);
}

TEST_F(WindowSystemTest, SetFocusReturnsThePreviousFocusAndRefusesNonWindows) {
  vb::Form form(*runtime, u"frmFocus");
  vb::TextBox a{form, u"txtA"};
  vb::TextBox b{form, u"txtB"};
  std::vector<std::string> events;
  a.LostFocus = [&] { events.push_back("A lost"); };
  b.GotFocus = [&] { events.push_back("B got"); };
  EXPECT_EQ(windows.SetFocus(a.hWnd()), 0);
  EXPECT_EQ(windows.SetFocus(b.hWnd()), a.hWnd());
  EXPECT_EQ(events, (std::vector<std::string>{"A lost", "B got"}));
  EXPECT_EQ(form.ActiveControl(), &b);
  EXPECT_EQ(windows.SetFocus(99999), 0);
  EXPECT_EQ(windows.GetFocus(), b.hWnd());
}

TEST_F(WindowSystemTest, PostedMessagesAreRecordedAndDeliveredAtTheNextDoEvents) {
  auto main = windows.Create(u"Main");
  std::vector<std::intptr_t> delivered;
  windows.SetMessageHandler(main, [&](int message, std::intptr_t w, std::intptr_t) {
    delivered.push_back(message * 1000 + w);
    return 0;
  });
  EXPECT_TRUE(windows.PostMessage(main, vb::kWmSysKeyDown, 'F', 0x20000000));
  EXPECT_FALSE(windows.PostMessage(424242, vb::kWmSysKeyDown, 'F', 0));
  EXPECT_TRUE(delivered.empty());
  runtime->DoEvents();
  EXPECT_EQ(delivered, (std::vector<std::intptr_t>{260 * 1000 + 'F'}));
  EXPECT_EQ(windows.PostedMessages(),
            (std::vector<vb::PostedMessage>{{main, 260, 'F', 0x20000000}}));
}

TEST_F(WindowSystemTest, SetWindowPosMakesAFormTopMostWithoutMovingIt) {
  vb::Form form(*runtime, u"frmTop");
  form.Move(300, 400, 5000, 3000);
  EXPECT_FALSE(form.TopMost());
  EXPECT_TRUE(windows.SetWindowPos(form.hWnd(), vb::kHwndTopMost, 0, 0, 0, 0,
                                   vb::kSwpNoMove | vb::kSwpNoSize));
  EXPECT_TRUE(form.TopMost());
  EXPECT_EQ(form.Left(), 300);
  EXPECT_EQ(form.Width(), 5000);
  windows.SetWindowPos(form.hWnd(), vb::kHwndNoTopMost, 10, 20, 100, 50, 0);  // pixels
  EXPECT_FALSE(form.TopMost());
  EXPECT_EQ(form.Left(), 150);
  EXPECT_EQ(form.Height(), 750);
}

TEST_F(WindowSystemTest, DestroyedWindowsAreGoneAndHandlesAreNotReused) {
  vb::Hwnd first;
  {
    vb::Form form(*runtime, u"frmGone");
    first = form.hWnd();
    EXPECT_TRUE(windows.Exists(first));
  }
  EXPECT_FALSE(windows.Exists(first));
  vb::Form again(*runtime, u"frmGone");
  EXPECT_NE(again.hWnd(), first);
}

}  // namespace
