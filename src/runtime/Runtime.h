// vb::Runtime: the one object through which the add-in reaches the form engine's services.
#pragma once

#include <chrono>
#include <functional>
#include <memory>
#include <string>
#include <string_view>
#include <vector>

#include "runtime/Clipboard.h"
#include "runtime/Clock.h"
#include "runtime/EventLoop.h"
#include "runtime/MessageBoxes.h"
#include "runtime/SendKeys.h"
#include "runtime/WindowSystem.h"

namespace vb {

class Error;
class FormBase;
class SettingsStore;
class Resources;
class AppInfo;
class Shell;
class FileSystem;
class PlatformDialogs;

// The screen as VB's Screen object reports it. Twips: 15 per pixel at 96 dpi.
struct Screen {
  int widthPixels = 1024;
  int heightPixels = 768;
  int twipsPerPixelX = 15;
  int twipsPerPixelY = 15;
  float Width() const { return static_cast<float>(widthPixels * twipsPerPixelX); }
  float Height() const { return static_cast<float>(heightPixels * twipsPerPixelY); }
};

// Handed to the add-in by its host; there are no globals, so many runtimes can live in one
// process (one per connected add-in in the tests). The services written elsewhere (settings,
// resources, App, shell, files) are set by the composition root; asking for one that was never
// set is a run-time error naming it.
class Runtime {
 public:
  explicit Runtime(Clock clock);
  ~Runtime();
  Runtime(const Runtime&) = delete;
  Runtime& operator=(const Runtime&) = delete;

  // A virtual clock at 2024-01-01 09:00:00, scripted message boxes, a recording key sink.
  static std::shared_ptr<Runtime> CreateHeadless();

  // Time and the message loop
  Date Now() const { return clock_.Now(); }
  Clock& GetClock() { return clock_; }
  EventLoop& Loop() { return loop_; }
  void DoEvents() { loop_.DoEvents(); }

  // MsgBox, Beep, SendKeys, the clipboard, the screen, the window system
  int MsgBox(std::u16string_view prompt, int style = 0, std::u16string_view title = {}) {
    return messageBoxes_.Show(prompt, style, title);
  }
  MessageBoxes& MessageBoxService() { return messageBoxes_; }
  void Beep();
  int BeepCount() const { return beeps_; }
  std::function<void()> onBeep;  // a toolkit sounds it
  void SendKeys(std::u16string_view keys, bool wait = false);
  void SetKeySink(std::shared_ptr<KeySink> sink) { keySink_ = std::move(sink); }
  const std::shared_ptr<KeySink>& GetKeySink() const { return keySink_; }
  Clipboard& GetClipboard() { return *clipboard_; }
  void SetClipboard(std::shared_ptr<Clipboard> clipboard) { clipboard_ = std::move(clipboard); }
  Screen& GetScreen() { return screen_; }
  WindowSystem& Windows() { return windows_; }

  // The services of other modules
  SettingsStore& Settings() const;
  Resources& GetResources() const;
  AppInfo& App() const;
  Shell& GetShell() const;
  FileSystem& Files() const;
  PlatformDialogs& Dialogs() const;  // the system's common dialogs and help viewer
  void SetSettings(std::shared_ptr<SettingsStore> s) { settings_ = std::move(s); }
  void SetResources(std::shared_ptr<Resources> r) { resources_ = std::move(r); }
  void SetApp(std::shared_ptr<AppInfo> a) { app_ = std::move(a); }
  void SetShell(std::shared_ptr<Shell> s) { shell_ = std::move(s); }
  void SetFiles(std::shared_ptr<FileSystem> f) { files_ = std::move(f); }
  void SetDialogs(std::shared_ptr<PlatformDialogs> d) { dialogs_ = std::move(d); }

  // Forms and documents alive on this runtime, in creation order (VB's Forms collection, plus
  // the documents); FindLoaded answers by name, ignoring case, among the loaded ones.
  const std::vector<FormBase*>& Objects() const { return objects_; }
  FormBase* FindLoaded(std::u16string_view name) const;
  FormBase* ActiveForm() const { return activeForm_; }
  // Called once per form or document, when it is complete and before its Initialize handler
  // runs: a toolkit gives it its peers here.
  std::function<void(FormBase&)> onObjectReady;

  // The guard between a toolkit (or a script) and the add-in's handlers: a run-time error, or
  // any other exception, that escapes `action` is reported as the IDE reports an add-in's
  // error (a message box with the error's text) and the program goes on. Only a ScriptError
  // passes, so that a test fails where its script went wrong.
  void Dispatch(const std::function<void()>& action);
  void ReportError(const Error& error);

 private:
  friend class FormBase;
  friend class Form;
  void Register(FormBase* object);
  void Unregister(FormBase* object);
  void Activate(FormBase* form);
  void Deactivated(FormBase* form);

  Clock clock_;
  EventLoop loop_;
  MessageBoxes messageBoxes_;
  WindowSystem windows_;
  Screen screen_;
  std::shared_ptr<Clipboard> clipboard_;
  std::shared_ptr<KeySink> keySink_;
  int beeps_ = 0;
  std::shared_ptr<SettingsStore> settings_;
  std::shared_ptr<Resources> resources_;
  std::shared_ptr<AppInfo> app_;
  std::shared_ptr<Shell> shell_;
  std::shared_ptr<FileSystem> files_;
  std::shared_ptr<PlatformDialogs> dialogs_;
  std::vector<FormBase*> objects_;
  std::vector<FormBase*> shownOrder_;  // forms that were active, most recent last
  FormBase* activeForm_ = nullptr;
};

}  // namespace vb
