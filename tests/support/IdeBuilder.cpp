// qmtest::IdeBuilder.
#include "support/IdeBuilder.h"

#include "host/Project.h"
#include "vbide/CodeModule.h"
#include "vbide/VBComponent.h"

namespace qmtest {

IdeBuilder& IdeBuilder::Project(std::u16string name, vbide::vbext_ProjectType type) {
  projects_.push_back({std::move(name), type, {}});
  return *this;
}

IdeBuilder& IdeBuilder::Component(vbide::vbext_ComponentType type, std::u16string name,
                                  std::u16string code) {
  if (projects_.empty()) Project(u"Project1");
  projects_.back().components.push_back({type, std::move(name), std::move(code)});
  return *this;
}

IdeBuilder& IdeBuilder::Module(std::u16string name, std::u16string code) {
  return Component(vbide::vbext_ct_StdModule, std::move(name), std::move(code));
}

IdeBuilder& IdeBuilder::Class(std::u16string name, std::u16string code) {
  return Component(vbide::vbext_ct_ClassModule, std::move(name), std::move(code));
}

IdeBuilder& IdeBuilder::Form(std::u16string name, std::u16string code) {
  return Component(vbide::vbext_ct_VBForm, std::move(name), std::move(code));
}

IdeBuilder& IdeBuilder::Options(host::Ide::Options options) {
  options_ = std::move(options);
  return *this;
}

std::shared_ptr<host::Ide> IdeBuilder::Build() const {
  return BuildOn(host::Ide::Create(options_));
}

std::shared_ptr<host::Ide> IdeBuilder::BuildOn(std::shared_ptr<host::Ide> ide) const {
  for (auto& p : projects_) {
    auto project = ide->NewProject(p.type, p.name);
    for (auto& c : p.components) {
      auto component = project->VBComponents()->Add(c.type);
      component->SetName(c.name);
      if (!c.code.empty()) component->CodeModule()->InsertLines(1, c.code);
    }
  }
  return ide;
}

}  // namespace qmtest
