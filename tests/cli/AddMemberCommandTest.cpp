// quillmark add-member: the module written through the New Member dialog, the dry run, what the
// dialog refuses and the exit status.
#include <gtest/gtest.h>

#include "cli/CliRun.h"
#include "support/TempFolder.h"

namespace {

using Result = qmtest::CliResult;
using qmtest::Quillmark;

const char* kModMain =
    "Attribute VB_Name = \"modMain\"\r\n"
    "Option Explicit\r\n"
    "Dim Customer As String\r\n"
    "\r\n"
    "Sub Main()\r\n"
    "    Customer = \"x\"\r\n"
    "End Sub\r\n";

const char* kOrders =
    "VERSION 1.0 CLASS\r\nBEGIN\r\n  MultiUse = -1  'True\r\nEND\r\n"
    "Attribute VB_Name = \"COrders\"\r\n"
    "Public Sub Add()\r\n"
    "End Sub\r\n";

class AddMember : public ::testing::Test {
 protected:
  AddMember() {
    temp.Write("Shop.vbp",
               "Type=Exe\r\nModule=modMain; modMain.bas\r\nClass=COrders; "
               "COrders.cls\r\nName=\"Shop\"\r\n");
    temp.Write("modMain.bas", kModMain);
    temp.Write("COrders.cls", kOrders);
  }
  Result Run(std::vector<std::string> args) {
    args.insert(args.begin(), {"add-member", (temp.Path() / "Shop.vbp").string()});
    args.insert(args.end(), {"--config-dir", (temp.Path() / "config").string()});
    return Quillmark(args);
  }
  std::string File(const char* name) { return qmtest::TempFolder::Read(temp.Path() / name); }
  qmtest::TempFolder temp;
};

TEST_F(AddMember, AMethodWithItsArgumentsIsSavedThroughTheIde) {
  Result r =
      Run({"--component", "Shop/modMain", "--method", "Total", "--scope", "Private", "--static",
           "--returns", "Long", "--arg", "ByVal A As Long", "--arg", "Optional B As Long = 2"});
  EXPECT_EQ(r.status, 0) << r.err;
  EXPECT_EQ(File("modMain.bas"),
            "Attribute VB_Name = \"modMain\"\r\n"
            "Option Explicit\r\n"
            "Dim Customer As String\r\n"
            "Private Static Function Total(ByVal A As Long, Optional B As Long = 2) As Long\r\n"
            "\r\n"
            "End Function\r\n"
            "\r\n"
            "Sub Main()\r\n"
            "    Customer = \"x\"\r\n"
            "End Sub\r\n");
}

TEST_F(AddMember, DryRunPrintsTheNewLinesAndSavesNothing) {
  Result r = Run({"--component", "shop/MODMAIN", "--property", "Name", "--type", "String",
                  "--local", "customer", "--local-type", "String", "--kind", "get", "--dry-run"});
  EXPECT_EQ(r.status, 0) << r.err;
  // The existing variable was picked from the list, so it is not declared again.
  EXPECT_EQ(r.out,
            "shop/MODMAIN:3\tPublic Property Get Name() As String\n"
            "shop/MODMAIN:4\t\n"
            "shop/MODMAIN:5\t\tName = Customer\n"
            "shop/MODMAIN:6\t\n"
            "shop/MODMAIN:7\tEnd Property\n"
            "5 line(s) added (dry run, nothing saved)\n");
  EXPECT_EQ(File("modMain.bas"), kModMain);
}

TEST_F(AddMember, WhatTheDialogRefusesExitsWithOneAndSavesNothing) {
  struct Case {
    std::vector<std::string> args;
    const char* message;
  } cases[] = {
      {{"--arg", "ByVal ParamArray Rest() As Variant"}, "ParamArray is not available"},
      {{"--arg", "Count As Long = 5"}, "a default value needs Optional"},
      {{"--arg", "Count"}, "You must enter an argument name and select it's data type."},
      // The boxes keep their state: after a ParamArray argument, Optional cannot be clicked.
      {{"--arg", "ParamArray Rest() As Variant", "--arg", "Optional X As Long"},
       "Optional is not available"},
  };
  for (auto& c : cases) {
    std::vector<std::string> args{"--component", "Shop/modMain", "--method", "Go"};
    args.insert(args.end(), c.args.begin(), c.args.end());
    Result r = Run(args);
    EXPECT_EQ(r.status, 1) << c.message;
    EXPECT_NE(r.err.find(c.message), std::string::npos) << r.err;
    EXPECT_EQ(File("modMain.bas"), kModMain);
  }
}

TEST_F(AddMember, ConstantsFollowTheDialogsScopeRule) {
  Result r =
      Run({"--component", "Shop/COrders", "--constant", "Rate", "--value", "0.5", "--public"});
  EXPECT_EQ(r.status, 2);
  EXPECT_NE(r.err.find("--public"), std::string::npos) << r.err;
  EXPECT_EQ(File("COrders.cls"), kOrders);
  r = Run({"--component", "Shop/COrders", "--constant", "Rate", "--value", "0.5"});
  EXPECT_EQ(r.status, 0) << r.err;
  EXPECT_NE(File("COrders.cls")
                .find("Attribute VB_Name = \"COrders\"\r\n"
                      "Private Const Rate = 0.5\r\n"
                      "Public Sub Add()\r\n"),
            std::string::npos)
      << File("COrders.cls");
}

TEST_F(AddMember, UsageErrorsExitWithTwo) {
  for (auto args : std::vector<std::vector<std::string>>{
           {"--component", "Shop/modMain"},
           {"--component", "Shop/modMain", "--method", "A", "--constant", "B", "--value", "1"},
           {"--component", "Shop/modGone", "--method", "A"},
           {"--method", "A"},
           {"--component", "Shop/modMain", "--property", "P"},
           {"--component", "Shop/modMain", "--method", "A", "--value", "1"},
           {"--component", "Shop/modMain", "--constant", "C", "--value", "1", "--type", "Nope"}}) {
    Result r = Run(args);
    EXPECT_EQ(r.status, 2) << args.back();
    EXPECT_EQ(File("modMain.bas"), kModMain);
  }
}

TEST_F(AddMember, ACp932ModuleKeepsItsBytesAndGetsTheNewLineInItsCodePage) {
  // "Nihon" in Shift-JIS, in a comment and as the new constant's value.
  const std::string nihon = "\x93\xfa\x96\x7b";
  temp.Write("modMain.bas",
             "Attribute VB_Name = \"modMain\"\r\n' " + nihon + "\r\nDim Customer As String\r\n");
  Result r = Run({"--component", "Shop/modMain", "--constant", "GREETING", "--value",
                  "\xe6\x97\xa5\xe6\x9c\xac", "--type", "String", "--codepage", "932"});
  EXPECT_EQ(r.status, 0) << r.err;
  EXPECT_EQ(File("modMain.bas"), "Attribute VB_Name = \"modMain\"\r\n' " + nihon +
                                     "\r\nPublic Const GREETING As String = \"" + nihon +
                                     "\"\r\nDim Customer As String\r\n");
}

}  // namespace
