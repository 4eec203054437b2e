// quillmark add-member: opens the New Member dialog on one module as the toolbar's button does,
// fills it through its controls from the options (so the dialog's own rules apply), presses OK
// and saves the module through the IDE; with --dry-run it prints the new lines instead.
#include <ostream>
#include <stdexcept>
#include <vector>

#include "cli/Args.h"
#include "cli/Commands.h"
#include "cli/Workspace.h"
#include "composition/Composition.h"
#include "host/CommandBars.h"
#include "newmember/frmNewMember.h"
#include "runtime/CaseFold.h"
#include "runtime/CodePage.h"
#include "runtime/Error.h"
#include "runtime/MessageBoxes.h"
#include "runtime/ScriptError.h"
#include "runtime/UserActions.h"
#include "runtime/Utf.h"
#include "vbide/CodeModule.h"
#include "vbide/CodePane.h"
#include "vbide/CommandBars.h"
#include "vbide/VBComponent.h"
#include "vbide/VBE.h"
#include "vbide/VBProject.h"

namespace cli {
namespace {

using quillmark::frmNewMember;

std::string Utf8(std::u16string_view text) {
  return vb::ToUtf8(text);
}

// The dialog refused what the options asked for: the message is printed and the exit status
// is 1, with nothing saved.
struct Refused : std::runtime_error {
  using std::runtime_error::runtime_error;
};

enum class Kind { Method, Property, Constant };

struct ArgumentSpec {
  bool isOptional = false, isByVal = false, isParamArray = false;
  std::u16string name, type, defaultValue;
};

bool TakeWord(std::u16string& text, std::u16string_view word) {
  if (text.size() <= word.size() || !vb::EqualsText(text.substr(0, word.size()), word) ||
      text[word.size()] != u' ')
    return false;
  text.erase(0, text.find_first_not_of(u' ', word.size()));
  return true;
}

// "[Optional ][ByVal ][ParamArray ]NAME As TYPE[ = DEFAULT]", as the argument reads in VB. A
// missing type is left empty: the dialog itself refuses the argument then.
ArgumentSpec ParseArgument(const std::string& written) {
  std::u16string text = vb::FromUtf8(written);
  text.erase(0, text.find_first_not_of(u' '));
  ArgumentSpec arg;
  arg.isOptional = TakeWord(text, u"Optional");
  arg.isByVal = TakeWord(text, u"ByVal");
  arg.isParamArray = TakeWord(text, u"ParamArray");
  std::u16string folded = vb::FoldCase(text);
  auto as = folded.find(u" as ");
  arg.name = text.substr(0, as);
  if (as != std::u16string::npos) {
    std::u16string rest = text.substr(as + 4);
    auto equals = rest.find(u" = ");
    arg.type = rest.substr(0, equals);
    if (equals != std::u16string::npos) arg.defaultValue = rest.substr(equals + 3);
  }
  auto trim = [](std::u16string& s) {
    s.erase(0, s.find_first_not_of(u' '));
    s.erase(s.find_last_not_of(u' ') + 1);
  };
  trim(arg.name);
  trim(arg.type);
  if (arg.isParamArray && arg.name.ends_with(u"()")) arg.name.resize(arg.name.size() - 2);
  return arg;
}

class AddMember {
 public:
  AddMember(const Args& args, Kind kind, frmNewMember& dialog)
      : args_(args), kind_(kind), dialog_(dialog), ui_(dialog) {}

  // Fills the tab of the kind from the options and presses OK.
  void Fill() {
    ui_.SelectTab(u"tabNew", static_cast<int>(kind_) + 1);
    if (kind_ == Kind::Method) FillMethod();
    if (kind_ == Kind::Property) FillProperty();
    if (kind_ == Kind::Constant) FillConstant();
    ui_.Click(u"cmdOk");
  }

 private:
  std::u16string Text(const char* option) const {
    return vb::FromUtf8(args_.Option(option).value_or(""));
  }

  void FillMethod() {
    ui_.Type(u"txtMethodName", Text("method"));
    if (args_.Option("scope")) PickEntry(dialog_, dialog_.cboMethodScope, "scope", Text("scope"));
    ui_.SetCheck(u"chkMethodStatic", args_.Flag("static") ? 1 : 0);
    ui_.Type(u"cboMethodReturn", Text("returns"));
    for (auto& written : args_.Options("arg")) AddArgument(written);
  }

