// CommonDialog over the platform's dialogs: buffers, file name parts, cancelling, failures with
// extended errors, and the colour, font, printer and help calls.
#include <gtest/gtest.h>

#include "dialogs/CommonDialog.h"
#include "runtime/CodePage.h"
#include "runtime/Runtime.h"
#include "runtime/ScriptError.h"

namespace {

using quillmark::CommonDialog;
using Kind = vb::HeadlessPlatformDialogs::Kind;

class CommonDialogs : public ::testing::Test {
 protected:
  CommonDialogs() { runtime->SetDialogs(platform); }
  std::shared_ptr<vb::Runtime> runtime = vb::Runtime::CreateHeadless();
  std::shared_ptr<vb::HeadlessPlatformDialogs> platform =
      std::make_shared<vb::HeadlessPlatformDialogs>();
  CommonDialog dialog{*runtime};
};

TEST_F(CommonDialogs, FileBuffersArePaddedToTheirSizeWith255ByDefault) {
  dialog.SetFileName(u"old.txt");
  dialog.SetFilter(std::u16string(u"All (*.*)") + u'\0' + u"*.*");
  dialog.SetInitDir(u"/home");
  dialog.SetDialogTitle(u"Open it");
  dialog.SetFlags(4);
  dialog.SethWndOwner(77);
  dialog.SetFilterIndex(2);
  platform->ScriptFile(u"/home/a.txt");
  dialog.ShowOpen();
  auto& sent = platform->Calls().at(0).file;
  ASSERT_EQ(sent.file.size(), 255u);
  EXPECT_EQ(sent.file.substr(0, 8), u"old.txt ");
  EXPECT_EQ(sent.file[253], u' ');
  EXPECT_EQ(sent.file[254], u'\0');
  EXPECT_EQ(sent.fileTitle, std::u16string(254, u' ') + u'\0');
  EXPECT_EQ(sent.filter, std::u16string(u"All (*.*)") + u'\0' + u"*.*");
  EXPECT_EQ(sent.initialDir, u"/home");
  EXPECT_EQ(sent.title, u"Open it");
  EXPECT_EQ(sent.flags, 4);
  EXPECT_EQ(sent.owner, 77);
  EXPECT_EQ(sent.filterIndex, 2);
  EXPECT_EQ(dialog.Action(), CommonDialog::kOpen);

  dialog.SetMaxFileSize(40);
  platform->ScriptFile(u"/home/b.txt");
  dialog.ShowSave();
  EXPECT_EQ(platform->Calls().at(1).file.file.size(), 40u);
  EXPECT_EQ(platform->Calls().at(1).kind, Kind::Save);
}

TEST_F(CommonDialogs, TheChosenFileIsSplitIntoTitlePrefixAndSuffix) {
  platform->ScriptFile(u"C:\\Data\\report.txt");
  dialog.ShowSave();
  EXPECT_FALSE(dialog.Cancelled());
  EXPECT_EQ(dialog.APIReturn(), 1);
  EXPECT_EQ(dialog.FileName(), u"C:\\Data\\report.txt");
  EXPECT_EQ(dialog.FileTitle(), u"report.txt");
  EXPECT_EQ(dialog.FileSuffix(), u"txt");
  EXPECT_EQ(dialog.FilePrefix(), u"report");
}

// The texts pass through the ANSI code page both ways, as through the platform's "A" functions:
// what the page lacks turns into "?", in what is sent and in what comes back.
TEST_F(CommonDialogs, TextsGoThroughTheAnsiCodePageBothWays) {
  dialog.SetFileName(u"Zürich Отчёт.txt");
  dialog.SetDialogTitle(u"Экспорт");
  platform->ScriptFile(u"/tmp/Отчёт café.txt");
  dialog.ShowSave();
  auto& sent = platform->Calls().at(0).file;
  EXPECT_EQ(sent.file.substr(0, 16), u"Zürich ?????.txt");
  EXPECT_EQ(sent.title, u"???????");
  EXPECT_EQ(dialog.FileName(), u"/tmp/????? café.txt");
  EXPECT_EQ(dialog.FileTitle(), u"????? café.txt");

  dialog.SetAnsiCodePage(*vb::CodePage::Find(1251));  // Cyrillic: the Russian comes through
  platform->ScriptFile(u"/tmp/Отчёт.txt");
  dialog.ShowSave();
  EXPECT_EQ(platform->Calls().at(1).file.title, u"Экспорт");
  EXPECT_EQ(dialog.FileName(), u"/tmp/Отчёт.txt");
}

TEST_F(CommonDialogs, TheDefaultExtensionIsAddedWhenNoneIsTyped) {
  dialog.SetDefaultExt(u"txt");
  platform->ScriptFile(u"/out/results");
  dialog.ShowSave();
  EXPECT_EQ(dialog.FileName(), u"/out/results.txt");
  EXPECT_EQ(dialog.FileSuffix(), u"txt");
}

TEST_F(CommonDialogs, CancellingKeepsEveryPropertyAndALaterChoiceClearsTheFlag) {
  dialog.SetFileName(u"keep.txt");
  platform->ScriptCancel();
  dialog.ShowOpen();
  EXPECT_TRUE(dialog.Cancelled());
  EXPECT_EQ(dialog.FileName(), u"keep.txt");
  EXPECT_EQ(dialog.ExtendedError(), 0);
  platform->ScriptFile(u"/x/new.bas");
  dialog.ShowOpen();
  EXPECT_FALSE(dialog.Cancelled());
  EXPECT_EQ(dialog.FileName(), u"/x/new.bas");
}

TEST_F(CommonDialogs, APathLongerThanTheBufferFailsAsAPlainZero) {
  dialog.SetMaxFileSize(10);
  dialog.SetFileName(u"a");
  platform->ScriptFile(u"/a/much/longer/path.txt");
  dialog.ShowOpen();
  // The platform returns 0; the class then fetches no extended error.
  EXPECT_TRUE(dialog.Cancelled());
  EXPECT_EQ(dialog.ExtendedError(), 0);
  EXPECT_EQ(dialog.FileName(), u"a");
  EXPECT_EQ(platform->CommDlgExtendedError(), vb::kFnErrBufferTooSmall);
}

TEST_F(CommonDialogs, AReturnOtherThanZeroOrOneFetchesTheExtendedErrorAndCopiesNothing) {
  dialog.SetFileName(u"keep.txt");
  vb::DialogAnswer odd;
  odd.result = 2;
  odd.extendedError = 0x3002;
  odd.path = u"/x/other.txt";
  platform->Script(odd);
  dialog.ShowOpen();
  EXPECT_FALSE(dialog.Cancelled());
  EXPECT_EQ(dialog.APIReturn(), 2);
  EXPECT_EQ(dialog.ExtendedError(), 0x3002);
  EXPECT_EQ(dialog.FileName(), u"keep.txt");
}

TEST_F(CommonDialogs, ColourFontAndPrinterGoInAndComeBack) {
  dialog.SetColor(0x112233);
  vb::DialogAnswer colour;
  colour.color = 0xFF0000;
  platform->Script(colour);
  dialog.ShowColor();
  EXPECT_EQ(platform->Calls().back().color.color, 0x112233u);
  EXPECT_EQ(dialog.Color(), 0xFF0000u);
  EXPECT_EQ(dialog.Action(), CommonDialog::kColor);

  dialog.SetFontName(u"Courier New");
  dialog.SetFontSize(10);
  dialog.SetFontBold(true);
  vb::DialogAnswer font;
  std::string face = "Arial";
  std::copy(face.begin(), face.end(), font.font.faceName.begin());
  font.font.pointSizeTenths = 120;
  font.font.weight = 400;
  font.font.italic = true;
  platform->Script(font);
  dialog.ShowFont();
  auto& sentFont = platform->Calls().back().font;
  EXPECT_EQ(std::string(reinterpret_cast<const char*>(sentFont.faceName.data())), "Courier New");
  EXPECT_EQ(sentFont.pointSizeTenths, 100);
  EXPECT_EQ(sentFont.weight, 700);
  EXPECT_EQ(dialog.FontName(), u"Arial");
  EXPECT_EQ(dialog.FontSize(), 12);
  EXPECT_FALSE(dialog.FontBold());
  EXPECT_TRUE(dialog.FontItalic());

  dialog.SethWndOwner(55);
  dialog.SetFromPage(1);
  dialog.SetToPage(3);
  dialog.SetCopies(1);
  vb::DialogAnswer print;
  print.print.fromPage = 2;
  print.print.toPage = 5;
  print.print.copies = 3;
  platform->Script(print);
  dialog.ShowPrinter();
  auto& sentPrint = platform->Calls().back().print;
  EXPECT_EQ(sentPrint.deviceContext, 55);  // the owner rides in the device-context field
  EXPECT_EQ(sentPrint.owner, 0);
  EXPECT_EQ(sentPrint.toPage, 3);
  EXPECT_EQ((std::vector<int>{dialog.FromPage(), dialog.ToPage(), dialog.Copies()}),
            (std::vector<int>{2, 5, 3}));
}

TEST_F(CommonDialogs, HelpPassesTheFileAndCommandAndKeepsTheReturn) {
  dialog.SetHelpFile(u"/help/tools.hlp");
  dialog.SetHelpCommand(3);
  platform->Script(vb::DialogAnswer{});
  dialog.ShowHelp();
  EXPECT_EQ(dialog.Action(), CommonDialog::kHelp);
  EXPECT_EQ(dialog.APIReturn(), 1);
  EXPECT_EQ(platform->Calls().back().helpFile, u"/help/tools.hlp");
  EXPECT_EQ(platform->Calls().back().helpCommand, 3);
}

TEST_F(CommonDialogs, ADialogWithNoAnswerScriptedFailsFast) {
  EXPECT_THROW(dialog.ShowSave(), vb::ScriptError);
}

}  // namespace
