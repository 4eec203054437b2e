// host::Ide: the embedded IDE's root object and the user's actions on it.
#include "host/Ide.h"

#include "host/Addins.h"
#include "host/CodeModule.h"
#include "host/CodePane.h"
#include "host/Component.h"
#include "host/ComponentKinds.h"
#include "host/Project.h"
#include "host/files/ProjectLoader.h"

#include <algorithm>
#include <optional>
#include "runtime/Utf.h"

namespace host {
namespace {

// What the IDE writes for a new project before anything is added to it.
files::ProjectFile NewProjectFile(std::u16string_view type, std::u16string_view name,
                                  const vb::CodePage& codePage) {
  std::string bytes =
      "Type=" + vb::ToUtf8(type) + "\r\nStartup=\"(None)\"\r\nCommand32=\"\"\r\nName=\"" +
      vb::ToUtf8(name) +
      "\"\r\nHelpContextID=\"0\"\r\nCompatibleMode=\"0\"\r\nMajorVer=1\r\nMinorVer=0\r\n"
      "RevisionVer=0\r\nAutoIncrementVer=0\r\nServerSupportFiles=0\r\nCompilationType=0\r\n"
      "OptimizationType=0\r\nFavorPentiumPro(tm)=0\r\nCodeViewDebugInfo=0\r\nNoAliasing=0\r\n"
      "BoundsCheck=0\r\nOverflowCheck=0\r\nFlPointCheck=0\r\nFDIVCheck=0\r\nUnroundedFP=0\r\n"
      "StartMode=0\r\nUnattended=0\r\nRetained=0\r\nThreadPerObject=0\r\nMaxNumberOfThreads=1\r\n";
  files::Problems ignored;  // our own text: nothing to report
  return files::ReadProject(bytes, codePage, vb::ToUtf8(name), ignored);
}

// A group file listing `projects` (the first is the start-up project), paths relative to `folder`.
files::GroupFile NewGroupFile(const std::filesystem::path& folder,
                              const std::vector<std::filesystem::path>& projects,
                              const vb::CodePage& codePage) {
  std::string bytes = "VBGROUP 5.0\r\n";
  for (std::size_t i = 0; i < projects.size(); ++i) {
    std::string relative = std::filesystem::relative(projects[i], folder).string();
    for (auto& c : relative)
      if (c == '/') c = '\\';
    bytes += (i == 0 ? "StartupProject=" : "Project=") + relative + "\r\n";
  }
  files::Problems ignored;
  return files::ReadGroup(bytes, codePage, folder.string(), ignored);
}

// Why `name` cannot be taken beside the names `existing` already holds, or nothing when it can.
// "|" joins the parts of a result row's key, so it can be no part of a name.
template <typename List, typename NameOf>
std::optional<std::string> NameRefusal(const std::u16string& name, const List& existing,
                                       NameOf nameOf) {
  if (name.find(u'|') != std::u16string::npos)
    return "is not loaded: \"|\" cannot be part of a name";
  for (auto& other : existing)
    if (!name.empty() && SameName(nameOf(other), name))
      return "is not loaded: the name conflicts with one already loaded";
  return std::nullopt;
}

std::string Lower(std::string s) {
  for (auto& c : s) c = static_cast<char>(std::tolower(static_cast<unsigned char>(c)));
  return s;
}

}  // namespace

std::shared_ptr<Ide> Ide::Create(Options options) {
  std::shared_ptr<Ide> ide(new Ide(std::move(options)));
  ide->Init();
  return ide;
}

Ide::Ide(Options options) : options_(std::move(options)) {
  if (!options_.clipboard) options_.clipboard = std::make_shared<vb::Clipboard>();
  if (!vb::CodePage::Find(options_.codePage))
    throw vb::Error::Standard(vb::err::kInvalidProcedureCall,
                              u"code page " + vb::FromUtf8(std::to_string(options_.codePage)));
}

Ide::~Ide() = default;

void Ide::Init() {
  hub_ = std::make_shared<EventHub>();
  projects_ = std::make_shared<host::Projects>(weak_from_this());
  windows_ = std::make_shared<host::Windows>(weak_from_this(), options_.classes);
  panes_ = std::make_shared<host::CodePanes>(weak_from_this());
  addins_ = std::make_shared<host::Addins>();
  auto context = std::make_shared<CommandBarContext>();
  context->hub = hub_.get();
  context->clipboard = options_.clipboard;
  commandBars_ = std::make_shared<host::CommandBars>(context);
  commandBars_->BuildBuiltIns();

  std::u16string mainTitle = u"Project1 - Microsoft Visual Basic [design]";
  mainWindow_ = std::make_shared<Window>(weak_from_this(), vbide::vbext_wt_MainWindow, mainTitle,
                                         NewHandle(mainTitle, true), true);
  projectWindow_ =
      std::make_shared<Window>(weak_from_this(), vbide::vbext_wt_ProjectWindow,
                               u"Project - Project1", NewHandle(u"Project - Project1"), true);
  propertiesWindow_ = std::make_shared<Window>(weak_from_this(), vbide::vbext_wt_PropertyWindow,
                                               u"Properties", NewHandle(u"Properties"), true);
  immediate_ = std::make_shared<ImmediateWindow>(weak_from_this(), vbide::vbext_wt_Immediate,
                                                 u"Immediate", NewHandle(u"Immediate"), true);
  for (auto w :
       {mainWindow_, projectWindow_, propertiesWindow_, std::shared_ptr<Window>(immediate_)})
    windows_->Add(w);
}

// ---- VBE ---------------------------------------------------------------------------------------

vbide::VBProjectsPtr Ide::VBProjects() {
  return projects_;
}

vbide::VBProjectPtr Ide::ActiveVBProject() {
  auto p = activeProject_.lock();
  return p && p->Alive() ? p : nullptr;
}

void Ide::SetActiveVBProject(const vbide::VBProjectPtr& project) {
  auto own = std::dynamic_pointer_cast<Project>(project);
  if (activeProject_.lock() == own) return;
  activeProject_ = own;
  std::u16string name = own ? own->Name() : u"Project1";
  mainWindow_->SetCaption(name + u" - Microsoft Visual Basic [design]");
  projectWindow_->SetCaption(u"Project - " + name);
  if (own) hub_->Projects().ItemActivated.Raise(own);
}

vbide::VBComponentPtr Ide::SelectedVBComponent() {
  auto c = selected_.lock();
  return c && c->Alive() ? c : nullptr;
}

vbide::CodePanePtr Ide::ActiveCodePane() {
  auto p = activePane_.lock();
  return p && p->Alive() ? p : nullptr;
}

void Ide::SetActiveCodePane(const vbide::CodePanePtr& pane) {
  if (auto own = std::dynamic_pointer_cast<CodePane>(pane)) own->Show();
}

vbide::CodePanesPtr Ide::CodePanes() {
  return panes_;
}
vbide::WindowsPtr Ide::Windows() {
  return windows_;
}
vbide::WindowPtr Ide::MainWindow() {
  return mainWindow_;
}

vbide::WindowPtr Ide::ActiveWindow() {
  if (!focused_ || focused_ == mainWindow_.get()) return nullptr;
  for (auto& w : windows_->List())
    if (w.get() == focused_) return w;
  return nullptr;
}

vbide::CommandBarsPtr Ide::CommandBars() {
  return commandBars_;
}
vbide::EventsPtr Ide::Events() {
  return hub_;
}
vbide::AddinsPtr Ide::Addins() {
  return addins_;
}

// ---- Files -------------------------------------------------------------------------------------

files::Problems Ide::Open(const std::filesystem::path& file) {
  const vb::CodePage& codePage = *vb::CodePage::Find(options_.codePage);
  files::Problems problems;
  std::vector<files::LoadedProject> loaded;
  std::vector<bool> startupFlags;
  std::vector<int> groupLines;  // 1-based line of each loaded project's entry in the group
  std::filesystem::path absolute = std::filesystem::absolute(file);
  if (Lower(absolute.extension().string()) == ".vbg") {
    auto group = files::LoadGroup(absolute, codePage, problems);
    groupPath_ = absolute;
    groupBytesRead_ = files::WriteGroup(group.group);
    for (std::size_t entry : group.entries) {
      startupFlags.push_back(group.group.projects[entry].startup);
      groupLines.push_back(group.group.projects[entry].line + 1);
    }
    loaded = std::move(group.projects);
  } else {
    loaded.push_back(files::LoadProject(absolute, codePage, problems));
  }
  std::shared_ptr<Project> first;
  for (std::size_t i = 0; i < loaded.size(); ++i) {
    // A project's name is how rows, scopes and the object model find it: a second project of
    // the same name, or a name no VB identifier could be, is reported and not loaded.
    const std::u16string& name = loaded[i].project.name;
    std::string where = i < groupLines.size() ? groupPath_.string() : loaded[i].path.string();
    int line = i < groupLines.size() ? groupLines[i] : 0;
    if (auto refusal = NameRefusal(name, projects_->List(), [](auto& p) { return p->Name(); })) {
      problems.push_back(
          {where, line,
           "project \"" + vb::ToUtf8(name) + "\" (" + loaded[i].path.string() + ") " + *refusal,
           false});
      continue;
    }
    bool startup = i < startupFlags.size() && startupFlags[i];
    auto project = AddLoadedProject(std::move(loaded[i]), codePage, problems);
    if (!first || startup) first = project;
  }
  if (first && !ActiveVBProject()) SetActiveVBProject(first);
  // As in VB, the Project window opens with a component of the start-up project selected (the
  // first the project file lists), so a search scoped by the selection has a module to search.
  if (first && !SelectedVBComponent() && first->VBComponents()->Count() > 0)
    SelectComponent(first->VBComponents()->Item(1));
  changed.Raise();
  return problems;
}

std::shared_ptr<Project> Ide::AddLoadedProject(files::LoadedProject loaded,
                                               const vb::CodePage& codePage,
                                               files::Problems& problems) {
  auto project =
      std::make_shared<Project>(weak_from_this(), std::move(loaded.project), loaded.path, codePage);
  project->Init(projects_);
  // Components in the order of the project file's item block, code-bearing or not.
  struct Pending {
    std::size_t item;
    files::LoadedModule* module;
    files::LoadedDocument* document;
  };
  std::vector<Pending> pending;
  for (auto& m : loaded.modules) pending.push_back({m.item, &m, nullptr});
  for (auto& d : loaded.documents) pending.push_back({d.item, nullptr, &d});
  std::sort(pending.begin(), pending.end(), [](auto& a, auto& b) { return a.item < b.item; });
  for (auto& p : pending) {
    const auto& item = project->File().items[p.item];
    std::shared_ptr<Component> component;
    if (p.module) {
      component = std::make_shared<Component>(
          weak_from_this(), project, ComponentTypeOf(p.module->module.kind),
          std::move(p.module->module), item.name, p.module->path, p.module->companions);
      // As VB does, a module whose name conflicts with one already loaded is reported and not
      // added (its line stays in the project file), so no edit can land in a namesake.
      auto named = [](auto& c) { return c->HasFile() ? c->Name() : std::u16string(); };
      if (auto refusal = NameRefusal(component->Name(), project->ComponentList()->List(), named)) {
        problems.push_back({loaded.path.string(), item.line + 1,
                            "\"" + p.module->path.filename().string() + "\": module \"" +
                                vb::ToUtf8(component->Name()) + "\" " + *refusal,
                            false});
        continue;
      }
    } else {
      auto type = item.kind == files::ItemKind::ResFile ? vbide::vbext_ct_ResFile
                                                        : vbide::vbext_ct_RelatedDocument;
      std::filesystem::path path = p.document->path.value_or(std::filesystem::path());
      std::u16string name = item.path.substr(item.path.find_last_of(u"\\/") + 1);
      component = std::make_shared<Component>(weak_from_this(), project, type, std::nullopt, name,
                                              path, std::vector<std::filesystem::path>());
    }
    component->Init();
    project->ComponentList()->Append(component);
  }
  projects_->Add(project);
  hub_->Projects().ItemAdded.Raise(project);
  return project;
}

std::shared_ptr<Project> Ide::NewProject(vbide::vbext_ProjectType type, std::u16string name) {
  static constexpr const char16_t* kTypes[] = {u"Exe", u"OleExe", u"OleDll", u"Control"};
  files::ProjectFile file =
      NewProjectFile(kTypes[type], name, *vb::CodePage::Find(options_.codePage));
  auto project =
      std::make_shared<Project>(weak_from_this(), std::move(file), std::filesystem::path(),
                                *vb::CodePage::Find(options_.codePage));
  project->Init(projects_);
  project->MarkFileChanged();
  projects_->Add(project);
  hub_->Projects().ItemAdded.Raise(project);
  if (!ActiveVBProject()) SetActiveVBProject(project);
  changed.Raise();
  return project;
}

void Ide::RemoveProject(std::shared_ptr<Project> project) {
  // Taken by value: the caller may hand in the collection's own element, which goes below.
  projects_->Remove(project.get());
  for (auto& c : project->ComponentList()->List()) ComponentRemoved(c.get());
  project->Detach();
  if (activeProject_.lock() == project)
    SetActiveVBProject(projects_->List().empty() ? nullptr : projects_->List().front());
  hub_->Projects().ItemRemoved.Raise(project);
  changed.Raise();
}

void Ide::SaveAll() {
  for (auto& p : projects_->List()) {
    if (p->Path().empty()) continue;  // a project never saved needs a name first
    if (p->IsDirty()) p->SaveAs(vb::FromUtf8(p->Path().string()));
  }
}

void Ide::SaveGroupAs(const std::filesystem::path& path) {
  const vb::CodePage& codePage = *vb::CodePage::Find(options_.codePage);
  if (!groupBytesRead_.empty()) {
    Writer().Write(path, groupBytesRead_);
    return;
  }
  std::vector<std::filesystem::path> paths;
  for (auto& p : projects_->List()) paths.push_back(p->Path());
  Writer().Write(path, files::WriteGroup(NewGroupFile(path.parent_path(), paths, codePage)));
}

// ---- The user's actions ------------------------------------------------------------------------

void Ide::SelectComponent(const vbide::VBComponentPtr& component) {
  auto own = std::dynamic_pointer_cast<Component>(component);
  if (selected_.lock() == own) return;
  selected_ = own;
  if (own) {
    auto project = own->OwnerProject();
    if (ActiveVBProject() != project) SetActiveVBProject(project);
    hub_->ForComponents(project.get(),
                        [&](vbide::VBComponentsEvents& e) { e.ItemSelected.Raise(own); });
  }
  changed.Raise();
}

void Ide::SendKeyStrokes(const std::vector<KeyStroke>& keys) {
  // Only the Immediate window takes typed keys in the embedded IDE; keys sent while another
  // window has the focus are dropped, as they would land in a window that ignores them.
  for (auto& key : keys)
    if (focused_ == immediate_.get() && immediate_->Visible()) immediate_->Press(key);
}

// ---- Add-ins -----------------------------------------------------------------------------------

void Ide::RegisterAddIn(std::u16string progId) {
  if (addins_->Find(progId)) return;
  std::u16string description =
      options_.classes ? options_.classes->AddInDescription(progId) : std::u16string();
  addins_->Add(
      std::make_shared<AddIn>(weak_from_this(), std::move(progId), std::move(description)));
}

void Ide::ConnectAddIn(std::u16string_view progId, vbide::ext_ConnectMode mode) {
  auto addIn = addins_->Find(progId);
  if (!addIn) {
    RegisterAddIn(std::u16string(progId));
    addIn = addins_->Find(progId);
  }
  if (addIn->Connect()) return;
  auto instance = options_.classes ? options_.classes->CreateAddIn(progId) : nullptr;
  if (!instance) {
    if (options_.reportAddInError)
      options_.reportAddInError(u"The add-in " + std::u16string(progId) +
                                u" could not be loaded: no such class.");
    return;
  }
  addIn->Connected(instance, mode);
  try {
    instance->OnConnection(shared_from_this(), mode, addIn);
  } catch (const std::exception& e) {
    // The IDE reports an error that escaped an add-in and goes on; the add-in stays loaded.
    if (options_.reportAddInError) options_.reportAddInError(vb::FromUtf8(e.what()));
  }
  changed.Raise();
}

void Ide::DisconnectAddIn(std::u16string_view progId, vbide::ext_DisconnectMode mode) {
  auto addIn = addins_->Find(progId);
  if (!addIn || !addIn->Connect()) return;
  auto instance = addIn->Instance();
  try {
    instance->OnDisconnection(mode);
  } catch (const std::exception& e) {
    if (options_.reportAddInError) options_.reportAddInError(vb::FromUtf8(e.what()));
  }
  addIn->Disconnected();
  changed.Raise();
}

void Ide::StartupComplete() {
  for (auto& addIn : addins_->List()) {
    if (!addIn->Connect() || addIn->Mode() != vbide::ext_cm_Startup) continue;
    try {
      addIn->Instance()->OnStartupComplete();
    } catch (const std::exception& e) {
      if (options_.reportAddInError) options_.reportAddInError(vb::FromUtf8(e.what()));
    }
  }
}

void Ide::Shutdown() {
  for (auto& addIn : addins_->List()) DisconnectAddIn(addIn->ProgId(), vbide::ext_dm_HostShutdown);
}

// ---- Bookkeeping for the object model's own classes --------------------------------------------

std::intptr_t Ide::NewHandle(std::u16string_view title, bool topLevel) {
  if (!options_.windowSystem) return nextHandle_ += 0x10;
  vb::Hwnd parent = topLevel || !mainWindow_ ? 0 : static_cast<vb::Hwnd>(mainWindow_->HWnd());
  return options_.windowSystem->Create(std::u16string(title), parent);
}

void Ide::WindowRetitled(std::intptr_t hwnd, std::u16string_view title) {
  if (options_.windowSystem)
    options_.windowSystem->SetTitle(static_cast<vb::Hwnd>(hwnd), std::u16string(title));
}

void Ide::WindowGone(std::intptr_t hwnd) {
  if (options_.windowSystem) options_.windowSystem->Destroy(static_cast<vb::Hwnd>(hwnd));
}

void Ide::WindowFocused(Window* window) {
  focused_ = window;
  if (options_.windowSystem) options_.windowSystem->SetFocus(static_cast<vb::Hwnd>(window->HWnd()));
  for (auto& p : panes_->Items()) {
    auto pane = std::static_pointer_cast<CodePane>(p);
    if (pane->CodeWindow().get() == window) activePane_ = pane;
  }
}

void Ide::WindowHidden(Window* window) {
  if (focused_ == window) focused_ = nullptr;
}

void Ide::WindowDestroyed(Window* window) {
  WindowHidden(window);
  WindowGone(window->HWnd());
  for (auto& p : panes_->Items()) {
    auto pane = std::static_pointer_cast<CodePane>(p);
    if (pane->CodeWindow().get() != window) continue;
    // A closed code window takes its pane with it; the module makes a new one when asked.
    if (activePane_.lock() == pane) activePane_.reset();
    if (auto module = pane->Module()) module->PaneClosed();
    panes_->Remove(pane.get());
    pane->MarkRemoved();
    break;
  }
}

void Ide::PaneShown(const std::shared_ptr<CodePane>& pane) {
  activePane_ = pane;
  changed.Raise();
}

void Ide::ComponentRemoved(Component* component) {
  if (selected_.lock().get() == component) selected_.reset();
}

}  // namespace host
