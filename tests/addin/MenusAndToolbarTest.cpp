// The "&Quillmark Tools" menu and the "Quillmark Tools" toolbar: captions, groups, faces, the
// placement they come back to, and the toolbar's search box with its history.
#include <gtest/gtest.h>

#include "QuillmarkResources.h"
#include "host/CommandBars.h"
#include "runtime/Resources.h"
#include "runtime/Utf.h"
#include "search/frmSearch.h"
#include "support/AddinWorld.h"
#include "vbide/CommandBars.h"

namespace {

using qmtest::AddinWorld;

struct Item {
  std::u16string caption;
  bool group;
  bool hasFace;
  bool operator==(const Item&) const = default;
};

std::vector<Item> ItemsOf(const vbide::CommandBarControlsPtr& controls) {
  std::vector<Item> items;
  for (auto& c : controls->Items()) {
    auto button = std::dynamic_pointer_cast<host::CommandBarButton>(c);
    items.push_back({c->Caption(), c->BeginGroup(), button && button->Face().has_value()});
  }
  return items;
}

TEST(Menu, SitsOnTheToolsMenuWithItsSixItems) {
  AddinWorld w;
  w.ConnectLater();
  auto popup = w.Addin()->MenuPopup();
  auto tools = w.ide->CommandBars()->Item(u"Tools")->Controls();
  EXPECT_EQ(tools->Item(tools->Count()), popup);
  EXPECT_EQ(popup->Caption(), u"&Quillmark Tools");
  EXPECT_EQ(ItemsOf(popup->Controls()),
            (std::vector<Item>{{u"&Component Viewer", false, true},
                               {u"&Visual Search and Replace", true, true},
                               {u"Close All &Windows", true, true},
                               {u"Clear &Debug Window", false, true},
                               {u"&Options...", true, false},
                               {u"&About Quillmark Tools", false, false}}));
}

TEST(Menu, ClicksReachTheirHandlers) {
  AddinWorld w;
  w.ConnectLater();
  auto items = w.Addin()->MenuPopup()->Controls();
  std::static_pointer_cast<host::CommandBarButton>(items->Item(1))->Click();
  ASSERT_NE(w.Main().gwinListView, nullptr);
  EXPECT_TRUE(w.Main().gwinListView->Visible());
  std::static_pointer_cast<host::CommandBarButton>(items->Item(2))->Click();
  EXPECT_TRUE(w.Main().gfrmSearch->Visible());
}

TEST(Toolbar, IsLockedAndHoldsItsSixControls) {
  AddinWorld w;
  w.ConnectLater();
  auto bar = w.Addin()->Toolbar();
  EXPECT_EQ(bar->Name(), u"Quillmark Tools");
  EXPECT_EQ(bar->Protection(), 1);
  EXPECT_EQ(ItemsOf(bar->Controls()), (std::vector<Item>{{u"Component Viewer", false, true},
                                                         {u"New Member", false, true},
                                                         {u"Visual Search and Replace", true, true},
                                                         {u"", false, false},
                                                         {u"Close All Windows", true, true},
                                                         {u"Clear Debug Window", false, true}}));
  EXPECT_EQ(bar->Controls()->Item(4)->Type(), vbide::msoControlComboBox);
  EXPECT_EQ(bar->Controls()->Item(4)->Width(), 150);
}

TEST(Toolbar, FirstRunFloatsAt200And200VisibleWithoutApplyingTheRow) {
  AddinWorld w;
  w.ConnectLater();
  auto bar = w.Addin()->Toolbar();
  EXPECT_EQ(bar->Position(), vbide::msoBarFloating);
  EXPECT_EQ(bar->Left(), 200);
  EXPECT_EQ(bar->Top(), 200);
  EXPECT_TRUE(bar->Visible());
  EXPECT_NE(bar->RowIndex(), 4);  // the stored default row applies only when docked at the top
}

TEST(Toolbar, DockedAtTheTopComesBackToItsRow) {
  AddinWorld w;
  w.ConnectLater();
  auto bar = w.Addin()->Toolbar();
  bar->SetPosition(vbide::msoBarTop);
  bar->SetRowIndex(2);
  bar->SetLeft(310);
  bar->SetTop(0);
  w.Disconnect();
  EXPECT_EQ(w.Setting(u"CommandBar", u"Position"), u"1");
  EXPECT_EQ(w.Setting(u"CommandBar", u"RowIndex"), u"2");
  EXPECT_EQ(w.Setting(u"CommandBar", u"Visible"), u"True");
  w.ConnectLater();
  bar = w.Addin()->Toolbar();
  EXPECT_EQ(bar->Position(), vbide::msoBarTop);
  EXPECT_EQ(bar->RowIndex(), 2);
  EXPECT_EQ(bar->Left(), 310);
}

TEST(Toolbar, DockedElsewhereKeepsTheLastRowWithoutApplyingIt) {
  AddinWorld w;
  w.Store(u"CommandBar", u"RowIndex", u"3");
  w.ConnectLater();
  auto bar = w.Addin()->Toolbar();
  bar->SetPosition(vbide::msoBarLeft);
  bar->SetRowIndex(7);
  bar->SetVisible(false);
  w.Disconnect();
  EXPECT_EQ(w.Setting(u"CommandBar", u"Position"), u"0");
  EXPECT_EQ(w.Setting(u"CommandBar", u"RowIndex"), u"3");
  EXPECT_EQ(w.Setting(u"CommandBar", u"Visible"), u"False");
  w.ConnectLater();
  EXPECT_EQ(w.Addin()->Toolbar()->Position(), vbide::msoBarLeft);
  EXPECT_NE(w.Addin()->Toolbar()->RowIndex(), 3);
  EXPECT_FALSE(w.Addin()->Toolbar()->Visible());
}

TEST(Toolbar, AFailureStopsBuildingWithItsOwnMessageAndLeavesTheMenu) {
  AddinWorld w;
  // Every face but "NewMember", which only the toolbar uses.
  auto resources = std::make_shared<vb::Resources>();
  vb::Resources all;
  quillmark::RegisterQuillmarkResources(all);
  for (int id : all.Numbers()) resources->Register(id, all.LoadResPicture(id));
  w.runtime->SetResources(resources);
  w.ConnectLater();
  auto& boxes = w.runtime->MessageBoxService().Transcript();
  ASSERT_EQ(boxes.size(), 1u);
  EXPECT_EQ(boxes[0].title, u"Error creating toolbar");
  EXPECT_EQ(boxes[0].style, 48);
  EXPECT_NE(boxes[0].prompt.find(u"NewMember"), std::u16string::npos);
  EXPECT_EQ(w.Addin()->Toolbar()->Controls()->Count(), 2);  // as far as it was built
  EXPECT_EQ(w.Addin()->MenuPopup()->Controls()->Count(), 6);
}

std::shared_ptr<host::CommandBarComboBox> Box(AddinWorld& w) {
  return std::dynamic_pointer_cast<host::CommandBarComboBox>(w.Addin()->SearchCombo());
}

std::vector<std::u16string> ListOf(const std::shared_ptr<host::CommandBarComboBox>& box) {
  std::vector<std::u16string> list;
  for (int i = 1; i <= box->ListCount(); ++i) list.push_back(box->List(i));
  return list;
}

TEST(SearchBox, LoadsTheHistoryAtTheNumberedPositions) {
  AddinWorld w;
  w.settings->SaveSetting(u"QTools Search History", u"SearchRecents", u"Recent1", u"Total");
  w.settings->SaveSetting(u"QTools Search History", u"SearchRecents", u"Recent2", u"Customer");
  w.settings->SaveSetting(u"QTools Search History", u"SearchRecents", u"Recent3", u"Invoice");
  w.ConnectLater();
  EXPECT_EQ(ListOf(Box(w)), (std::vector<std::u16string>{u"Total", u"Customer", u"Invoice"}));
}

TEST(SearchBox, TypedTextIsInsertedAgainPickedTextMovesToTheTop) {
  AddinWorld w;
  w.ConnectLater();
  auto box = Box(w);
  box->CommitTyped(u"Total");
  box->CommitTyped(u"Customer");
  box->CommitTyped(u"Total");  // typed, though listed: inserted again
  EXPECT_EQ(ListOf(box), (std::vector<std::u16string>{u"Total", u"Customer", u"Total"}));
  EXPECT_EQ(w.Main().SearchText, u"Total");
  box->Pick(2);  // "Customer" picked: moves to the top
  EXPECT_EQ(ListOf(box), (std::vector<std::u16string>{u"Customer", u"Total", u"Total"}));
  EXPECT_EQ(box->ListIndex(), 1);
  EXPECT_EQ(w.settings->GetSetting(u"QTools Search History", u"SearchRecents", u"Recent1", u""),
            u"Customer");
  ASSERT_NE(w.Main().gwinResults, nullptr);  // every toolbar search shows the results window
  EXPECT_TRUE(w.Main().gwinResults->Visible());
}

TEST(SearchBox, ElevenSearchesKeepElevenInTheBoxAndStoreTheNewestTen) {
  AddinWorld w;
  w.ConnectLater();
  auto box = Box(w);
  for (int i = 1; i <= 11; ++i) box->CommitTyped(u"text" + vb::FromUtf8(std::to_string(i)));
  EXPECT_EQ(box->ListCount(), 11);
  w.Disconnect();
  w.ConnectLater();  // the next start shows the ten stored (which ten: the dialog's test)
  EXPECT_EQ(Box(w)->ListCount(), 10);
  EXPECT_EQ(Box(w)->List(1), u"text11");
}

}  // namespace
