// vbide::CodePanes and vbide::CodePane: code windows' views of code modules.
#pragma once

#include <vector>

#include "vbide/Fwd.h"

namespace vbide {

class CodePanes {
 public:
  virtual ~CodePanes() = default;
  virtual int Count() = 0;
  virtual CodePanePtr Item(int index) = 0;  // 1-based
  virtual std::vector<CodePanePtr> Items() = 0;
  virtual CodePanePtr Current() = 0;  // the active pane, or null
};

// Positions count from 1 (line, then column in UTF-16 units). An empty selection has start = end.
class CodePane {
 public:
  virtual ~CodePane() = default;
  virtual CodeModulePtr CodeModule() = 0;
  virtual WindowPtr Window() = 0;
  // Makes its code window visible and active and sets VBE.ActiveCodePane.
  virtual void Show() = 0;
  virtual void GetSelection(int& startLine, int& startColumn, int& endLine, int& endColumn) = 0;
  // Raises 5 for a position outside the text; nothing is clamped.
  virtual void SetSelection(int startLine, int startColumn, int endLine, int endColumn) = 0;
  virtual int TopLine() = 0;
  virtual void SetTopLine(int line) = 0;  // clamped to 1..CountOfLines
  virtual int CountOfVisibleLines() = 0;
  virtual CodePanesPtr Collection() = 0;
};

}  // namespace vbide
