// ModuleWriter: assembles header, module attributes and generated code for each component kind.
#include "ModuleWriter.h"

#include <vector>

#include "CodeGenerator.h"
#include "DesignerBuilder.h"
#include "Prng.h"
#include "Vocabulary.h"

namespace vbgen {
namespace {

constexpr std::uint64_t kDesignerStream = 0x5DE51A9E2B7C4F01ull;

void Attribute(std::string& out, std::string_view name, std::string_view value) {
  out += "Attribute VB_";
  out += name;
  out += " = ";
  out += value;
  out += "\r\n";
}

// The four instancing flags every module except a .bas carries.
void Flags(std::string& out, bool creatable, bool predeclared, bool exposed) {
  Attribute(out, "GlobalNameSpace", "False");
  Attribute(out, "Creatable", creatable ? "True" : "False");
  Attribute(out, "PredeclaredId", predeclared ? "True" : "False");
  Attribute(out, "Exposed", exposed ? "True" : "False");
}

void ClassHeader(std::string& out) {
  out +=
      "VERSION 1.0 CLASS\r\n"
      "BEGIN\r\n"
      "  MultiUse = -1  'True\r\n"
      "  Persistable = 0  'NotPersistable\r\n"
      "  DataBindingBehavior = 0  'vbNone\r\n"
      "  DataSourceBehavior  = 0  'vbNone\r\n"
      "  MTSTransactionMode  = 0  'NotAnMTSObject\r\n"
      "END\r\n";
}

}  // namespace

std::string ModuleWriter::Text(const ModulePlan& plan, std::uint64_t seed) {
  std::string out;
  out.reserve(plan.lines * 48 + 4096);
  std::vector<ControlInfo> controls;
  std::string quotedName = std::string("\"") + plan.name + "\"";
  if (plan.kind == ModuleKind::Standard) {
    Attribute(out, "Name", quotedName);
  } else if (plan.kind == ModuleKind::Class) {
    ClassHeader(out);
    Attribute(out, "Name", quotedName);
    Flags(out, true, false, plan.exposed);
  } else {
    Prng rng = Prng::Fork(seed ^ kDesignerStream, plan.stream);
    Vocabulary words(rng);
    bool listView = plan.kind == ModuleKind::Form && rng.Chance(25);
    out += "VERSION 5.00\r\n";
    if (listView) {
      out += "Object = \"{831FDD16-0C5C-11D2-A9FC-0000F8754DA1}#2.0#0\"; \"MSCOMCTL.OCX\"\r\n";
    }
    if (!plan.hostedControl.empty()) {
      std::string library = plan.hostedControl.substr(0, plan.hostedControl.find('.'));
      out += "Object = \"*\\A..\\" + library + "\\" + library + ".vbp\"\r\n";
    }
    controls = DesignerBuilder(out, rng, words).Write(plan, listView);
    Attribute(out, "Name", quotedName);
    bool isForm = plan.kind == ModuleKind::Form;
    Flags(out, !isForm, isForm, plan.exposed);
  }
  CodeGenerator(out, plan, seed, controls).Write();
  return out;
}

}  // namespace vbgen
