// vb::Utf8CodePage: code page 65001, UTF-8 with undecodable bytes kept as surrogate escapes.
#pragma once

#include "runtime/CodePage.h"

namespace vb {

// Only well-formed UTF-8 decodes: overlong forms, encoded surrogates (ED A0..BF xx), code points
// past U+10FFFF and truncated sequences escape their bytes one at a time, so they come back
// unchanged on encoding.
class Utf8CodePage final : public CodePage {
 public:
  constexpr Utf8CodePage() = default;

  int Number() const override { return 65001; }
  bool IsLeadByte(unsigned char) const override { return false; }

  void Decode(std::string_view bytes, std::u16string& out) const override;
  void Encode(std::u16string_view text, std::string& out,
              std::size_t* unmappable = nullptr) const override;

  using CodePage::Decode;
  using CodePage::Encode;
};

}  // namespace vb
