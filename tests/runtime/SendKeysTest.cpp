// The SendKeys syntax, case by case.
#include <gtest/gtest.h>

#include "runtime/Error.h"
#include "runtime/Runtime.h"
#include "runtime/SendKeys.h"
#include "runtime/VbConstants.h"
#include "support/VbErrorOf.h"

namespace {

using vb::KeyStroke;
constexpr int S = vb::vbShiftMask, C = vb::vbCtrlMask, A = vb::vbAltMask;

struct Case {
  std::u16string keys;
  std::vector<KeyStroke> strokes;
};

TEST(SendKeysTest, ParsesVbSyntax) {
  const Case cases[] = {
      {u"^{END}", {{35, C, 0}}},
      {u"+^{HOME}", {{36, S | C, 0}}},
      {u"{DEL}", {{46, 0, 0}}},
      {u"{delete}{BS}{BACKSPACE}{bksp}", {{46, 0, 0}, {8, 0, 0}, {8, 0, 0}, {8, 0, 0}}},
      {u"~{ENTER}", {{13, 0, 0}, {13, 0, 0}}},
      {u"{F5}{f12}{LEFT}{PGDN}", {{116, 0, 0}, {123, 0, 0}, {37, 0, 0}, {34, 0, 0}}},
      {u"aB1", {{65, 0, u'a'}, {66, 0, u'B'}, {49, 0, u'1'}}},
      {u"%f", {{70, A, u'f'}}},
      {u"+(ec)", {{69, S, u'e'}, {67, S, u'c'}}},
      {u"+ec", {{69, S, u'e'}, {67, 0, u'c'}}},
      {u"{LEFT 3}", {{37, 0, 0}, {37, 0, 0}, {37, 0, 0}}},
      {u"{x 2}", {{88, 0, u'x'}, {88, 0, u'x'}}},
      {u"{+}{^}{%}{~}{(}{)}",
       {{0, 0, u'+'}, {0, 0, u'^'}, {0, 0, u'%'}, {0, 0, u'~'}, {0, 0, u'('}, {0, 0, u')'}}},
      {u"{{}{}}", {{0, 0, u'{'}, {0, 0, u'}'}}},
      {u"^(+{END})", {{35, C | S, 0}}},
      {u"", {}},
  };
  for (const auto& c : cases) {
    EXPECT_EQ(vb::ParseSendKeys(c.keys), c.strokes) << std::string(c.keys.begin(), c.keys.end());
  }
}

TEST(SendKeysTest, BadSyntaxIsError5NamingTheText) {
  for (std::u16string bad :
       {u"{NOSUCHKEY}", u"{END", u"+", u"^(ab", u"ab)", u"}", u"{LEFT x}", u"(+)"}) {
    vb::Error e = qmtest::ErrorOf([&] { vb::ParseSendKeys(bad); });
    EXPECT_EQ(e.Number(), 5) << std::string(bad.begin(), bad.end());
    EXPECT_NE(e.Description().find(bad), std::u16string::npos);
  }
}

TEST(SendKeysTest, TheRuntimeDeliversToTheHostsSink) {
  struct Sink : vb::KeySink {
    void Deliver(const std::vector<KeyStroke>& strokes, bool wait) override {
      got.insert(got.end(), strokes.begin(), strokes.end());
      waited = wait;
    }
    std::vector<KeyStroke> got;
    bool waited = false;
  };
  auto runtime = vb::Runtime::CreateHeadless();
  auto sink = std::make_shared<Sink>();
  runtime->SetKeySink(sink);
  runtime->SendKeys(u"^{END}", true);
  runtime->SendKeys(u"{DEL}", true);
  EXPECT_EQ(sink->got, (std::vector<KeyStroke>{{35, C, 0}, {46, 0, 0}}));
  EXPECT_TRUE(sink->waited);
  EXPECT_THROW(runtime->SendKeys(u"{OOPS}"), vb::Error);
}

}  // namespace
