// ProcedureWriter: writes one procedure of an exact number of visible lines.
#pragma once

#include <cstddef>
#include <string>
#include <string_view>
#include <vector>

#include "CodeSink.h"
#include "ExpressionWriter.h"
#include "ModuleContext.h"
#include "Prng.h"
#include "Vocabulary.h"

namespace vbgen {

struct ProcedurePlan {
  std::string_view scope = "Private";  // Public, Private, Friend
  std::string_view keyword = "Sub";    // Sub, Function, Property Get/Let/Set
  std::string name;
  std::vector<Variable> params;  // ByVal parameters with their types
  std::string rawParams;         // used instead of params for event handlers: "Index As Integer"
  const VbType* returns = nullptr;
  bool handler = false;                 // an event handler: never called from other procedures
  std::string backing;                  // module variable a property reads or writes
  std::vector<std::string> attributes;  // "VB_Description = ""..."""; written below the header
  std::size_t lines = 4;                // visible lines, including the blank line after End
};

class ProcedureWriter {
 public:
  static constexpr std::size_t kMinimumLines = 4;  // header, one body line, End, blank

  ProcedureWriter(CodeSink& sink, Prng& rng, Vocabulary& words, const ModuleContext& context)
      : sink_(sink), rng_(rng), words_(words), context_(context), expr_(rng, words, context) {}

  void Write(const ProcedurePlan& proc);

 private:
  std::size_t Header(const ProcedurePlan& proc, std::size_t budget);
  void Body(const ProcedurePlan& proc, std::size_t lines);
  std::size_t DeclareLocals(std::size_t count, bool withCounter);
  std::size_t Block(std::size_t indent, std::size_t maxLines);
  void Nested(std::size_t indent, std::size_t lines);
  void Simple(std::size_t indent);
  void Assignment(std::size_t indent);
  void ControlStatement(std::size_t indent);
  void Call(std::size_t indent);
  void Continued(std::size_t indent);
  std::string_view ExitStatement() const;

  CodeSink& sink_;
  Prng& rng_;
  Vocabulary& words_;
  const ModuleContext& context_;
  ExpressionWriter expr_;
  const ProcedurePlan* proc_ = nullptr;
  bool hasCounter_ = false;
};

}  // namespace vbgen
