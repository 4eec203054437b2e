// Fills the Component Viewer for a generated module of 5,000 members, in "(Methods/Properties)"
// and in the custom view with a filter, and lists a form of 1,000 controls; prints each fill's
// time beside the time the IDE's own collection (CodeModule.Members, VBControls) takes to walk,
// against the budget of 50 ms per fill. Then a refresh arrives at a fill's first pump, and the
// members that fill walks after the request are counted (it must stop within one pump, at most
// 20). Usage: ViewerBench [MEMBERS] [CONTROLS]   (default 5000 and 1000)
#include <unistd.h>

#include <algorithm>
#include <chrono>
#include <cstdio>
#include <filesystem>
#include <fstream>
#include <functional>
#include <string>

#include "AddinWorld.h"
#include "addin/Connect.h"
#include "host/Ide.h"
#include "runtime/FileSystem.h"
#include "runtime/Resources.h"
#include "runtime/Runtime.h"
#include "runtime/UserActions.h"
#include "vbide/CodeModule.h"
#include "vbide/Member.h"
#include "vbide/VBComponent.h"
#include "vbide/VBForm.h"
#include "vbide/VBProject.h"
#include "viewer/docListView.h"

namespace {

namespace fs = std::filesystem;
using Clock = std::chrono::steady_clock;
constexpr double kBudget = 0.050;
constexpr int kRuns = 5;

double Seconds(Clock::time_point from) {
  return std::chrono::duration<double>(Clock::now() - from).count();
}

// The best of kRuns calls of `work`.
double Best(const std::function<void()>& work) {
  double best = 1e9;
  for (int i = 0; i < kRuns; ++i) {
    auto start = Clock::now();
    work();
    best = std::min(best, Seconds(start));
  }
  return best;
}

// A module of `members` members of every kind, in the proportions of a large real one: the
// declarations (variables, constants, events) first, then Subs and Property Get/Let pairs.
std::string BigModule(int members) {
  std::string text = "Attribute VB_Name = \"modBig\"\r\nOption Explicit\r\n";
  int variables = members / 5, constants = members / 5, events = members / 10;
  int properties = members / 5;
  int methods = members - variables - constants - events - properties;
  for (int i = 1; i <= variables; ++i)
    text += "Private mCount" + std::to_string(i) + " As Long\r\n";
  for (int i = 1; i <= constants; ++i)
    text += "Private Const MAX_" + std::to_string(i) + " = " + std::to_string(i) + "\r\n";
  for (int i = 1; i <= events; ++i) text += "Public Event Changed" + std::to_string(i) + "()\r\n";
  for (int i = 1; i <= methods; ++i)
    text += "\r\nPublic Sub DoWork" + std::to_string(i) +
            "()\r\n    mCount1 = " + std::to_string(i) + "\r\nEnd Sub\r\n";
  for (int i = 1; i <= properties; ++i) {
    std::string n = std::to_string(i);
    text += "\r\nPublic Property Get Value" + n + "() As Long\r\n    Value" + n +
            " = mCount1\r\nEnd Property\r\nPublic Property Let Value" + n +
            "(ByVal v As Long)\r\n    mCount1 = v\r\nEnd Property\r\n";
  }
  return text;
}

// A form of `controls` controls: text boxes, and a fifth of them one option-button array.
std::string BigForm(int controls) {
  std::string text = "VERSION 5.00\r\nBegin VB.Form frmBig \r\n   Caption         =   \"Big\"\r\n";
  int options = controls / 5;
  for (int i = 1; i <= controls - options; ++i)
    text += "   Begin VB.TextBox txtField" + std::to_string(i) +
            " \r\n      Height          =   315\r\n   End\r\n";
  for (int i = 0; i < options; ++i)
    text += "   Begin VB.OptionButton optPick \r\n      Index           =   " + std::to_string(i) +
            "\r\n   End\r\n";
  return text + "End\r\nAttribute VB_Name = \"frmBig\"\r\nOption Explicit\r\n";
}

using World = bench::AddinWorld;

// Counts the rows a list gains, until the list is cleared.
class RowCounter final : public vb::ControlPeer {
 public:
  void Changed(vb::Property) override {}
  void RowsReset() override { counting = false; }
  void RowsInserted(int, int count) override {
    if (counting) rows += count;
  }
  bool counting = false;
  int rows = 0;
};

void PrintFill(const char* what, int rows, double fill, double anchor, const char* anchorName) {
  std::printf("%-44s %5d rows  %7.2f ms   %s %6.2f ms   ratio %5.1f   %s (budget %.0f ms)\n", what,
              rows, fill * 1e3, anchorName, anchor * 1e3, fill / anchor,
              fill <= kBudget ? "within" : "OVER", kBudget * 1e3);
}

}  // namespace

