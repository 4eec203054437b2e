// quillmark::frmSearch: the "Visual Search and Replace" dialog.
#pragma once

#include "addin/mdlMain.h"
#include "runtime/forms/Form.h"

namespace quillmark {

class frmSearch final : public vb::Form {
 public:
  explicit frmSearch(mdlMain& main);

  // Runs a search with the current SearchText over the scope the dialog shows.
  void ToolbarSearch();
  // Refills the search box's list from the stored history.
  void LoadSearchCombo();

 private:
  mdlMain& main_;
};

}  // namespace quillmark
