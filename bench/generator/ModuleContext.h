// ModuleContext: the names a procedure body may use - module variables, procedures, controls.
#pragma once

#include <span>
#include <string>
#include <vector>

#include "Plan.h"
#include "Vocabulary.h"

namespace vbgen {

// A procedure already written in the module, callable from later ones.
struct Callable {
  std::string name;
  const VbType* returns = nullptr;  // null for a Sub
  std::vector<const VbType*> params;
};

struct ModuleContext {
  ModuleKind kind = ModuleKind::Standard;
  std::string moduleName;
  std::vector<Variable> variables;
  std::vector<Callable> callables;
  std::span<const ControlInfo> controls;
  bool raisesEvents = false;
};

}  // namespace vbgen
