// SelfCheck: runs the linter over a fixture with known faults, then generates twice and compares.
#include "SelfCheck.h"

#include <cstdio>
#include <cstdlib>
#include <fstream>
#include <iterator>
#include <stdexcept>

#include "FormatLinter.h"
#include "LinterFixture.h"
#include "UnitChecks.h"

namespace vbgen {
namespace fs = std::filesystem;
namespace {

std::string Crlf(std::string_view text) {
  std::string out;
  for (char c : text) {
    if (c == '\n') out += '\r';
    out += c;
  }
  return out;
}

fs::path MakeWorkFolder() {
  std::string pattern = (fs::temp_directory_path() / "vbgen-check-XXXXXX").string();
  if (mkdtemp(pattern.data()) == nullptr) {
    throw std::runtime_error("cannot create a temporary folder from " + pattern);
  }
  return pattern;
}

std::string FirstProblems(const LintResult& result) {
  std::string text;
  for (std::size_t i = 0; i < result.problems.size() && i < 5; ++i) {
    text += "\n      " + result.problems[i];
  }
  return text;
}

}  // namespace

void SelfCheck::Report(bool ok, const std::string& what, const std::string& detail) {
  (ok ? passes_ : failures_) += 1;
  std::printf("%s %s%s\n", ok ? "  ok  " : "  FAIL", what.c_str(), detail.c_str());
}

SelfCheck::Files SelfCheck::ReadTree(const fs::path& root) {
  Files files;
  for (const fs::directory_entry& entry : fs::recursive_directory_iterator(root)) {
    if (!entry.is_regular_file()) continue;
    std::ifstream in(entry.path(), std::ios::binary);
    files[fs::relative(entry.path(), root).generic_string()] =
        std::string(std::istreambuf_iterator<char>(in), std::istreambuf_iterator<char>());
  }
  return files;
}

void SelfCheck::WriteTree(const fs::path& root, const Files& files) {
  fs::remove_all(root);
  for (const auto& [path, bytes] : files) {
    fs::create_directories((root / path).parent_path());
    std::ofstream out(root / path, std::ios::binary);
    out.write(bytes.data(), static_cast<std::streamsize>(bytes.size()));
    if (!out) throw std::runtime_error("cannot write " + (root / path).string());
  }
}

bool SelfCheck::Run() {
  fs::path work = MakeWorkFolder();
  bool ok = false;
  try {
    for (const CheckResult& result : UnitChecks().Run()) Report(result.ok, result.what);
    ok = LinterCatchesFaults(work) && GeneratorIsDeterministic(work);
    BadInputIsRefused(work);
  } catch (...) {
    fs::remove_all(work);
    throw;
  }
  fs::remove_all(work);
  std::printf("vbgen --check: %d passed, %d failed\n", passes_, failures_);
  return ok && failures_ == 0;
}

bool SelfCheck::LinterCatchesFaults(const fs::path& work) {
  Files good;
  for (const FixtureFile& file : kFixture) good[std::string(file.path)] = Crlf(file.text);
  fs::path root = work / "fixture";
  WriteTree(root, good);
  LintResult clean = FormatLinter().LintGroup(root / "Mini.vbg");
  Report(clean.problems.empty() && clean.files == 7,
         "linter accepts the correct fixture (" + std::to_string(clean.files) + " of 7 files)",
         FirstProblems(clean));
  Report(clean.codeLines == 27,
         "linter counts 27 code lines in the fixture, got " + std::to_string(clean.codeLines));
  for (const FixtureFault& fault : kFaults) {
    Files broken = good;
    std::string& bytes = broken.at(std::string(fault.path));
    std::size_t at = bytes.find(fault.find);
    if (at == std::string::npos) {
      Report(false, "linter case '" + std::string(fault.name) + "'", ": fixture text not found");
      continue;
    }
    bytes.replace(at, fault.find.size(), fault.replace);
    WriteTree(root, broken);
    LintResult result = FormatLinter().LintGroup(root / "Mini.vbg");
    bool found = false;
    for (const std::string& problem : result.problems) {
      bool rightFile = problem.find(fs::path(fault.path).filename().string()) != std::string::npos;
      found = found || (rightFile && problem.find(fault.expect) != std::string::npos);
    }
    Report(found, "linter finds '" + std::string(fault.name) + "'",
           found ? ""
                 : ": expected a problem with '" + std::string(fault.expect) + "'" +
                       FirstProblems(result));
  }
  return failures_ == 0;
}

bool SelfCheck::GeneratorIsDeterministic(const fs::path& work) {
  GroupGenerator generator(options_);
  GeneratorReport first = generator.Write(work / "a");
  GroupGenerator(options_).Write(work / "b");
  GeneratorOptions other = options_;
  ++other.seed;
  GroupGenerator(other).Write(work / "c");

  Files a = ReadTree(work / "a");
  Files b = ReadTree(work / "b");
  Files c = ReadTree(work / "c");
  Report(a.size() == first.files, std::to_string(a.size()) + " files on disk, as reported");
  std::string differing;
  for (const auto& [path, bytes] : a) {
    auto twin = b.find(path);
    if (twin == b.end() || twin->second != bytes) differing = path;
  }
  Report(a.size() == b.size() && differing.empty(), "the same arguments give byte-identical files",
         differing.empty() ? "" : ": " + differing + " differs");
  Report(a != c, "another seed gives another group");

  LintResult lint = FormatLinter().LintGroup(work / "a" / "Big.vbg");
  Report(lint.problems.empty(), "generated group passes the format linter",
         lint.problems.empty()
             ? ""
             : ": " + std::to_string(lint.problems.size()) + " problems" + FirstProblems(lint));
  Report(lint.files == first.files, "linter reaches all " + std::to_string(first.files) + " files");
  Report(lint.codeLines == options_.lines, "code lines: asked " + std::to_string(options_.lines) +
                                               ", found " + std::to_string(lint.codeLines));
  Report(lint.largestModuleLines == first.largestLines,
         "largest module has " + std::to_string(first.largestLines) + " code lines, found " +
             std::to_string(lint.largestModuleLines));
  Report(lint.mostMembers >= first.denseMembers,
         "member-dense module has at least " + std::to_string(first.denseMembers) +
             " members, found " + std::to_string(lint.mostMembers));
  return failures_ == 0;
}

// Options that cannot make a group, and folders that hold other data, are refused with a message
// naming them, and nothing of the user's is touched.
void SelfCheck::BadInputIsRefused(const fs::path& work) {
  auto refusal = [](const GeneratorOptions& options) -> std::string {
    try {
      GroupGenerator generator(options);
    } catch (const std::invalid_argument& e) {
      return e.what();
    }
    return {};
  };
  std::string fewLines = refusal({100, 2000, 1});
  Report(fewLines.find("--lines 100") != std::string::npos,
         "too few lines are refused: " + fewLines);
  std::string fewModules = refusal({20000, 2, 1});
  Report(fewModules.find("--modules 2") != std::string::npos,
         "too few modules are refused: " + fewModules);

  GeneratorOptions small{20000, 20, options_.seed};
  fs::path foreign = work / "foreign";
  WriteTree(foreign, {{"notes.txt", "keep me"}});
  std::string message;
  try {
    GroupGenerator(small).Write(foreign);
  } catch (const std::runtime_error& e) {
    message = e.what();
  }
  Files after = ReadTree(foreign);
  bool untouched = after.size() == 1 && after["notes.txt"] == "keep me";
  fs::path staging = foreign;
  staging += ".vbgen-staging";
  Report(message.find(foreign.string()) != std::string::npos && untouched && !fs::exists(staging),
         "a folder of other files is refused and left as it was: " + message);

  fs::path reused = work / "reused";
  GroupGenerator(small).Write(reused);
  GeneratorOptions otherSeed = small;
  ++otherSeed.seed;
  GroupGenerator(otherSeed).Write(reused);
  GroupGenerator(otherSeed).Write(work / "fresh");
  Report(ReadTree(reused) == ReadTree(work / "fresh"),
         "an earlier output is replaced whole, no file of it is left");
}

}  // namespace vbgen
