// GroupGenerator: project and module planning, line budgets, project files and the group file.
#include "GroupGenerator.h"

#include <algorithm>
#include <stdexcept>
#include <unordered_set>

#include "FileSink.h"
#include "ModuleWriter.h"
#include "Prng.h"
#include "Vocabulary.h"

namespace vbgen {
namespace {

constexpr std::size_t kModulesPerProject = 100;
constexpr std::size_t kMinimumLinesPerModule = 10;
constexpr std::uint64_t kPlanStream = 0xA11CE5EEDull;

// The fixed group size at which the giant and the member-dense module reach full size.
constexpr std::size_t kFullSizeFrom = 500'000;

std::string_view TypeName(ProjectKind kind) {
  switch (kind) {
    case ProjectKind::Exe:
      return "Exe";
    case ProjectKind::OleDll:
      return "OleDll";
    case ProjectKind::OleExe:
      return "OleExe";
    case ProjectKind::Control:
      return "Control";
  }
  return "Exe";
}

std::string_view Prefix(ModuleKind kind) {
  switch (kind) {
    case ModuleKind::Standard:
      return "mod";
    case ModuleKind::Class:
      return "C";
    case ModuleKind::Form:
      return "frm";
    case ModuleKind::UserControl:
      return "ctl";
    case ModuleKind::PropertyPage:
      return "ppg";
    case ModuleKind::UserDocument:
      return "doc";
    case ModuleKind::Designer:
      return "de";
  }
  return "mod";
}

ModuleKind PickKind(ProjectKind project, Prng& rng) {
  std::uint32_t roll = rng.Below(100);
  switch (project) {
    case ProjectKind::Exe:
      return roll < 30 ? ModuleKind::Standard : roll < 65 ? ModuleKind::Class : ModuleKind::Form;
    case ProjectKind::Control:
      return roll < 40   ? ModuleKind::UserControl
             : roll < 60 ? ModuleKind::PropertyPage
             : roll < 80 ? ModuleKind::Class
                         : ModuleKind::Standard;
    case ProjectKind::OleDll:
    case ProjectKind::OleExe:
      return roll < 20   ? ModuleKind::UserDocument
             : roll < 70 ? ModuleKind::Class
                         : ModuleKind::Standard;
  }
  return ModuleKind::Standard;
}

std::size_t GiantLines(std::size_t lines) {
  return lines >= kFullSizeFrom ? 50'000 : lines / 20;
}

std::size_t DenseMembers(std::size_t lines) {
  return lines >= kFullSizeFrom ? 5'000 : std::max<std::size_t>(lines / 200, 10);
}

}  // namespace

GroupGenerator::GroupGenerator(const GeneratorOptions& options) : options_(options) {
  if (options.modules < 3) {
    throw std::invalid_argument("--modules " + std::to_string(options.modules) +
                                " is too small: the group needs at least 3 modules");
  }
  std::size_t reserved = GiantLines(options.lines) + DenseModuleLines(DenseMembers(options.lines));
  std::size_t needed = reserved + (options.modules - 2) * kMinimumLinesPerModule;
  if (options.lines < needed) {
    throw std::invalid_argument("--lines " + std::to_string(options.lines) + " is too small for " +
                                std::to_string(options.modules) + " modules: use at least " +
                                std::to_string(needed));
  }
  PlanProjects();
  AssignLines();
}

void GroupGenerator::PlanProjects() {
  Prng rng = Prng::Fork(options_.seed, kPlanStream);
  Vocabulary words(rng);
  std::size_t count = (options_.modules + kModulesPerProject - 1) / kModulesPerProject;
  std::unordered_set<std::string> projectNames;
  std::size_t stream = 0;
  for (std::size_t p = 0; p < count; ++p) {
    ProjectPlan project;
    project.kind = p % 5 == 3   ? ProjectKind::Control
                   : p % 5 == 4 ? (p % 10 == 9 ? ProjectKind::OleExe : ProjectKind::OleDll)
                                : ProjectKind::Exe;
    do {
      std::string first(words.Noun());
      std::string second(words.Noun());
      if (second == first) continue;  // "OrderOrder" is nobody's project name
      project.name = first + second;
      if (projectNames.count(project.name) != 0) project.name += std::to_string(p + 1);
    } while (project.name.empty() || !projectNames.insert(project.name).second);
    std::size_t share = options_.modules / count + (p < options_.modules % count ? 1 : 0);
    PlanModules(project, share, stream);
    if (project.kind == ProjectKind::Exe) HostControls(project, rng);
    projects_.push_back(std::move(project));
  }
}

void GroupGenerator::PlanModules(ProjectPlan& project, std::size_t count, std::size_t& stream) {
  Prng rng = Prng::Fork(options_.seed, kPlanStream + 1 + projects_.size());
  Vocabulary words(rng);
  std::unordered_set<std::string> names;
  std::vector<std::string> eventClasses;
  for (std::size_t m = 0; m < count; ++m) {
    ModulePlan module;
    module.stream = stream++;
    bool first = projects_.empty();
    module.kind = first && m == 0   ? ModuleKind::Standard
                  : first && m == 1 ? ModuleKind::Class
                                    : PickKind(project.kind, rng);
    do {
      module.name = std::string(Prefix(module.kind)) + words.Compound();
      if (names.count(module.name) != 0) module.name += std::to_string(m + 1);
    } while (!names.insert(module.name).second);
    if (first && m == 1) module.members = DenseMembers(options_.lines);
    bool activeX = project.kind != ProjectKind::Exe;
    module.exposed = module.kind == ModuleKind::Class ? activeX && rng.Chance(60)
                     : module.kind == ModuleKind::Form || module.kind == ModuleKind::Standard
                         ? false
                         : activeX;
    if (module.kind == ModuleKind::Class && module.members == 0 && rng.Chance(20)) {
      module.raisesEvents = true;
      eventClasses.push_back(module.name);
    } else if (module.kind != ModuleKind::Standard && !eventClasses.empty() && rng.Chance(15)) {
      module.eventSource = eventClasses[rng.Below(static_cast<std::uint32_t>(eventClasses.size()))];
    }
    project.modules.push_back(std::move(module));
  }
}

// Lets some forms of an Exe project place a public user control of the latest control project
// before it, as applications built on their own control library do.
void GroupGenerator::HostControls(ProjectPlan& project, Prng& rng) const {
  auto library = std::find_if(projects_.rbegin(), projects_.rend(),
                              [](const ProjectPlan& p) { return p.kind == ProjectKind::Control; });
  if (library == projects_.rend()) return;
  std::vector<const ModulePlan*> controls;
  for (const ModulePlan& m : library->modules) {
    if (m.kind == ModuleKind::UserControl) controls.push_back(&m);
  }
  if (controls.empty()) return;
  for (ModulePlan& module : project.modules) {
    if (module.kind != ModuleKind::Form || !rng.Chance(30)) continue;
    module.hostedControl = library->name + "." + rng.Pick(controls)->name;
  }
}

// Spreads the lines over the modules with uneven weights, so sizes vary as in real code, and
// makes the budgets add up to exactly the requested total.
void GroupGenerator::AssignLines() {
  Prng rng = Prng::Fork(options_.seed, kPlanStream - 1);
  ModulePlan& giant = projects_[0].modules[0];
  ModulePlan& dense = projects_[0].modules[1];
  giant.lines = GiantLines(options_.lines);
  dense.lines = DenseModuleLines(dense.members);
  std::size_t others = options_.modules - 2;
  std::size_t rest = options_.lines - giant.lines - dense.lines - others * kMinimumLinesPerModule;
  std::vector<std::size_t> weights;
  std::size_t total = 0;
  for (std::size_t i = 0; i < others; ++i) {
    std::size_t w = 20 + rng.Below(100);
    if (rng.Chance(5)) w *= 6;
    weights.push_back(w);
    total += w;
  }
  std::size_t given = 0;
  std::size_t index = 0;
  for (ProjectPlan& project : projects_) {
    for (ModulePlan& module : project.modules) {
      if (&module == &giant || &module == &dense) continue;
      std::size_t share = rest * weights[index++] / total;
      module.lines = kMinimumLinesPerModule + share;
      given += share;
    }
  }
  // Rounding leaves fewer than `others` lines over; the first modules take one each.
  std::size_t left = rest - given;
  for (ProjectPlan& project : projects_) {
    for (ModulePlan& module : project.modules) {
      if (left == 0) return;
      if (&module == &giant || &module == &dense) continue;
      ++module.lines;
      --left;
    }
  }
}

std::string GroupGenerator::GroupText() const {
  std::string text = "VBGROUP 5.0\r\n";
  for (std::size_t p = 0; p < projects_.size(); ++p) {
    text += p == 0 ? "StartupProject=" : "Project=";
    text += projects_[p].name + "\\" + projects_[p].name + ".vbp\r\n";
  }
  return text;
}

std::string GroupGenerator::HostedLibrary(const ProjectPlan& project) {
  for (const ModulePlan& module : project.modules) {
    if (!module.hostedControl.empty())
      return module.hostedControl.substr(0, module.hostedControl.find('.'));
  }
  return {};
}

std::string GroupGenerator::ProjectText(const ProjectPlan& project) const {
  std::string text = "Type=" + std::string(TypeName(project.kind)) + "\r\n";
  text +=
      "Reference=*\\G{00020430-0000-0000-C000-000000000046}#2.0#0#..\\..\\..\\..\\Windows\\"
      "SysWOW64\\stdole2.tlb#OLE Automation\r\n";
  if (project.kind == ProjectKind::Exe) {
    text += "Object=" + std::string(ModuleWriter::kComctlObject) + "\r\n";
  }
  std::string library = HostedLibrary(project);
  if (!library.empty()) text += "Object=*\\A..\\" + library + "\\" + library + ".vbp\r\n";
  std::string firstForm;
  for (const ModulePlan& module : project.modules) {
    std::string file = module.name + std::string(Extension(module.kind));
    text += std::string(VbpKey(module.kind)) + "=";
    bool named = module.kind == ModuleKind::Standard || module.kind == ModuleKind::Class;
    text += named ? module.name + "; " + file : file;
    text += "\r\n";
    if (module.kind == ModuleKind::Form && firstForm.empty()) firstForm = module.name;
  }
  bool exe = project.kind == ProjectKind::Exe;
  if (exe && !firstForm.empty()) text += "IconForm=\"" + firstForm + "\"\r\n";
  text += "Startup=\"" + (exe && !firstForm.empty() ? firstForm : std::string("(None)")) + "\"\r\n";
  std::string_view extension = exe || project.kind == ProjectKind::OleExe ? ".exe"
                               : project.kind == ProjectKind::OleDll      ? ".dll"
                                                                          : ".ocx";
  text += "HelpFile=\"\"\r\nTitle=\"" + project.name + "\"\r\n";
  text += "ExeName32=\"" + project.name + std::string(extension) + "\"\r\n";
  text += "Command32=\"\"\r\nName=\"" + project.name + "\"\r\nHelpContextID=\"0\"\r\n";
  text += exe ? "CompatibleMode=\"0\"\r\n" : "CompatibleMode=\"1\"\r\n";
  text +=
      "MajorVer=1\r\nMinorVer=0\r\nRevisionVer=0\r\nAutoIncrementVer=0\r\nServerSupportFiles=0\r\n"
      "VersionCompanyName=\"Quillmark Bench\"\r\nCompilationType=0\r\nOptimizationType=0\r\n"
      "FavorPentiumPro(tm)=0\r\nCodeViewDebugInfo=0\r\nNoAliasing=0\r\nBoundsCheck=0\r\n"
      "OverflowCheck=0\r\nFlPointCheck=0\r\nFDIVCheck=0\r\nUnroundedFP=0\r\n";
  text += exe ? "StartMode=0\r\n" : "StartMode=1\r\n";
  text += "Unattended=0\r\nRetained=0\r\nThreadPerObject=0\r\nMaxNumberOfThreads=1\r\n";
  if (!exe) text += "ThreadingModel=1\r\nDebugStartupOption=0\r\n";
  text += "\r\n[MS Transaction Server]\r\nAutoRefresh=1\r\n";
  return text;
}

GeneratorReport GroupGenerator::Write(const std::filesystem::path& outDir) const {
  FileSink sink(outDir, "Big.vbg");
  GeneratorReport report;
  report.projects = projects_.size();
  for (const ProjectPlan& project : projects_) {
    std::filesystem::path folder = project.name;
    for (const ModulePlan& module : project.modules) {
      std::string text = ModuleWriter::Text(module, options_.seed);
      sink.Add(folder / (module.name + std::string(Extension(module.kind))), text);
      report.bytes += text.size();
      report.lines += module.lines;
      ++report.byKind[static_cast<int>(module.kind)];
      if (module.lines > report.largestLines) {
        report.largestLines = module.lines;
        report.largestModule = project.name + "." + module.name;
      }
      if (module.members > report.denseMembers) {
        report.denseMembers = module.members;
        report.denseModule = project.name + "." + module.name;
      }
    }
    std::string vbp = ProjectText(project);
    sink.Add(folder / (project.name + ".vbp"), vbp);
    report.bytes += vbp.size();
  }
  std::string vbg = GroupText();
  sink.Add("Big.vbg", vbg);
  report.bytes += vbg.size();
  report.files = sink.Count();
  sink.Commit();
  return report;
}

}  // namespace vbgen
