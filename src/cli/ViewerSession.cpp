// cli::ViewerSession.
#include "cli/ViewerSession.h"

#include <charconv>
#include <optional>

#include "cli/ComponentChanges.h"
#include "cli/TourSteps.h"
#include "cli/Workspace.h"
#include "runtime/CaseFold.h"
#include "runtime/CodePage.h"
#include "runtime/UserActions.h"
#include "runtime/Utf.h"
#include "vbide/VBComponent.h"
#include "vbide/VBE.h"
#include "vbide/VBProject.h"
#include "viewer/ViewerRows.h"

namespace cli {
namespace {

constexpr int kEnter = 13;
constexpr int kRightButton = 2;

// "Text1" is (Text1, -1); "Option1(2)" is (Option1, 2).
std::pair<std::u16string, int> ParseControl(const std::string& text) {
  auto open = text.find('(');
  if (open == std::string::npos) return {vb::FromUtf8(text), -1};
  std::string digits = text.substr(open + 1);
  int index = -1;
  auto [end, ec] = std::from_chars(digits.data(), digits.data() + digits.size(), index);
  if (ec != std::errc() || index < 0 || std::string_view(end) != ")")
    throw UsageError("--control '" + text + "' is not NAME or NAME(INDEX)");
  return {vb::FromUtf8(text.substr(0, open)), index};
}

}  // namespace

ViewerSession::ViewerSession(const Args& args, std::ostream& err) {
  if (args.Positional().size() != 1) throw UsageError("expected FILE");
  auto path = args.Option("component");
  if (!path) throw UsageError("needs --component PROJECT/MODULE");
  int codePage = args.IntOption("codepage", 1252);
  if (!vb::CodePage::Find(codePage))
    throw UsageError("unsupported code page " + std::to_string(codePage));
  desk_ = composition::MakeDesk(composition::ConfigFolder(args.Option("config-dir")), codePage);
  loadProblems_ = OpenInDesk(*desk_, args.Positional()[0], err);
  component_ = FindComponent(*desk_, *path);
  project_ = component_->Collection()->Parent();
  label_ = vb::ToUtf8(project_->Name() + u"/" + component_->Name());
  desk_->ConnectAtStartup();
  if (!desk_->Addin()) throw UsageError("the add-in did not connect");
  desk_->Addin()->Menu_ListView_Click();
  desk_->ide->SelectComponent(component_);
}

ViewerSession::~ViewerSession() = default;

quillmark::docListView& ViewerSession::Viewer() const {
  return *desk_->Addin()->Main().gdocListView;
}

void ViewerSession::Show(const std::u16string& text) {
  vb::UserActions ui(Viewer());
  ui.Type(u"cboListView", text);
  ui.PressKey(u"cboListView", kEnter);
}

std::vector<ViewerSession::Row> ViewerSession::Rows() const {
  std::vector<Row> rows;
  auto& items = Viewer().lvwExplorer.ListItems();
  for (int i = 1; i <= items.Count(); ++i) {
    auto& item = items.Item(i);
    rows.push_back({std::u16string(item.Key()), std::u16string(item.Text()),
                    std::u16string(item.SmallIcon())});
  }
  return rows;
}

bool ViewerSession::SelectRow(std::u16string_view key) {
  auto& list = Viewer().lvwExplorer;
  auto* item = list.ListItems().Find(key);
  if (!item) return false;
  list.SetSelectedItem(item);
  return true;
}

void ViewerSession::PopupCommand(std::u16string_view menu) {
  vb::UserActions ui(Viewer());
  ui.MouseUp(u"lvwExplorer", kRightButton);
  ui.Click(menu);
}

ViewerSession::Target ViewerSession::SelectTarget(const Args& args) {
  using quillmark::viewer::RowKey;
  auto member = args.Option("member");
  auto control = args.Option("control");
  if (member.has_value() == control.has_value())
    throw UsageError("needs one of --member NAME and --control NAME[(INDEX)]");
  // The first row of the list with `tag` and `name`, and `index` unless it is kAnyIndex.
  constexpr int kAnyIndex = -2;
  auto find = [&](RowKey::Tag tag, std::u16string_view name,
                  int index) -> std::optional<std::u16string> {
    for (auto& row : Rows()) {
      RowKey key = RowKey::Parse(row.key);
      if (key.tag == tag && vb::EqualsText(key.name, name) &&
          (index == kAnyIndex || key.number == index))
        return row.key;
    }
    return std::nullopt;
  };
  if (member) {
    std::u16string name = vb::FromUtf8(*member);
    for (std::size_t view = 1; view < quillmark::viewer::kViewCaptions.size(); ++view) {
      Show(std::u16string(quillmark::viewer::kViewCaptions[view]));
      if (auto key = find(RowKey::Tag::Member, name, kAnyIndex)) {
        SelectRow(*key);
        return {*key, *member, false};
      }
    }
    throw Refused("--member " + *member + ": " + label_ + " has no member of that name");
  }
  auto [name, index] = ParseControl(*control);
  Show(std::u16string(quillmark::viewer::kViewCaptions[quillmark::viewer::kControlsView]));
  if (auto key = find(RowKey::Tag::Control, name, index)) {
    SelectRow(*key);
    return {*key, *control, true};
  }
  if (index < 0 && find(RowKey::Tag::Control, name, kAnyIndex))
    throw Refused("--control " + *control + ": a control array; name one element, as " + *control +
                  "(INDEX)");
  throw Refused("--control " + *control + ": " + label_ + " has no control of that name");
}

bool IsVbName(std::u16string_view name, int codePage, std::string& why) {
  auto isLetter = [](char16_t c) {
    bool ascii = (c >= u'A' && c <= u'Z') || (c >= u'a' && c <= u'z');
    bool surrogate = c >= 0xD800 && c <= 0xDFFF;  // an undecodable byte, or beyond UCS-2
    bool blank = c == 0x00A0 || c == 0x3000 || c == 0xFEFF;
    return ascii || (c > 0x7F && !surrogate && !blank);
  };
  auto isDigit = [](char16_t c) { return c >= u'0' && c <= u'9'; };
  if (name.empty()) {
    why = "a name cannot be empty";
    return false;
  }
  if (!isLetter(name.front())) {
    why = "a name begins with a letter";
    return false;
  }
  for (char16_t c : name) {
    if (isLetter(c) || isDigit(c) || c == u'_') continue;
    why = "a name holds only letters, digits and \"_\", not \"" + vb::ToUtf8(std::u16string(1, c)) +
          "\"";
    return false;
  }
  std::string bytes;
  std::size_t unmappable = 0;
  vb::CodePage::Find(codePage)->Encode(name, bytes, &unmappable);
  if (unmappable > 0) {
    why = "code page " + std::to_string(codePage) + " cannot write it";
    return false;
  }
  return true;
}

int ViewerSession::EditAndSave(const Args& args, std::ostream& out, std::ostream& err,
                               const std::function<void()>& edit) {
  int problems = loadProblems_;
  try {
    edit();
  } catch (const Refused& e) {
    err << "quillmark: " << e.what() << "\nquillmark: nothing was saved\n";
    return 1;
  }
  if (!args.Flag("dry-run")) problems += SaveChanged(*desk_->ide, out, err);
  problems += FinishAndReportSettings(*desk_, err);
  return problems == 0 ? 0 : 1;
}

}  // namespace cli
