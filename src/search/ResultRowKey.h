// quillmark::ResultRowKey: which line of which module a row of the "Search Results" window
// stands for, and the key text the list view stores for it.
#pragma once

#include <string>
#include <string_view>

#include "vbide/Fwd.h"

namespace quillmark {

// The key text is project, module, procedure and line joined by "|"; lines count from 1.
struct ResultRowKey {
  std::u16string project;
  std::u16string module;
  std::u16string procedure;
  int line = 0;

  // Appends the key of these parts to `key`. The search builds one key per row and keeps the
  // room from row to row, so the line comes as the text it shows in its column.
  static void AppendTo(std::u16string& key, std::u16string_view project, std::u16string_view module,
                       std::u16string_view procedure, std::u16string_view line);
  // Takes a stored key apart field by field (a missing field is ""); the line is the key's
  // fourth field read as VB's Val reads it (0 when it is no number).
  static ResultRowKey Parse(std::u16string_view key);

  // The component the row names, found again by name in the IDE: run-time error 9 when the
  // project or the module is no longer there.
  vbide::VBComponentPtr Component(vbide::VBE& vbe) const;
};

}  // namespace quillmark
