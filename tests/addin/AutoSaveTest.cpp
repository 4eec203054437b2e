// Auto-Save: the check every ten seconds, the three notifications, the countdown with Enter and
// Escape, never-saved projects, a host error mid-save, and what the save writes on disk. Time is
// the runtime's virtual clock: the add-in connects at 09:00:00.
#include <gtest/gtest.h>

#include <chrono>

#include "options/frmAutoSave.h"
#include "runtime/UserActions.h"
#include "support/AddinWorld.h"
#include "support/TempFolder.h"
#include "vbide/CodeModule.h"
#include "vbide/VBComponent.h"
#include "vbide/VBProject.h"

namespace {

using namespace std::chrono_literals;
using qmtest::AddinWorld;
using qmtest::TempFolder;

constexpr auto kNeverSaved =
    u"Auto-Save will not function because some of your projects have never been saved.";

// CR LF, an LF line and no final break: a save must keep what was not edited byte for byte.
std::string Bas(const std::string& name) {
  return "Attribute VB_Name = \"" + name +
         "\"\r\nOption Explicit\r\nPublic Sub Run()\n    Debug.Print 1\r\nEnd Sub";
}
std::string Vbp(const std::string& project, const std::string& module) {
  return "Type=Exe\r\nModule=" + module + "; " + module + ".bas\r\nName=\"" + project + "\"\r\n";
}

// Two saved projects, Alpha and Beta, each with one module; Auto-Save on with the settings given.
struct AutoSaveWorld {
  TempFolder folder;
  AddinWorld world;

