// DesignerBuilder: lays out the designer block of forms, user controls, pages and documents.
#pragma once

#include <string>
#include <unordered_set>
#include <vector>

#include "DesignerWriter.h"
#include "Plan.h"
#include "Prng.h"
#include "Vocabulary.h"

namespace vbgen {

class DesignerBuilder {
 public:
  DesignerBuilder(std::string& out, Prng& rng, Vocabulary& words)
      : writer_(out), rng_(rng), words_(words) {}

  // Writes "Begin <class> <name> " ... "End" and returns the controls the code may use.
  // `listView` places an MSComctlLib.ListView; the caller wrote its Object line.
  std::vector<ControlInfo> Write(const ModulePlan& plan, bool listView);

 private:
  void OwnProperties(const ModulePlan& plan);
  void Controls(int count, bool listView);
  void Control(std::string_view kind, const std::string& name, int index);
  void Frame(int children);
  void ListView();
  void HostedControl(const std::string& qualifiedClass);
  void Menus();
  void FontBlock();
  void Place(int height, int width);
  std::string NewName(std::string_view prefix);

  DesignerWriter writer_;
  Prng& rng_;
  Vocabulary& words_;
  std::vector<ControlInfo> controls_;
  std::unordered_set<std::string> names_;
  std::unordered_set<std::string_view> shortcuts_;  // a key serves one menu item per form
  int tabIndex_ = 0;
  int top_ = 120;
};

}  // namespace vbgen
