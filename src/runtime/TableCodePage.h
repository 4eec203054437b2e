// vb::TableCodePage: an ANSI code page (single- or double-byte) driven by generated tables.
#pragma once

#include "runtime/CodePage.h"
#include "runtime/codepages/CodePageTable.h"

namespace vb {

// The tables hold only byte sequences that round-trip, so whatever they do not know is escaped
// to U+DC00+byte on decoding and comes back as the same byte on encoding.
class TableCodePage final : public CodePage {
 public:
  explicit constexpr TableCodePage(const codepages::CodePageTable& table) : table_(table) {}

  int Number() const override { return table_.number; }
  bool IsLeadByte(unsigned char byte) const override {
    return table_.leadRow != nullptr && table_.leadRow[byte] != 0;
  }

  void Decode(std::string_view bytes, std::u16string& out) const override;
  void Encode(std::u16string_view text, std::string& out,
              std::size_t* unmappable = nullptr) const override;

  // The base class's convenience overloads, hidden by the overrides above otherwise.
  using CodePage::Decode;
  using CodePage::Encode;

 private:
  const codepages::CodePageTable& table_;
};

}  // namespace vb