  explicit AutoSaveWorld(std::u16string_view notify, bool neverSavedToo = false) {
    for (auto [project, module] : {std::pair{"Alpha", "modAlpha"}, std::pair{"Beta", "modBeta"}}) {
      folder.Write(std::string(project) + "/" + project + ".vbp", Vbp(project, module));
      folder.Write(std::string(project) + "/" + module + ".bas", Bas(module));
      if (neverSavedToo) world.ide->NewProject(vbide::vbext_pt_StandardExe, u"Draft");
      EXPECT_TRUE(
          world.ide->Open(folder.Path() / project / (std::string(project) + ".vbp")).empty());
    }
    world.Store(u"Options", u"AutoSave", u"1");
    world.Store(u"Options", u"SaveNotify", notify);
    world.ConnectLater();
  }
  quillmark::frmAutoSave& Form() { return *world.Main().gfrmAutoSave; }
  vbide::VBComponentPtr Module(std::u16string_view project, std::u16string_view module) {
    return world.ide->VBProjects()->Item(project)->VBComponents()->Item(module);
  }
  void Edit(std::u16string_view project, std::u16string_view module) {
    Module(project, module)->CodeModule()->ReplaceLine(1, u"Option Compare Text");
  }
  std::string Disk(const char* project, const char* file) const {
    return TempFolder::Read(folder.Path() / project / file);
  }
  bool AlphaSaved() const { return Disk("Alpha", "modAlpha.bas") != Bas("modAlpha"); }
  void Advance(std::chrono::milliseconds span) { world.runtime->Loop().Advance(span); }
  int Beeps() const { return world.runtime->BeepCount(); }
  std::size_t Boxes() const { return world.runtime->MessageBoxService().Transcript().size(); }
};

TEST(AutoSave, WithTheIntervalMissingItSavesAtTheSixthMinuteBoundaryKeepingUneditedBytes) {
  AutoSaveWorld w(u"0");
  w.Edit(u"Alpha", u"modAlpha");
  w.Advance(6min - 1ms);  // the last check, at 09:05:50, sees five boundaries
  EXPECT_FALSE(w.AlphaSaved());
  w.Advance(1ms);  // 09:06:00: the sixth
  EXPECT_EQ(w.Disk("Alpha", "modAlpha.bas"),
            "Attribute VB_Name = \"modAlpha\"\r\nOption Compare Text\r\nPublic Sub Run()\n"
            "    Debug.Print 1\r\nEnd Sub");
  EXPECT_FALSE(w.Module(u"Alpha", u"modAlpha")->IsDirty());
  EXPECT_EQ(w.Disk("Beta", "modBeta.bas"), Bas("modBeta"));
  EXPECT_EQ(w.Disk("Alpha", "Alpha.vbp"), Vbp("Alpha", "modAlpha"));
  EXPECT_EQ(w.Beeps(), 0);
  EXPECT_EQ(w.Boxes(), 0u);
  EXPECT_FALSE(w.Form().Visible());
  EXPECT_EQ(w.world.Main().gLastSave, w.world.runtime->Now());
  EXPECT_TRUE(w.Form().tmrSave.Enabled());
}

TEST(AutoSave, NoneSavesSilentlyBeepBeepsOnceAndMessageCountsDownFirst) {
  struct Case {
    std::u16string_view notify;
    int beeps;
    bool counting;
  };
  for (auto c :
       {Case{u"0", 0, false}, Case{u"1", 1, false}, Case{u"2", 0, true}, Case{u"7", 0, true}}) {
    SCOPED_TRACE(vb::ToUtf8(c.notify));
    AutoSaveWorld w(c.notify);
    w.Edit(u"Alpha", u"modAlpha");
    w.Advance(6min);
    EXPECT_EQ(w.AlphaSaved(), !c.counting);
    EXPECT_EQ(w.Form().Visible(), c.counting);
    EXPECT_EQ(w.Form().tmrCount.Enabled(), c.counting);
    EXPECT_FALSE(w.Form().tmrSave.Enabled() && c.counting);
    EXPECT_EQ(w.Beeps(), c.beeps);
  }
}

TEST(AutoSave, TheCountdownShowsTenToOneAndSavesOnTheEleventhTick) {
  AutoSaveWorld w(u"2");
  w.Edit(u"Alpha", u"modAlpha");
  w.Advance(6min);
  auto& form = w.Form();
  EXPECT_EQ(form.lblSave.Caption(), u"Auto-Saving in 10 seconds...");
  EXPECT_EQ(form.lblHelp.Caption(), u"Press Enter to save or hit Escape to cancel.");
  std::vector<std::u16string> shown;
  for (int tick = 1; tick <= 10; ++tick) {
    w.Advance(1s);
    shown.push_back(form.lblSave.Caption());
  }
  EXPECT_EQ(shown.front(), u"Auto-Saving in 10 seconds...");
  EXPECT_EQ(shown.back(), u"Auto-Saving in 1 seconds...");
  EXPECT_FALSE(w.AlphaSaved());
  w.Advance(1s);
  EXPECT_TRUE(w.AlphaSaved());
  EXPECT_FALSE(form.Visible());
  EXPECT_FALSE(form.tmrCount.Enabled());
  EXPECT_TRUE(form.tmrSave.Enabled());
}

TEST(AutoSave, EnterSavesAtOnce) {
  AutoSaveWorld w(u"2");
  w.Edit(u"Alpha", u"modAlpha");
  w.Advance(6min + 3s);
  vb::UserActions(w.Form()).PressKey(vb::vbKeyReturn);
  EXPECT_TRUE(w.AlphaSaved());
  EXPECT_FALSE(w.Form().Visible());
}

TEST(AutoSave, EscapePostponesAFullIntervalAndSavesNothing) {
  AutoSaveWorld w(u"2");
  w.Edit(u"Alpha", u"modAlpha");
  w.Advance(6min + 3s);  // 09:06:03, counting down
  vb::UserActions(w.Form()).PressKey(vb::vbKeyEscape);
  EXPECT_FALSE(w.Form().Visible());
  EXPECT_FALSE(w.Form().tmrCount.Enabled());
  w.Advance(20s);
  EXPECT_FALSE(w.AlphaSaved());
  // The last save is now 09:06:03 and the checks run from then on: the one at 09:11:53 sees five
  // boundaries, the one at 09:12:03 six.
  w.Advance(5min + 40s - 1ms);
  EXPECT_FALSE(w.Form().Visible());
  w.Advance(1ms);
  EXPECT_TRUE(w.Form().Visible());
  EXPECT_EQ(w.Form().Counter(), 10);
}

TEST(AutoSave, ANeverSavedProjectAmongSeveralGivesOneMessageAndTheOthersAreSaved) {
  AutoSaveWorld w(u"0", true);  // a never-saved "Draft" before each of Alpha and Beta
  w.Edit(u"Alpha", u"modAlpha");
  w.Edit(u"Beta", u"modBeta");
  w.Advance(6min);
  auto& boxes = w.world.runtime->MessageBoxService().Transcript();
  ASSERT_EQ(boxes.size(), 1u);
  EXPECT_EQ(boxes[0].prompt, kNeverSaved);
  EXPECT_EQ(boxes[0].style, vb::vbExclamation);
  EXPECT_TRUE(w.AlphaSaved());
  EXPECT_NE(w.Disk("Beta", "modBeta.bas"), Bas("modBeta"));
  // The message comes back once per interval until the project is saved.
  w.Advance(6min);
  EXPECT_EQ(w.Boxes(), 2u);
}

TEST(AutoSave, ANewComponentIsWrittenBesideItsProjectAndListedInTheProjectFile) {
  AutoSaveWorld w(u"0");
  auto added =
      w.world.ide->VBProjects()->Item(u"Alpha")->VBComponents()->Add(vbide::vbext_ct_StdModule);
  added->CodeModule()->InsertLines(1, u"Sub Added()\nEnd Sub");
  w.Advance(6min);
  EXPECT_NE(w.Disk("Alpha", "Alpha.vbp").find("Module=Module1; Module1.bas\r\n"),
            std::string::npos);
  EXPECT_NE(w.Disk("Alpha", "Module1.bas").find("Sub Added()\r\n"), std::string::npos);
  EXPECT_FALSE(w.world.ide->VBProjects()->Item(u"Alpha")->IsDirty());
}

TEST(AutoSave, AHostErrorEndsTheSaveWithTheTimersAsTheyWere) {
  AutoSaveWorld w(u"0");
  w.Edit(u"Alpha", u"modAlpha");
  w.Edit(u"Beta", u"modBeta");
  // Alpha's module file can no longer be written: a folder stands where it was.
  std::filesystem::remove(w.folder.Path() / "Alpha" / "modAlpha.bas");
  std::filesystem::create_directories(w.folder.Path() / "Alpha" / "modAlpha.bas");
  w.Advance(6min);
  auto& boxes = w.world.runtime->MessageBoxService().Transcript();
  ASSERT_EQ(boxes.size(), 1u);
  EXPECT_NE(boxes[0].prompt.find(u"modAlpha.bas"), std::u16string::npos);
  EXPECT_EQ(w.Disk("Beta", "modBeta.bas"), Bas("modBeta"));  // the save ended before Beta
  EXPECT_TRUE(w.Module(u"Beta", u"modBeta")->IsDirty());
  EXPECT_FALSE(w.Form().tmrSave.Enabled());
  EXPECT_FALSE(w.Form().tmrCount.Enabled());
  w.Advance(10min);
  EXPECT_EQ(w.Boxes(), 1u);  // nothing runs any more until the add-in is connected again
}

TEST(AutoSave, TurningItOffTakesEffectAtTheNextCheck) {
  AutoSaveWorld w(u"0");
  w.Edit(u"Alpha", u"modAlpha");
  w.Advance(5min + 55s);
  w.world.Store(u"Options", u"AutoSave", u"-1");  // only the exact text "1" is on
  w.Advance(10min);
  EXPECT_FALSE(w.AlphaSaved());
  w.world.Store(u"Options", u"AutoSave", u"1");
  w.Advance(10s);
  EXPECT_TRUE(w.AlphaSaved());
}

}  // namespace
