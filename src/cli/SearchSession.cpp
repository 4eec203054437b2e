// cli::SearchSession: driving the search dialog by its controls, as a user would.
#include "cli/SearchSession.h"

#include <regex>

#include "cli/TourSteps.h"
#include "cli/Workspace.h"
#include "runtime/CaseFold.h"
#include "runtime/CodePage.h"
#include "runtime/Error.h"
#include "runtime/PlatformDialogs.h"
#include "runtime/UserActions.h"
#include "runtime/Utf.h"
#include "runtime/VbStrings.h"
#include "search/ResultRowKey.h"
#include "vbide/CodeModule.h"
#include "vbide/CodePane.h"
#include "vbide/VBComponent.h"
#include "vbide/VBE.h"
#include "vbide/VBProject.h"

namespace cli {
namespace {

std::string Utf8(std::u16string_view text) {
  return vb::ToUtf8(text);
}

}  // namespace

SearchSession::SearchSession(const Args& args, std::ostream& err) : args_(args) {
  if (args.Positional().size() != 2) throw UsageError("expected FILE and TEXT");
  int codePage = args.IntOption("codepage", 1252);
  if (!vb::CodePage::Find(codePage))
    throw UsageError("unsupported code page " + std::to_string(codePage));
  desk_ = composition::MakeDesk(composition::ConfigFolder(args.Option("config-dir")), codePage);
  desk_->runtime->SetDialogs(std::make_shared<vb::HeadlessPlatformDialogs>());
  loadProblems_ = OpenInDesk(*desk_, args.Positional()[0], err);
  desk_->ConnectAtStartup();
  if (!desk_->Addin()) throw UsageError("the add-in did not connect");
  ReportMessageBoxes(err);
}

SearchSession::~SearchSession() = default;

quillmark::frmSearch& SearchSession::Dialog() const {
  auto& dialog = *desk_->Addin()->Main().gfrmSearch;
  dialog.Load();
  return dialog;
}

quillmark::docResults& SearchSession::Results() const {
  desk_->Addin()->ShowResults();
  return *desk_->Addin()->Main().gdocResults;
}

bool SearchSession::Search(const std::u16string& text, std::ostream& err) {
  auto& dialog = Dialog();
  vb::UserActions ui(dialog);
  ui.SetCheck(u"chkMatchCase", args_.Flag("match-case") ? 1 : 0);
  ui.SetCheck(u"chkWholeWord", args_.Flag("whole-word") ? 1 : 0);
  ui.SetCheck(u"chkExcludeComments", args_.Flag("exclude-comments") ? 1 : 0);
  if (auto selection = args_.Option("selection")) {
    if (args_.Option("project") || args_.Option("module") || args_.Option("procedure"))
      throw UsageError("--selection cannot be combined with --project, --module or --procedure");
    SetSelection(*selection);
  } else {
    if (dialog.chkSelected.Enabled()) ui.SetCheck(u"chkSelected", 0);
    SetScope();
  }
  ui.Type(u"cboSearch", text);
  if (!dialog.cmdSearch.Enabled()) throw UsageError("the search text is empty");
  ui.Click(u"cmdSearch");
  return ReportMessageBoxes(err) == 0;
}

void SearchSession::SetScope() {
  auto& dialog = Dialog();
  std::u16string project =
      vb::FromUtf8(args_.Option("project").value_or(vb::ToUtf8(quillmark::kAllProjects)));
  PickEntry(dialog, dialog.cboProject, "project", project);
  auto module = args_.Option("module");
  auto procedure = args_.Option("procedure");
  bool allProjects = vb::EqualsText(project, quillmark::kAllProjects);
  if (module && allProjects) throw UsageError("--module needs --project");
  if (procedure && !module) throw UsageError("--procedure needs --module");
  if (allProjects) return;
  PickEntry(dialog, dialog.cboModule, "module",
            module ? vb::FromUtf8(*module) : std::u16string(quillmark::kAllModules));
  if (procedure) PickEntry(dialog, dialog.cboProcedure, "procedure", vb::FromUtf8(*procedure));
}

void SearchSession::SetSelection(const std::string& selection) {
  static const std::regex kForm(R"(^([^/]+)/([^:]+):(\d+):(\d+)-(\d+):(\d+)$)");
  std::smatch m;
  if (!std::regex_match(selection, m, kForm))
    throw UsageError("--selection '" + selection + "' is not PROJECT/MODULE:L1:C1-L2:C2");
  auto vbe = desk_->Addin()->Main().gVBInstance;
  try {
    auto code = vbe->VBProjects()
                    ->Item(vb::FromUtf8(m[1].str()))
                    ->VBComponents()
                    ->Item(vb::FromUtf8(m[2].str()))
                    ->CodeModule();
    if (!code) throw UsageError("--selection: " + m[1].str() + "/" + m[2].str() + " holds no code");
    auto pane = code->CodePane();
    pane->SetSelection(std::stoi(m[3].str()), std::stoi(m[4].str()), std::stoi(m[5].str()),
                       std::stoi(m[6].str()));
    pane->Show();
  } catch (const vb::Error& e) {
    throw UsageError("--selection '" + selection + "': " + Utf8(e.Description()));
  } catch (const std::out_of_range&) {
    throw UsageError("--selection '" + selection + "': a number is too large");
  }
  auto& dialog = Dialog();
  dialog.CheckSelected();
  if (!dialog.chkSelected.Enabled())
    throw UsageError("--selection '" + selection + "' selects nothing");
  vb::UserActions(dialog).SetCheck(u"chkSelected", 1);
}

int SearchSession::RowCount() const {
  return Results().lvwSearch.ListItems().Count();
}

void SearchSession::PrintRows(std::ostream& out) const {
  auto& list = Results().lvwSearch;
  int columns = list.ColumnHeaders().Count();
  for (int i = 1; i <= list.ListItems().Count(); ++i) {
    auto& row = list.ListItems().Item(i);
    std::u16string line(row.Text());
    for (int c = 2; c <= columns; ++c) line.append(u"\t").append(row.SubItems(c - 1));
    out << Utf8(line) << "\n";
  }
}

void SearchSession::PrintJson(std::ostream& out) const {
  auto& items = Results().lvwSearch.ListItems();
  for (int i = 1; i <= items.Count(); ++i) {
    auto& item = items.Item(i);
    auto row = quillmark::ResultRowKey::Parse(item.Key());
    out << "{\"project\":\"" << JsonString(row.project) << "\",\"module\":\""
        << JsonString(row.module) << "\",\"procedure\":\"" << JsonString(row.procedure)
        << "\",\"line\":" << row.line << ",\"text\":\"" << JsonString(item.Tag()) << "\"}\n";
  }
}

void SearchSession::PrintStatus(std::ostream& err) const {
  auto& bar = Results().sbarResults;
  err << Utf8(bar.Panels(1).text) << "\n" << Utf8(bar.Panels(2).text) << "\n";
}

int SearchSession::ReportMessageBoxes(std::ostream& err) const {
  auto& boxes = desk_->runtime->MessageBoxService();
  int count = static_cast<int>(boxes.Transcript().size());
  for (auto& box : boxes.Transcript())
    err << "quillmark: " << (box.title.empty() ? std::string("message") : Utf8(box.title)) << ": "
        << Utf8(box.prompt) << "\n";
  boxes.ClearTranscript();
  return count;
}

std::string JsonString(std::u16string_view text) {
  std::string out;
  out.reserve(text.size());
  auto hex = [&](char16_t unit) {
    static const char* digits = "0123456789abcdef";
    out += "\\u";
    for (int shift = 12; shift >= 0; shift -= 4) out += digits[(unit >> shift) & 0xF];
  };
  for (std::size_t i = 0; i < text.size(); ++i) {
    char16_t unit = text[i];
    bool high = unit >= 0xD800 && unit <= 0xDBFF;
    bool pairs = high && i + 1 < text.size() && text[i + 1] >= 0xDC00 && text[i + 1] <= 0xDFFF;
    if (pairs) {
      out += Utf8(text.substr(i, 2));
      ++i;
    } else if (unit >= 0xD800 && unit <= 0xDFFF) {
      hex(unit);  // undecodable bytes come out as \uDCxx, so nothing is lost
    } else if (unit == u'"' || unit == u'\\') {
      out += '\\';
      out += static_cast<char>(unit);
    } else if (unit < 0x20) {
      hex(unit);
    } else {
      out += Utf8(text.substr(i, 1));
    }
  }
  return out;
}

}  // namespace cli
