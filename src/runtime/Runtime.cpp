// The runtime object: services, the forms it knows, and the error guard.
#include "runtime/Runtime.h"

#include <algorithm>
#include <utility>

#include "runtime/CaseFold.h"
#include "runtime/Error.h"
#include "runtime/PlatformDialogs.h"
#include "runtime/ScriptError.h"
#include "runtime/Utf.h"
#include "runtime/VbConstants.h"
#include "runtime/forms/Form.h"

namespace vb {
namespace {

template <class T>
T& Required(const std::shared_ptr<T>& service, std::u16string_view name) {
  if (!service)
    throw Error::Standard(err::kObjectNotSet,
                          std::u16string(name) + u" was not set up by the host");
  return *service;
}

}  // namespace

Runtime::Runtime(Clock clock)
    : clock_(clock),
      loop_(clock_),
      windows_(loop_),
      clipboard_(std::make_shared<Clipboard>()),
      keySink_(std::make_shared<RecordingKeySink>()) {}

Runtime::~Runtime() = default;

std::shared_ptr<Runtime> Runtime::CreateHeadless() {
  using namespace std::chrono;
  auto start = sys_days{year{2024} / January / 1} + hours{9};
  return std::make_shared<Runtime>(Clock::Virtual(time_point_cast<milliseconds>(start)));
}

void Runtime::Beep() {
  ++beeps_;
  if (onBeep) onBeep();
}

void Runtime::SendKeys(std::u16string_view keys, bool wait) {
  auto strokes = ParseSendKeys(keys);
  if (keySink_) keySink_->Deliver(strokes, wait);
}

SettingsStore& Runtime::Settings() const {
  return Required(settings_, u"the settings store");
}
Resources& Runtime::GetResources() const {
  return Required(resources_, u"the resources");
}
AppInfo& Runtime::App() const {
  return Required(app_, u"the App object");
}
Shell& Runtime::GetShell() const {
  return Required(shell_, u"the shell");
}
FileSystem& Runtime::Files() const {
  return Required(files_, u"the file system");
}
PlatformDialogs& Runtime::Dialogs() const {
  return Required(dialogs_, u"the platform dialogs");
}

FormBase* Runtime::FindLoaded(std::u16string_view name) const {
  for (auto* object : objects_) {
    if (object->IsLoaded() && EqualsText(object->Name(), name)) return object;
  }
  return nullptr;
}

void Runtime::Register(FormBase* object) {
  objects_.push_back(object);
}

void Runtime::Unregister(FormBase* object) {
  std::erase(objects_, object);
  std::erase(shownOrder_, object);
  if (activeForm_ == object) activeForm_ = nullptr;
}

void Runtime::Activate(FormBase* form) {
  std::erase(shownOrder_, form);
  shownOrder_.push_back(form);
  if (activeForm_ == form) return;
  auto* previous = std::exchange(activeForm_, form);
  if (auto* f = dynamic_cast<Form*>(previous)) f->RaiseDeactivate();
  if (auto* f = dynamic_cast<Form*>(form)) f->RaiseActivate();
}

void Runtime::Deactivated(FormBase* form) {
  std::erase(shownOrder_, form);
  if (activeForm_ != form) return;
  activeForm_ = nullptr;
  // The form shown before it takes over, as Windows activates the next window in line.
  for (auto it = shownOrder_.rbegin(); it != shownOrder_.rend(); ++it) {
    if (auto* f = dynamic_cast<Form*>(*it); f && f->Visible()) return Activate(f);
  }
}

void Runtime::Dispatch(const std::function<void()>& action) {
  try {
    action();
  } catch (const ScriptError&) {
    throw;
  } catch (const Error& error) {
    ReportError(error);
  } catch (const std::exception& error) {
    ReportError(Error(51, u"Internal error: " + FromUtf8(error.what())));
  }
}

void Runtime::ReportError(const Error& error) {
  std::u16string text =
      u"Run-time error '" + FromUtf8(std::to_string(error.Number())) + u"':\r\n\r\n";
  text += error.Description();
  messageBoxes_.Show(text, vbCritical);
}

}  // namespace vb
