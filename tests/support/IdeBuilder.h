// qmtest::IdeBuilder: an embedded IDE built from inline VB text, for tests that need a world of
// projects and modules without files on disk.
#pragma once

#include <memory>
#include <string>
#include <string_view>
#include <vector>

#include "host/Ide.h"
#include "vbide/Enums.h"

namespace qmtest {

// IdeBuilder().Project(u"Billing").Module(u"modMain", u"Option Explicit\nSub Main()\nEnd Sub")
//             .Build();
// Lines are separated by "\n". Components are added through the IDE's own VBComponents.Add,
// renamed and filled with InsertLines, so they are never saved (and dirty).
class IdeBuilder {
 public:
  IdeBuilder& Project(std::u16string name,
                      vbide::vbext_ProjectType type = vbide::vbext_pt_StandardExe);
  IdeBuilder& Module(std::u16string name, std::u16string code = {});
  IdeBuilder& Class(std::u16string name, std::u16string code = {});
  IdeBuilder& Form(std::u16string name, std::u16string code = {});
  IdeBuilder& Component(vbide::vbext_ComponentType type, std::u16string name, std::u16string code);
  IdeBuilder& Options(host::Ide::Options options);

  std::shared_ptr<host::Ide> Build() const;
  // Adds the projects to an IDE made elsewhere (wired to a runtime, say) and returns it.
  std::shared_ptr<host::Ide> BuildOn(std::shared_ptr<host::Ide> ide) const;

 private:
  struct ComponentSpec {
    vbide::vbext_ComponentType type;
    std::u16string name;
    std::u16string code;
  };
  struct ProjectSpec {
    std::u16string name;
    vbide::vbext_ProjectType type;
    std::vector<ComponentSpec> components;
  };
  std::vector<ProjectSpec> projects_;
  host::Ide::Options options_{};
};

}  // namespace qmtest
