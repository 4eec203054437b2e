// quillmark::ResultRowKey.
#include "search/ResultRowKey.h"

#include "base/Fields.h"
#include "runtime/VbStrings.h"
#include "vbide/VBComponent.h"
#include "vbide/VBE.h"
#include "vbide/VBProject.h"

namespace quillmark {
namespace {

constexpr std::u16string_view kSeparator = u"|";

}  // namespace

void ResultRowKey::AppendTo(std::u16string& key, std::u16string_view project,
                            std::u16string_view module, std::u16string_view procedure,
                            std::u16string_view line) {
  key.append(project)
      .append(kSeparator)
      .append(module)
      .append(kSeparator)
      .append(procedure)
      .append(kSeparator)
      .append(line);
}

ResultRowKey ResultRowKey::Parse(std::u16string_view key) {
  return {GetField(key, 0, kSeparator), GetField(key, 1, kSeparator), GetField(key, 2, kSeparator),
          static_cast<int>(vb::Val(GetField(key, 3, kSeparator)))};
}

vbide::VBComponentPtr ResultRowKey::Component(vbide::VBE& vbe) const {
  return vbe.VBProjects()->Item(project)->VBComponents()->Item(module);
}

}  // namespace quillmark
