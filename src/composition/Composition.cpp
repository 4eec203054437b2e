// composition::Composition.
#include "composition/Composition.h"

#include <unistd.h>

#include "QuillmarkResources.h"
#include "addin/Registration.h"
#include "host/Addins.h"
#include "host/RuntimeBridge.h"
#include "host/files/Problem.h"
#include "runtime/AppInfo.h"
#include "runtime/CodePage.h"
#include "runtime/DesktopShell.h"
#include "runtime/FileSystem.h"
#include "runtime/Resources.h"
#include "runtime/Utf.h"

namespace composition {
namespace {

std::filesystem::path ProgramFolder() {
  std::error_code error;
  auto exe = std::filesystem::read_symlink("/proc/self/exe", error);
  return error ? std::filesystem::current_path() : exe.parent_path();
}

}  // namespace

std::filesystem::path ConfigFolder(const std::optional<std::string>& configDir) {
  if (configDir) return std::filesystem::absolute(*configDir);
  return vb::DefaultUserFolderFromEnvironment();
}

std::unique_ptr<Desk> MakeDesk(const std::filesystem::path& configFolder, int codePage) {
  auto desk = std::make_unique<Desk>();
  desk->configDir = configFolder;
  desk->runtime = vb::Runtime::CreateHeadless();
  desk->settings = std::make_shared<vb::IniSettingsStore>(configFolder);
  desk->processes = std::make_shared<vb::PosixProcessRunner>();
  auto resources = std::make_shared<vb::Resources>();
  quillmark::RegisterQuillmarkResources(*resources);
  desk->runtime->SetSettings(desk->settings);
  desk->runtime->SetResources(resources);
  desk->runtime->SetFiles(std::make_shared<vb::DiskFileSystem>());
  desk->runtime->SetShell(
      std::make_shared<vb::DesktopShell>(vb::ProcessEnvironment(), *desk->processes));
  desk->runtime->SetApp(std::make_shared<vb::AppInfo>(vb::FromUtf8(ProgramFolder().string()),
                                                      u"Quillmark Tools", QM_VERSION_MAJOR,
                                                      QM_VERSION_MINOR, QM_VERSION_PATCH));
  desk->classes = std::make_shared<vbide::ClassRegistry>();
  quillmark::RegisterQuillmarkTools(*desk->classes, desk->runtime);
  desk->ide = host::CreateIdeFor(desk->runtime, desk->classes, codePage);
  desk->ide->RegisterAddIn(std::u16string(quillmark::kProgId));
  return desk;
}

Desk::~Desk() {
  // The add-in goes before the IDE and the runtime it stands on.
  Disconnect();
}

quillmark::Connect* Desk::Addin() const {
  auto addIn = ide ? ide->AddinList()->Find(quillmark::kProgId) : nullptr;
  return addIn && addIn->Instance() ? static_cast<quillmark::Connect*>(addIn->Instance().get())
                                    : nullptr;
}

void Desk::ConnectAtStartup() {
  ide->ConnectAddIn(quillmark::kProgId, vbide::ext_cm_Startup);
  ide->StartupComplete();
}

void Desk::Disconnect() {
  if (Addin()) ide->DisconnectAddIn(quillmark::kProgId, vbide::ext_dm_HostShutdown);
}

void CheckCodePage(int codePage) {
  if (!vb::CodePage::Find(codePage))
    throw OpenError("unsupported code page " + std::to_string(codePage));
}

int OpenProjectFile(host::Ide& ide, const std::filesystem::path& file, std::ostream& err) {
  std::string ext = file.extension().string();
  for (auto& c : ext) c = static_cast<char>(std::tolower(static_cast<unsigned char>(c)));
  if (ext != ".vbg" && ext != ".vbp") throw OpenError(file.string() + ": not a .vbg or .vbp file");
  if (!std::filesystem::is_regular_file(file)) throw OpenError(file.string() + ": no such file");
  int problems = 0;
  for (auto& problem : ide.Open(file)) {
    err << host::files::FormatProblem(problem) << "\n";
    ++problems;
  }
  return problems;
}

}  // namespace composition
