// UnitChecks: the random source against splitmix64's reference values, designer line formats,
// exact module sizes at small budgets, and a digest that pins the output across machines.
#include "UnitChecks.h"

#include <array>
#include <cstdint>
#include <cstdio>
#include <string_view>

#include "CaseTable.h"
#include "DesignerWriter.h"
#include "GroupGenerator.h"
#include "ModuleLinter.h"
#include "ModuleWriter.h"
#include "Prng.h"
#include "Vocabulary.h"

namespace vbgen {
namespace {

std::string Hex(std::uint64_t value) {
  char text[19];
  std::snprintf(text, sizeof text, "%016llx", static_cast<unsigned long long>(value));
  return text;
}

// FNV-1a over all files of a group, in writing order.
std::uint64_t Digest(std::string_view bytes, std::uint64_t hash) {
  for (char c : bytes) {
    hash ^= static_cast<unsigned char>(c);
    hash *= 0x100000001B3ull;
  }
  return hash;
}

}  // namespace

std::vector<CheckResult> UnitChecks::Run() {
  results_.clear();
  RandomSource();
  DesignerLines();
  ExactModuleSizes();
  GroupDigest();
  return std::move(results_);
}

void UnitChecks::RandomSource() {
  // The published first outputs of splitmix64 seeded with 0.
  constexpr std::array<std::uint64_t, 3> kReference = {0xE220A8397B1DCDAFull, 0x6E789E6AA1B965F4ull,
                                                       0x06C45D188009454Full};
  Prng rng(0);
  for (std::uint64_t expected : kReference) {
    std::uint64_t got = rng.Next();
    Expect(got == expected, "splitmix64 gives " + Hex(expected) + ", got " + Hex(got));
  }
  Prng bounded(7);
  bool inRange = true;
  bool reachesEnds = false;
  int low = 0;
  int high = 0;
  for (int i = 0; i < 10000; ++i) {
    int value = bounded.Between(-3, 3);
    inRange = inRange && value >= -3 && value <= 3;
    low += value == -3 ? 1 : 0;
    high += value == 3 ? 1 : 0;
  }
  reachesEnds = low > 1000 && high > 1000;
  Expect(inRange && reachesEnds, "Between(-3, 3) stays in range and reaches both ends (" +
                                     std::to_string(low) + ", " + std::to_string(high) + ")");
}

void UnitChecks::DesignerLines() {
  struct Case {
    std::string_view what;
    void (*write)(DesignerWriter&);
    std::string_view expected;
  };
  static const std::array<Case, 8> kCases = {{
      {"short name padded to 16", [](DesignerWriter& w) { w.Text("Caption", "OK"); },
       "Caption         =   \"OK\"\r\n"},
      {"16-character name unpadded", [](DesignerWriter& w) { w.Prop("StartUpPosition", 3L); },
       "StartUpPosition =   3\r\n"},
      {"longer name unpadded", [](DesignerWriter& w) { w.Prop("HScrollSmallChange", 225L); },
       "HScrollSmallChange=   225\r\n"},
      {"Object. outside the field", [](DesignerWriter& w) { w.Prop("Object.Width", 2540L); },
       "Object.Width           =   2540\r\n"},
      {"True", [](DesignerWriter& w) { w.Bool("Default", true); },
       "Default         =   -1  'True\r\n"},
      {"False", [](DesignerWriter& w) { w.Bool("Italic", false); },
       "Italic          =   0   'False\r\n"},
      {"enumeration", [](DesignerWriter& w) { w.Enum("BorderStyle", 1, "Fixed Single"); },
       "BorderStyle     =   1  'Fixed Single\r\n"},
      {"nested block",
       [](DesignerWriter& w) {
         w.Begin("VB.Frame", "fraBox");
         w.BeginProperty("Font");
         w.Prop("Size", "8.25");
         w.EndProperty();
         w.End();
       },
       "Begin VB.Frame fraBox \r\n   BeginProperty Font \r\n      Size            =   8.25\r\n"
       "   EndProperty\r\nEnd\r\n"},
  }};
  for (const Case& c : kCases) {
    std::string out;
    DesignerWriter writer(out);
    c.write(writer);
    Expect(out == c.expected, "designer line: " + std::string(c.what));
  }
}

// Every kind of module comes out with exactly the visible lines asked for, down to one line,
// and passes the module checks.
void UnitChecks::ExactModuleSizes() {
  constexpr std::array<ModuleKind, 6> kKinds = {ModuleKind::Standard,     ModuleKind::Class,
                                                ModuleKind::Form,         ModuleKind::UserControl,
                                                ModuleKind::PropertyPage, ModuleKind::UserDocument};
  constexpr std::array<std::size_t, 10> kSizes = {1, 2, 3, 4, 5, 7, 9, 13, 40, 333};
  for (ModuleKind kind : kKinds) {
    std::string failures;
    for (std::size_t size : kSizes) {
      ModulePlan plan;
      plan.kind = kind;
      plan.name = "modSample";
      plan.lines = size;
      plan.stream = size;
      plan.raisesEvents = kind == ModuleKind::Class;
      std::vector<std::string> problems;
      CaseTable names;
      ModuleFacts facts =
          ModuleLinter("sample", names, problems).Lint(ModuleWriter::Text(plan, 11), kind);
      if (facts.codeLines != size || !problems.empty()) {
        failures += Cat({" ", std::to_string(size), "->", std::to_string(facts.codeLines)});
        if (!problems.empty()) failures += Cat({" (", problems.front(), ")"});
      }
    }
    Expect(failures.empty(),
           "exact sizes of " + std::string(Extension(kind)) + " modules" + failures);
  }
}

// The same arguments give the same bytes on every machine: this digest was taken from GCC and
// Clang builds on Linux. A deliberate change of the generator's output updates it.
void UnitChecks::GroupDigest() {
  constexpr std::uint64_t kExpected = 0x04949CF55B730990ull;
  GroupGenerator generator({20000, 20, 1});
  std::uint64_t hash = 0xCBF29CE484222325ull;
  for (const ProjectPlan& project : generator.Projects()) {
    for (const ModulePlan& module : project.modules)
      hash = Digest(ModuleWriter::Text(module, 1), hash);
    hash = Digest(generator.ProjectText(project), hash);
  }
  hash = Digest(generator.GroupText(), hash);
  Expect(hash == kExpected,
         "digest of the 20,000-line group is " + Hex(kExpected) + ", got " + Hex(hash));
}

}  // namespace vbgen
