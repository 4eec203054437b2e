// A peer that writes every call a toolkit would get as one line, for tests of what the engine
// announces.
#pragma once

#include <string>
#include <vector>

#include "runtime/forms/Control.h"
#include "runtime/forms/ControlPeer.h"

namespace vbtest {

class RecordingPeer : public vb::FormPeer {
 public:
  std::vector<std::string> calls;
  void Changed(vb::Property property) override {
    calls.push_back(std::string(vb::PropertyName(property)));
  }
  void RowsReset() override { calls.push_back("RowsReset"); }
  void RowsInserted(int first, int count) override {
    calls.push_back("RowsInserted " + std::to_string(first) + " " + std::to_string(count));
  }
  void RowsRemoved(int first, int count) override {
    calls.push_back("RowsRemoved " + std::to_string(first) + " " + std::to_string(count));
  }
  void RowChanged(int row) override { calls.push_back("RowChanged " + std::to_string(row)); }
  void ControlAdded(vb::Control& control) override {
    calls.push_back("ControlAdded " + std::to_string(control.Index()));
  }
  void ControlRemoved(vb::Control& control) override {
    calls.push_back("ControlRemoved " + std::to_string(control.Index()));
  }
};

}  // namespace vbtest
