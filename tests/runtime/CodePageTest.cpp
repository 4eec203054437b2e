// Tests of vb::CodePage: lossless round trips, known decodings per page, and what cannot encode.
#include "runtime/CodePage.h"

#include <gtest/gtest.h>

#include <ostream>
#include <random>
#include <string>
#include <vector>

namespace vb {
namespace {

const std::vector<int> kAllPages = {874,  932,  936,  949,  950,  1250, 1251, 1252,
                                    1253, 1254, 1255, 1256, 1257, 1258, 65001};

const CodePage& Page(int number) {
  const CodePage* page = CodePage::Find(number);
  if (page == nullptr) throw std::runtime_error("missing code page " + std::to_string(number));
  return *page;
}

std::string Hex(std::string_view bytes) {
  static constexpr char kDigits[] = "0123456789ABCDEF";
  std::string text;
  for (unsigned char byte : bytes) {
    text += kDigits[byte >> 4];
    text += kDigits[byte & 15];
    text += ' ';
  }
  return text;
}

// Encode(Decode(bytes)) must give the bytes back, and nothing decoded may be unmappable.
::testing::AssertionResult RoundTrips(const CodePage& page, std::string_view bytes) {
  std::size_t unmappable = 0;
  std::string back;
  page.Encode(page.Decode(bytes), back, &unmappable);
  if (back == bytes && unmappable == 0) return ::testing::AssertionSuccess();
  return ::testing::AssertionFailure() << "cp" << page.Number() << ": " << Hex(bytes) << "-> "
                                       << Hex(back) << "(" << unmappable << " unmappable)";
}

// --- Finding pages ---

TEST(CodePageFind, KnowsTheSupportedPagesOnly) {
  for (int number : kAllPages) EXPECT_EQ(Page(number).Number(), number);
  for (int number : {0, -1, 437, 850, 1200, 1259, 20127, 54936, 65000}) {
    EXPECT_EQ(CodePage::Find(number), nullptr) << number;
  }
}

// --- Lossless round trips ---

class CodePageRoundTrip : public ::testing::TestWithParam<int> {};

// Every pair holds every single byte beside a NUL too, at either end.
TEST_P(CodePageRoundTrip, EveryBytePair) {
  const CodePage& page = Page(GetParam());
  std::string bytes(2, '\0');
  int failures = 0;
  for (int pair = 0; pair < 0x10000 && failures < 10; ++pair) {
    bytes[0] = static_cast<char>(pair >> 8);
    bytes[1] = static_cast<char>(pair & 0xFF);
    const auto result = RoundTrips(page, bytes);
    if (!result) ++failures;
    EXPECT_TRUE(result);
  }
}

TEST_P(CodePageRoundTrip, RandomStrings) {
  const CodePage& page = Page(GetParam());
  std::mt19937 random(20240611u);
  std::uniform_int_distribution<int> length(0, 40);
  std::uniform_int_distribution<int> anyByte(0, 255);
  // Mostly high bytes, with UTF-8 continuation bytes and ASCII mixed in, so that lead bytes,
  // multi-byte sequences and broken ones all meet their neighbours.
  std::uniform_int_distribution<int> kind(0, 3);
  std::uniform_int_distribution<int> continuation(0x80, 0xBF);
  std::uniform_int_distribution<int> asciiByte(0x20, 0x7E);
  for (int i = 0; i < 20000; ++i) {
    std::string bytes;
    for (int n = length(random); n > 0; --n) {
      const int which = kind(random);
      const int byte = which == 0   ? asciiByte(random)
                       : which == 1 ? continuation(random)
                                    : anyByte(random);
      bytes += static_cast<char>(byte);
    }
    ASSERT_TRUE(RoundTrips(page, bytes));
  }
}

INSTANTIATE_TEST_SUITE_P(AllPages, CodePageRoundTrip, ::testing::ValuesIn(kAllPages),
                         [](const auto& info) { return "Cp" + std::to_string(info.param); });

// --- Known decodings ---

struct DecodeCase {
  int page;
  std::string bytes;
  std::u16string text;
};

void PrintTo(const DecodeCase& c, std::ostream* out) {
  *out << "cp" << c.page << " " << Hex(c.bytes);
}

class CodePageDecode : public ::testing::TestWithParam<DecodeCase> {};

TEST_P(CodePageDecode, GivesTheKnownTextAndEncodesItBack) {
  const DecodeCase& c = GetParam();
  EXPECT_EQ(Page(c.page).Decode(c.bytes), c.text) << "cp" << c.page << ": " << Hex(c.bytes);
  std::size_t unmappable = 0;
  std::string bytes;
  Page(c.page).Encode(c.text, bytes, &unmappable);
  EXPECT_EQ(Hex(bytes), Hex(c.bytes)) << "cp" << c.page;
  EXPECT_EQ(unmappable, 0u);
}

INSTANTIATE_TEST_SUITE_P(
    SingleBytePages, CodePageDecode,
    ::testing::Values(
        DecodeCase{1252, "caf\xE9", u"caf\u00E9"}, DecodeCase{1252, "\x80\x9F", u"\u20AC\u0178"},
        DecodeCase{1252, "\x81\x8D\x8F\x90\x9D", u"\xDC81\xDC8D\xDC8F\xDC90\xDC9D"},
        DecodeCase{1250, "\x8A\xE8", u"\u0160\u010D"},
        DecodeCase{1251, "\xC0\xFF\x98", u"\u0410\u044F\xDC98"},
        DecodeCase{1253, "\xC1\xE1\xF2\xF3", u"\u0391\u03B1\u03C2\u03C3"},
        DecodeCase{1253, "\xAA", u"\xDCAA"}, DecodeCase{1254, "\xF0\xDD", u"\u011F\u0130"},
        DecodeCase{1255, "\xE0\xCA", u"\u05D0\xDCCA"}, DecodeCase{1256, "\xC7", u"\u0627"},
        DecodeCase{1257, "\xE0", u"\u0105"}, DecodeCase{1258, "\xC3", u"\u0102"},
        DecodeCase{874, "\xA1\xDB", u"\u0E01\xDCDB"},
        DecodeCase{1252, std::string("a\0b", 3), std::u16string(u"a\0b", 3)}));

INSTANTIATE_TEST_SUITE_P(
    DoubleBytePages, CodePageDecode,
    ::testing::Values(
        DecodeCase{932, "\x82\xA0", u"\u3042"},
        // A control name from a Japanese project: two double-byte characters, then "ox".
        DecodeCase{932, "\x81\x9B\x81\x7E\x6F\x78", u"\u25CB\u00D7ox"},
        // 0x5C after a lead byte is a trail, not a backslash.
        DecodeCase{932,
                   "\x95\x5C"
                   "n\\",
                   u"\u8868n\\"},
        DecodeCase{932, "\xB1\xDF", u"\uFF71\uFF9F"},
        // The IBM duplicate of U+2170 encodes as EE EF, so FA 40 does not round-trip: the lead
        // byte escapes alone and '@' is read on its own.
        DecodeCase{932, "\xFA\x40", u"\xDCFA@"}, DecodeCase{932, "\x87\x90", u"\xDC87\xDC90"},
        DecodeCase{932, "\x82", u"\xDC82"}, DecodeCase{932, "\x82 A", u"\xDC82 A"},
        DecodeCase{936, "\xC4\xE3", u"\u4F60"}, DecodeCase{936, "\x81\x5C", u"\u4E57"},
        DecodeCase{936, "\x80\xFF", u"\u20AC\xDCFF"},
        DecodeCase{949, "\xB0\xA1\x81\x41", u"\uAC00\uAC02"},
        DecodeCase{950, "\xA4\x40", u"\u4E00"},
        DecodeCase{950,
                   "\xA5\x5C"
                   "\\",
                   u"\u529F\\"},
        DecodeCase{950, "\x80", u"\xDC80"}));

INSTANTIATE_TEST_SUITE_P(
    Utf8, CodePageDecode,
    ::testing::Values(
        DecodeCase{65001, "\xC3\xA9", u"\u00E9"}, DecodeCase{65001, "\xE3\x81\x82", u"\u3042"},
        DecodeCase{65001, "\xEF\xBB\xBFx", u"\uFEFFx"},
        DecodeCase{65001, "\xF0\x9F\x98\x80", u"\xD83D\xDE00"},
        DecodeCase{65001, "\xF4\x8F\xBF\xBF", u"\xDBFF\xDFFF"},
        // The low half of this pair lies in the escape range; it still decodes as a character.
        DecodeCase{65001, "\xF0\x90\x82\x80", u"\xD800\xDC80"},
        // Overlong forms.
        DecodeCase{65001, "\xC0\x80", u"\xDCC0\xDC80"},
        DecodeCase{65001, "\xC1\xBF", u"\xDCC1\xDCBF"},
        DecodeCase{65001, "\xE0\x80\xAF", u"\xDCE0\xDC80\xDCAF"},
        DecodeCase{65001, "\xF0\x8F\xBF\xBF", u"\xDCF0\xDC8F\xDCBF\xDCBF"},
        // Encoded surrogates and code points past U+10FFFF.
        DecodeCase{65001, "\xED\xA0\x80", u"\xDCED\xDCA0\xDC80"},
        DecodeCase{65001, "\xED\xBF\xBF", u"\xDCED\xDCBF\xDCBF"},
        DecodeCase{65001, "\xF4\x90\x80\x80", u"\xDCF4\xDC90\xDC80\xDC80"},
        DecodeCase{65001, "\xF5\x80", u"\xDCF5\xDC80"},
        // Truncated sequences and stray bytes.
        DecodeCase{65001,
                   "\xE3\x81"
                   "a",
                   u"\xDCE3\xDC81"
                   "a"},
        DecodeCase{65001, "\xF0\x9F\x98", u"\xDCF0\xDC9F\xDC98"},
        DecodeCase{65001, "\x80\xFF\xFE", u"\xDC80\xDCFF\xDCFE"}));

TEST(CodePageDecode, LongAsciiAndMixedRunsKeepTheirOrder) {
  // Long enough for the eight-byte ASCII path, with a high byte at every offset of a word.
  for (int page : kAllPages) {
    for (std::size_t at = 0; at < 20; ++at) {
      std::string bytes(24, 'a');
      for (std::size_t i = 0; i < bytes.size(); ++i) bytes[i] = static_cast<char>('a' + i % 26);
      bytes[at] = '\xFF';
      const std::u16string text = Page(page).Decode(bytes);
      ASSERT_EQ(text.size(), bytes.size()) << page;
      for (std::size_t i = 0; i < bytes.size(); ++i) {
        if (i == at) continue;
        EXPECT_EQ(text[i], static_cast<char16_t>(bytes[i])) << page << " " << at;
      }
    }
  }
}

// --- Lead bytes ---

TEST(CodePageLeadBytes, FollowTheDoubleBytePages) {
  struct Case {
    int page;
    unsigned char byte;
    bool lead;
  };
  const Case cases[] = {
      {932, 0x81, true},  {932, 0x9F, true},   {932, 0xE0, true},   {932, 0x80, false},
      {932, 0xA0, false}, {932, 0xB1, false},  {932, 0x5C, false},  {936, 0x81, true},
      {936, 0xFE, true},  {936, 0x80, false},  {949, 0xB0, true},   {950, 0xA4, true},
      {950, 0x7E, false}, {1252, 0x81, false}, {1253, 0xC1, false}, {65001, 0xE3, false},
  };
  for (const Case& c : cases) {
    EXPECT_EQ(Page(c.page).IsLeadByte(c.byte), c.lead) << c.page << " " << int{c.byte};
  }
}

// --- Characters a page lacks ---

struct UnmappableCase {
  int page;
  std::u16string text;
  std::string bytes;
  std::size_t unmappable;
};

void PrintTo(const UnmappableCase& c, std::ostream* out) {
  *out << "cp" << c.page << " -> " << Hex(c.bytes);
}

class CodePageEncodeUnmappable : public ::testing::TestWithParam<UnmappableCase> {};

TEST_P(CodePageEncodeUnmappable, WritesAQuestionMarkAndCountsIt) {
  const UnmappableCase& c = GetParam();
  std::size_t unmappable = 0;
  std::string bytes;
  Page(c.page).Encode(c.text, bytes, &unmappable);
  EXPECT_EQ(Hex(bytes), Hex(c.bytes)) << "cp" << c.page;
  EXPECT_EQ(unmappable, c.unmappable) << "cp" << c.page;
}

INSTANTIATE_TEST_SUITE_P(
    Cases, CodePageEncodeUnmappable,
    ::testing::Values(
        UnmappableCase{1252, u"a\u3042b\u3044", "a?b?", 2}, UnmappableCase{1252, u"\u0391", "?", 1},
        UnmappableCase{1253, u"\u00E9\u0391", "?\xC1", 1},
        UnmappableCase{1251, u"\u20AC\u00E9", "\x88?", 1},
        UnmappableCase{932, u"\u20AC\u3042", "?\x82\xA0", 1},
        UnmappableCase{936, u"\uAC00", "?", 1},
        UnmappableCase{949, u"\u3042\u0E01", "\xAA\xA2?", 1},
        // A character beyond the BMP: one '?' per unit in an ANSI page.
        UnmappableCase{1252, u"\xD83D\xDE00", "??", 2}, UnmappableCase{932, u"\xD800x", "?x", 1},
        // Lone surrogates in UTF-8, apart from the byte escapes.
        UnmappableCase{65001, u"\xD800x", "?x", 1}, UnmappableCase{65001, u"\xDBFF", "?", 1},
        UnmappableCase{65001, u"\xDC7F\xDD00", "??", 2},
        UnmappableCase{65001, u"\xDE00\xD83D", "??", 2},
        // Escaped bytes are never unmappable.
        UnmappableCase{65001, u"\xDC80\xDCFF", "\x80\xFF", 0},
        UnmappableCase{1252, u"\xDC81\u20AC", "\x81\x80", 0},
        UnmappableCase{932, u"\xDC82\xDCA0", "\x82\xA0", 0}));

TEST(CodePage, DecodeAndEncodeAppendToTheCallersStringAndCount) {
  std::u16string text = u"x";
  Page(1252).Decode("\xE9", text);
  Page(932).Decode("\x82\xA0", text);
  Page(65001).Decode("\xC3\xA9", text);
  EXPECT_EQ(text, u"x\u00E9\u3042\u00E9");
  std::size_t unmappable = 1;
  std::string bytes = "x";
  Page(1252).Encode(u"\u3042\u00E9", bytes, &unmappable);
  EXPECT_EQ(bytes, "x?\xE9");
  EXPECT_EQ(unmappable, 2u);
  EXPECT_EQ(Page(65001).Encode(u"\u3042"), "\xE3\x81\x82");  // no counter
}

}  // namespace
}  // namespace vb
