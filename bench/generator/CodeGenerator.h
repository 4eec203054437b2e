// CodeGenerator: writes the visible code of one module - declarations, then procedures.
#pragma once

#include <cstddef>
#include <span>
#include <string>
#include <unordered_set>
#include <vector>

#include "CodeSink.h"
#include "ModuleContext.h"
#include "Plan.h"
#include "Prng.h"
#include "ProcedureWriter.h"
#include "Vocabulary.h"

namespace vbgen {

class CodeGenerator {
 public:
  // `out` receives the body; `controls` are the designer's controls (empty for code modules).
  CodeGenerator(std::string& out, const ModulePlan& plan, std::uint64_t seed,
                std::span<const ControlInfo> controls);

  // Writes exactly plan.lines visible lines (member-attribute lines come on top, as in the IDE).
  void Write();

 private:
  std::size_t Declarations(std::size_t budget);
  std::size_t KindDeclarations(std::size_t budget);
  std::size_t TypeBlock(std::size_t budget);
  std::size_t EnumBlock(std::size_t budget);
  void ModuleVariable(std::string_view scope);
  std::vector<ProcedurePlan> Handlers();
  void Procedures(std::size_t budget);
  void RandomProcedure(std::size_t lines);
  bool PropertyGroup(std::size_t lines);
  void Emit(ProcedurePlan& proc);
  void Dense();
  std::string UniqueName(std::string name);

  const ModulePlan& plan_;
  Prng rng_;
  Vocabulary words_;
  CodeSink sink_;
  ModuleContext context_;
  std::unordered_set<std::string> names_;  // module-level names, kept unique
  std::size_t nextBacking_ = 0;            // first module variable not yet behind a property
  bool hasDefaultMember_ = false;
};

}  // namespace vbgen
