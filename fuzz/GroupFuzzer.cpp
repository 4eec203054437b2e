// Fuzz target: the group reader. Whatever the bytes, the group written back is the same.
#include <cstddef>
#include <cstdint>
#include <string_view>

#include "FuzzCheck.h"
#include "host/files/GroupFile.h"
#include "runtime/CodePage.h"

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  std::string_view bytes(reinterpret_cast<const char*>(data), size);
  host::files::Problems problems;
  host::files::GroupFile group =
      host::files::ReadGroup(bytes, vb::CodePage::Windows1252(), "g.vbg", problems);
  QM_FUZZ_REQUIRE(host::files::WriteGroup(group) == bytes, "group bytes");
  for (const auto& entry : group.projects)
    QM_FUZZ_REQUIRE(entry.line >= 0 && entry.line < static_cast<int>(group.lines.size()),
                    "an entry's line");
  return 0;
}