  // The boxes keep their state from one argument to the next, as in the dialog; each one that
  // differs is clicked, in the order Optional, ByVal, ParamArray, so the option rules decide.
  void AddArgument(const std::string& written) {
    ArgumentSpec arg = ParseArgument(written);
    struct Box {
      vb::CheckBox& box;
      bool wanted;
      const char* name;
    };
    for (Box b : {Box{dialog_.chkOptional, arg.isOptional, "Optional"},
                  Box{dialog_.chkByVal, arg.isByVal, "ByVal"},
                  Box{dialog_.chkParamArray, arg.isParamArray, "ParamArray"}}) {
      if ((b.box.Value() == 1) == b.wanted) continue;
      if (!b.box.IsUsable())
        throw Refused("--arg \"" + written + "\": " + b.name + " is not available");
      ui_.Click(b.box.Name());
    }
    ui_.Type(u"txtArgName", arg.name);
    ui_.Type(u"cboArgType", arg.type);
    if (dialog_.txtArgDefault.IsUsable())
      ui_.Type(u"txtArgDefault", arg.defaultValue);
    else if (!arg.defaultValue.empty())
      throw Refused("--arg \"" + written + "\": a default value needs Optional");
    ui_.Click(u"cmdAddArg");
    RefuseOnMessage("--arg \"" + written + "\"");
  }

  void FillProperty() {
    ui_.Type(u"txtPropertyName", Text("property"));
    if (args_.Option("scope")) PickEntry(dialog_, dialog_.cboPropertyScope, "scope", Text("scope"));
    ui_.Type(u"cboPropertyType", Text("type"));
    std::string kind = args_.Option("kind").value_or("both");
    int option = kind == "both" ? 0 : kind == "get" ? 1 : kind == "let" ? 2 : -1;
    if (option < 0) throw UsageError("--kind must be both, get or let, not '" + kind + "'");
    ui_.Click(u"optProperty", option);
    if (auto local = args_.Option("local")) {
      std::u16string name = vb::FromUtf8(*local);
      auto& box = dialog_.cboLocalVariable;
      int found = -1;
      for (int i = 0; i < box.ListCount() && found < 0; ++i)
        if (vb::EqualsText(box.List(i), name)) found = i;
      if (found >= 0)
        ui_.Pick(u"cboLocalVariable", found);
      else
        ui_.Type(u"cboLocalVariable", name);
    }
    ui_.Type(u"cboLocalVariableType", Text("local-type"));
  }

  void FillConstant() {
    if (!dialog_.picNew(2).Enabled()) throw UsageError("the component has no code module");
    ui_.Type(u"txtConstantName", Text("constant"));
    ui_.Type(u"txtConstantValue", Text("value"));
    if (args_.Option("type")) PickEntry(dialog_, dialog_.cboConstantType, "type", Text("type"));
    if (args_.Flag("public") || args_.Flag("private")) {
      int scope = args_.Flag("public") ? 0 : 1;
      if (!dialog_.optConstantScope(scope).IsUsable())
        throw UsageError("--public: a constant of this component can only be Private");
      ui_.Click(u"optConstantScope", scope);
    }
  }

  // A message box the dialog showed means it refused the input.
  void RefuseOnMessage(const std::string& what) {
    auto& boxes = dialog_.GetRuntime().MessageBoxService();
    if (boxes.Transcript().empty()) return;
    std::string prompt = Utf8(boxes.Transcript().back().prompt);
    boxes.ClearTranscript();
    throw Refused(what + ": " + prompt);
  }

