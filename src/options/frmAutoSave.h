// quillmark::frmAutoSave: the Auto-Save scheduler and its countdown window. It stays loaded
// (hidden) while the add-in is connected; its check timer decides when the open projects are
// saved, and the window is shown only for the ten-second countdown before a save.
#pragma once

#include <string_view>

#include "base/mdlMain.h"
#include "runtime/forms/CommandButton.h"
#include "runtime/forms/Form.h"
#include "runtime/forms/Label.h"
#include "runtime/forms/Timer.h"

namespace quillmark {

inline constexpr std::u16string_view kNeverSavedMessage =
    u"Auto-Save will not function because some of your projects have never been saved.";

// The last-save time is mdlMain::gLastSave, shared with Connect (which sets it at connection)
// and with the Options dialog (which resets it when Auto-Save is saved on).
class frmAutoSave final : public vb::Form {
 public:
  explicit frmAutoSave(mdlMain& main);

  vb::Timer tmrSave{*this, u"tmrSave"};    // the check, every 10 seconds, enabled from load
  vb::Timer tmrCount{*this, u"tmrCount"};  // the countdown, every second, off until needed
  vb::Label lblSave{*this, u"lblSave"};
  vb::Label lblHelp{*this, u"lblHelp"};
  vb::CommandButton cmdOK{*this, u"cmdOK"};
  vb::CommandButton cmdCancel{*this, u"cmdCancel"};

  // The countdown's remaining ticks before the save (10 when it starts).
  int Counter() const { return counter_; }

 protected:
  void Form_Load() override;

 private:
  void tmrSave_Timer();
  void tmrCount_Timer();
  void cmdOK_Click() { Save(); }
  void cmdCancel_Click();
  void StartCountdown();
  // Saves every saved-before project's changed components, then its project file. A host error
  // ends the save where it happened and leaves the timers as they are then.
  void Save();

  mdlMain& main_;
  int counter_ = 0;
};

}  // namespace quillmark
