// quillmark::frmAutoSave: the Auto-Save countdown form (loaded hidden while connected).
#pragma once

#include "base/mdlMain.h"
#include "runtime/forms/Form.h"

namespace quillmark {

class frmAutoSave final : public vb::Form {
 public:
  explicit frmAutoSave(mdlMain& main);

 private:
  mdlMain& main_;
};

}  // namespace quillmark
