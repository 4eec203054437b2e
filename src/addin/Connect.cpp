// quillmark::Connect: connection, start-up, the public operations and disconnection.
#include "addin/Connect.h"

#include "base/ResumeNext.h"
#include "base/mdlMainHelpers.h"
#include "newmember/frmNewMember.h"
#include "options/frmAutoSave.h"
#include "options/frmOptions.h"
#include "search/docResults.h"
#include "search/frmSearch.h"
#include "vbide/AddIn.h"
#include "vbide/CommandBars.h"
#include "vbide/VBE.h"
#include "vbide/Window.h"
#include "viewer/docListView.h"

namespace quillmark {
namespace {

constexpr std::u16string_view kListViewCaption = u"Component Viewer";
constexpr std::u16string_view kListViewGuid = u"{F64C3128-E03B-11D1-9FFE-00A024C50477}";
constexpr std::u16string_view kResultsCaption = u"Search Results";
constexpr std::u16string_view kResultsGuid = u"{F64C3124-E03B-11D1-9FFE-00A024C50477}";
constexpr std::u16string_view kConnectionErrorTitle = u"QuillmarkTools::OnConnection";

}  // namespace

Connect::Connect(std::shared_ptr<vb::Runtime> runtime) : main_(std::move(runtime)) {
  main_.connect = anchor_.Ref();
}

Connect::~Connect() = default;

void Connect::OnConnection(const vbide::VBEPtr& application, vbide::ext_ConnectMode connectMode,
                           const vbide::AddInPtr& addInInst) {
  try {
    addIn_ = addInInst;
    main_.gVBInstance = application;
    main_.gfrmSearch = vb::New<frmSearch>(main_);
    main_.gfrmNewMember = vb::New<frmNewMember>(main_);

    auto events = main_.gVBInstance->Events();
    projectEvents_ = events->VBProjectsEvents();
    componentEvents_ = events->VBComponentsEvents(nullptr);
    ideSinks_.push_back(projectEvents_->ItemActivated.Subscribe(
        [this](vbide::VBProjectPtr p) { ProjectEvents_ItemActivated(p); }));
    ideSinks_.push_back(componentEvents_->ItemActivated.Subscribe(
        [this](vbide::VBComponentPtr c) { ComponentEvents_ItemActivated(c); }));
    ideSinks_.push_back(componentEvents_->ItemSelected.Subscribe(
        [this](vbide::VBComponentPtr c) { ComponentEvents_ItemSelected(c); }));

    auto settings = main_.Settings();
    main_.gAutoSave = settings.AutoSave();
    main_.gLastSave = main_.Rt().Now();
    RefreshTypeList(main_, true);
    BuildMenu();
    BuildToolbar();
    // Loaded into a running IDE: the windows come back now. At IDE start-up this waits for
    // OnStartupComplete, in a different order and with a stricter test for the search dialog.
    if (connectMode != vbide::ext_cm_Startup) ReopenWindows(false);
    main_.gfrmAutoSave = vb::New<frmAutoSave>(main_);
    main_.gfrmAutoSave->Load();
  } catch (const vb::Error& e) {
    // The add-in stays connected with whatever was built up to the failing step.
    main_.Rt().MsgBox(e.Description(), vb::vbExclamation, kConnectionErrorTitle);
  }
}

void Connect::OnStartupComplete() {
  ResumeNext([&] { ReopenWindows(true); });
}

void Connect::ReopenWindows(bool atStartup) {
  auto settings = main_.Settings();
  using options::WindowVisible::kComponentViewer;
  using options::WindowVisible::kSearchDialog;
  using options::WindowVisible::kSearchResults;
  if (atStartup) {
    ResumeNext([&] {
      if (settings.Whole(kSearchDialog) == -1) ShowSearch(true);
    });
    ResumeNext([&] {
      if (settings.Whole(kSearchResults) == -1) ShowResults();
    });
    ResumeNext([&] {
      if (settings.Whole(kComponentViewer) == -1) ShowListView();
    });
    ResumeNext([&] { FindMainWindow(); });
    return;
  }
  FindMainWindow();
  if (settings.Whole(kSearchResults) == -1) ShowResults();
  if (settings.Whole(kComponentViewer) == -1) ShowListView();
  // Any non-zero value shows it here, and ShowSearch always runs, so the dialog always exists.
  ShowSearch(settings.Whole(kSearchDialog) != 0);
}

void Connect::FindMainWindow() {
  main_.gMainHwnd = main_.Rt().Windows().FindWindow(main_.gVBInstance->MainWindow()->Caption());
}

void Connect::OnAddInsUpdate() {
  main_.Rt().DoEvents();
}

void Connect::OnDisconnection(vbide::ext_DisconnectMode) {
  ResumeNext([&] { Obj(menuPopup_).Delete(); });
  ResumeNext([&] { SaveToolbar(); });
  auto settings = main_.Settings();
  using namespace options::WindowVisible;
  ResumeNext([&] {
    if (main_.gwinListView) settings.WriteFlag(kComponentViewer, main_.gwinListView->Visible());
  });
  ResumeNext([&] {
    if (main_.gwinProjectExplorer)
      settings.WriteFlag(kProjectExplorer, main_.gwinProjectExplorer->Visible());
  });
  ResumeNext([&] {
    if (main_.gfrmSearch) settings.WriteFlag(kSearchDialog, main_.gfrmSearch->Visible());
  });
  ResumeNext([&] {
    if (main_.gwinResults) settings.WriteFlag(kSearchResults, main_.gwinResults->Visible());
  });
  ResumeNext([&] { Obj(main_.gfrmAutoSave).Unload(); });
  // Released in this order; the tool windows are not closed, releasing them is all.
  main_.gfrmAutoSave.reset();
  main_.gfrmSearch.reset();
  main_.gfrmNewMember.reset();
  main_.gwinListView.reset();
  main_.gdocListView.reset();
  main_.gwinProjectExplorer.reset();
  main_.gwinResults.reset();
  main_.gdocResults.reset();
  clickSinks_.clear();
  clickSources_.clear();
  ideSinks_.clear();
  menuItems_.clear();
  toolbarControls_.clear();
  menuPopup_.reset();
  toolbar_.reset();
  anchor_.Release();
}

// ---- Public operations -------------------------------------------------------------------------

void Connect::ShowListView() {
  ResumeNext([&] {
    if (main_.gwinListView) return;
    auto addIn = main_.gVBInstance->Addins()->Item(kProgId);
    std::shared_ptr<vb::UserDocument> document;
    main_.gwinListView = main_.gVBInstance->Windows()->CreateToolWindow(
        addIn, kListViewProgId, kListViewCaption, kListViewGuid, document);
    main_.gdocListView = std::dynamic_pointer_cast<docListView>(document);
    Obj(main_.gdocListView).SetConnect(anchor_.Ref());
  });
  ResumeNext([&] { Obj(main_.gwinListView).SetVisible(true); });
}

std::shared_ptr<docResults> Connect::ShowResults() {
  ResumeNext([&] {
    if (main_.gwinResults) return;
    auto addIn = main_.gVBInstance->Addins()->Item(kProgId);
    std::shared_ptr<vb::UserDocument> document;
    main_.gwinResults = main_.gVBInstance->Windows()->CreateToolWindow(
        addIn, kResultsProgId, kResultsCaption, kResultsGuid, document);
    main_.gdocResults = std::dynamic_pointer_cast<docResults>(document);
    Obj(main_.gdocResults).SetConnect(anchor_.Ref());
  });
  ResumeNext([&] { Obj(main_.gwinResults).SetVisible(true); });
  return main_.gdocResults;
}

void Connect::ShowSearch(bool show) {
  ResumeNext([&] {
    if (!main_.gfrmSearch) main_.gfrmSearch = vb::New<frmSearch>(main_);
  });
  ResumeNext([&] {
    if (show) Obj(main_.gfrmSearch).Show(vb::vbModeless);
  });
}

void Connect::HideListView() {
  ResumeNext([&] { Obj(main_.gwinListView).SetVisible(false); });
}

void Connect::HideResults() {
  ResumeNext([&] { Obj(main_.gwinResults).SetVisible(false); });
}

void Connect::HideSearch() {
  ResumeNext([&] { Obj(main_.gfrmSearch).Hide(); });
}

void Connect::CodeModified() {
  codeModified.Raise();
}

// ---- IDE events --------------------------------------------------------------------------------

void Connect::ProjectEvents_ItemActivated(const vbide::VBProjectPtr&) {
  ResumeNext([&] { RefreshTypeList(main_, true); });
}

void Connect::ComponentEvents_ItemActivated(const vbide::VBComponentPtr&) {
  ResumeNext([&] { RefreshTypeList(main_, true); });
}

void Connect::ComponentEvents_ItemSelected(const vbide::VBComponentPtr&) {
  ResumeNext([&] { RefreshTypeList(main_, true); });
}

}  // namespace quillmark
