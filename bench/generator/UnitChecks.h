// UnitChecks: table-driven checks of the generator's parts - random source, designer lines, sizes.
#pragma once

#include <string>
#include <vector>

namespace vbgen {

struct CheckResult {
  bool ok = false;
  std::string what;
};

class UnitChecks {
 public:
  std::vector<CheckResult> Run();

 private:
  void RandomSource();
  void DesignerLines();
  void ExactModuleSizes();
  void GroupDigest();
  void Expect(bool ok, std::string what) { results_.push_back({ok, std::move(what)}); }

  std::vector<CheckResult> results_;
};

}  // namespace vbgen
