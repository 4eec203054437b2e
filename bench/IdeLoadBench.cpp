// Loads a project group into the embedded IDE and prints load time and memory beside ripgrep
// reading the same files, then times ProcOfLine over the largest module and Members of the
// module with the most members. Usage: IdeLoadBench GROUP.vbg (make one with vbgen).
#include <chrono>
#include <cstdio>
#include <filesystem>
#include <fstream>
#include <iostream>
#include <string>

#include "host/Component.h"
#include "host/Ide.h"
#include "host/Project.h"
#include "vbide/CodeModule.h"
#include "vbide/Member.h"

namespace {

namespace fs = std::filesystem;
using Clock = std::chrono::steady_clock;

double Seconds(Clock::time_point from) {
  return std::chrono::duration<double>(Clock::now() - from).count();
}

// Resident and peak resident memory of this process, in bytes.
long long StatusBytes(const char* field) {
  std::ifstream status("/proc/self/status");
  std::string line;
  while (std::getline(status, line))
    if (line.rfind(field, 0) == 0) return std::stoll(line.substr(std::string(field).size())) * 1024;
  return 0;
}

// Seconds for `command`, run twice so the second run reads from a warm cache; -1 when it fails.
double TimeCommand(const std::string& command) {
  double best = -1;
  for (int run = 0; run < 2; ++run) {
    auto start = Clock::now();
    FILE* pipe = popen((command + " > /dev/null 2>&1").c_str(), "r");
    if (!pipe) return -1;
    if (pclose(pipe) == -1) return -1;
    best = Seconds(start);
  }
  return best;
}

}  // namespace

int main(int argc, char** argv) {
  if (argc != 2) {
    std::cerr << "usage: IdeLoadBench GROUP.vbg   (bench/vbgen OUTDIR writes OUTDIR/Big.vbg)\n";
    return 2;
  }
  fs::path group = fs::absolute(argv[1]);
  long long bytesOnDisk = 0;
  for (auto& e : fs::recursive_directory_iterator(group.parent_path()))
    if (e.is_regular_file()) bytesOnDisk += static_cast<long long>(e.file_size());

  double rg = TimeCommand("rg -c -j1 . '" + group.parent_path().string() + "'");

  long long rssBefore = StatusBytes("VmRSS:");
  auto start = Clock::now();
  auto ide = host::Ide::Create({});
  auto problems = ide->Open(group);
  double load = Seconds(start);
  long long model = StatusBytes("VmRSS:") - rssBefore;

  long long lines = 0;
  std::shared_ptr<vbide::CodeModule> largest, densest;
  int mostMembers = -1;
  for (auto& project : ide->ProjectList()->List())
    for (auto& component : project->ComponentList()->List()) {
      auto module = component->CodeModule();
      if (!module) continue;
      lines += module->CountOfLines();
      if (!largest || module->CountOfLines() > largest->CountOfLines()) largest = module;
    }

  std::printf("group          %s\n", group.string().c_str());
  std::printf("files          %.1f MB on disk, %lld code lines, %zu problems\n", bytesOnDisk / 1e6,
              lines, problems.size());
  std::printf("load           %.3f s   (budget 1 s)\n", load);
  if (rg > 0)
    std::printf("rg -c -j1 .    %.3f s   load/rg = %.2f\n", rg, load / rg);
  else
    std::printf("rg -c -j1 .    not available (install ripgrep)\n");
  std::printf(
      "memory         %.1f MB resident for the model = %.2f x bytes on disk   (budget 4 x)\n",
      model / 1e6, static_cast<double>(model) / static_cast<double>(bytesOnDisk));

  // ProcOfLine for every line of the largest module: the first query builds the index.
  int count = largest->CountOfLines();
  vbide::vbext_ProcKind kind;
  start = Clock::now();
  largest->ProcOfLine(1, kind);
  double firstQuery = Seconds(start);
  start = Clock::now();
  std::size_t named = 0;
  for (int line = 1; line <= count; ++line)
    named += largest->ProcOfLine(line, kind).empty() ? 0 : 1;
  double perLine = Seconds(start) / count;
  std::printf(
      "ProcOfLine     %d lines of %s: index built in %.2f ms, then %.0f ns per line (%zu in "
      "procedures)\n",
      count, "the largest module", firstQuery * 1e3, perLine * 1e9, named);

  for (auto& project : ide->ProjectList()->List())
    for (auto& component : project->ComponentList()->List()) {
      auto module = component->CodeModule();
      if (!module || module->CountOfLines() > 60000) continue;
      int n = module->Members()->Count();
      if (n > mostMembers) mostMembers = n, densest = module;
    }
  densest->InsertLines(1, u"' touched");  // make the next Members() rebuild
  start = Clock::now();
  int members = densest->Members()->Count();
  double membersTime = Seconds(start);
  start = Clock::now();
  for (int i = 1; i <= members; ++i) densest->Members()->Item(i)->CodeLocation();
  double perItem = Seconds(start) / members;
  std::printf("Members        %d members rebuilt in %.2f ms, then %.0f ns per Item\n", members,
              membersTime * 1e3, perItem * 1e9);
  std::printf("peak memory    %.1f MB\n", StatusBytes("VmHWM:") / 1e6);
  return 0;
}
