// quillmark::frmNewMember.
#include "newmember/frmNewMember.h"

namespace quillmark {

frmNewMember::frmNewMember(mdlMain& main) : Form(main.Rt(), u"frmNewMember"), main_(main) {
  SetCaption(u"New Member");
}

}  // namespace quillmark
