// ModuleLinter: checks one module file against the layout and formatting the VB6 IDE writes.
#pragma once

#include <cstddef>
#include <string>
#include <string_view>
#include <vector>

#include "CaseTable.h"
#include "Plan.h"

namespace vbgen {

struct ModuleFacts {
  std::string name;           // from Attribute VB_Name
  std::size_t codeLines = 0;  // lines the code window shows
  std::size_t members = 0;    // module-level declarations and procedures
};

class ModuleLinter {
 public:
  // `file` names the file in messages; `names` collects the project's identifier spellings.
  ModuleLinter(std::string file, CaseTable& names, std::vector<std::string>& problems)
      : file_(std::move(file)), names_(names), problems_(problems) {}

  ModuleFacts Lint(std::string_view bytes, ModuleKind kind);

 private:
  std::size_t Header(ModuleKind kind);
  std::size_t DesignerBlock(std::size_t at, ModuleKind kind);
  bool PropertyLine(std::string_view line, std::size_t depth, std::size_t number);
  std::size_t Attributes(std::size_t at, ModuleKind kind);
  void Body(std::size_t at);
  void Problem(std::size_t line, const std::string& text);

  std::string file_;
  CaseTable& names_;
  std::vector<std::string>& problems_;
  std::vector<std::string_view> lines_;
  ModuleFacts facts_;
  std::string designerName_;
  std::size_t objectLines_ = 0;
};

}  // namespace vbgen
