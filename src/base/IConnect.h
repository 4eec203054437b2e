// quillmark::IConnect: the connection's public operations and its CodeModified event, as the
// subsystems see them. Connect (the top) implements it; a subsystem never includes Connect.
#pragma once

#include <memory>

#include "vbide/Event.h"

namespace quillmark {

struct mdlMain;
class docResults;

class IConnect {
 public:
  virtual ~IConnect() = default;

  virtual void ShowListView() = 0;
  // Shows the "Search Results" window, creating it on first use, and hands over the document
  // a search fills (null when the window could not be made).
  virtual std::shared_ptr<docResults> ShowResults() = 0;
  // Creates the search dialog when it is missing, and shows it when `show` is true.
  virtual void ShowSearch(bool show) = 0;
  virtual void HideListView() = 0;
  virtual void HideResults() = 0;
  virtual void HideSearch() = 0;
  virtual void LoadSearchCombo() = 0;
  // Raises codeModified (the IDE's code was changed by the add-in itself).
  virtual void CodeModified() = 0;
  // The add-in's shared state, owned by the connection.
  virtual mdlMain& Main() = 0;

  // The connection's one event, CodeModified, without arguments.
  vbide::Event<> codeModified;
};

}  // namespace quillmark
