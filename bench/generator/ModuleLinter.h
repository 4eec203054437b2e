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
  struct Level {
    bool property = false;  // a BeginProperty block
    bool sawChild = false;
    bool sawMenu = false;
    int control = -1;  // index into placed_
  };
  struct Placed {
    std::string name;
    std::string cls;
    long index = -1;  // the Index property; -1 when absent
    std::size_t line = 0;
  };

  std::size_t DesignerBlock(std::size_t at, ModuleKind kind);
  Level BeginLine(std::string_view content, std::size_t number, ModuleKind kind,
                  std::vector<Level>& stack);
  void ControlArrays();
  bool PropertyLine(std::string_view line, std::size_t depth, std::size_t number);
  std::size_t Attributes(std::size_t at, ModuleKind kind);
  void Body(std::size_t at);
  void MemberAttribute(std::string_view line, std::size_t number, const std::string& logical,
                       const std::string& previous);
  void Statement(std::string_view logical, std::size_t number, std::string& open);
  void Problem(std::size_t line, const std::string& text);

  std::string file_;
  CaseTable& names_;
  std::vector<std::string>& problems_;
  std::vector<std::string_view> lines_;
  ModuleFacts facts_;
  std::string designerName_;
  std::size_t objectLines_ = 0;
  std::vector<Placed> placed_;  // controls of the designer block, in file order
};

}  // namespace vbgen