  const Args& args_;
  Kind kind_;
  frmNewMember& dialog_;
  vb::UserActions ui_;
};

// The options each kind of member takes, besides --component, --codepage, --config-dir and
// --dry-run.
void CheckOptionsFor(const Args& args, Kind kind) {
  struct Rule {
    const char* option;
    bool flag;
    Kind kind;
    bool alsoProperty;
  };
  static const Rule rules[] = {
      {"static", true, Kind::Method, false},        {"returns", false, Kind::Method, false},
      {"arg", false, Kind::Method, false},          {"scope", false, Kind::Method, true},
      {"kind", false, Kind::Property, false},       {"local", false, Kind::Property, false},
      {"local-type", false, Kind::Property, false}, {"value", false, Kind::Constant, false},
      {"public", true, Kind::Constant, false},      {"private", true, Kind::Constant, false},
  };
  for (auto& r : rules) {
    bool given = r.flag ? args.Flag(r.option) : args.Option(r.option).has_value();
    bool fits = r.kind == kind || (r.alsoProperty && kind == Kind::Property);
    if (given && !fits)
      throw UsageError(std::string("--") + r.option + " does not apply to this kind of member");
  }
  if (args.Option("type") && kind == Kind::Method)
    throw UsageError("--type applies to --property and --constant; a method takes --returns");
  if (kind == Kind::Property && !args.Option("type")) throw UsageError("--property needs --type");
  if (kind == Kind::Constant && !args.Option("value")) throw UsageError("--constant needs --value");
  if (args.Flag("public") && args.Flag("private"))
    throw UsageError("--public and --private exclude each other");
}

Kind KindOf(const Args& args) {
  int given = 0;
  Kind kind = Kind::Method;
  if (args.Option("method")) ++given, kind = Kind::Method;
  if (args.Option("property")) ++given, kind = Kind::Property;
  if (args.Option("constant")) ++given, kind = Kind::Constant;
  if (given != 1)
    throw UsageError("add-member needs exactly one of --method, --property, --constant");
  return kind;
}

// Lines of `after` that are not in `before`, with their 1-based numbers. New lines only ever go
// in before existing ones, so the two are matched from the end.
std::vector<std::pair<int, std::u16string>> NewLines(const std::vector<std::u16string>& before,
                                                     const std::vector<std::u16string>& after) {
  std::vector<std::pair<int, std::u16string>> added;
  auto b = before.rbegin();
  for (auto a = after.rbegin(); a != after.rend(); ++a) {
    if (b != before.rend() && *b == *a) {
      ++b;
      continue;
    }
    added.emplace_back(static_cast<int>(after.rend() - a), *a);
  }
  return {added.rbegin(), added.rend()};
}

std::vector<std::u16string> LinesOf(vbide::CodeModule& module) {
  std::vector<std::u16string> lines;
  for (int i = 1; i <= module.CountOfLines(); ++i) lines.emplace_back(module.LineView(i));
  return lines;
}

void ClickNewMemberButton(composition::Desk& desk) {
  auto controls = desk.Addin()->Toolbar()->Controls();
  for (int i = 1; i <= controls->Count(); ++i) {
    auto button = std::dynamic_pointer_cast<host::CommandBarButton>(controls->Item(i));
    if (button && button->Caption() == u"New Member") return button->Click();
  }
  throw std::runtime_error("the toolbar has no New Member button");
}

}  // namespace

int AddMemberCommand(const std::vector<std::string>& argv, Streams io) {
  Args args(argv, {"static", "public", "private", "dry-run"},
            {"component", "method", "property", "constant", "scope", "returns", "arg", "type",
             "kind", "local", "local-type", "value", "codepage", "config-dir"});
  if (args.Positional().size() != 1) throw UsageError("expected FILE");
  Kind kind = KindOf(args);
  CheckOptionsFor(args, kind);
  auto componentPath = args.Option("component");
  if (!componentPath) throw UsageError("add-member needs --component PROJECT/MODULE");
  int codePage = args.IntOption("codepage", 1252);
  if (!vb::CodePage::Find(codePage))
    throw UsageError("unsupported code page " + std::to_string(codePage));

  auto desk = composition::MakeDesk(composition::ConfigFolder(args.Option("config-dir")), codePage);
  OpenInDesk(*desk, args.Positional()[0], io.err);
  auto component = FindComponent(*desk, *componentPath);
  if (!component->CodeModule()) throw UsageError("--component " + *componentPath + " has no code");
  desk->ConnectAtStartup();
  if (!desk->Addin()) throw UsageError("the add-in did not connect");
  desk->runtime->MessageBoxService().ClearTranscript();

  auto module = component->CodeModule();
  auto before = LinesOf(*module);
  // The user works in the module's code window and presses the toolbar's button.
  module->CodePane()->Show();
  ClickNewMemberButton(*desk);
  auto& dialog = *desk->Addin()->Main().gfrmNewMember;
  try {
    AddMember(args, kind, dialog).Fill();
  } catch (const Refused& e) {
    io.err << "quillmark: " << e.what() << "\nquillmark: nothing was saved\n";
    return 1;
  } catch (const vb::ScriptError& e) {
    io.err << "quillmark: " << e.what() << "\nquillmark: nothing was saved\n";
    return 1;
  }
  if (dialog.IsLoaded()) {
    io.err << "quillmark: " << *componentPath
           << ": the member was not added: " << Utf8(dialog.LastAddError())
           << "\nquillmark: nothing was saved\n";
    return 1;
  }

  auto added = NewLines(before, LinesOf(*module));
  bool dryRun = args.Flag("dry-run");
  if (dryRun) {
    for (auto& [line, text] : added)
      io.out << *componentPath << ":" << line << "\t" << Utf8(text) << "\n";
    io.out << added.size() << " line(s) added (dry run, nothing saved)\n";
    return 0;
  }
  try {
    component->SaveAs(component->FileNames(1));
  } catch (const vb::Error& e) {
    io.err << "quillmark: " << Utf8(e.Description()) << "\n";
    return 1;
  }
  io.out << added.size() << " line(s) added to " << Utf8(component->FileNames(1)) << "\n";
  return 0;
}

}  // namespace cli
