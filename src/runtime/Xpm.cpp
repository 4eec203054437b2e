// The XPM reader: header, colour table and pixel rows into a vb::Picture.
#include "runtime/Xpm.h"

#include <array>
#include <charconv>
#include <cstdint>
#include <map>
#include <optional>
#include <sstream>

#include "runtime/Error.h"
#include "runtime/Utf.h"

namespace vb {

namespace {

constexpr std::uint32_t kOpaque = 0xFF000000;

[[noreturn]] void Invalid(std::string_view source, std::size_t index, const std::string& what) {
  std::string text = "Invalid picture: " + std::string(source);
  if (index > 0) text += " string " + std::to_string(index);
  throw Error(kInvalidPicture, FromUtf8(text + ": " + what));
}

std::optional<std::uint32_t> HexColour(std::string_view hex) {
  if (hex.size() != 3 && hex.size() != 6) return std::nullopt;
  std::uint32_t value = 0;
  for (char c : hex) {
    int digit = c >= '0' && c <= '9'   ? c - '0'
                : c >= 'a' && c <= 'f' ? c - 'a' + 10
                : c >= 'A' && c <= 'F' ? c - 'A' + 10
                                       : -1;
    if (digit < 0) return std::nullopt;
    value = value * 16 + static_cast<std::uint32_t>(digit);
    if (hex.size() == 3) value = value * 16 + static_cast<std::uint32_t>(digit);
  }
  return kOpaque | value;
}

// The sixteen colours of a classic palette, by the names X11 gives them.
std::optional<std::uint32_t> NamedColour(std::string name) {
  for (char& c : name) c = static_cast<char>(c >= 'A' && c <= 'Z' ? c + 32 : c);
  static constexpr std::array<std::pair<std::string_view, std::uint32_t>, 17> kNames{{
      {"none", 0},
      {"black", 0x000000},
      {"maroon", 0x800000},
      {"green", 0x008000},
      {"olive", 0x808000},
      {"navy", 0x000080},
      {"purple", 0x800080},
      {"teal", 0x008080},
      {"silver", 0xC0C0C0},
      {"gray", 0x808080},
      {"red", 0xFF0000},
      {"lime", 0x00FF00},
      {"yellow", 0xFFFF00},
      {"blue", 0x0000FF},
      {"magenta", 0xFF00FF},
      {"cyan", 0x00FFFF},
      {"white", 0xFFFFFF},
  }};
  if (name.starts_with('#')) return HexColour(std::string_view(name).substr(1));
  for (auto [known, value] : kNames)
    if (known == name) return value == 0 && known == "none" ? 0 : kOpaque | value;
  return std::nullopt;
}

// The value of the "c" (colour display) key of a colour line; other visuals are ignored.
std::optional<std::string> ColourKeyValue(std::string_view rest) {
  std::istringstream words{std::string(rest)};
  std::string word;
  while (words >> word) {
    std::string value;
    if (!(words >> value)) return std::nullopt;
    if (word == "c") return value;
  }
  return std::nullopt;
}

}  // namespace

Picture ParseXpm(const std::vector<std::string_view>& strings, std::string_view source) {
  if (strings.empty()) Invalid(source, 0, "no strings");
  std::istringstream header{std::string(strings[0])};
  int width = 0, height = 0, colours = 0, perPixel = 0;
  if (!(header >> width >> height >> colours >> perPixel) || width <= 0 || height <= 0 ||
      colours <= 0 || perPixel <= 0 || perPixel > 4)
    Invalid(source, 1, "expected \"<width> <height> <colours> <chars per pixel>\"");
  if (strings.size() != 1u + colours + height)
    Invalid(source, 0,
            "expected " + std::to_string(1 + colours + height) + " strings, found " +
                std::to_string(strings.size()));

  std::map<std::string, std::uint32_t, std::less<>> table;
  for (int i = 1; i <= colours; ++i) {
    std::string_view line = strings[i];
    if (line.size() < static_cast<std::size_t>(perPixel)) Invalid(source, i + 1, "short colour");
    auto value = ColourKeyValue(line.substr(perPixel));
    auto colour = value ? NamedColour(*value) : std::nullopt;
    if (!colour) Invalid(source, i + 1, "unknown colour \"" + std::string(line) + "\"");
    table[std::string(line.substr(0, perPixel))] = *colour;
  }

  Picture picture{width, height, {}};
  picture.pixels.reserve(static_cast<std::size_t>(width) * height);
  for (int y = 0; y < height; ++y) {
    std::size_t index = 1 + colours + y;
    std::string_view row = strings[index];
    if (row.size() != static_cast<std::size_t>(width) * perPixel)
      Invalid(source, index + 1,
              "row of " + std::to_string(row.size()) + " characters, expected " +
                  std::to_string(width * perPixel));
    for (int x = 0; x < width; ++x) {
      auto it = table.find(row.substr(static_cast<std::size_t>(x) * perPixel, perPixel));
      if (it == table.end()) Invalid(source, index + 1, "pixel with no colour");
      picture.pixels.push_back(it->second);
    }
  }
  return picture;
}

Picture ParseXpmSource(std::string_view text, std::string_view source) {
  std::vector<std::string> literals;
  for (std::size_t i = 0; i < text.size(); ++i) {
    if (text.substr(i).starts_with("/*")) {
      std::size_t end = text.find("*/", i + 2);
      if (end == std::string_view::npos) Invalid(source, 0, "unclosed comment");
      i = end + 1;
    } else if (text[i] == '"') {
      std::size_t end = text.find('"', i + 1);
      if (end == std::string_view::npos) Invalid(source, 0, "unclosed string");
      literals.emplace_back(text.substr(i + 1, end - i - 1));
      i = end;
    }
  }
  std::vector<std::string_view> views(literals.begin(), literals.end());
  return ParseXpm(views, source);
}

}  // namespace vb
