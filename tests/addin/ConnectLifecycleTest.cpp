// The add-in's connection: the two start-up paths and their deliberate differences, the public
// show/hide operations, the failure message and the teardown's settings.
#include <gtest/gtest.h>

#include "options/frmAutoSave.h"
#include "search/frmSearch.h"
#include "support/AddinWorld.h"
#include "vbide/CommandBars.h"
#include "vbide/Window.h"

namespace {

using qmtest::AddinWorld;

// Which of the three windows came up first: the search dialog's visibility is read at the
// moment each tool window first shows, since tool windows tell the IDE and the dialog does not.
struct Reopened {
  std::vector<std::string> order;
  vbide::Subscription sink;
  explicit Reopened(AddinWorld& w) {
    sink = w.ide->changed.Subscribe([this, &w] {
      auto* addin = w.Addin();
      if (!addin) return;
      auto& m = addin->Main();
      Note("search", m.gfrmSearch && m.gfrmSearch->Visible());
      Note("results", m.gwinResults && m.gwinResults->Visible());
      Note("viewer", m.gwinListView && m.gwinListView->Visible());
    });
  }
  void Note(const std::string& name, bool visible) {
    if (visible && std::find(order.begin(), order.end(), name) == order.end())
      order.push_back(name);
  }
};

void StoreAllVisible(AddinWorld& w, const char16_t* value) {
  w.Store(u"Component Viewer", u"Visible", value);
  w.Store(u"Search Results", u"Visible", value);
  w.Store(u"frmSearch", u"Visible", value);
}

TEST(Connection, AtStartupNothingReopensUntilStartupCompleteThenSearchResultsViewerInOrder) {
  AddinWorld w;
  StoreAllVisible(w, u"-1");
  Reopened reopened(w);
  w.ConnectAtStartup(false);
  EXPECT_FALSE(w.Main().gfrmSearch->Visible());
  EXPECT_EQ(w.Main().gwinResults, nullptr);
  EXPECT_EQ(w.Main().gwinListView, nullptr);
  EXPECT_EQ(w.Main().gMainHwnd, 0);  // not looked up during a start-up connection

  w.ide->StartupComplete();
  reopened.Note("search", w.Main().gfrmSearch->Visible());
  EXPECT_EQ(reopened.order, (std::vector<std::string>{"search", "results", "viewer"}));
  EXPECT_NE(w.Main().gMainHwnd, 0);
  EXPECT_EQ(w.Main().gMainHwnd, w.ide->MainWindow()->HWnd());
}

TEST(Connection, LaterTheWindowsReopenAtOnceWithTheSearchDialogLast) {
  AddinWorld w;
  StoreAllVisible(w, u"-1");
  Reopened reopened(w);
  w.ConnectLater();
  reopened.Note("search", w.Main().gfrmSearch->Visible());
  EXPECT_EQ(reopened.order, (std::vector<std::string>{"results", "viewer", "search"}));
  EXPECT_NE(w.Main().gMainHwnd, 0);
}

TEST(Connection, AVisibleValueOfFiveShowsTheSearchDialogOnlyWhenConnectedLater) {
  for (bool atStartup : {true, false}) {
    AddinWorld w;
    w.Store(u"frmSearch", u"Visible", u"5");
    w.Store(u"Search Results", u"Visible", u"5");
    if (atStartup)
      w.ConnectAtStartup();
    else
      w.ConnectLater();
    // Non-zero is enough later; at start-up only exactly -1 reopens it.
    EXPECT_EQ(w.Main().gfrmSearch->Visible(), !atStartup) << atStartup;
    // The tool windows want -1 on both paths.
    EXPECT_EQ(w.Main().gwinResults, nullptr);
  }
}

TEST(Connection, AFreshUserGetsNoWindowsAndNoAutoSave) {
  AddinWorld w;
  w.ConnectLater();
  EXPECT_FALSE(w.Main().gAutoSave);
  AddinWorld on;  // which texts turn it on is AutoSaveRule's table; here, that it is read
  on.Store(u"Options", u"AutoSave", u"1");
  on.ConnectLater();
  EXPECT_TRUE(on.Main().gAutoSave);
  EXPECT_NE(w.Main().gfrmSearch, nullptr);  // created, though not shown
  EXPECT_FALSE(w.Main().gfrmSearch->Visible());
  EXPECT_EQ(w.Main().gwinResults, nullptr);
  EXPECT_EQ(w.Main().gwinListView, nullptr);
  EXPECT_NE(w.Main().gfrmAutoSave, nullptr);
  EXPECT_TRUE(w.Main().gfrmAutoSave->IsLoaded());
  EXPECT_FALSE(w.Main().gfrmAutoSave->Visible());
}

TEST(Connection, ASecondShowListViewMakesNoSecondWindow) {
  AddinWorld w;
  w.ConnectLater();
  auto* addin = w.Addin();
  addin->ShowListView();
  auto window = w.Main().gwinListView;
  ASSERT_NE(window, nullptr);
  int count = w.ide->Windows()->Count();
  addin->HideListView();
  EXPECT_FALSE(window->Visible());
  addin->ShowListView();
  EXPECT_EQ(w.Main().gwinListView, window);
  EXPECT_EQ(w.ide->Windows()->Count(), count);
  EXPECT_TRUE(window->Visible());
  EXPECT_EQ(std::static_pointer_cast<host::Window>(window)->PersistentId(),
            u"{F64C3128-E03B-11D1-9FFE-00A024C50477}");
}

TEST(Connection, ShowAndHideIgnoreErrorsOfTheIde) {
  AddinWorld w;
  w.ConnectLater();
  // A tool window whose document class is unknown cannot be made; nothing escapes.
  w.classes->RegisterDocument(u"Unused", [] { return nullptr; });
  w.Addin()->HideResults();  // no window yet: error 91 inside, ignored
  EXPECT_NO_THROW(w.Addin()->HideListView());
  EXPECT_TRUE(w.runtime->MessageBoxService().Transcript().empty());
}

TEST(Disconnection, WritesWhichWindowsWereVisibleAndRemovesMenuAndToolbar) {
  AddinWorld w;
  w.ConnectLater();
  auto* addin = w.Addin();
  addin->ShowResults();
  addin->ShowListView();
  addin->HideListView();
  addin->ShowSearch(true);
  int toolsItems = w.ide->CommandBars()->Item(u"Tools")->Controls()->Count();
  w.Disconnect(vbide::ext_dm_UserClosed);
  EXPECT_EQ(w.Setting(u"Search Results", u"Visible"), u"-1");
  EXPECT_EQ(w.Setting(u"Component Viewer", u"Visible"), u"0");
  EXPECT_EQ(w.Setting(u"frmSearch", u"Visible"), u"-1");
  EXPECT_EQ(w.Setting(u"Project Explorer", u"Visible"), u"");  // nothing ever sets that window
  EXPECT_EQ(w.ide->CommandBars()->Item(u"Tools")->Controls()->Count(), toolsItems - 1);
  EXPECT_THROW(w.ide->CommandBars()->Item(u"Quillmark Tools"), vb::Error);
}

TEST(Disconnection, ReconnectingAfterwardsReopensWhatWasOpen) {
  AddinWorld w;
  w.ConnectLater();
  w.Addin()->ShowResults();
  w.Disconnect(vbide::ext_dm_UserClosed);
  w.ConnectLater();
  ASSERT_NE(w.Main().gwinResults, nullptr);
  EXPECT_TRUE(w.Main().gwinResults->Visible());
}

TEST(Connection, AFailureIsReportedAndTheAddinStaysWithWhatWasBuilt) {
  AddinWorld w;
  // The IDE's Tools menu is gone: building the menu fails after the sinks and settings.
  w.ide->Bars()->Remove(w.ide->Bars()->Find(u"Tools").get());
  w.ConnectLater();
  ASSERT_NE(w.Addin(), nullptr);
  auto& boxes = w.runtime->MessageBoxService().Transcript();
  ASSERT_EQ(boxes.size(), 1u);
  EXPECT_EQ(boxes[0].title, u"QuillmarkTools::OnConnection");
  EXPECT_EQ(boxes[0].style, 48);
  EXPECT_NE(boxes[0].prompt.find(u"Tools"), std::u16string::npos);
  EXPECT_NE(w.Main().gfrmSearch, nullptr);    // built before the failing step
  EXPECT_EQ(w.Main().gfrmAutoSave, nullptr);  // after it
  EXPECT_EQ(w.Addin()->Toolbar(), nullptr);
}

}  // namespace
