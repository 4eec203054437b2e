// quillmark::frmSearch.
#include "search/frmSearch.h"

namespace quillmark {

frmSearch::frmSearch(mdlMain& main) : Form(main.Rt(), u"frmSearch"), main_(main) {
  SetCaption(u"Visual Search and Replace");
}

void frmSearch::ToolbarSearch() {}

void frmSearch::LoadSearchCombo() {}

}  // namespace quillmark
