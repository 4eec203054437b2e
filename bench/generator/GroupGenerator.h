// GroupGenerator: plans a large project group and writes it - Big.vbg, the .vbp files, modules.
#pragma once

#include <cstddef>
#include <cstdint>
#include <filesystem>
#include <string>
#include <vector>

#include "Plan.h"
#include "Prng.h"

namespace vbgen {

struct GeneratorOptions {
  std::size_t lines = 1'000'000;  // visible code lines in the whole group
  std::size_t modules = 2'000;
  std::uint64_t seed = 1;
};

struct GeneratorReport {
  std::size_t projects = 0;
  std::size_t files = 0;
  std::size_t lines = 0;
  std::size_t bytes = 0;
  std::size_t byKind[7] = {};
  std::string largestModule;
  std::size_t largestLines = 0;
  std::string denseModule;
  std::size_t denseMembers = 0;
};

class GroupGenerator {
 public:
  // Throws std::invalid_argument naming the value when the options cannot make a group.
  explicit GroupGenerator(const GeneratorOptions& options);

  const std::vector<ProjectPlan>& Projects() const { return projects_; }

  // Writes the group into `outDir`, which must be missing, empty, or an earlier vbgen output
  // (recognised by its Big.vbg). Files are staged beside it and moved in at the end, so a
  // failed run leaves no half-written group behind. Throws std::runtime_error naming the file.
  GeneratorReport Write(const std::filesystem::path& outDir) const;

  // The text of each file, by path relative to the output folder, in writing order.
  std::string GroupText() const;
  std::string ProjectText(const ProjectPlan& project) const;

 private:
  void PlanProjects();
  void PlanModules(ProjectPlan& project, std::size_t count, std::size_t& stream);
  void AssignLines();
  void HostControls(ProjectPlan& project, Prng& rng) const;
  // The control project whose controls the forms of `project` place; empty for none.
  static std::string HostedLibrary(const ProjectPlan& project);

  GeneratorOptions options_;
  std::vector<ProjectPlan> projects_;
};

}  // namespace vbgen
