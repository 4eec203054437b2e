// quillmark info and resave: what they print, the files they write and their exit status.
#include <gtest/gtest.h>

#include <filesystem>

#include "cli/CliRun.h"
#include "support/TempFolder.h"

namespace {

namespace fs = std::filesystem;

using Result = qmtest::CliResult;
using qmtest::Quillmark;

const fs::path kSamples = fs::path(QM_SOURCE_DIR) / "samples";

// Every file below `folder`, relative to it.
std::vector<fs::path> FilesBelow(const fs::path& folder) {
  std::vector<fs::path> files;
  for (auto& entry : fs::recursive_directory_iterator(folder))
    if (entry.is_regular_file()) files.push_back(fs::relative(entry.path(), folder));
  std::sort(files.begin(), files.end());
  return files;
}

TEST(Info, ListsEveryProjectAndComponentOfTheSampleGroup) {
  Result r = Quillmark({"info", (kSamples / "Ledger.vbg").string()});
  EXPECT_EQ(r.status, 0) << r.err;
  EXPECT_EQ(r.err, "");
  for (auto text :
       {"Ledger (Standard EXE)", "LedgerControls (ActiveX Control)", "LedgerServer (ActiveX EXE)",
        "frmMain", "MDIForm", "AmountBox", "UserControl", "ppgAmount", "PropertyPage",
        "docStatement", "UserDocument", "Ledger.res", "Resource", "RelatedDocument"})
    EXPECT_NE(r.out.find(text), std::string::npos) << text;
}

TEST(Info, ReportsWhatCannotLoadAsFileLineAndExitsWithOne) {
  qmtest::TempFolder temp;
  temp.Write(
      "Broken.vbp",
      "Type=Exe\r\nModule=modGone; modGone.bas\r\nClass=CKept; CKept.cls\r\nName=\"Broken\"\r\n");
  temp.Write("CKept.cls",
             "VERSION 1.0 CLASS\r\nBEGIN\r\n  MultiUse = -1  'True\r\nEND\r\n"
             "Attribute VB_Name = \"CKept\"\r\nOption Explicit\r\n");
  Result r = Quillmark({"info", (temp.Path() / "Broken.vbp").string()});
  EXPECT_EQ(r.status, 1);
  EXPECT_NE(r.err.find((temp.Path() / "Broken.vbp").string() + ":2: "), std::string::npos) << r.err;
  EXPECT_NE(r.out.find("CKept"), std::string::npos);  // what can load, loads
}

TEST(Usage, MistakesExitWithTwoAndSayWhat) {
  EXPECT_EQ(Quillmark({}).status, 2);
  Result unknown = Quillmark({"frobnicate"});
  EXPECT_EQ(unknown.status, 2);
  EXPECT_NE(unknown.err.find("unknown command 'frobnicate'"), std::string::npos);
  EXPECT_EQ(Quillmark({"info"}).status, 2);
  EXPECT_EQ(Quillmark({"info", "missing.vbp"}).status, 2);
  EXPECT_EQ(Quillmark({"info", (kSamples / "README.md").string()}).status, 2);
  EXPECT_EQ(Quillmark({"info", (kSamples / "Ledger.vbg").string(), "--codepage", "437"}).status, 2);
  EXPECT_EQ(Quillmark({"info", (kSamples / "Ledger.vbg").string(), "--codepage", "x"}).status, 2);
  EXPECT_EQ(Quillmark({"resave", (kSamples / "Ledger.vbg").string()}).status, 2);  // no --to
}

TEST(Resave, WritesEverySampleFileBackIdenticallyUnderTheCommonFolder) {
  qmtest::TempFolder temp;
  Result r =
      Quillmark({"resave", (kSamples / "Ledger.vbg").string(), "--to", temp.Path().string()});
  ASSERT_EQ(r.status, 0) << r.err;
  auto written = FilesBelow(temp.Path());
  auto expected = FilesBelow(kSamples);
  std::erase(expected, fs::path("README.md"));  // not part of the group
  EXPECT_EQ(written, expected);
  for (auto& file : expected)
    EXPECT_EQ(qmtest::TempFolder::Read(temp.Path() / file),
              qmtest::TempFolder::Read(kSamples / file))
        << file;
}

TEST(Resave, KeepsTheFormatOdditiesOfASingleProject) {
  // LF-only lines, no final terminator, a member attribute and a cp1252 byte, in one project.
  qmtest::TempFolder source, target;
  std::string vbp = "Type=Exe\r\nModule=modOdd; src\\modOdd.bas\r\nName=\"Odd\"\r\n";
  std::string bas =
      "Attribute VB_Name = \"modOdd\"\nPublic Function Total() As Long\nAttribute "
      "Total.VB_Description = "
      "\"Sum \xE9\"\n  Total = 1\nEnd Function";
  source.Write("proj/Odd.vbp", vbp);
  source.Write("proj/src/modOdd.bas", bas);
  Result r = Quillmark(
      {"resave", (source.Path() / "proj/Odd.vbp").string(), "--to", target.Path().string()});
  ASSERT_EQ(r.status, 0) << r.err;
  EXPECT_EQ(qmtest::TempFolder::Read(target.Path() / "Odd.vbp"), vbp);
  EXPECT_EQ(qmtest::TempFolder::Read(target.Path() / "src/modOdd.bas"), bas);
}

TEST(Resave, AMissingCompanionIsAWarningAndEverythingIsStillWritten) {
  qmtest::TempFolder source, target;
  std::string vbp = "Type=Exe\r\nForm=frmLogo.frm\r\nName=\"Logo\"\r\n";
  std::string frm =
      "VERSION 5.00\r\nBegin VB.Form frmLogo \r\n   Icon            =   "
      "\"frmLogo.frx\":0000\r\nEnd\r\n"
      "Attribute VB_Name = \"frmLogo\"\r\n";
  source.Write("Logo.vbp", vbp);
  source.Write("frmLogo.frm", frm);
  Result r =
      Quillmark({"resave", (source.Path() / "Logo.vbp").string(), "--to", target.Path().string()});
  EXPECT_EQ(r.status, 1);  // a problem was reported
  EXPECT_NE(r.err.find((source.Path() / "frmLogo.frm").string() + ":3: "), std::string::npos)
      << r.err;
  EXPECT_NE(r.err.find("companion"), std::string::npos);
  EXPECT_EQ(qmtest::TempFolder::Read(target.Path() / "frmLogo.frm"), frm);
  EXPECT_EQ(qmtest::TempFolder::Read(target.Path() / "Logo.vbp"), vbp);
}

}  // namespace
