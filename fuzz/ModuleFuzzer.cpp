// Fuzz target: the module reader and the designer parser. Whatever the bytes, reading them as a
// module of each kind and writing the module back gives the same bytes, and the designer tree
// lies inside the header with every block inside its container's.
#include <cstddef>
#include <cstdint>
#include <string_view>
#include <vector>

#include "FuzzCheck.h"
#include "host/files/ModuleFile.h"
#include "runtime/CodePage.h"

namespace {

using host::files::DesignerControl;

void CheckTree(const DesignerControl& root, int headerLines) {
  QM_FUZZ_REQUIRE(root.beginLine <= root.endLine && root.endLine < headerLines, "root block");
  std::vector<const DesignerControl*> pending{&root};
  while (!pending.empty()) {
    const DesignerControl* parent = pending.back();
    pending.pop_back();
    for (const DesignerControl& child : parent->children) {
      QM_FUZZ_REQUIRE(child.beginLine > parent->beginLine && child.endLine <= parent->endLine,
                      "a block inside its container");
      QM_FUZZ_REQUIRE(child.beginLine <= child.endLine, "a block's lines");
      pending.push_back(&child);
    }
  }
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  std::string_view bytes(reinterpret_cast<const char*>(data), size);
  const vb::CodePage& codePage = vb::CodePage::Windows1252();
  using Kind = host::files::ModuleKind;
  for (Kind kind : {Kind::Standard, Kind::Class, Kind::Form, Kind::UserControl}) {
    host::files::Problems problems;
    host::files::ModuleFile module = host::files::ReadModule(bytes, kind, codePage, "f", problems);
    QM_FUZZ_REQUIRE(host::files::WriteModule(module, codePage) == bytes, "module bytes");
    if (module.designer) CheckTree(*module.designer, static_cast<int>(module.header.size()));
  }
  return 0;
}
