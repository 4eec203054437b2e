// quillmark::frmNewMember: the New Member dialog.
#pragma once

#include "base/mdlMain.h"
#include "runtime/forms/Form.h"

namespace quillmark {

class frmNewMember final : public vb::Form {
 public:
  explicit frmNewMember(mdlMain& main);

 private:
  mdlMain& main_;
};

}  // namespace quillmark
