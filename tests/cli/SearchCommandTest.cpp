// quillmark search and replace: rows, status, JSON, scopes, changed files and exit codes.
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
    "Sub Main()\r\n"
    "    Customer = \"caf\x81\"\r\n"
    "    ' Customer comment\r\n"
    "    mCustomer = 1\r\n"
    "End Sub\r\n";

const char* kOrders =
    "VERSION 1.0 CLASS\r\nBEGIN\r\n  MultiUse = -1  'True\r\nEND\r\n"
    "Attribute VB_Name = \"COrders\"\r\n"
    "Private customer As Long\r\n"
    "Public Sub Add()\r\n"
    "    customer = customer + 1\r\n"
    "End Sub\r\n";

class Cli : public ::testing::Test {
 protected:
  Cli() {
    temp.Write("Shop.vbp",
               "Type=Exe\r\nModule=modMain; modMain.bas\r\nClass=COrders; "
               "COrders.cls\r\nName=\"Shop\"\r\n");
    temp.Write("modMain.bas", kModMain);
    temp.Write("COrders.cls", kOrders);
  }
  Result Run(std::vector<std::string> args) {
    args.insert(args.begin() + 1, (temp.Path() / "Shop.vbp").string());
    args.push_back("--config-dir");
    args.push_back((temp.Path() / "config").string());
    return Quillmark(args);
  }
  std::string File(const char* name) { return qmtest::TempFolder::Read(temp.Path() / name); }
  qmtest::TempFolder temp;
};

TEST_F(Cli, SearchPrintsOneRowPerMatchingLineAndTheStatusOnStderr) {
  Result r = Run({"search", "customer"});
  EXPECT_EQ(r.status, 0) << r.err;
  EXPECT_EQ(r.out,
            "Shop\tmodMain\t(Declarations)\t2\tDim Customer As String\n"
            "Shop\tmodMain\tMain\t4\tCustomer = \"caf\xEF\xBF\xBD\"\n"
            "Shop\tmodMain\tMain\t5\t' Customer comment\n"
            "Shop\tmodMain\tMain\t6\tmCustomer = 1\n"
            "Shop\tCOrders\t(Declarations)\t1\tPrivate customer As Long\n"
            "Shop\tCOrders\tAdd\t3\tcustomer = customer + 1\n");
  EXPECT_EQ(r.err, "Complete.\n6 Matching Line(s)\n");
}

TEST_F(Cli, OptionsNarrowTheSearchAsTheDialogsCheckBoxesDo) {
  Result r = Run({"search", "Customer", "--match-case", "--whole-word", "--exclude-comments"});
  EXPECT_EQ(r.status, 0) << r.err;
  EXPECT_EQ(r.out,
            "Shop\tmodMain\t(Declarations)\t2\tDim Customer As String\n"
            "Shop\tmodMain\tMain\t4\tCustomer = \"caf\xEF\xBF\xBD\"\n");
}

TEST_F(Cli, ScopesAreProjectModuleAndProcedure) {
  EXPECT_EQ(Run({"search", "customer", "--project", "Shop", "--module", "COrders"}).out,
            "Shop\tCOrders\t(Declarations)\t1\tPrivate customer As Long\n"
            "Shop\tCOrders\tAdd\t3\tcustomer = customer + 1\n");
  EXPECT_EQ(Run({"search", "customer", "--project", "Shop", "--module", "modMain", "--procedure",
                 "(Declarations)"})
                .out,
            "Shop\tmodMain\t(Declarations)\t2\tDim Customer As String\n");
  EXPECT_EQ(Run({"search", "customer", "--selection", "Shop/modMain:4:10-5:14"}).out,
            "Shop\tmodMain\tMain\t5\t' Customer comment\n");  // line 4 is tested from column 10
}

TEST_F(Cli, NoMatchExitsWithOne) {
  Result r = Run({"search", "nowhere"});
  EXPECT_EQ(r.status, 1);
  EXPECT_EQ(r.out, "");
  EXPECT_EQ(r.err, "Complete.\n0 Matching Line(s)\n");
}

TEST_F(Cli, JsonCarriesThePlaceAndTheUntrimmedTextWithUndecodableBytesEscaped) {
  Result r = Run({"search", "caf", "--json"});
  EXPECT_EQ(r.status, 0) << r.err;
  EXPECT_EQ(r.out,
            "{\"project\":\"Shop\",\"module\":\"modMain\",\"procedure\":\"Main\",\"line\":4,"
            "\"text\":\"    Customer = \\\"caf\\udc81\\\"\"}\n");
}

