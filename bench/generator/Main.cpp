// vbgen: command line of the generator of large, deterministic VB6 project groups.
#include <chrono>
#include <cstdio>
#include <exception>
#include <filesystem>
#include <string>
#include <string_view>
#include <vector>

#include "FormatLinter.h"
#include "GroupGenerator.h"
#include "SelfCheck.h"

namespace {

constexpr const char* kUsage =
    "usage: vbgen OUTDIR [--lines N] [--modules M] [--seed S]\n"
    "       vbgen --check [--lines N] [--modules M] [--seed S]\n"
    "       vbgen --lint GROUP.vbg\n";

struct CommandLine {
  std::string outDir;
  std::string lintPath;
  bool check = false;
  vbgen::GeneratorOptions options;
};

std::uint64_t Number(std::string_view option, const char* text) {
  std::string value = text == nullptr ? "" : text;
  bool digits = !value.empty() && value.size() <= 19 &&
                value.find_first_not_of("0123456789") == std::string::npos;
  if (!digits) {
    throw std::invalid_argument(std::string(option) + " expects a whole number, not '" + value +
                                "'");
  }
  return std::stoull(value);
}

CommandLine Parse(int argc, char** argv) {
  CommandLine line;
  for (int i = 1; i < argc; ++i) {
    std::string_view arg = argv[i];
    const char* next = i + 1 < argc ? argv[i + 1] : nullptr;
    if (arg == "--lines") {
      line.options.lines = Number(arg, next), ++i;
    } else if (arg == "--modules") {
      line.options.modules = Number(arg, next), ++i;
    } else if (arg == "--seed") {
      line.options.seed = Number(arg, next), ++i;
    } else if (arg == "--check") {
      line.check = true;
    } else if (arg == "--lint") {
      if (next == nullptr) throw std::invalid_argument("--lint expects the path of a .vbg file");
      line.lintPath = next, ++i;
    } else if (arg.starts_with("-") || !line.outDir.empty()) {
      throw std::invalid_argument("unexpected argument '" + std::string(arg) + "'");
    } else {
      line.outDir = arg;
    }
  }
  int modes =
      (line.check ? 1 : 0) + (line.lintPath.empty() ? 0 : 1) + (line.outDir.empty() ? 0 : 1);
  if (modes != 1) throw std::invalid_argument("give one of OUTDIR, --check or --lint");
  return line;
}

int Generate(const CommandLine& line) {
  auto start = std::chrono::steady_clock::now();
  vbgen::GroupGenerator generator(line.options);
  vbgen::GeneratorReport report = generator.Write(line.outDir);
  std::chrono::duration<double> seconds = std::chrono::steady_clock::now() - start;
  std::string group = (std::filesystem::path(line.outDir) / "Big.vbg").lexically_normal().string();
  std::printf("vbgen: wrote %s (seed %llu)\n", group.c_str(),
              static_cast<unsigned long long>(line.options.seed));
  std::printf("  projects %zu, files %zu, code lines %zu, bytes %zu, %.2f s\n", report.projects,
              report.files, report.lines, report.bytes, seconds.count());
  std::printf("  .bas %zu, .cls %zu, .frm %zu, .ctl %zu, .pag %zu, .dob %zu\n", report.byKind[0],
              report.byKind[1], report.byKind[2], report.byKind[3], report.byKind[4],
              report.byKind[5]);
  std::printf("  largest module %s (%zu lines); member-dense %s (%zu members)\n",
              report.largestModule.c_str(), report.largestLines, report.denseModule.c_str(),
              report.denseMembers);
  return 0;
}

int Lint(const std::string& path) {
  vbgen::LintResult result = vbgen::FormatLinter().LintGroup(path);
  for (const std::string& problem : result.problems) std::printf("%s\n", problem.c_str());
  std::printf("vbgen: %s: %zu files, %zu code lines, %zu problems\n", path.c_str(), result.files,
              result.codeLines, result.problems.size());
  return result.problems.empty() ? 0 : 1;
}

}  // namespace

int main(int argc, char** argv) {
  try {
    CommandLine line = Parse(argc, argv);
    if (line.check) return vbgen::SelfCheck(line.options).Run() ? 0 : 1;
    if (!line.lintPath.empty()) return Lint(line.lintPath);
    return Generate(line);
  } catch (const std::invalid_argument& e) {
    std::fprintf(stderr, "vbgen: %s\n%s", e.what(), kUsage);
    return 2;
  } catch (const std::exception& e) {
    std::fprintf(stderr, "vbgen: %s\n", e.what());
    return 1;
  }
}
