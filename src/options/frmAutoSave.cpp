// quillmark::frmAutoSave.
#include "options/frmAutoSave.h"

#include <cstdlib>

#include "base/mdlMainHelpers.h"
#include "runtime/VbConstants.h"
#include "vbide/VBComponent.h"
#include "vbide/VBE.h"
#include "vbide/VBProject.h"

namespace quillmark {
namespace {

constexpr int kCheckMs = 10000;
constexpr int kCountMs = 1000;
constexpr int kCountdownStart = 10;
constexpr std::u16string_view kCountdownCaption = u"Auto-Saving in 10 seconds...";

// The values of "SaveNotify": the index of the entry in "<None>", "Beep", "Message".
constexpr int kNotifyNone = 0;
constexpr int kNotifyBeep = 1;

}  // namespace

frmAutoSave::frmAutoSave(mdlMain& main) : Form(main.Rt(), u"frmAutoSave"), main_(main) {
  SetCaption(u"Auto-Save");
  SetBorderStyle(3);  // fixed dialog
  tmrSave.SetInterval(kCheckMs);
  tmrCount.SetInterval(kCountMs);
  tmrCount.SetEnabled(false);
  lblSave.SetCaption(std::u16string(kCountdownCaption));
  lblHelp.SetCaption(u"Press Enter to save or hit Escape to cancel.");
  cmdOK.SetCaption(u"OK");
  cmdOK.SetDefault(true);
  cmdCancel.SetCaption(u"Cancel");
  cmdCancel.SetCancel(true);
  // The window as the designer placed it, in twips.
  Move(0, 0, 4470, 1905);
  lblSave.Move(120, 120, 4110, 255);
  lblHelp.Move(120, 435, 4110, 255);
  cmdOK.Move(1020, 900, 1095, 375);
  cmdCancel.Move(2235, 900, 1095, 375);

  tmrSave.Tick = [this] { tmrSave_Timer(); };
  tmrCount.Tick = [this] { tmrCount_Timer(); };
  cmdOK.Click = [this] { cmdOK_Click(); };
  cmdCancel.Click = [this] { cmdCancel_Click(); };
}

void frmAutoSave::Form_Load() {
  LoadFormPosition(main_.Rt(), *this, false);
}

void frmAutoSave::tmrSave_Timer() {
  auto settings = main_.Settings();
  // Read at every check, so turning Auto-Save off in Options takes effect at the next one.
  if (!settings.AutoSave()) return;
  std::int32_t interval = settings.Whole(options::Options::kSaveInterval);
  // Minute boundaries, not elapsed minutes, and strictly more than the interval: with 5 the
  // save comes at the sixth boundary. Intended.
  if (std::llabs(vb::DateDiffMinutes(main_.gLastSave, main_.Rt().Now())) <= interval) return;
  tmrSave.SetEnabled(false);
  switch (settings.Whole(options::Options::kSaveNotify)) {
    case kNotifyNone:
      Save();
      break;
    case kNotifyBeep:
      main_.Rt().Beep();
      Save();
      break;
    default:
      StartCountdown();
      break;
  }
}

void frmAutoSave::StartCountdown() {
  counter_ = kCountdownStart;
  // The label may still show the last countdown's "1 seconds"; it starts again from 10.
  lblSave.SetCaption(std::u16string(kCountdownCaption));
  Show(vb::vbModeless);
  tmrCount.SetEnabled(true);
}

void frmAutoSave::tmrCount_Timer() {
  if (counter_ == 0) {
    Save();
    return;
  }
  lblSave.SetCaption(u"Auto-Saving in " + vb::CStr(std::int64_t{counter_}) + u" seconds...");
  --counter_;
}

void frmAutoSave::cmdCancel_Click() {
  tmrCount.SetEnabled(false);
  main_.gLastSave = main_.Rt().Now();
  tmrSave.SetEnabled(true);
  Hide();
}

void frmAutoSave::Save() {
  tmrCount.SetEnabled(false);
  bool warned = false;
  for (auto& project : main_.gVBInstance->VBProjects()->Items()) {
    std::u16string projectFile = project->FileName();
    if (projectFile.empty()) {
      // Once per run however many projects were never saved; the others are still saved.
      if (!warned) main_.Rt().MsgBox(kNeverSavedMessage, vb::vbExclamation);
      warned = true;
      continue;
    }
    for (auto& component : project->VBComponents()->Items()) {
      // A component never saved has no file of its own yet: the project's save writes it
      // beside the project file.
      if (component->IsDirty() && component->FileCount() > 0)
        component->SaveAs(component->FileNames(1));
    }
    project->SaveAs(projectFile);
  }
  Hide();
  main_.gLastSave = main_.Rt().Now();
  tmrSave.SetEnabled(true);
}

}  // namespace quillmark
