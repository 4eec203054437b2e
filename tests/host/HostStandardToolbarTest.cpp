// The IDE's Standard toolbar: the everyday commands as buttons that share their menu items' tags,
// so the studio runs the same work whichever a user clicks.
#include <gtest/gtest.h>

#include <map>
#include <string>

#include "host/CommandBars.h"
#include "support/IdeBuilder.h"
#include "vbide/CommandBars.h"

namespace {

using qmtest::IdeBuilder;

// Every built-in menu item's tag, with its caption as a user reads it.
std::map<std::u16string, std::u16string> MenuItemsByTag(vbide::CommandBars& bars) {
  std::map<std::u16string, std::u16string> items;
  for (auto& popup : bars.Item(u"Menu Bar")->Controls()->Items())
    for (auto& item : popup->CommandBar()->Controls()->Items())
      items[item->Tag()] = host::StripAccessKey(item->Caption());
  return items;
}

vbide::CommandBarControlPtr ButtonCaptioned(vbide::CommandBar& bar, std::u16string_view caption) {
  for (auto& control : bar.Controls()->Items())
    if (control->Caption() == caption) return control;
  return nullptr;
}

struct SharedTag {
  const char16_t* button;
  const char16_t* menuItem;
};

TEST(StandardToolbar, ButtonsCarryTheTagOfTheMenuItemDoingTheSameWork) {
  auto ide = IdeBuilder().Build();
  auto bars = ide->CommandBars();
  auto menuItems = MenuItemsByTag(*bars);
  const SharedTag cases[] = {
      {u"Open Project", u"Open Project..."},
      {u"Save Project", u"Save Project"},
      {u"Find", u"Find..."},
      {u"Start", u"Start"},
      {u"End", u"End"},
      {u"Project Explorer", u"Project Explorer"},
      {u"Properties Window", u"Properties Window"},
  };
  auto standard = bars->Item(u"Standard");
  EXPECT_TRUE(standard->Visible());
  EXPECT_EQ(standard->Position(), vbide::msoBarTop);
  for (auto& c : cases) {
    auto button = ButtonCaptioned(*standard, c.button);
    ASSERT_NE(button, nullptr);
    ASSERT_FALSE(button->Tag().empty());
    EXPECT_EQ(menuItems[button->Tag()], c.menuItem);
  }
  // The clipboard buttons have no menu item here, but tags of their own all the same.
  std::u16string cut = ButtonCaptioned(*standard, u"Cut")->Tag();
  std::u16string copy = ButtonCaptioned(*standard, u"Copy")->Tag();
  std::u16string paste = ButtonCaptioned(*standard, u"Paste")->Tag();
  EXPECT_FALSE(cut.empty() || copy.empty() || paste.empty());
  EXPECT_TRUE(cut != copy && copy != paste && cut != paste);
}

}  // namespace
