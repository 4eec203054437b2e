// Contract: the IDE's command bars — built-in menus, new toolbars, controls, faces pasted from the
// clipboard, combo boxes and the clicks they raise.
#include <gtest/gtest.h>

#include "runtime/Utf.h"
#include "support/IdeBuilder.h"
#include "support/VbErrorOf.h"
#include "vbide/CommandBars.h"
#include "vbide/Events.h"

namespace {

using qmtest::ErrorNumberOf;
using qmtest::IdeBuilder;

TEST(CommandBars, HaveTheIdesMenusReachableByNameWithoutAccessKeys) {
  auto ide = IdeBuilder().Build();
  auto bars = ide->CommandBars();
  auto menuBar = bars->Item(u"Menu Bar");
  EXPECT_EQ(menuBar->Controls()->Item(8)->Caption(), u"&Tools");
  auto tools = bars->Item(u"tools");
  EXPECT_EQ(tools->Name(), u"Tools");
  EXPECT_EQ(menuBar->Controls()->Item(8)->CommandBar(), tools);  // the popup's own bar
  for (auto name : {u"Standard", u"Edit", u"Debug", u"Form Editor"})
    EXPECT_NO_THROW(bars->Item(name));
  EXPECT_EQ(ErrorNumberOf([&] { bars->Item(u"Quillmark"); }), 9);
}

TEST(CommandBars, AddMakesAnEmptyVisibleToolbarThatDeleteTakesAway) {
  auto ide = IdeBuilder().Build();
  auto bars = ide->CommandBars();
  int before = bars->Count();
  auto bar = bars->Add(u"Reports");
  EXPECT_EQ(bars->Count(), before + 1);
  EXPECT_TRUE(bar->Visible());
  EXPECT_EQ(bar->Controls()->Count(), 0);
  bar->SetPosition(vbide::msoBarFloating);
  bar->SetLeft(200);
  bar->SetTop(150);
  bar->SetProtection(vbide::msoBarNoCustomize);
  EXPECT_EQ(bars->Item(u"Reports")->Left(), 200);
  auto button = bar->Controls()->Add(vbide::msoControlButton);
  bar->Delete();
  EXPECT_EQ(bars->Count(), before);
  EXPECT_EQ(ErrorNumberOf([&] { bar->Visible(); }), 91);
  EXPECT_EQ(ErrorNumberOf([&] { button->Caption(); }), 91);
}

TEST(CommandBarControls, PopupsHoldControlsAndFacesComeFromTheClipboard) {
  auto ide = IdeBuilder().Build();
  auto tools = ide->CommandBars()->Item(u"Tools");
  int before = tools->Controls()->Count();
  auto popup = tools->Controls()->Add(vbide::msoControlPopup);
  popup->SetCaption(u"&Reports");
  auto item = popup->Controls()->Add(vbide::msoControlButton);
  item->SetCaption(u"&Daily");
  EXPECT_EQ(tools->Controls()->Count(), before + 1);
  EXPECT_EQ(popup->Controls()->Item(1)->Caption(), u"&Daily");

  EXPECT_EQ(ErrorNumberOf([&] { item->PasteFace(); }), 5);  // nothing on the clipboard
  vb::Picture face{16, 16, std::vector<std::uint32_t>(256, 0xFF0000FFu)};
  ide->Clipboard()->SetData(face);
  item->PasteFace();
  EXPECT_EQ(std::static_pointer_cast<host::CommandBarButton>(item)->Face(), face);
  popup->Delete();
  EXPECT_EQ(tools->Controls()->Count(), before);
  EXPECT_EQ(ErrorNumberOf([&] { item->Caption(); }), 91);
}

TEST(CommandBarComboBox, ListPositionsCountFromOneAndTypedTextHasIndexZero) {
  auto ide = IdeBuilder().Build();
  auto bar = ide->CommandBars()->Add(u"Find");
  auto combo = std::dynamic_pointer_cast<vbide::CommandBarComboBox>(
      bar->Controls()->Add(vbide::msoControlComboBox));
  ASSERT_NE(combo, nullptr);
  combo->AddItem(u"beta");
  combo->AddItem(u"alpha", 1);
  combo->AddItem(u"gamma");
  EXPECT_EQ(combo->ListCount(), 3);
  EXPECT_EQ(combo->List(1), u"alpha");
  combo->SetListIndex(3);
  EXPECT_EQ(combo->Text(), u"gamma");
  combo->RemoveItem(1);
  EXPECT_EQ(combo->ListIndex(), 2);  // the picked entry moved up with the list
  EXPECT_EQ(ErrorNumberOf([&] { combo->List(4); }), 5);
  combo->Clear();
  EXPECT_EQ(combo->ListCount(), 0);
  EXPECT_EQ(combo->ListIndex(), 0);
}

TEST(CommandBarEvents, ClicksReachEveryLiveSinkOfThatControlOnly) {
  auto ide = IdeBuilder().Build();
  auto bar = ide->CommandBars()->Add(u"Find");
  auto button = bar->Controls()->Add(vbide::msoControlButton);
  auto other = bar->Controls()->Add(vbide::msoControlButton);
  auto combo = std::static_pointer_cast<host::CommandBarComboBox>(
      bar->Controls()->Add(vbide::msoControlComboBox));
  std::vector<std::u16string> clicks;
  auto buttonEvents = ide->Events()->CommandBarEvents(button);
  auto comboEvents = ide->Events()->CommandBarEvents(combo);
  auto s1 = buttonEvents->Click.Subscribe(
      [&](vbide::CommandBarControlPtr, bool&, bool&) { clicks.push_back(u"button"); });
  auto s2 = comboEvents->Click.Subscribe([&](vbide::CommandBarControlPtr c, bool&, bool&) {
    auto box = std::dynamic_pointer_cast<vbide::CommandBarComboBox>(c);
    clicks.push_back(box->Text() + u"@" + vb::FromUtf8(std::to_string(box->ListIndex())));
  });
  std::static_pointer_cast<host::CommandBarButton>(button)->Click();
  std::static_pointer_cast<host::CommandBarButton>(other)->Click();
  combo->AddItem(u"Total");
  combo->CommitTyped(u"Total");  // typed, even though the list holds it
  combo->Pick(1);
  EXPECT_EQ(clicks, (std::vector<std::u16string>{u"button", u"Total@0", u"Total@1"}));
  buttonEvents.reset();  // a released source hears nothing
  std::static_pointer_cast<host::CommandBarButton>(button)->Click();
  EXPECT_EQ(clicks.size(), 3u);
}

}  // namespace
