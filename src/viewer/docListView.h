// quillmark::docListView: the Component Viewer tool window's document.
#pragma once

#include "base/ConnectRef.h"
#include "runtime/UserDocument.h"

namespace quillmark {

class docListView final : public vb::UserDocument {
 public:
  explicit docListView(vb::Runtime& runtime);
  // The connection hands over a reference to itself when it creates the window.
  void SetConnect(ConnectRef connect) { connect_ = std::move(connect); }

 private:
  ConnectRef connect_;
};

}  // namespace quillmark
