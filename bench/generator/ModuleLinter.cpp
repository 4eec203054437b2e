// ModuleLinter: version line, designer block, attributes and code body of one module file.
#include "ModuleLinter.h"

#include <array>
#include <map>
#include <set>

#include "LineReader.h"

namespace vbgen {
namespace {

constexpr std::size_t kMaxLineBytes = 1023;
constexpr std::size_t kMaxContinuations = 24;
constexpr std::size_t kMaxCodeLines = 65534;

constexpr std::array<std::string_view, 8> kClassHeader = {
    "VERSION 1.0 CLASS",
    "BEGIN",
    "  MultiUse = -1  'True",
    "  Persistable = 0  'NotPersistable",
    "  DataBindingBehavior = 0  'vbNone",
    "  DataSourceBehavior  = 0  'vbNone",
    "  MTSTransactionMode  = 0  'NotAnMTSObject",
    "END"};
constexpr std::array<std::string_view, 4> kFlags = {"GlobalNameSpace", "Creatable", "PredeclaredId",
                                                    "Exposed"};
constexpr std::array<std::string_view, 5> kScopes = {"Public ", "Private ", "Friend ", "Static ",
                                                     "Global "};

std::size_t LeadingSpaces(std::string_view line) {
  std::size_t n = line.find_first_not_of(' ');
  return n == std::string_view::npos ? line.size() : n;
}

bool IsDigits(std::string_view text) {
  if (text.starts_with("-")) text.remove_prefix(1);
  return !text.empty() && text.find_first_not_of("0123456789") == std::string_view::npos;
}

std::string_view WithoutScope(std::string_view text) {
  for (std::string_view scope : kScopes) {
    if (text.starts_with(scope)) return text.substr(scope.size());
  }
  return text;
}

// True when `declaration` declares `member`: a procedure, an event or a variable of that name.
bool Declares(std::string_view declaration, std::string_view member) {
  std::string_view text = WithoutScope(declaration.substr(LeadingSpaces(declaration)));
  for (std::string_view lead : {"Sub ", "Function ", "Property Get ", "Property Let ",
                                "Property Set ", "Event ", "Dim ", "WithEvents ", ""}) {
    if (!text.starts_with(lead)) continue;
    std::string_view rest = text.substr(lead.size());
    if (rest.starts_with("WithEvents ")) rest.remove_prefix(11);
    if (!rest.starts_with(member)) continue;
    std::string_view after = rest.substr(member.size());
    if (after.empty() || after.starts_with("(") || after.starts_with(" As ")) return true;
  }
  return false;
}

std::string_view ExpectedClass(ModuleKind kind) {
  switch (kind) {
    case ModuleKind::UserControl:
      return "VB.UserControl";
    case ModuleKind::PropertyPage:
      return "VB.PropertyPage";
    case ModuleKind::UserDocument:
      return "VB.UserDocument";
    default:
      return "VB.Form";
  }
}

}  // namespace

void ModuleLinter::Problem(std::size_t line, const std::string& text) {
  problems_.push_back(file_ + ":" + std::to_string(line) + ": " + text);
}

ModuleFacts ModuleLinter::Lint(std::string_view bytes, ModuleKind kind) {
  SplitText split = SplitLines(file_, bytes);
  problems_.insert(problems_.end(), split.problems.begin(), split.problems.end());
  lines_ = std::move(split.lines);
  std::size_t at = Header(kind);
  at = Attributes(at, kind);
  Body(at);
  if (!designerName_.empty() && designerName_ != facts_.name) {
    Problem(1, "designer name '" + designerName_ + "' differs from VB_Name '" + facts_.name + "'");
  }
  if (facts_.codeLines > kMaxCodeLines) {
    Problem(lines_.size(), std::to_string(facts_.codeLines) + " code lines; VB6 allows 65534");
  }
  return facts_;
}

std::size_t ModuleLinter::Header(ModuleKind kind) {
  if (kind == ModuleKind::Standard) return 0;
  if (kind == ModuleKind::Class) {
    for (std::size_t i = 0; i < kClassHeader.size(); ++i) {
      if (i >= lines_.size() || lines_[i] != kClassHeader[i]) {
        Problem(i + 1, "class header line should read '" + std::string(kClassHeader[i]) + "'");
        return i;
      }
    }
    return kClassHeader.size();
  }
  if (lines_.empty() || lines_[0] != "VERSION 5.00") {
    Problem(1, "a designer file starts with 'VERSION 5.00'");
    return 0;
  }
  std::size_t at = 1;
  for (; at < lines_.size() && lines_[at].starts_with("Object"); ++at) {
    std::string_view line = lines_[at];
    bool control = line.starts_with("Object = \"{") && line.ends_with(".OCX\"") &&
                   line.find("\"; \"") != std::string_view::npos;
    bool project = line.starts_with("Object = \"*\\A") && line.ends_with(".vbp\"");
    ++objectLines_;
    if (!control && !project)
      Problem(at + 1, "Object line not in the form Object = \"{...}#v#0\"; \"x.ocx\"");
  }
  return DesignerBlock(at, kind);
}

std::size_t ModuleLinter::DesignerBlock(std::size_t at, ModuleKind kind) {
  std::vector<Level> stack;
  placed_.clear();
  std::size_t i = at;
  for (; i < lines_.size(); ++i) {
    std::string_view line = lines_[i];
    std::size_t depth = stack.size();
    std::size_t indent = LeadingSpaces(line);
    std::string_view content = line.substr(indent);
    if (content == "End" || content == "EndProperty") {
      if (stack.empty() || stack.back().property != (content == "EndProperty")) {
        Problem(i + 1, std::string(content) + " does not match the open block");
        return i + 1;
      }
      if (indent != 3 * (depth - 1)) Problem(i + 1, "End is indented " + std::to_string(indent));
      stack.pop_back();
      if (stack.empty()) break;
      continue;
    }
    if (content.starts_with("Begin ") || content.starts_with("BeginProperty ")) {
      if (indent != 3 * depth) {
        Problem(i + 1, "indented " + std::to_string(indent) + ", not " + std::to_string(3 * depth));
      }
      if (!line.ends_with(" ") || line.ends_with("  ")) {
        Problem(i + 1, "a Begin line ends with exactly one space");
      }
      stack.push_back(BeginLine(content, i + 1, kind, stack));
      continue;
    }
    if (stack.empty()) {
      Problem(i + 1, "expected the designer's Begin line");
      return i;
    }
    if (stack.back().sawChild) Problem(i + 1, "property after a child control");
    if (PropertyLine(line, depth, i + 1) && content.starts_with("Index ") &&
        stack.back().control >= 0) {
      std::string_view value = content.substr(content.find('=') + 4);
      if (IsDigits(value)) placed_[stack.back().control].index = std::stol(std::string(value));
    }
  }
  if (!stack.empty()) Problem(i, "designer block not closed");
  ControlArrays();
  return i + 1;
}

// A Begin or BeginProperty line: the level it opens, with the checks on the class it names.
ModuleLinter::Level ModuleLinter::BeginLine(std::string_view content, std::size_t number,
                                            ModuleKind kind, std::vector<Level>& stack) {
  Level level;
  level.property = content.starts_with("BeginProperty ");
  if (level.property) return level;
  std::string_view rest = content.substr(6);
  std::string cls(rest.substr(0, rest.find(' ')));
  std::string name(rest.substr(cls.size() + 1, rest.find(' ', cls.size() + 1) - cls.size() - 1));
  if (stack.empty()) {
    designerName_ = name;
    bool mdi = kind == ModuleKind::Form && cls == "VB.MDIForm";
    bool designer = kind == ModuleKind::Designer && cls.starts_with("{");
    if (cls != ExpectedClass(kind) && !mdi && !designer) {
      Problem(number, "designer class " + cls + " does not fit the file type");
    }
    return level;
  }
  Level& parent = stack.back();
  parent.sawChild = true;
  if (cls == "VB.Menu") parent.sawMenu = true;
  if (cls != "VB.Menu" && parent.sawMenu) Problem(number, "control " + name + " after the menus");
  if (!cls.starts_with("VB.") && objectLines_ == 0) {
    Problem(number, "control class " + cls + " needs an Object line");
  }
  level.control = static_cast<int>(placed_.size());
  placed_.push_back({name, cls, -1, number});
  return level;
}

// Blocks sharing a name form a control array: each needs its own Index, and one class.
void ModuleLinter::ControlArrays() {
  std::map<std::string, std::vector<const Placed*>, std::less<>> byName;
  for (const Placed& p : placed_) byName[p.name].push_back(&p);
  for (const auto& [name, blocks] : byName) {
    if (blocks.size() < 2) continue;
    std::set<long> seen;
    for (const Placed* p : blocks) {
      if (p->index < 0) {
        Problem(p->line, name + " is a control array but this element has no Index");
      } else if (!seen.insert(p->index).second) {
        Problem(p->line, name + "(" + std::to_string(p->index) + ") appears twice");
      }
      if (p->cls != blocks[0]->cls) Problem(p->line, name + " elements have different classes");
    }
  }
}

bool ModuleLinter::PropertyLine(std::string_view line, std::size_t depth, std::size_t number) {
  std::size_t indent = LeadingSpaces(line);
  if (indent != 3 * depth) {
    Problem(number,
            "property indented " + std::to_string(indent) + ", not " + std::to_string(3 * depth));
    return false;
  }
  std::string_view content = line.substr(indent);
  std::size_t nameEnd = content.find_first_of(" =");
  std::size_t equals = content.find('=');
  if (nameEnd == std::string_view::npos || equals == std::string_view::npos || nameEnd == 0) {
    Problem(number, "not a property line");
    return false;
  }
  std::string_view name = content.substr(0, nameEnd);
  std::size_t field = name.starts_with("Object.") ? name.size() - 7 : name.size();
  std::size_t padding = field < 16 ? 16 - field : 0;
  if (equals != nameEnd + padding || content.find_first_not_of(' ', nameEnd) != equals) {
    Problem(number, "property name " + std::string(name) + " must be padded to 16 characters");
    return false;
  }
  std::string_view value = content.substr(equals + 1);
  if (!value.starts_with("   ") || value.size() == 3 || value[3] == ' ' || value.ends_with(" ")) {
    Problem(number,
            "value of " + std::string(name) + " must follow '=' after exactly three spaces");
    return false;
  }
  value.remove_prefix(3);
  if (value.starts_with("\"") || value.starts_with("$\"")) return true;
  std::size_t quote = value.find('\'');
  if (quote == std::string_view::npos) return true;
  std::string_view comment = value.substr(quote + 1);
  bool ok = comment == "True"    ? value == "-1  'True"
            : comment == "False" ? value == "0   'False"
                                 : quote >= 3 && value.substr(quote - 2, 2) == "  " &&
                                       IsDigits(value.substr(0, quote - 2));
  if (!ok)
    Problem(number, "value '" + std::string(value) + "' is not in the IDE's 'n  'Name' form");
  return ok;
}

std::size_t ModuleLinter::Attributes(std::size_t at, ModuleKind kind) {
  constexpr std::string_view kName = "Attribute VB_Name = \"";
  if (at >= lines_.size() || !lines_[at].starts_with(kName) || !lines_[at].ends_with("\"")) {
    Problem(at + 1, "expected Attribute VB_Name = \"...\"");
    return at;
  }
  facts_.name = std::string(lines_[at].substr(kName.size(), lines_[at].size() - kName.size() - 1));
  ++at;
  if (kind != ModuleKind::Standard) {
    for (std::string_view flag : kFlags) {
      std::string prefix = "Attribute VB_" + std::string(flag) + " = ";
      std::string_view line = at < lines_.size() ? lines_[at] : std::string_view();
      std::string_view value = line.substr(std::min(line.size(), prefix.size()));
      if (!line.starts_with(prefix) || (value != "True" && value != "False")) {
        Problem(at + 1, "expected " + prefix + "True or False");
        return at;
      }
      bool form = kind == ModuleKind::Form;
      if (flag == "PredeclaredId" && form && value != "True")
        Problem(at + 1, "a form has VB_PredeclaredId = True");
      ++at;
    }
  }
  while (at < lines_.size() && lines_[at].starts_with("Attribute VB_")) ++at;
  return at;
}

void ModuleLinter::Body(std::size_t at) {
  std::string logical;
  std::string previous;  // the last complete logical line: member attributes belong to it
  std::string open;      // the procedure or Type/Enum block being read
  std::size_t continued = 0;
  bool inComment = false;
  for (std::size_t i = at; i < lines_.size(); ++i) {
    std::string_view line = lines_[i];
    if (line.starts_with("Attribute ")) {
      MemberAttribute(line, i + 1, logical, previous);
      continue;
    }
    ++facts_.codeLines;
    if (line.size() > kMaxLineBytes) Problem(i + 1, "line longer than 1023 bytes");
    if (line.ends_with(" ") && LeadingSpaces(line) < line.size()) Problem(i + 1, "trailing blanks");
    std::string where = file_ + ":" + std::to_string(i + 1) + ": ";
    inComment = inComment ? line.ends_with(" _") : names_.AddLine(line, where, problems_);
    logical += line.substr(logical.empty() ? LeadingSpaces(line) : 0);
    if (line.ends_with(" _")) {
      if (++continued > kMaxContinuations) Problem(i + 1, "more than 24 line continuations");
      logical.resize(logical.size() - 1);
      continue;
    }
    continued = 0;
    Statement(logical, i + 1, open);
    previous = logical;
    logical.clear();
  }
  if (!logical.empty()) Problem(lines_.size(), "the last line ends with a continuation");
  if (!open.empty()) Problem(lines_.size(), open + " not closed at the end of the file");
}

// Member attributes stand right below the declaration of their member, never in a continued line.
void ModuleLinter::MemberAttribute(std::string_view line, std::size_t number,
                                   const std::string& logical, const std::string& previous) {
  std::size_t dot = line.find('.');
  if (line.starts_with("Attribute VB_") || dot == std::string_view::npos) {
    Problem(number, "module attribute inside the code");
    return;
  }
  std::string member(line.substr(10, dot - 10));
  if (!logical.empty()) {
    Problem(number, "attribute of " + member + " inside a continued line");
  } else if (!Declares(previous, member)) {
    Problem(number, "attribute of " + member + " is not right below its declaration");
  }
}

// Opens and closes procedures and Type/Enum blocks, and counts module-level members.
void ModuleLinter::Statement(std::string_view logical, std::size_t number, std::string& open) {
  std::string_view text = WithoutScope(logical);
  bool procedure = text.starts_with("Sub ") || text.starts_with("Function ") ||
                   text.starts_with("Property Get ") || text.starts_with("Property Let ") ||
                   text.starts_with("Property Set ");
  bool block = text.starts_with("Type ") || text.starts_with("Enum ");
  if (procedure || block) {
    if (!open.empty()) {
      Problem(number, std::string(text.substr(0, text.find('('))) + " inside an open " + open);
    }
    open = std::string(text.substr(0, text.find(' ')));
    ++facts_.members;
    return;
  }
  bool ends = text.starts_with("End Sub") || text.starts_with("End Function") ||
              text.starts_with("End Property") || text.starts_with("End Type") ||
              text.starts_with("End Enum");
  if (ends) {
    std::string kind(text.substr(4, text.find_first_of(" '", 4) - 4));
    if (open != kind) Problem(number, "End " + kind + " without " + kind);
    open.clear();
    return;
  }
  if (!open.empty()) return;
  // Module level: a scoped declaration (variable, constant, Declare, Event) or a Dim/Const.
  bool scoped = text.size() != logical.size();
  if (scoped || text.starts_with("Dim ") || text.starts_with("Const ") ||
      text.starts_with("Declare ") || text.starts_with("Event ")) {
    ++facts_.members;
  }
}

}  // namespace vbgen
