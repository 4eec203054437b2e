// quillmark tour: the add-in's headless main job. It connects the add-in to the embedded IDE
// holding FILE as the IDE would at start-up, shows what the add-in put into the IDE's menus and
// toolbars, and disconnects, showing the settings it wrote.
#include <ostream>

#include "cli/Args.h"
#include "cli/Commands.h"
#include "cli/RecordingSettings.h"
#include "cli/TourSteps.h"
#include "cli/Workspace.h"
#include "composition/Composition.h"
#include "runtime/Utf.h"
#include "vbide/CommandBars.h"

namespace cli {
namespace {

std::string Utf8(std::u16string_view text) {
  return vb::ToUtf8(text);
}

void PrintControls(std::ostream& out, const vbide::CommandBarControlsPtr& controls, int depth) {
  for (auto& c : controls->Items()) {
    if (c->BeginGroup()) out << std::string(depth * 2, ' ') << "----\n";
    out << std::string(depth * 2, ' ');
    if (auto combo = std::dynamic_pointer_cast<vbide::CommandBarComboBox>(c)) {
      out << "[search box, " << c->Width() << " pixels wide, " << combo->ListCount()
          << " recent texts]\n";
      continue;
    }
    auto face = std::dynamic_pointer_cast<host::CommandBarButton>(c);
    out << Utf8(c->Caption()) << (face && face->Face() ? "  (face)" : "") << "\n";
    if (c->Type() == vbide::msoControlPopup) PrintControls(out, c->Controls(), depth + 1);
  }
}

const char* PositionName(int position) {
  switch (position) {
    case vbide::msoBarLeft:
      return "docked left";
    case vbide::msoBarTop:
      return "docked at the top";
    case vbide::msoBarRight:
      return "docked right";
    case vbide::msoBarBottom:
      return "docked at the bottom";
    default:
      return "floating";
  }
}

}  // namespace

int TourCommand(const std::vector<std::string>& argv, Streams io) {
  Args args(argv, {}, {"codepage", "config-dir"});
  if (args.Positional().size() > 1) throw UsageError("tour takes at most one FILE");
  std::string file = args.Positional().empty() ? QM_SAMPLE_GROUP : args.Positional()[0];
  auto desk = composition::MakeDesk(composition::ConfigFolder(args.Option("config-dir")),
                                    args.IntOption("codepage", 1252));
  auto recorder = std::make_shared<RecordingSettings>(desk->settings);
  desk->runtime->SetSettings(recorder);
  int problems = OpenInDesk(*desk, file, io.err);

  io.out << "Quillmark Tools tour of " << file << "\n";
  io.out << "settings in " << desk->configDir.string() << "\n\n";
  desk->ConnectAtStartup();
  auto* addin = desk->Addin();
  if (!addin) {
    io.err << "quillmark: the add-in did not connect\n";
    return 1;
  }
  io.out << "Tools menu: " << Utf8(addin->MenuPopup()->Caption()) << "\n";
  PrintControls(io.out, addin->MenuPopup()->Controls(), 1);
  auto bar = addin->Toolbar();
  io.out << "\nToolbar: " << Utf8(bar->Name()) << " (" << PositionName(bar->Position()) << ", left "
         << bar->Left() << ", top " << bar->Top() << ", " << (bar->Visible() ? "visible" : "hidden")
         << ")\n";
  PrintControls(io.out, bar->Controls(), 1);

  problems += RunTourSteps(*desk, io);

  recorder->Clear();
  problems += FinishAndReportSettings(*desk, io.err);
  io.out << "\nDisconnected; settings written:\n";
  for (auto& w : recorder->Writes())
    io.out << "  [" << Utf8(w.app) << "] " << Utf8(w.section) << " / " << Utf8(w.key) << " = "
           << Utf8(w.value) << "\n";
  for (auto& box : desk->runtime->MessageBoxService().Transcript())
    io.out << "message box: " << Utf8(box.title) << ": " << Utf8(box.prompt) << "\n";
  return problems ? 1 : 0;
}

}  // namespace cli
