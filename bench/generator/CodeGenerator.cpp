// CodeGenerator: module layout - declarations section, event handlers, then ordinary procedures.
#include "CodeGenerator.h"

#include <algorithm>
#include <array>
#include <cctype>

namespace vbgen {
namespace {

using DeclareLines = std::array<std::string_view, 3>;
constexpr std::array<DeclareLines, 6> kDeclares = {{
    {"Private Declare Function GetTickCount Lib \"kernel32\" () As Long", "", ""},
    {"Private Declare Sub Sleep Lib \"kernel32\" (ByVal dwMilliseconds As Long)", "", ""},
    {"Private Declare Function GetPrivateProfileString Lib \"kernel32\" Alias "
     "\"GetPrivateProfileStringA\" _",
     "    (ByVal lpApplicationName As String, ByVal lpKeyName As Any, ByVal lpDefault As String, _",
     "     ByVal lpReturnedString As String, ByVal nSize As Long, ByVal lpFileName As String) As "
     "Long"},
    {"Private Declare Function GetUserName Lib \"advapi32.dll\" Alias \"GetUserNameA\" _",
     "    (ByVal lpBuffer As String, nSize As Long) As Long", ""},
    {"Private Declare Function ShellExecute Lib \"shell32.dll\" Alias \"ShellExecuteA\" _",
     "    (ByVal hWnd As Long, ByVal lpOperation As String, ByVal lpFile As String, _",
     "     ByVal lpParameters As String, ByVal lpDirectory As String, ByVal nShowCmd As Long) As "
     "Long"},
    {"Private Declare Function GetComputerName Lib \"kernel32\" Alias \"GetComputerNameA\" "
     "(ByVal lpBuffer As String, nSize As Long) As Long",
     "", ""},
}};

std::size_t DeclareSize(const DeclareLines& lines) {
  return static_cast<std::size_t>(
      std::count_if(lines.begin(), lines.end(), [](std::string_view l) { return !l.empty(); }));
}

std::string Initials(std::string_view name) {
  std::string text;
  for (char c : name) {
    if (std::isupper(static_cast<unsigned char>(c))) {
      text += static_cast<char>(std::tolower(static_cast<unsigned char>(c)));
    }
  }
  return text.substr(0, 2);
}

bool IsDesigner(ModuleKind kind) {
  return kind != ModuleKind::Standard && kind != ModuleKind::Class;
}

}  // namespace

CodeGenerator::CodeGenerator(std::string& out, const ModulePlan& plan, std::uint64_t seed,
                             std::span<const ControlInfo> controls)
    : plan_(plan), rng_(Prng::Fork(seed, plan.stream)), words_(rng_), sink_(out) {
  context_.kind = plan.kind;
  context_.moduleName = plan.name;
  context_.controls = controls;
  context_.raisesEvents = plan.raisesEvents;
  for (const ControlInfo& control : controls) names_.insert(control.name);
}

void CodeGenerator::Write() {
  if (plan_.members > 0) {
    Dense();
    return;
  }
  std::size_t budget = plan_.lines;
  // Real modules keep their declarations short however long the module is.
  std::size_t wanted =
      std::clamp<std::size_t>(budget / 8, 3, static_cast<std::size_t>(rng_.Between(8, 40)));
  std::size_t declared = Declarations(std::min(budget, wanted));
  Procedures(budget - declared);
}

std::size_t CodeGenerator::Declarations(std::size_t budget) {
  std::size_t used = 0;
  auto fits = [&](std::size_t n) { return used + n <= budget; };
  if (fits(1)) {
    sink_.Line(0, "Option Explicit");
    ++used;
  }
  if (budget >= 6) {
    sink_.Blank();
    sink_.Line(0, "' " + words_.Sentence());
    used += 2;
  }
  used += KindDeclarations(budget - used);
  // Leave room for the blank line that closes the section.
  while (used + 1 < budget) {
    ModuleVariable("Private");
    ++used;
  }
  if (used < budget) {
    sink_.Blank();
    ++used;
  }
  return used;
}

std::size_t CodeGenerator::KindDeclarations(std::size_t budget) {
  std::size_t used = 0;
  auto fits = [&](std::size_t n) { return used + n + 1 <= budget; };
  if (plan_.kind == ModuleKind::Standard) {
    std::size_t first = rng_.Below(kDeclares.size());
    for (std::size_t k = 0; k < 2; ++k) {
      const DeclareLines& d = kDeclares[(first + k * 3) % kDeclares.size()];
      if (!fits(DeclareSize(d))) break;
      for (std::size_t i = 0; i < DeclareSize(d); ++i) sink_.Line(0, d[i]);
      used += DeclareSize(d);
    }
    if (fits(1)) {
      std::string name = UniqueName(words_.ConstantName());
      sink_.Line(0, "Private Const " + name + " As Long = " + std::to_string(rng_.Between(1, 999)));
      ++used;
    }
  }
  if (plan_.raisesEvents && fits(2)) {
    sink_.Line(0, "Public Event Changed(ByVal PropertyName As String)");
    sink_.Attribute("Changed", "VB_Description = \"Raised after a property changed.\"");
    sink_.Line(0, "Public Event Saved()");
    used += 2;
  }
  if (plan_.kind == ModuleKind::UserControl && fits(2)) {
    sink_.Line(0, "Public Event Click()");
    sink_.Attribute("Click", "VB_UserMemId = -600");
    sink_.Line(0, "Public Event Change()");
    sink_.Attribute("Change", "VB_Description = \"Occurs when the value changes.\"");
    used += 2;
  }
  if (!plan_.eventSource.empty() && fits(1)) {
    std::string name = std::string("m") + plan_.eventSource.substr(1);
    names_.insert(name);
    sink_.Line(0, "Private WithEvents " + name + " As " + plan_.eventSource);
    sink_.Attribute(name, "VB_VarHelpID = -1");
    ++used;
  }
  if (budget - used >= 12 && rng_.Chance(60)) used += TypeBlock(budget - used);
  if (budget - used >= 12 && rng_.Chance(60)) used += EnumBlock(budget - used);
  return used;
}

std::size_t CodeGenerator::TypeBlock(std::size_t budget) {
  std::size_t fields =
      std::min<std::size_t>(budget - 4, static_cast<std::size_t>(rng_.Between(2, 7)));
  std::string name = UniqueName(std::string(words_.Noun()) + "Record");
  sink_.Line(0, "Private Type " + name);
  std::unordered_set<std::string> seen;
  for (std::size_t i = 0; i < fields;) {
    vbgen::Variable field = words_.Typed();
    if (!seen.insert(field.name).second) continue;
    sink_.Line(4, field.name + " As " + std::string(field.type->name));
    ++i;
  }
  sink_.Line(0, "End Type");
  sink_.Blank();
  return fields + 3;
}

std::size_t CodeGenerator::EnumBlock(std::size_t budget) {
  std::size_t count =
      std::min<std::size_t>(budget - 4, static_cast<std::size_t>(rng_.Between(2, 6)));
  std::string name =
      UniqueName(Cat({std::string(words_.Noun()), std::string(words_.Qualifier()), "Kind"}));
  std::string prefix = Initials(name);
  sink_.Line(0, "Private Enum " + name);
  for (std::size_t i = 0; i < count;) {
    std::string member = prefix + std::string(words_.Noun());
    if (names_.count(member) != 0) {
      member += words_.Qualifier();
      if (names_.count(member) != 0) continue;
    }
    names_.insert(member);
    sink_.Line(4, member + " = " + std::to_string(i));
    ++i;
  }
  sink_.Line(0, "End Enum");
  sink_.Blank();
  return count + 3;
}

void CodeGenerator::ModuleVariable(std::string_view scope) {
  vbgen::Variable typed = words_.Typed();
  std::string name = UniqueName(std::string("m") + typed.name);
  context_.variables.push_back({name, typed.type});
  sink_.Line(0, std::string(scope) + " " + name + " As " + std::string(typed.type->name));
}

std::string CodeGenerator::UniqueName(std::string name) {
  if (names_.insert(name).second) return name;
  for (int n = 2;; ++n) {
    std::string numbered = name + std::to_string(n);
    if (names_.insert(numbered).second) return numbered;
  }
}

void CodeGenerator::Procedures(std::size_t budget) {
  std::vector<ProcedurePlan> handlers = Handlers();
  for (ProcedurePlan& proc : handlers) {
    if (budget < 2 * ProcedureWriter::kMinimumLines) break;
    proc.lines = std::min<std::size_t>(budget - ProcedureWriter::kMinimumLines,
                                       static_cast<std::size_t>(rng_.Between(4, 12)));
    Emit(proc);
    budget -= proc.lines;
  }
  while (budget >= ProcedureWriter::kMinimumLines) {
    std::size_t size = static_cast<std::size_t>(rng_.Between(4, 24));
    if (rng_.Chance(20)) size = static_cast<std::size_t>(rng_.Between(24, 70));
    if (rng_.Chance(2)) size = static_cast<std::size_t>(rng_.Between(70, 160));
    size = std::min(size, budget);
    // The last procedure takes the few lines that could not hold another one.
    if (budget - size < ProcedureWriter::kMinimumLines) size = budget;
    RandomProcedure(size);
    budget -= size;
  }
  // Only very small modules get here with lines left: a closing comment fills them.
  for (; budget > 0; --budget) sink_.Line(0, "' " + words_.Sentence());
}

std::vector<ProcedurePlan> CodeGenerator::Handlers() {
  std::vector<ProcedurePlan> procs;
  auto add = [&](std::string name, std::string params) {
    ProcedurePlan proc;
    proc.name = std::move(name);
    proc.rawParams = std::move(params);
    proc.handler = true;
    names_.insert(proc.name);
    procs.push_back(std::move(proc));
  };
  switch (plan_.kind) {
    case ModuleKind::Class:
      add("Class_Initialize", "");
      if (rng_.Chance(50)) add("Class_Terminate", "");
      break;
    case ModuleKind::Form:
      add("Form_Load", "");
      add("Form_QueryUnload", "Cancel As Integer, UnloadMode As Integer");
      break;
    case ModuleKind::UserControl:
      add("UserControl_InitProperties", "");
      add("UserControl_ReadProperties", "PropBag As PropertyBag");
      add("UserControl_WriteProperties", "PropBag As PropertyBag");
      break;
    case ModuleKind::PropertyPage:
      add("PropertyPage_SelectionChanged", "");
      add("PropertyPage_ApplyChanges", "");
      break;
    case ModuleKind::UserDocument:
      add("UserDocument_Initialize", "");
      add("UserDocument_Show", "");
      break;
    case ModuleKind::Standard:
    case ModuleKind::Designer:
      break;
  }
  if (!plan_.eventSource.empty()) {
    std::string source = std::string("m") + plan_.eventSource.substr(1);
    add(source + "_Changed", "ByVal PropertyName As String");
    add(source + "_Saved", "");
  }
  for (const ControlInfo& control : context_.controls) {
    if (control.event.empty()) continue;
    add(control.name + "_" + std::string(control.event), control.isArray ? "Index As Integer" : "");
  }
  return procs;
}

void CodeGenerator::RandomProcedure(std::size_t lines) {
  bool propertiesFit = lines >= 2 * ProcedureWriter::kMinimumLines;
  bool wantsProperty = plan_.kind != ModuleKind::Standard ? rng_.Chance(30) : rng_.Chance(5);
  if (propertiesFit && wantsProperty && PropertyGroup(lines)) return;
  ProcedurePlan proc;
  proc.lines = lines;
  bool isFunction = rng_.Chance(40);
  proc.keyword = isFunction ? "Function" : "Sub";
  vbgen::Variable result = words_.Typed();
  proc.name =
      UniqueName(isFunction ? std::string(words_.Verb()) + result.name : words_.ProcedureName());
  std::uint32_t scope = rng_.Below(10);
  if (IsDesigner(plan_.kind)) {
    proc.scope = scope < 8 ? "Private" : "Public";
  } else {
    proc.scope = scope < 6                                           ? "Public"
                 : (scope < 9 || plan_.kind == ModuleKind::Standard) ? "Private"
                                                                     : "Friend";
  }
  int params = rng_.Between(0, 3);
  for (int i = 0; i < params; ++i) {
    vbgen::Variable param = words_.Typed();
    bool clash = param.name == proc.name ||
                 std::any_of(proc.params.begin(), proc.params.end(),
                             [&](const vbgen::Variable& v) { return v.name == param.name; });
    if (!clash) proc.params.push_back(std::move(param));
  }
  if (isFunction) proc.returns = result.type;
  if (proc.scope == "Public" && rng_.Chance(30)) {
    proc.attributes.push_back("VB_Description = \"" + words_.Sentence() + "\"");
  }
  Emit(proc);
}

// Property Get with Let (and Set for Variant values) over one module variable.
bool CodeGenerator::PropertyGroup(std::size_t lines) {
  if (nextBacking_ >= context_.variables.size()) return false;
  const vbgen::Variable& backing = context_.variables[nextBacking_++];
  bool withSet = backing.type->name == "Variant" && lines >= 3 * ProcedureWriter::kMinimumLines;
  std::size_t parts = withSet ? 3 : 2;
  std::string name = backing.name.substr(1);
  if (!names_.insert(name).second) return false;
  for (std::size_t part = 0; part < parts; ++part) {
    ProcedurePlan proc;
    proc.scope = "Public";
    proc.name = name;
    proc.backing = backing.name;
    proc.lines = part + 1 < parts ? lines / parts : lines - (parts - 1) * (lines / parts);
    if (part == 0) {
      proc.keyword = "Property Get";
      proc.returns = backing.type;
      if (!hasDefaultMember_ && plan_.kind == ModuleKind::Class && rng_.Chance(30)) {
        proc.attributes.push_back("VB_UserMemId = 0");
        hasDefaultMember_ = true;
      } else if (plan_.kind == ModuleKind::UserControl) {
        proc.attributes.push_back("VB_ProcData.VB_Invoke_Property = \";Behavior\"");
      } else if (rng_.Chance(20)) {
        proc.attributes.push_back("VB_Description = \"" + words_.Sentence() + "\"");
      }
    } else {
      proc.keyword = part == 1 ? "Property Let" : "Property Set";
      proc.params.push_back({"NewValue", backing.type});
    }
    Emit(proc);
  }
  return true;
}

void CodeGenerator::Emit(ProcedurePlan& proc) {
  ProcedureWriter writer(sink_, rng_, words_, context_);
  writer.Write(proc);
  if (proc.keyword == "Sub" || proc.keyword == "Function") {
    Callable callable{proc.name, proc.returns, {}};
    for (const vbgen::Variable& p : proc.params) callable.params.push_back(p.type);
    if (!proc.handler) context_.callables.push_back(std::move(callable));
  }
}

// The member-dense class: thousands of one-line variables and four-line properties.
void CodeGenerator::Dense() {
  sink_.Line(0, "Option Explicit");
  sink_.Blank();
  std::size_t variables = DenseVariableCount(plan_.members);
  for (std::size_t i = 0; i < plan_.members; ++i) {
    vbgen::Variable typed = words_.Typed();
    std::string name = UniqueName(typed.name + std::to_string(i + 1));
    const VbType& type = *typed.type;
    if (i < variables) {
      sink_.Line(0, "Public " + name + " As " + std::string(type.name));
      continue;
    }
    sink_.Line(0, "Public Property Get " + name + "() As " + std::string(type.name));
    std::string value =
        type.prefix == "str" ? std::string("\"") + words_.Compound() + "\"" : std::to_string(i);
    if (type.prefix == "bln") value = i % 2 == 0 ? "True" : "False";
    if (type.prefix == "dtm") value = "Date";
    if (type.prefix == "var") value = "Empty";
    sink_.Line(4, name + " = " + value);
    sink_.Line(0, "End Property");
    sink_.Blank();
  }
}

}  // namespace vbgen
