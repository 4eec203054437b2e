// ModuleWriter: the complete text of one module file - version line, header, attributes, code.
#pragma once

#include <cstdint>
#include <string>

#include "Plan.h"

namespace vbgen {

class ModuleWriter {
 public:
  // ANSI text with CR LF line ends, as the IDE saves it. Same plan and seed, same bytes.
  static std::string Text(const ModulePlan& plan, std::uint64_t seed);

  // The MSComctlLib type library the forms' ListView controls come from.
  static constexpr const char* kComctlObject =
      "{831FDD16-0C5C-11D2-A9FC-0000F8754DA1}#2.0#0; MSCOMCTL.OCX";
};

}  // namespace vbgen
