// SelfCheck: vbgen --check - the linter against known faults, then determinism and format.
#pragma once

#include <filesystem>
#include <map>
#include <string>

#include "GroupGenerator.h"

namespace vbgen {

class SelfCheck {
 public:
  explicit SelfCheck(const GeneratorOptions& options) : options_(options) {}

  // Prints one line per check and returns true when all passed. Works in a temporary folder
  // that it removes again.
  bool Run();

 private:
  using Files = std::map<std::string, std::string>;  // relative path -> bytes

  bool LinterCatchesFaults(const std::filesystem::path& work);
  bool GeneratorIsDeterministic(const std::filesystem::path& work);
  void BadInputIsRefused(const std::filesystem::path& work);
  void Report(bool ok, const std::string& what, const std::string& detail = {});

  static Files ReadTree(const std::filesystem::path& root);
  static void WriteTree(const std::filesystem::path& root, const Files& files);

  GeneratorOptions options_;
  int failures_ = 0;
  int passes_ = 0;
};

}  // namespace vbgen
