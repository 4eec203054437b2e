// quillmark::mdlMain: the add-in's shared state (the main module's globals), one object per
// connected add-in, reachable from every form and document of that add-in.
#pragma once

#include <memory>
#include <string>

#include "base/ConnectRef.h"
#include "base/Settings.h"
#include "runtime/Runtime.h"
#include "runtime/VbStrings.h"
#include "runtime/WindowSystem.h"
#include "vbide/Fwd.h"

namespace quillmark {

class frmSearch;
class frmNewMember;
class frmAutoSave;
class frmOptions;
class docListView;
class docResults;

// Flags that VB keeps as 16-bit booleans are bool here; they are -1/0 wherever they are stored.
struct mdlMain {
  explicit mdlMain(std::shared_ptr<vb::Runtime> runtime);

  std::shared_ptr<vb::Runtime> runtime;  // the host's services: forms, message boxes, settings ...
  ConnectRef connect;                    // the add-in's connection (owns this state)

  vbide::VBEPtr gVBInstance;
  std::shared_ptr<frmSearch> gfrmSearch;
  std::shared_ptr<frmNewMember> gfrmNewMember;
  std::shared_ptr<frmAutoSave> gfrmAutoSave;
  std::shared_ptr<frmOptions> gfrmOptions;
  vbide::WindowPtr gwinListView;
  std::shared_ptr<docListView> gdocListView;
  vbide::WindowPtr gwinResults;
  std::shared_ptr<docResults> gdocResults;
  vbide::WindowPtr gwinProjectExplorer;  // nothing assigns it; disconnection saves it when set
  vb::Hwnd gMainHwnd = 0;
  bool gAutoSave = false;
  vb::Date gLastSave{};
  std::u16string SearchText;
  std::u16string gTypeList;

  // The search's state, shared by the search dialog, the results window and replace.
  bool Searching = false;
  bool StopSearch = false;

  // The IDE's main frame as PassAltKeyToIDE found it; computed once, kept while connected.
  vb::Hwnd mainFrame = 0;

  vb::Runtime& Rt() const { return *runtime; }
  // The settings store through the add-in's vocabulary (application "Quillmark Tools").
  options::Settings Settings() const { return options::Settings(runtime->Settings()); }
};

}  // namespace quillmark