int main(int argc, char** argv) {
  int members = argc > 1 ? std::atoi(argv[1]) : 5000;
  int controls = argc > 2 ? std::atoi(argv[2]) : 1000;
  fs::path folder = fs::temp_directory_path() / ("qm-viewerbench-" + std::to_string(getpid()));
  fs::create_directories(folder);
  std::ofstream(folder / "Bench.vbp", std::ios::binary)
      << "Type=Exe\r\nForm=frmBig.frm\r\nModule=modBig; modBig.bas\r\nName=\"Bench\"\r\n";
  std::ofstream(folder / "modBig.bas", std::ios::binary) << BigModule(members);
  std::ofstream(folder / "frmBig.frm", std::ios::binary) << BigForm(controls);

  {
    World world;
    world.ide->Open(folder / "Bench.vbp");
    fs::remove_all(folder);
    world.ide->ConnectAddIn(quillmark::kProgId, vbide::ext_cm_Startup);
    world.ide->StartupComplete();
    world.Addin().Menu_ListView_Click();
    auto& viewer = *world.Addin().Main().gdocListView;
    auto components = world.ide->VBProjects()->Item(1)->VBComponents();
    auto module = components->Item(u"modBig");
    auto form = components->Item(u"frmBig");
    auto show = [&](const std::u16string& text) {
      vb::UserActions ui(viewer);
      ui.Type(u"cboListView", text);
      ui.PressKey(u"cboListView", 13);
    };
    auto rows = [&] { return viewer.lvwExplorer.ListItems().Count(); };

    world.ide->SelectComponent(module);
    auto code = module->CodeModule();
    int count = code->Members()->Count();
    std::printf("module of %d members, form of %d controls; best of %d runs each\n\n", count,
                static_cast<int>(form->Designer()->VBControls()->Count()), kRuns);
    // What every member fill walks at least: the members with their names and types.
    double walk = Best([&] {
      std::size_t length = 0;
      for (auto& m : code->Members()->Items()) length += m->Name().size() + m->Type();
      if (length == 0) std::printf("no members\n");
    });
    for (const char16_t* view : {u"(Methods/Properties)", u"value1"}) {
      double fill = Best([&] { show(view); });
      std::string what =
          std::string("fill ") +
          (view[0] == u'(' ? "(Methods/Properties)" : "custom view, filter \"value1\"");
      PrintFill(what.c_str(), rows(), fill, walk, "Members alone");
    }
    // After an edit the IDE rebuilds Members once; the first fill pays for it, as Members would.
    code->InsertLines(1, u"' touched");
    auto start = Clock::now();
    code->Members()->Count();
    double rebuild = Seconds(start);
    code->DeleteLines(1, 1);
    start = Clock::now();
    show(u"(Methods/Properties)");
    PrintFill("fill (Methods/Properties) after an edit", rows(), Seconds(start), rebuild,
              "Members rebuilt");

    world.ide->SelectComponent(form);
    auto designer = form->Designer();
    double controlsWalk = Best([&] {
      std::size_t length = 0;
      for (auto& c : designer->VBControls()->Items()) length += c->Name().size() + c->Index();
      if (length == 0) std::printf("no controls\n");
    });
    double fill = Best([&] { show(u"(Controls)"); });
    PrintFill("fill (Controls)", rows(), fill, controlsWalk, "VBControls alone");

    // A refresh at the first pump of a fill of the custom view with no filter, which lists
    // every member it walks: the rows the list gains after the request, until the fill that
    // starts over clears it, are the members the cancelled fill walked after it.
    world.ide->SelectComponent(module);
    show(u"(Events)");
    RowCounter counter;
    viewer.lvwExplorer.SetPeer(&counter);
    int rowsAtRequest = 0;
    world.runtime->Loop().Post([&] {
      rowsAtRequest = rows();
      counter.counting = true;
      viewer.Refresh();
    });
    start = Clock::now();
    show(u"");
    double total = Seconds(start);
    viewer.lvwExplorer.SetPeer(nullptr);
    std::printf(
        "\nrefresh during a fill: requested after %d rows; the cancelled fill walked %d more "
        "member(s) (at most 20), then the fill started over and listed %d rows (%.2f ms in "
        "all)\n",
        rowsAtRequest, counter.rows, rows(), total * 1e3);
  }
  return 0;
}
