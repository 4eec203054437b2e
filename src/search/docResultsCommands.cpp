// quillmark::docResults: the commands on the rows: replace and export.
#include "base/ResumeNext.h"
#include "dialogs/CommonDialog.h"
#include "runtime/CodePage.h"
#include "runtime/FileSystem.h"
#include "runtime/VbStrings.h"
#include "search/ReplaceRule.h"
#include "search/ResultColumns.h"
#include "search/ResultRowKey.h"
#include "search/docResults.h"
#include "search/frmReplace.h"
#include "search/frmSearch.h"
#include "vbide/CodeModule.h"
#include "vbide/VBComponent.h"
#include "vbide/VBE.h"
#include "vbide/VBProject.h"

namespace quillmark {
namespace {

constexpr std::u16string_view kReplaceErrorTitle = u"Replace Error";

// The code page files are written in: the active project's, else Windows-1252.
const vb::CodePage& ExportCodePage(mdlMain& main) {
  const vb::CodePage* page = nullptr;
  ResumeNext(
      [&] { page = vb::CodePage::Find(Obj(main.gVBInstance->ActiveVBProject()).CodePage()); });
  return page ? *page : vb::CodePage::Windows1252();
}

}  // namespace

void docResults::Export() {
  auto& main = Main();
  CommonDialog dialog(runtime_);
  dialog.SetAnsiCodePage(ExportCodePage(main));
  dialog.SetFilter(std::u16string(u"Text Files (*.txt)") + u'\0' + u"*.txt");
  dialog.SetDefaultExt(u"txt");
  dialog.ShowSave();
  if (dialog.Cancelled()) return;
  // Selected rows only, in list order, no header: the row text, then a tab and each sub-item.
  std::u16string text;
  auto& items = lvwSearch.ListItems();
  int columns = lvwSearch.ColumnHeaders().Count();
  for (int i = 1; i <= items.Count(); ++i) {
    auto& row = items.Item(i);
    if (!row.Selected()) continue;
    text += row.Text();
    for (int c = 2; c <= columns; ++c) text.append(u"\t").append(row.SubItems(c - 1));
    text += u"\r\n";
  }
  try {
    // Written whole: a file that cannot be opened gets nothing.
    runtime_.Files().WriteFile(dialog.FileName(), ExportCodePage(main).Encode(text));
  } catch (const vb::Error& e) {
    runtime_.MsgBox(e.Description(), vb::vbExclamation);
  }
}

void docResults::Replace() {
  try {
    auto& main = Main();
    auto& items = lvwSearch.ListItems();
    int selected = 0;
    for (int i = 1; i <= items.Count() && selected < 2; ++i)
      if (items.Item(i).Selected()) ++selected;
    bool replaceAll = selected < 2;
    std::u16string replaceText;
    if (!vb::New<frmReplace>(main)->Replace(replaceText, replaceAll)) return;

    auto& search = Obj(main.gfrmSearch);
    const std::u16string searchText = main.SearchText;
    LineMatcher match = [&](std::u16string_view line, std::int32_t start) {
      return search.MatchText(line, start);
    };
    int codeColumn = 0;  // 1-based; 0 when no column shows the code
    for (int c = 1; c <= lvwSearch.ColumnHeaders().Count(); ++c)
      if (lvwSearch.ColumnHeaders().Item(c).Text() == kColumnCode) codeColumn = c;

    // From the last row up, so that removing a row leaves the rows still to come in place.
    for (int i = items.Count(); i >= 1; --i) {
      auto& row = items.Item(i);
      if (replaceAll || row.Selected()) {
        // The options as they are checked now, which may differ from the search's. Intended.
        std::u16string line = ReplaceInLine(row.Tag(), searchText, replaceText, match);
        auto key = ResultRowKey::Parse(row.Key());
        // The row's text is written even when nothing was replaced, over any later edit of
        // that line. Intended.
        Obj(key.Component(Obj(main.gVBInstance))->CodeModule()).ReplaceLine(key.line, line);
        if (search.MatchText(line, 1) != 0) {
          if (codeColumn == 1) row.SetText(vb::Trim(line));
          if (codeColumn > 1) row.SetSubItems(codeColumn - 1, vb::Trim(line));
          row.SetTag(line);
        } else {
          items.Remove(i);
        }
      }
      sbarResults.SetPanelText(2, MatchingLinesText(items.Count()));
    }
  } catch (const vb::Error& e) {
    runtime_.MsgBox(e.Description(), vb::vbExclamation, kReplaceErrorTitle);
  }
}

}  // namespace quillmark
