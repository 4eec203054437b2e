// Plan: what the generator decided to write - projects, modules and their sizes.
#pragma once

#include <cstddef>
#include <cstdint>
#include <string>
#include <string_view>
#include <vector>

namespace vbgen {

// Designer stands for ActiveX designers (.dsr) such as the DataEnvironment; the linter reads
// them, the generator does not write any.
enum class ModuleKind { Standard, Class, Form, UserControl, PropertyPage, UserDocument, Designer };
enum class ProjectKind { Exe, OleDll, OleExe, Control };

struct ModulePlan {
  ModuleKind kind = ModuleKind::Standard;
  std::string name;
  std::size_t lines = 0;    // visible code lines (what the code window shows)
  std::size_t members = 0;  // non-zero only for the member-dense class
  bool exposed = false;     // public component of an ActiveX project
  bool raisesEvents = false;
  std::string eventSource;  // class whose events this module handles; empty for none
  // A user control of another project in the group that this form places, as
  // "<Project>.<UserControl>"; empty for none.
  std::string hostedControl;
  std::uint64_t stream = 0;
};

struct ProjectPlan {
  ProjectKind kind = ProjectKind::Exe;
  std::string name;
  std::vector<ModulePlan> modules;
};

// A control placed on a designer, as the code behind it sees it.
struct ControlInfo {
  std::string name;
  std::string_view property;  // the property code reads and writes: "Text", "Caption" ...
  std::string_view event;     // the handler the form has for it: "Click", "Change" ...
  bool isArray = false;
  int firstIndex = 0;
};

std::string_view Extension(ModuleKind kind);
std::string_view VbpKey(ModuleKind kind);

// Visible lines of the member-dense class: two lead lines, then 30% one-line variables and 70%
// four-line Property Get procedures.
constexpr std::size_t DenseVariableCount(std::size_t members) {
  return members * 3 / 10;
}
constexpr std::size_t DenseModuleLines(std::size_t members) {
  return 2 + DenseVariableCount(members) + 4 * (members - DenseVariableCount(members));
}

}  // namespace vbgen
