// vb::StatusBar: panels of text along the bottom of a form or document.
#pragma once

#include <string>
#include <vector>

#include "runtime/Utf.h"
#include "runtime/forms/Control.h"
#include "runtime/forms/ControlError.h"

namespace vb {

struct Panel {
  std::u16string text;
  std::u16string key;
  float width = 1440;
};

// Panels count from 1; a new status bar has one panel, as VB's does. Panels(i) out of range
// raises 35600. Setting a panel's text goes through SetPanelText so the peer hears of it.
class StatusBar : public Control {
 public:
  StatusBar(FormBase& owner, std::u16string name, int index = -1)
      : Control(owner, std::move(name), index), panels_(1) {}
  std::u16string_view TypeName() const override { return u"StatusBar"; }

  int PanelCount() const { return static_cast<int>(panels_.size()); }
  Panel& AddPanel() {
    panels_.emplace_back();
    Notify(Property::Panels);
    return panels_.back();
  }
  const Panel& Panels(int index) const {
    if (index < 1 || index > PanelCount()) {
      throw ctlerr::IndexOutOfBounds(Name() + u".Panels(" + FromUtf8(std::to_string(index)) + u")");
    }
    return panels_[index - 1];
  }
  void SetPanelText(int index, std::u16string text) {
    Panels(index);
    panels_[index - 1].text = std::move(text);
    Notify(Property::Panels);
  }

 private:
  std::vector<Panel> panels_;
};

}  // namespace vb
