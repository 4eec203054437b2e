// quillmark::frmAutoSave.
#include "options/frmAutoSave.h"

namespace quillmark {

frmAutoSave::frmAutoSave(mdlMain& main) : Form(main.Rt(), u"frmAutoSave"), main_(main) {
  SetCaption(u"Auto-Save");
}

}  // namespace quillmark
