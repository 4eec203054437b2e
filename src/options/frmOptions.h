// quillmark::frmOptions: the Options dialog.
#pragma once

#include "base/mdlMain.h"
#include "runtime/forms/Form.h"

namespace quillmark {

class frmOptions final : public vb::Form {
 public:
  explicit frmOptions(mdlMain& main);

 private:
  mdlMain& main_;
};

}  // namespace quillmark
