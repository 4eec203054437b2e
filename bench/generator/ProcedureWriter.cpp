// ProcedureWriter: headers, local declarations, statements and error handlers of procedures.
#include "ProcedureWriter.h"

#include <algorithm>

namespace vbgen {
namespace {

std::string_view EndStatement(std::string_view keyword) {
  if (keyword == "Sub") return "End Sub";
  if (keyword == "Function") return "End Function";
  return "End Property";
}

std::string Declaration(const Variable& v) {
  std::string text = v.name;
  text += " As ";
  text += v.type->name;
  return text;
}

}  // namespace

void ProcedureWriter::Write(const ProcedurePlan& proc) {
  proc_ = &proc;
  expr_.Reset(proc.params);
  hasCounter_ = false;
  std::size_t budget = std::max(proc.lines, kMinimumLines);
  // A comment between procedures, as most code bases have; some keep a framed banner.
  if (budget >= 14 && rng_.Chance(40)) {
    std::string rule = "' " + std::string(66, '-');
    sink_.Line(0, rule);
    sink_.Line(0, "' " + proc.name + ": " + words_.Sentence());
    sink_.Line(0, rule);
    budget -= 3;
  } else if (budget >= 9 && rng_.Chance(35)) {
    sink_.Line(0, "' " + words_.Sentence());
    --budget;
  }
  budget -= Header(proc, budget);
  for (const std::string& attribute : proc.attributes) sink_.Attribute(proc.name, attribute);
  Body(proc, budget - 2);
  sink_.Line(0, EndStatement(proc.keyword));
  sink_.Blank();
}

std::size_t ProcedureWriter::Header(const ProcedurePlan& proc, std::size_t budget) {
  std::string head(proc.scope);
  head += ' ';
  head += proc.keyword;
  head += ' ';
  head += proc.name;
  head += '(';
  std::string returns;
  if (proc.returns != nullptr) {
    returns = " As ";
    returns += proc.returns->name;
  }
  if (!proc.rawParams.empty() || proc.params.size() < 2 || budget < 8 || !rng_.Chance(40)) {
    std::string line = head + proc.rawParams;
    for (std::size_t i = 0; i < proc.params.size(); ++i) {
      if (i > 0) line += ", ";
      line += "ByVal " + Declaration(proc.params[i]);
    }
    sink_.Line(0, line + ")" + returns);
    return 1;
  }
  // Long parameter lists are continued and aligned under the first parameter.
  sink_.Line(0, head + "ByVal " + Declaration(proc.params[0]) + ", _");
  std::string rest;
  for (std::size_t i = 1; i < proc.params.size(); ++i) {
    if (i > 1) rest += ", ";
    rest += "ByVal " + Declaration(proc.params[i]);
  }
  sink_.Line(head.size(), rest + ")" + returns);
  return 2;
}

void ProcedureWriter::Body(const ProcedurePlan& proc, std::size_t lines) {
  bool returnsValue = proc.returns != nullptr;
  bool stores = !proc.backing.empty() && !returnsValue;
  std::size_t fixed = (returnsValue || stores) ? 1 : 0;
  bool handler = lines >= fixed + 10 && rng_.Chance(35);
  if (handler) fixed += 4;
  std::size_t free = lines - fixed;
  std::size_t wanted =
      std::min<std::size_t>(free / 3, static_cast<std::size_t>(rng_.Between(1, 6)));
  if (wanted > 0) {
    free -= DeclareLocals(wanted, free >= 10);
    if (free > 2) {
      sink_.Blank();
      --free;
    }
  }
  if (handler) sink_.Line(4, "On Error GoTo ErrorHandler");
  Nested(4, free);
  if (returnsValue) {
    std::string value = proc.backing.empty() ? expr_.Value(*proc.returns) : proc.backing;
    sink_.Line(4, proc.name + " = " + value);
  } else if (stores) {
    bool object = proc.keyword == "Property Set";
    sink_.Line(4, (object ? "Set " : "") + proc.backing + " = NewValue");
  }
  if (!handler) return;
  sink_.Line(4, ExitStatement());
  sink_.Line(0, "ErrorHandler:");
  if (rng_.Chance(50)) {
    sink_.Line(4, "MsgBox \"" + words_.Message() + "\" & vbCrLf & Err.Description, vbExclamation");
  } else {
    sink_.Line(4, "Err.Raise Err.Number, \"" + context_.moduleName + "." + proc.name +
                      "\", Err.Description");
  }
}

// Declares up to `count` locals (fewer if names repeat) and returns the lines written.
std::size_t ProcedureWriter::DeclareLocals(std::size_t count, bool withCounter) {
  std::size_t written = 0;
  for (std::size_t attempt = 0; attempt < count; ++attempt) {
    Variable local = words_.Local();
    if (expr_.HasLocal(local.name)) continue;
    sink_.Line(4, "Dim " + Declaration(local));
    expr_.AddLocal(std::move(local));
    ++written;
  }
  if (withCounter) {
    sink_.Line(4, "Dim i As Long");
    hasCounter_ = true;
    ++written;
  }
  return written;
}

// Writes one statement of at most maxLines lines and returns how many it took. Blocks hold
// further statements, up to three levels deep.
std::size_t ProcedureWriter::Block(std::size_t indent, std::size_t maxLines) {
  std::uint32_t roll = rng_.Below(100);
  bool nest = indent < 16;
  if (nest && maxLines >= 8 && roll < 5) {
    sink_.Line(indent, "Select Case " + expr_.Operand("int"));
    sink_.Line(indent, "Case 0");
    Simple(indent + 4);
    sink_.Line(indent, "Case 1, 2");
    Simple(indent + 4);
    sink_.Line(indent, "Case Else");
    Simple(indent + 4);
    sink_.Line(indent, "End Select");
    return 8;
  }
  if (nest && maxLines >= 5 && roll < 15) {
    std::size_t inner = static_cast<std::size_t>(
        rng_.Between(1, static_cast<int>(std::min<std::size_t>(maxLines - 3, 8))));
    std::size_t first = (inner + 1) / 2;
    sink_.Line(indent, "If " + expr_.Condition() + " Then");
    Nested(indent + 4, first);
    sink_.Line(indent, "Else");
    Nested(indent + 4, std::max<std::size_t>(inner - first, 1));
    sink_.Line(indent, "End If");
    return 3 + first + std::max<std::size_t>(inner - first, 1);
  }
  if (nest && maxLines >= 3 && roll < 32) {
    std::size_t inner = static_cast<std::size_t>(
        rng_.Between(1, static_cast<int>(std::min<std::size_t>(maxLines - 2, 6))));
    const Variable* counter = expr_.Target("lng");
    if (hasCounter_ && roll < 22) {
      sink_.Line(indent, "For i = 1 To " + expr_.Operand("lng"));
      Nested(indent + 4, inner);
      sink_.Line(indent, "Next i");
    } else if (counter != nullptr && roll < 25) {
      sink_.Line(indent,
                 "Do While " + counter->name + " < " + std::to_string(rng_.Between(5, 100)));
      Nested(indent + 4, inner - 1);
      sink_.Line(indent + 4, counter->name + " = " + counter->name + " + 1");
      sink_.Line(indent, "Loop");
    } else {
      sink_.Line(indent, "If " + expr_.Condition() + " Then");
      Nested(indent + 4, inner);
      sink_.Line(indent, "End If");
    }
    return inner + 2;
  }
  if (maxLines >= 2 && roll < 40) {
    Continued(indent);
    return 2;
  }
  Simple(indent);
  return 1;
}

void ProcedureWriter::Nested(std::size_t indent, std::size_t lines) {
  while (lines > 0) lines -= Block(indent, lines);
}

void ProcedureWriter::Simple(std::size_t indent) {
  std::uint32_t roll = rng_.Below(100);
  if (roll < 9) {
    sink_.Line(indent, (roll == 0 ? "Rem " : "' ") + words_.Sentence());
  } else if (roll < 21 && !context_.controls.empty()) {
    ControlStatement(indent);
  } else if (roll < 31 && !context_.callables.empty()) {
    Call(indent);
  } else if (roll < 35) {
    sink_.Line(indent, "If " + expr_.Condition() + " Then " + std::string(ExitStatement()));
  } else if (roll < 41) {
    sink_.Line(indent, "MsgBox \"" + words_.Message() + "\", vbInformation, \"" +
                           context_.moduleName + "\"");
  } else if (roll < 45 && context_.raisesEvents) {
    sink_.Line(indent, "RaiseEvent Changed(\"" + words_.Compound() + "\")");
  } else if (roll < 49) {
    sink_.Line(indent, "Debug.Print \"" + proc_->name + ": \" & " +
                           expr_.Value(Vocabulary::ByPrefix("str")));
  } else {
    Assignment(indent);
  }
}

void ProcedureWriter::Assignment(std::size_t indent) {
  const Variable* target = expr_.Target();
  if (target == nullptr) {
    // Nothing to assign in a procedure without locals or module variables: explain instead.
    sink_.Line(indent, "' " + words_.Sentence());
    return;
  }
  sink_.Line(indent, target->name + " = " + expr_.Value(*target->type));
}

void ProcedureWriter::ControlStatement(std::size_t indent) {
  const ControlInfo& control = rng_.Pick(context_.controls);
  std::string target = control.name;
  if (control.isArray) target += std::string("(") + std::to_string(rng_.Between(0, 1)) + ")";
  std::string property(control.property);
  if (control.property == "Enabled" || control.property == "Visible") {
    sink_.Line(indent, target + "." + property + " = " + expr_.Condition());
  } else if (control.property == "ListIndex") {
    sink_.Line(indent, target + ".ListIndex = " + expr_.Operand("int"));
  } else if (control.property == "Value") {
    sink_.Line(indent, target + ".Value = IIf(" + expr_.Condition() + ", vbChecked, vbUnchecked)");
  } else {
    sink_.Line(indent, target + "." + property + " = " + expr_.Value(Vocabulary::ByPrefix("str")));
  }
}

void ProcedureWriter::Call(std::size_t indent) {
  const Callable& callee = rng_.Pick(context_.callables);
  std::string args;
  for (std::size_t i = 0; i < callee.params.size(); ++i) {
    if (i > 0) args += ", ";
    args += expr_.Operand(callee.params[i]->prefix);
  }
  if (callee.returns == nullptr) {
    sink_.Line(indent, callee.name + (args.empty() ? "" : std::string(" ") + args));
    return;
  }
  std::string call = callee.name + (args.empty() ? "" : std::string("(") + args + ")");
  const Variable* target = expr_.Target(callee.returns->prefix);
  if (target == nullptr) {
    sink_.Line(indent, "Call " + call);
    return;
  }
  sink_.Line(indent, target->name + " = " + call);
}

void ProcedureWriter::Continued(std::size_t indent) {
  const Variable* target = expr_.Target("str");
  if (target == nullptr) {
    Assignment(indent);
    Assignment(indent);
    return;
  }
  std::size_t under = indent + target->name.size() + 3;
  if (rng_.Chance(50)) {
    // SQL text built over two lines, the commonest long line in database front ends.
    std::string table(words_.Noun());
    std::string key = table + "ID";
    sink_.Line(indent, Cat({target->name, " = \"SELECT ", key, ", ", words_.Compound(), ", ",
                            words_.Compound(), " FROM ", table, " \" & _"}));
    sink_.Line(under, Cat({"\"WHERE ", key, " = \" & CStr(", expr_.Operand("lng"),
                           ") & \" ORDER BY ", words_.Compound(), "\""}));
    return;
  }
  sink_.Line(indent, target->name + " = \"" + words_.Message() + "\" & _");
  sink_.Line(under,
             Cat({"\" ", words_.Compound(), ": \" & ", expr_.Value(Vocabulary::ByPrefix("str"))}));
}

std::string_view ProcedureWriter::ExitStatement() const {
  if (proc_->keyword == "Sub") return "Exit Sub";
  if (proc_->keyword == "Function") return "Exit Function";
  return "Exit Property";
}

}  // namespace vbgen
