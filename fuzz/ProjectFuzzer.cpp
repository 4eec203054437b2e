// Fuzz target: the project reader. Whatever the bytes, the project written back is the same.
#include <cstddef>
#include <cstdint>
#include <string_view>

#include "FuzzCheck.h"
#include "host/files/ProjectFile.h"
#include "runtime/CodePage.h"

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  std::string_view bytes(reinterpret_cast<const char*>(data), size);
  const vb::CodePage& codePage = vb::CodePage::Windows1252();
  host::files::Problems problems;
  host::files::ProjectFile project = host::files::ReadProject(bytes, codePage, "p.vbp", problems);
  QM_FUZZ_REQUIRE(host::files::WriteProject(project, codePage) == bytes, "project bytes");
  for (const auto& item : project.items)
    QM_FUZZ_REQUIRE(item.line >= 0 && item.line < static_cast<int>(project.lines.size()),
                    "an item's line");
  return 0;
}
