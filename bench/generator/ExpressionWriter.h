// ExpressionWriter: right-hand sides and conditions built from the names a procedure can see.
#pragma once

#include <string>
#include <string_view>
#include <vector>

#include "ModuleContext.h"
#include "Prng.h"
#include "Vocabulary.h"

namespace vbgen {

// Every expression is typed: a Currency target gets a Currency expression, so the code reads like
// code a person wrote (curTotal = curTotal + curAmount * dblRate / 100).
class ExpressionWriter {
 public:
  ExpressionWriter(Prng& rng, Vocabulary& words, const ModuleContext& context)
      : rng_(rng), words_(words), context_(context) {}

  // Starts a new procedure whose parameters may be read but are never assigned.
  void Reset(std::vector<Variable> params) {
    params_ = std::move(params);
    locals_.clear();
  }
  void AddLocal(Variable local) { locals_.push_back(std::move(local)); }
  bool HasLocal(std::string_view name) const;
  bool HasLocals() const { return !locals_.empty(); }

  // A variable that may be assigned (a local, else a module variable); null when none exists.
  // With a prefix, only variables of that type qualify.
  const Variable* Target(std::string_view prefix = {});
  std::string Value(const VbType& type);
  std::string Condition();
  std::string Operand(std::string_view prefix);

 private:
  const Variable* Find(std::string_view prefix, bool writable);
  std::string Literal(std::string_view prefix);
  std::string ControlText();

  Prng& rng_;
  Vocabulary& words_;
  const ModuleContext& context_;
  std::vector<Variable> params_;
  std::vector<Variable> locals_;
};

}  // namespace vbgen
