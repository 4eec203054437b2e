// quillmark::docResults: the commands on the rows: replace and export.
#include "addin/Fields.h"
#include "addin/ResumeNext.h"
#include "dialogs/CommonDialog.h"
#include "runtime/CodePage.h"
#include "runtime/FileSystem.h"
#include "runtime/VbStrings.h"
#include "search/ResultColumns.h"
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
    auto searchLength = static_cast<std::int32_t>(searchText.size());
    auto replaceLength = static_cast<std::int32_t>(replaceText.size());
    int codeColumn = 0;  // 1-based; 0 when no column shows the code
    for (int c = 1; c <= lvwSearch.ColumnHeaders().Count(); ++c)
      if (lvwSearch.ColumnHeaders().Item(c).Text() == kColumnCode) codeColumn = c;

    // From the last row up, so that removing a row leaves the rows still to come in place.
    for (int i = items.Count(); i >= 1; --i) {
      auto& row = items.Item(i);
      if (replaceAll || row.Selected()) {
        std::u16string line(row.Tag());
        // An empty search text would insert the replacement forever; it replaces nothing.
        std::int32_t at = searchText.empty() ? 0 : search.MatchText(line, 1);
        while (at != 0) {
          line = vb::Left(line, at - 1) + replaceText + vb::Mid(line, at + searchLength);
          // Resumes after the inserted text, and stops at the first occurrence that fails the
          // options as they are checked now. Intended.
          at = search.MatchText(line, at + replaceLength);
        }
        std::u16string_view key = row.Key();
        // The row's text is written even when nothing was replaced, over any later edit of
        // that line. Intended.
        Obj(main.gVBInstance->VBProjects()
                ->Item(GetField(key, 0, u"|"))
                ->VBComponents()
                ->Item(GetField(key, 1, u"|"))
                ->CodeModule())
            .ReplaceLine(static_cast<int>(vb::Val(GetField(key, 3, u"|"))), line);
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
