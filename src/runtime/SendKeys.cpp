// The SendKeys parser.
#include "runtime/SendKeys.h"

#include <array>

#include "runtime/CaseFold.h"
#include "runtime/Error.h"
#include "runtime/VbConstants.h"

namespace vb {
namespace {

struct NamedKey {
  std::u16string_view name;
  int keyCode;
};

constexpr std::array<NamedKey, 44> kNamedKeys{{
    {u"BACKSPACE", 8},  {u"BS", 8},           {u"BKSP", 8},     {u"BREAK", 19},  {u"CAPSLOCK", 20},
    {u"DELETE", 46},    {u"DEL", 46},         {u"DOWN", 40},    {u"END", 35},    {u"ENTER", 13},
    {u"ESC", 27},       {u"HELP", 47},        {u"HOME", 36},    {u"INSERT", 45}, {u"INS", 45},
    {u"LEFT", 37},      {u"NUMLOCK", 144},    {u"PGDN", 34},    {u"PGUP", 33},   {u"PRTSC", 44},
    {u"RIGHT", 39},     {u"SCROLLLOCK", 145}, {u"TAB", 9},      {u"UP", 38},     {u"ADD", 107},
    {u"SUBTRACT", 109}, {u"MULTIPLY", 106},   {u"DIVIDE", 111}, {u"F1", 112},    {u"F2", 113},
    {u"F3", 114},       {u"F4", 115},         {u"F5", 116},     {u"F6", 117},    {u"F7", 118},
    {u"F8", 119},       {u"F9", 120},         {u"F10", 121},    {u"F11", 122},   {u"F12", 123},
    {u"F13", 124},      {u"F14", 125},        {u"F15", 126},    {u"F16", 127},
}};

[[noreturn]] void Bad(std::u16string_view keys, std::u16string_view why) {
  std::u16string detail = u"SendKeys \"";
  detail.append(keys);
  detail += u"\": ";
  detail.append(why);
  throw Error::Standard(err::kInvalidProcedureCall, detail);
}

KeyStroke CharacterStroke(char16_t c, int shift) {
  int code = 0;
  if (c >= u'a' && c <= u'z') code = c - u'a' + vbKeyA;
  if ((c >= u'A' && c <= u'Z') || (c >= u'0' && c <= u'9') || c == u' ') code = c;
  return {code, shift, c};
}

class Parser {
 public:
  explicit Parser(std::u16string_view keys) : keys_(keys) {}

  std::vector<KeyStroke> Run() {
    while (pos_ < keys_.size()) {
      if (keys_[pos_] == u')') Bad(keys_, u"\")\" without \"(\"");
      Item(0);
    }
    return out_;
  }

 private:
  // One key or group, with the modifiers collected so far.
  void Item(int shift) {
    while (pos_ < keys_.size()) {
      char16_t c = keys_[pos_];
      int mod = c == u'+' ? vbShiftMask : c == u'^' ? vbCtrlMask : c == u'%' ? vbAltMask : 0;
      if (mod == 0) break;
      shift |= mod;
      ++pos_;
    }
    if (pos_ >= keys_.size()) Bad(keys_, u"a modifier with no key after it");
    char16_t c = keys_[pos_++];
    if (c == u'(') return Group(shift);
    if (c == u'{') return Braced(shift);
    if (c == u'}') Bad(keys_, u"\"}\" without \"{\"");
    if (c == u')') Bad(keys_, u"\")\" where a key was expected");
    if (c == u'~') return out_.push_back({vbKeyReturn, shift, 0});
    out_.push_back(CharacterStroke(c, shift));
  }

  void Group(int shift) {
    while (pos_ < keys_.size() && keys_[pos_] != u')') Item(shift);
    if (pos_ >= keys_.size()) Bad(keys_, u"\"(\" is not closed");
    ++pos_;
  }

  void Braced(int shift) {
    // The first character after "{" is always part of the name, so "{}}" is a literal "}".
    auto close = keys_.find(u'}', pos_ + 1);
    if (pos_ >= keys_.size() || close == std::u16string_view::npos)
      Bad(keys_, u"\"{\" is not closed");
    auto body = keys_.substr(pos_, close - pos_);
    pos_ = close + 1;
    int count = 1;
    if (auto space = body.find(u' '); space != std::u16string_view::npos && space > 0) {
      count = Count(body.substr(space + 1));
      body = body.substr(0, space);
    }
    KeyStroke stroke = Named(body, shift);
    for (int i = 0; i < count; ++i) out_.push_back(stroke);
  }

  int Count(std::u16string_view digits) {
    if (digits.empty() || digits.size() > 6) Bad(keys_, u"a bad repeat count");
    int n = 0;
    for (char16_t d : digits) {
      if (d < u'0' || d > u'9') Bad(keys_, u"a bad repeat count");
      n = n * 10 + (d - u'0');
    }
    return n;
  }

  KeyStroke Named(std::u16string_view name, int shift) {
    if (name.size() == 1) return CharacterStroke(name[0], shift);
    for (const auto& key : kNamedKeys) {
      if (EqualsText(key.name, name)) return {key.keyCode, shift, 0};
    }
    std::u16string why = u"unknown key {";
    why.append(name);
    why += u'}';
    Bad(keys_, why);
  }

  std::u16string_view keys_;
  std::size_t pos_ = 0;
  std::vector<KeyStroke> out_;
};

}  // namespace

std::vector<KeyStroke> ParseSendKeys(std::u16string_view keys) {
  return Parser(keys).Run();
}

}  // namespace vb
