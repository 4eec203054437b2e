// quillmark::docResults: the "Search Results" tool window's document.
#pragma once

#include "runtime/UserDocument.h"

namespace quillmark {

class Connect;

class docResults final : public vb::UserDocument {
 public:
  explicit docResults(vb::Runtime& runtime);
  // The connection hands itself over when it creates the window.
  void SetConnect(Connect* connect) { connect_ = connect; }

 private:
  Connect* connect_ = nullptr;
};

}  // namespace quillmark
