// quillmark members, rename and delete: the Component Viewer's rows, and its rename and delete
// saved byte for byte only where they change something, in cp1252 and in a Shift-JIS project.
#include <gtest/gtest.h>

#include <map>

#include "cli/CliRun.h"
#include "support/TempFolder.h"

namespace {

using qmtest::Quillmark;
using Files = std::map<std::string, std::string>;

const std::string kFrm =
    "VERSION 5.00\r\n"
    "Begin VB.Form frmOrder \r\n"
    "   Caption         =   \"Order\"\r\n"
    "   Begin VB.TextBox Text1 \r\n"
    "      Height          =   315\r\n"
    "   End\r\n"
    "   Begin VB.OptionButton Option1 \r\n"
    "      Index           =   0\r\n"
    "   End\r\n"
    "   Begin VB.OptionButton Option1 \r\n"
    "      Index           =   1\r\n"
    "   End\r\n"
    "End\r\n"
    "Attribute VB_Name = \"frmOrder\"\r\n"
    "Option Explicit\r\n"                              // 1
    "Private mCount As Long\r\n"                       // 2
    "\r\n"                                             // 3
    "Public Sub DoIt()\r\n"                            // 4
    "End Sub\r\n"                                      // 5
    "\r\n"                                             // 6
    "Private Sub Text1_Change()\r\n"                   // 7
    "    Text1.Text = \"Text1\"\r\n"                   // 8
    "End Sub\r\n"                                      // 9
    "Private Sub Option1_Click(Index As Integer)\r\n"  // 10
    "End Sub\r\n";                                     // 11
const std::string kMain =
    "Attribute VB_Name = \"modMain\"\r\nSub Main()\r\n    Text1 = 1\r\nEnd Sub\r\n";

// Shift-JIS: a form with Japanese captions and comments, a control array, and trail bytes that
// are "\" (0x5C) in "hyo" and "so".
const std::string kChumon = "\x92\x8d\x95\xb6";   // "chumon", order
const std::string kKokyaku = "\x8c\xda\x8b\x71";  // "kokyaku", customer
const std::string kHyoji = "\x95\x5c\x8e\xa6";    // "hyoji", display
const std::string kSo = "\x83\x5c";               // katakana "so"
const std::string kSjisFrm =
    "VERSION 5.00\r\n"
    "Begin VB.Form frmOrder \r\n"
    "   Caption         =   \"" +
    kChumon +
    "\"\r\n"
    "   Begin VB.Label lblName \r\n"
    "      Caption         =   \"" +
    kKokyaku +
    "\"\r\n"
    "      Index           =   0\r\n"
    "   End\r\n"
    "   Begin VB.Label lblName \r\n"
    "      Caption         =   \"" +
    kHyoji +
    "\"\r\n"
    "      Index           =   1\r\n"
    "   End\r\n"
    "   Begin VB.TextBox txtName \r\n"
    "      Text            =   \"" +
    kSo +
    "\"\r\n"
    "   End\r\n"
    "End\r\n"
    "Attribute VB_Name = \"frmOrder\"\r\n"
    "' " +
    kChumon + " " + kHyoji +
    "\r\n"                              // 1
    "Private Sub txtName_Change()\r\n"  // 2
    "    txtName.Text = \"" +
    kSo + "\"   ' " + kKokyaku +
    "\r\n"                                             // 3
    "End Sub\r\n"                                      // 4
    "Private Sub lblName_Click(Index As Integer)\r\n"  // 5
    "    MsgBox \"" +
    kHyoji +
    "\"\r\n"        // 6
    "End Sub\r\n";  // 7

std::string Replaced(std::string text,
                     const std::vector<std::pair<std::string, std::string>>& edits) {
  for (auto& [from, to] : edits) {
    auto at = text.find(from);
    EXPECT_NE(at, std::string::npos) << from;
    if (at != std::string::npos) text.replace(at, from.size(), to);
  }
  return text;
}

// A command run on a fresh copy of the project: what it prints, and the form file it leaves.
struct EditCase {
  std::vector<std::string> args;
  std::string out;  // without the "saved" line
  std::string frm;  // empty: nothing saved
};

class ViewerCommands : public ::testing::Test {
 protected:
  ViewerCommands() { WriteProject(kFrm, kMain); }
  void WriteProject(const std::string& frm, const std::string& main) {
    temp.Write(
        "Orders.vbp",
        "Type=Exe\r\nForm=frmOrder.frm\r\nModule=modMain; modMain.bas\r\nName=\"Orders\"\r\n");
    temp.Write("frmOrder.frm", frm);
    temp.Write("modMain.bas", main);
  }
  qmtest::CliResult Run(const std::string& command, std::vector<std::string> args) {
    args.insert(args.begin(),
                {command, (temp.Path() / "Orders.vbp").string(), "--component", "Orders/frmOrder"});
    args.insert(args.end(), {"--config-dir", (temp.Path() / "config").string()});
    return Quillmark(args);
  }
  // Every file of the project folder (the settings folder aside), by name.
  Files OnDisk() {
    Files files;
    for (auto& entry : std::filesystem::directory_iterator(temp.Path()))
      if (entry.is_regular_file())
        files[entry.path().filename().string()] = qmtest::TempFolder::Read(entry.path());
    return files;
  }
  // Only the form file changes, and only when the case says so.
  void Expect(const std::string& command, const EditCase& c) {
    WriteProject(kFrm, kMain);
    Files expected = OnDisk();
    if (!c.frm.empty()) expected["frmOrder.frm"] = c.frm;
    auto r = Run(command, c.args);
    EXPECT_EQ(r.status, 0) << r.err;
    std::string saved = "saved " + (temp.Path() / "frmOrder.frm").string() + "\n";
    EXPECT_EQ(r.out, c.out + (c.frm.empty() ? "" : saved));
    EXPECT_EQ(OnDisk(), expected);
  }
  qmtest::TempFolder temp;
};

TEST_F(ViewerCommands, MembersPrintsTheRowsOfEachViewOrFilter) {
  struct Case {
    std::vector<std::string> args;
    std::string out;
  } cases[] = {
      {{},
       "C||Text1||-1\tText1\tControl\nC||Option1||0\tOption1 (0)\tControl\n"
       "C||Option1||1\tOption1 (1)\tControl\n"},
      {{"--view", "(Methods/Properties)"},
       "D||\t(Declarations)\t\nM||DoIt||1\tDoIt\tMethod\nM||Text1_Change||1\tText1_Change\tMethod\n"
       "M||Option1_Click||1\tOption1_Click\tMethod\n"},
      {{"--view", "oPT"},
       "C||Option1||0\tOption1 (0)\tControl\nC||Option1||1\tOption1 (1)\tControl\n"
       "D||\t(Declarations)\t\nM||Option1_Click||1\tOption1_Click\tMethod\n"},
      {{"--view", "(Constants/Variables)", "--json"},
       "{\"key\":\"D||\",\"text\":\"(Declarations)\",\"icon\":\"\"}\n"
       "{\"key\":\"M||mCount||3\",\"text\":\"mCount\",\"icon\":\"Variable\"}\n"},
      {{"--view", "(Events)"}, "D||\t(Declarations)\t\n"},
  };
  for (auto& c : cases) {
    auto r = Run("members", c.args);
    EXPECT_EQ(r.status, 0) << r.err;
    EXPECT_EQ(r.out, c.out);
  }
}

TEST_F(ViewerCommands, RenameRewritesOnlyWhatTheViewerChangesAndDryRunSavesNothing) {
  const std::string memberLines = "Orders/frmOrder:4\tPublic Sub DoIt()\tPublic Sub DoThat()\n";
  const std::string controlLines =
      "Orders/frmOrder: control Text1 renamed txtName\n"
      "Orders/frmOrder:7\tPrivate Sub Text1_Change()\tPrivate Sub txtName_Change()\n"
      "Orders/frmOrder:8\t    Text1.Text = \"Text1\"\t    txtName.Text = \"Text1\"\n";
  // modMain's Text1 and the project file stay; so does the quoted "Text1".
  const std::string renamedControl = Replaced(kFrm, {{"TextBox Text1", "TextBox txtName"},
                                                     {"Sub Text1_Change", "Sub txtName_Change"},
                                                     {"    Text1.Text", "    txtName.Text"}});
  EditCase cases[] = {
      {{"--member", "doit", "--to", "DoThat", "--dry-run"},
       memberLines + "1 line(s) changed (dry run, nothing saved)\n",
       ""},
      {{"--member", "DoIt", "--to", "DoThat"},
       memberLines + "1 line(s) changed\n",
       Replaced(kFrm, {{"Sub DoIt", "Sub DoThat"}})},
      {{"--control", "text1", "--to", "txtName", "--dry-run"},
       controlLines + "2 line(s) changed (dry run, nothing saved)\n",
       ""},
      {{"--control", "Text1", "--to", "txtName"},
       controlLines + "2 line(s) changed\n",
       renamedControl},
  };
  for (auto& c : cases) {
    SCOPED_TRACE(c.args[1]);
    Expect("rename", c);
  }
}

TEST_F(ViewerCommands, RefusedEditsExitWithOneAndSaveNothing) {
  Files before = OnDisk();
  struct Case {
    std::vector<std::string> args;  // rename's, unless they start with "delete"
    std::string message;
  } cases[] = {
      {{"--member", "DoIt", "--to", ""}, "a name cannot be empty"},
      {{"--member", "DoIt", "--to", "Do That"}, "a name cannot hold a space"},
      {{"--control", "Text1", "--to", "Text 2"}, "a name cannot hold a space"},
      {{"--control", "Text1", "--to", "2Text"}, "'2Text' is not a name"},
      {{"--control", "Text1", "--to", "txt-Name"}, "'txt-Name' is not a name"},
      {{"--control", "Text1", "--to", std::string(41, 'x')}, "at most 40 characters"},
      {{"--control", "Text1", "--to", "option1"}, "already has a control of that name"},
      {{"--member", "DoIt", "--to", "mCount"}, "already has a member of that name"},
      {{"--member", "mCount", "--to", "mTotal"}, "renames a variable or constant in its list only"},
      {{"--control", "Option1(1)", "--to", "optPay"}, "would split the array"},
      {{"--control", "Option1", "--to", "optPay"}, "a control array; name one element"},
      {{"--control", "Option1(7)", "--to", "optPay"}, "has no control of that name"},
      {{"--member", "Nothing", "--to", "Some"}, "--member Nothing: Orders/frmOrder has no member"},
      // A variable is no procedure: the viewer deletes nothing.
      {{"delete", "--member", "mCount"}, "deletes a Sub or Function only"},
      {{"delete", "--control", "Option1", "--keep-code"}, "a control array; name one element"},
  };
  for (auto& c : cases) {
    bool del = c.args[0] == "delete";
    auto r = Run(del ? "delete" : "rename", {c.args.begin() + (del ? 1 : 0), c.args.end()});
    EXPECT_EQ(r.status, 1) << c.message;
    EXPECT_NE(r.err.find(c.message), std::string::npos) << r.err;
    EXPECT_NE(r.err.find("nothing was saved"), std::string::npos) << r.err;
    EXPECT_EQ(OnDisk(), before) << c.message;
  }
  // A form file that cannot be written is named, and stays as it was.
  std::filesystem::permissions(temp.Path() / "frmOrder.frm",
                               std::filesystem::perms::owner_write |
                                   std::filesystem::perms::group_write |
                                   std::filesystem::perms::others_write,
                               std::filesystem::perm_options::remove);
  auto r = Run("rename", {"--member", "DoIt", "--to", "DoThat"});
  EXPECT_EQ(r.status, 1);
  EXPECT_NE(r.err.find((temp.Path() / "frmOrder.frm").string()), std::string::npos) << r.err;
  EXPECT_EQ(OnDisk(), before);
}

TEST_F(ViewerCommands, DeleteAnswersTheQuestionFromTheOptions) {
  std::string option1Block =
      "   Begin VB.OptionButton Option1 \r\n      Index           =   1\r\n   End\r\n";
  std::string clickProcedure = "Private Sub Option1_Click(Index As Integer)\r\nEnd Sub\r\n";
  EditCase cases[] = {
      {{"--control", "Option1(1)", "--keep-code"},
       "Orders/frmOrder: control Option1(1) removed\n1 control(s) and 0 line(s) removed\n",
       Replaced(kFrm, {{option1Block, ""}})},
      // An element takes the procedures the whole array shares.
      {{"--control", "option1(1)", "--with-code"},
       "Orders/frmOrder: control Option1(1) removed\n"
       "Orders/frmOrder:10\tPrivate Sub Option1_Click(Index As Integer)\n"
       "Orders/frmOrder:11\tEnd Sub\n1 control(s) and 2 line(s) removed\n",
       Replaced(kFrm, {{option1Block, ""}, {clickProcedure, ""}})},
      // The blank line above a procedure goes with it (the one below is the next one's).
      {{"--member", "DoIt"},
       "Orders/frmOrder:3\t\nOrders/frmOrder:4\tPublic Sub DoIt()\nOrders/frmOrder:5\tEnd Sub\n"
       "3 line(s) removed\n",
       Replaced(kFrm, {{"\r\nPublic Sub DoIt()\r\nEnd Sub\r\n", ""}})},
      {{"--member", "DoIt", "--dry-run"},
       "Orders/frmOrder:3\t\nOrders/frmOrder:4\tPublic Sub DoIt()\nOrders/frmOrder:5\tEnd Sub\n"
       "3 line(s) removed (dry run, nothing saved)\n",
       ""},
  };
  for (auto& c : cases) {
    SCOPED_TRACE(c.args[1]);
    Expect("delete", c);
  }
}

TEST_F(ViewerCommands, AShiftJisFormKeepsItsJapaneseBytes) {
  const std::string main = "Attribute VB_Name = \"modMain\"\r\n' " + kKokyaku + "\r\n";
  WriteProject(kSjisFrm, main);
  auto r = Run("members", {"--codepage", "932"});
  EXPECT_EQ(r.status, 0) << r.err;
  EXPECT_EQ(r.out,
            "C||lblName||0\tlblName (0)\tControl\nC||lblName||1\tlblName (1)\tControl\n"
            "C||txtName||-1\ttxtName\tControl\n");

  // A Japanese name: "txt" and "kokyaku", printed in UTF-8 and written in Shift-JIS.
  r = Run("rename",
          {"--control", "txtName", "--to", "txt\xe9\xa1\xa7\xe5\xae\xa2", "--codepage", "932"});
  EXPECT_EQ(r.status, 0) << r.err;
  EXPECT_NE(r.out.find("control txtName renamed txt\xe9\xa1\xa7\xe5\xae\xa2\n"), std::string::npos)
      << r.out;
  std::string renamed =
      Replaced(kSjisFrm, {{"TextBox txtName", "TextBox txt" + kKokyaku},
                          {"Sub txtName_Change", "Sub txt" + kKokyaku + "_Change"},
                          {"    txtName.Text", "    txt" + kKokyaku + ".Text"}});
  EXPECT_EQ(temp.Read(temp.Path() / "frmOrder.frm"), renamed);

  r = Run("delete", {"--control", "lblName(0)", "--with-code", "--codepage", "932"});
  EXPECT_EQ(r.status, 0) << r.err;
  EXPECT_EQ(temp.Read(temp.Path() / "frmOrder.frm"),
            Replaced(renamed, {{"   Begin VB.Label lblName \r\n      Caption         =   \"" +
                                    kKokyaku + "\"\r\n      Index           =   0\r\n   End\r\n",
                                ""},
                               {"Private Sub lblName_Click(Index As Integer)\r\n    MsgBox \"" +
                                    kHyoji + "\"\r\nEnd Sub\r\n",
                                ""}}));
  EXPECT_EQ(temp.Read(temp.Path() / "modMain.bas"), main);
}

TEST_F(ViewerCommands, UsageErrorsExitWithTwo) {
  Files before = OnDisk();
  struct Case {
    const char* command;
    std::vector<std::string> args;
  } cases[] = {
      {"rename", {"--member", "DoIt"}},
      {"rename", {"--member", "DoIt", "--control", "Text1", "--to", "X"}},
      {"rename", {"--control", "Option1(x)", "--to", "X"}},
      {"delete", {"--control", "Text1"}},
      {"delete", {"--member", "DoIt", "--keep-code"}},
      {"members", {"--component", "Orders/frmNone"}},
  };
  for (auto& c : cases) {
    auto r = Run(c.command, c.args);
    EXPECT_EQ(r.status, 2) << c.command << " " << c.args[0] << ": " << r.err;
    EXPECT_EQ(OnDisk(), before);
  }
}

}  // namespace