TEST_F(Cli, UsageMistakesExitWithTwoAndNameTheValue) {
  struct Case {
    std::vector<std::string> args;
    std::string says;
  };
  std::vector<Case> cases = {
      {{"search"}, "expected FILE and TEXT"},
      {{"search", "x", "--project", "Nope"},
       "--project 'Nope' is not one of: (All Projects), Shop"},
      {{"search", "x", "--module", "modMain"}, "--module needs --project"},
      {{"search", "x", "--project", "Shop", "--procedure", "Main"}, "--procedure needs --module"},
      {{"search", "x", "--selection", "Shop/modMain:4"}, "is not PROJECT/MODULE:L1:C1-L2:C2"},
      {{"search", "x", "--selection", "Shop/modGone:1:1-2:1"},
       "--selection 'Shop/modGone:1:1-2:1'"},
      {{"search", "x", "--selection", "Shop/modMain:2:3-2:3"}, "selects nothing"},
      {{"search", "x", "--codepage", "437"}, "unsupported code page 437"},
      {{"replace", "x"}, "replace needs --with TEXT"},
      {{"replace", "customer", "--with", "y", "--selected-rows", "2,9"},
       "'9' is not a row number from 1 to 6"},
  };
  for (auto& c : cases) {
    Result r = Run(c.args);
    EXPECT_EQ(r.status, 2) << c.says;
    EXPECT_NE(r.err.find(c.says), std::string::npos) << r.err;
  }
  EXPECT_EQ(File("modMain.bas"), kModMain);  // nothing was written
}

TEST_F(Cli, ReplaceDryRunShowsEachChangedLineAndSavesNothing) {
  Result r = Run({"replace", "customer", "--with", "Client", "--whole-word", "--dry-run"});
  EXPECT_EQ(r.status, 0) << r.err;
  EXPECT_EQ(r.out,
            "Shop/modMain:2\tDim Customer As String\tDim Client As String\n"
            "Shop/modMain:4\t    Customer = \"caf\xEF\xBF\xBD\"\t    Client = \"caf\xEF\xBF\xBD\"\n"
            "Shop/modMain:5\t    ' Customer comment\t    ' Client comment\n"
            "Shop/COrders:1\tPrivate customer As Long\tPrivate Client As Long\n"
            "Shop/COrders:3\t    customer = customer + 1\t    Client = Client + 1\n"
            "5 line(s) changed (dry run, nothing saved)\n");
  EXPECT_EQ(File("modMain.bas"), kModMain);
  EXPECT_EQ(File("COrders.cls"), kOrders);
}

TEST_F(Cli, ReplaceSavesTheChangedModulesKeepingEveryOtherByte) {
  Result r =
      Run({"replace", "customer", "--with", "Client", "--project", "Shop", "--module", "COrders"});
  EXPECT_EQ(r.status, 0) << r.err;
  EXPECT_EQ(r.out, "2 line(s) changed\n");
  std::string expected = kOrders;
  expected.replace(expected.find("Private customer"), 16, "Private Client");
  expected.replace(expected.find("customer = customer"), 19, "Client = Client");
  EXPECT_EQ(File("COrders.cls"), expected);
  EXPECT_EQ(File("modMain.bas"), kModMain);  // \x81 comes back as the same byte
}

TEST_F(Cli, AReplacementTheCodePageCannotHoldIsRefusedAndTheFileKept) {
  Result r = Run(
      {"replace", "customer", "--with", "\u03A9mega", "--project", "Shop", "--module", "COrders"});
  EXPECT_EQ(r.status, 1);
  EXPECT_NE(r.err.find("cannot be written in code page 1252"), std::string::npos) << r.err;
  EXPECT_NE(r.err.find("COrders.cls"), std::string::npos) << r.err;
  EXPECT_EQ(File("COrders.cls"), kOrders);
}

TEST_F(Cli, ReplaceInTheSelectedRowsOnly) {
  Result r = Run({"replace", "customer", "--with", "Client", "--selected-rows", "1,5"});
  EXPECT_EQ(r.status, 0) << r.err;
  EXPECT_EQ(r.out, "2 line(s) changed\n");
  EXPECT_NE(File("modMain.bas").find("Dim Client As String"), std::string::npos);
  EXPECT_NE(File("modMain.bas").find("    Customer = "), std::string::npos);
  EXPECT_NE(File("COrders.cls").find("Private Client As Long"), std::string::npos);
  EXPECT_NE(File("COrders.cls").find("customer = customer + 1"), std::string::npos);
}

}  // namespace
