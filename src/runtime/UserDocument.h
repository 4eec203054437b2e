// vb::UserDocument: the base of a document that an IDE tool window hosts (docResults, docListView).
#pragma once

namespace vb {

// The form engine gives this class its controls and events; the IDE's object model only creates
// documents by their registered class name and hands them to the add-in.
class UserDocument {
 public:
  virtual ~UserDocument() = default;
};

}  // namespace vb
