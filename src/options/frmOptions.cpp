// quillmark::frmOptions.
#include "options/frmOptions.h"

namespace quillmark {

frmOptions::frmOptions(mdlMain& main) : Form(main.Rt(), u"frmOptions"), main_(main) {
  SetCaption(u"Options");
}

}  // namespace quillmark
