// ExpressionWriter: typed expression patterns over locals, parameters, module variables, controls.
#include "ExpressionWriter.h"

#include <algorithm>
#include <array>

namespace vbgen {
namespace {

constexpr std::array<std::string_view, 3> kVariantSources = {"lng", "str", "cur"};

}  // namespace

bool ExpressionWriter::HasLocal(std::string_view name) const {
  auto same = [&](const Variable& v) { return v.name == name; };
  return std::any_of(locals_.begin(), locals_.end(), same) ||
         std::any_of(params_.begin(), params_.end(), same);
}

const Variable* ExpressionWriter::Find(std::string_view prefix, bool writable) {
  const Variable* found[3] = {};
  const std::vector<Variable>* pools[3] = {&locals_, &context_.variables, &params_};
  std::size_t poolsUsed = writable ? 2 : 3;
  std::size_t count = 0;
  for (std::size_t p = 0; p < poolsUsed; ++p) {
    std::vector<const Variable*> matches;
    for (const Variable& v : *pools[p]) {
      if (prefix.empty() || v.type->prefix == prefix) matches.push_back(&v);
    }
    if (!matches.empty())
      found[count++] = matches[rng_.Below(static_cast<std::uint32_t>(matches.size()))];
  }
  if (count == 0) return nullptr;
  // Locals first: most statements work on the procedure's own variables.
  if (found[0] != nullptr && (count == 1 || rng_.Chance(60))) return found[0];
  return found[rng_.Below(static_cast<std::uint32_t>(count))];
}

const Variable* ExpressionWriter::Target(std::string_view prefix) {
  if (!locals_.empty() && prefix.empty()) {
    return &locals_[rng_.Below(static_cast<std::uint32_t>(locals_.size()))];
  }
  return Find(prefix, true);
}

std::string ExpressionWriter::Literal(std::string_view prefix) {
  if (prefix == "lng") return std::to_string(rng_.Between(0, 500));
  if (prefix == "int") return std::to_string(rng_.Between(0, 20));
  if (prefix == "cur")
    return Cat({std::to_string(rng_.Between(1, 9999)), ".", std::to_string(rng_.Between(10, 99))});
  if (prefix == "dbl") return "0." + std::to_string(rng_.Between(1, 99));
  if (prefix == "str") return std::string("\"") + words_.Message() + "\"";
  if (prefix == "bln") return rng_.Chance(50) ? "True" : "False";
  if (prefix == "dtm") return rng_.Chance(60) ? "Date" : "Now";
  return "Empty";
}

std::string ExpressionWriter::Operand(std::string_view prefix) {
  const Variable* v = Find(prefix, false);
  return v != nullptr ? v->name : Literal(prefix);
}

// The text of a text box or combo box on the designer, if there is one.
std::string ExpressionWriter::ControlText() {
  for (int attempt = 0; attempt < 3 && !context_.controls.empty(); ++attempt) {
    const ControlInfo& c = rng_.Pick(context_.controls);
    if (c.property == "Text" && !c.isArray) return c.name + ".Text";
  }
  return {};
}

std::string ExpressionWriter::Value(const VbType& type) {
  std::string_view p = type.prefix;
  std::uint32_t roll = rng_.Below(6);
  if (p == "lng" || p == "int") {
    if (roll == 0) return Operand(p) + " + 1";
    if (roll == 1) return "Len(" + Operand("str") + ")";
    if (roll == 2)
      return Cat({Operand(p), " * ", std::to_string(rng_.Between(2, 12)), " + ", Operand(p)});
    if (roll == 3) return Cat({Operand(p), " Mod ", std::to_string(rng_.Between(7, 100))});
    if (std::string text = ControlText(); roll == 4 && !text.empty())
      return "CLng(Val(" + text + "))";
    return Literal(p);
  }
  if (p == "cur") {
    if (roll == 0) return Cat({Operand("cur"), " + ", Operand("cur")});
    if (roll == 1) return Cat({"Round(", Operand("cur"), " * ", Operand("dbl"), " / 100, 2)"});
    if (roll == 2) return Cat({Operand("cur"), " - ", Operand("cur"), " * ", Literal("dbl")});
    if (std::string text = ControlText(); roll == 3 && !text.empty())
      return "CCur(Val(" + text + "))";
    if (roll == 4) return Cat({"CCur(", Operand("lng"), ") * ", Operand("cur")});
    return Literal(p);
  }
  if (p == "dbl") {
    if (roll < 2) return Operand("dbl") + " / 100";
    if (roll < 4) return Cat({"CDbl(", Operand("cur"), ") * ", Operand("dbl")});
    return Literal(p);
  }
  if (p == "str") {
    if (roll == 0) return "Trim$(" + Operand("str") + ")";
    if (roll == 1) return Cat({Operand("str"), " & \" \" & ", Operand("str")});
    if (roll == 2) return "Format$(" + Operand("cur") + ", \"#,##0.00\")";
    if (roll == 3)
      return Cat({"UCase$(Left$(", Operand("str"), ", 1)) & Mid$(", Operand("str"), ", 2)"});
    if (std::string text = ControlText(); roll == 4 && !text.empty()) return "Trim$(" + text + ")";
    return Literal(p);
  }
  if (p == "bln") return roll < 4 ? std::string("(") + Condition() + ")" : Literal(p);
  if (p == "dtm") {
    if (roll < 3)
      return Cat(
          {"DateAdd(\"d\", ", std::to_string(rng_.Between(1, 90)), ", ", Operand("dtm"), ")"});
    if (roll < 4)
      return Cat({"DateSerial(Year(", Operand("dtm"), "), Month(", Operand("dtm"), ") + 1, 1)"});
    return Literal(p);
  }
  if (roll < 3) return Operand(rng_.Pick(kVariantSources));
  return roll < 5 ? "Null" : "Empty";
}

// Conditions test variables; with none of the needed type in reach the test falls back on the
// error state, as real code often does.
std::string ExpressionWriter::Condition() {
  for (int attempt = 0; attempt < 4; ++attempt) {
    std::uint32_t roll = rng_.Below(8);
    const Variable* a = Find(roll < 2   ? "lng"
                             : roll < 4 ? "str"
                             : roll < 5 ? "cur"
                             : roll < 6 ? "dtm"
                                        : "bln",
                             false);
    if (a == nullptr) continue;
    switch (roll) {
      case 0:
        return a->name + " > " + std::to_string(rng_.Between(0, 100));
      case 1:
        return a->name + " = 0 Or " + a->name + " > " + Operand("lng");
      case 2:
        return "Len(" + a->name + ") = 0";
      case 3:
        return a->name + " <> \"\"";
      case 4:
        return a->name + " >= " + Operand("cur");
      case 5:
        return a->name + " < Date";
      case 6:
        return "Not " + a->name;
      default:
        return a->name;
    }
  }
  std::string text = ControlText();
  if (!text.empty()) return text + " = \"\"";
  return rng_.Chance(50) ? "Err.Number <> 0" : "Len(Command$) > 0";
}

}  // namespace vbgen
