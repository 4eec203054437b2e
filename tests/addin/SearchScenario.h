// A connected add-in with its search dialog and results window at hand, and the readings a user
// makes of them: the rows as they would be exported, the status bar, the progress shown.
#pragma once

#include <memory>
#include <string>
#include <vector>

#include "runtime/PlatformDialogs.h"
#include "runtime/UserActions.h"
#include "runtime/Utf.h"
#include "runtime/forms/ControlPeer.h"
#include "search/docResults.h"
#include "search/frmSearch.h"
#include "support/AddinWorld.h"

namespace qmtest {

// Records every text panel 1 of the status bar shows.
class PanelRecorder : public vb::ControlPeer {
 public:
  explicit PanelRecorder(vb::StatusBar& bar) : bar_(bar) { bar_.SetPeer(this); }
  ~PanelRecorder() override { bar_.SetPeer(nullptr); }
  void Changed(vb::Property property) override {
    if (property != vb::Property::Panels) return;
    std::string text = vb::ToUtf8(bar_.Panels(1).text);
    if (shown.empty() || shown.back() != text) shown.push_back(text);
  }
  std::vector<std::string> shown;

 private:
  vb::StatusBar& bar_;
};

class SearchScenario {
 public:
  explicit SearchScenario(const IdeBuilder& projects) : world(projects) {
    world.runtime->SetDialogs(dialogs);
    world.ConnectLater();
  }

  quillmark::frmSearch& Dialog() {
    auto& form = *world.Main().gfrmSearch;
    form.Load();
    return form;
  }
  vb::UserActions DialogUser() { return vb::UserActions(Dialog()); }
  // The results window, created as the first search would create it.
  quillmark::docResults& Results() {
    return *world.Main().connect->ShowResults();
  }
  vb::UserActions ResultsUser() { return vb::UserActions(Results()); }

  // Picks the entry with this text in one of the dialog's scope lists.
  void PickScope(std::u16string_view combo, std::u16string_view text) {
    auto* box = dynamic_cast<vb::ComboBox*>(Dialog().FindControl(combo));
    for (int i = 0; i < box->ListCount(); ++i) {
      if (box->List(i) == text) return DialogUser().Pick(combo, i);
    }
    throw std::runtime_error("no entry " + vb::ToUtf8(text) + " in " + vb::ToUtf8(combo));
  }
  void SetOption(std::u16string_view box, bool checked) {
    DialogUser().SetCheck(box, checked ? 1 : 0);
  }
  // Types the text into the dialog's box and presses Search.
  void Search(std::u16string text) {
    auto user = DialogUser();
    user.Type(u"cboSearch", std::move(text));
    user.Click(u"cmdSearch");
  }

  // The rows as the export writes them: the row text, then a tab and each further column.
  std::vector<std::string> Rows() {
    std::vector<std::string> rows;
    auto& list = Results().lvwSearch;
    for (int i = 1; i <= list.ListItems().Count(); ++i) {
      auto& item = list.ListItems().Item(i);
      std::u16string row(item.Text());
      for (int c = 1; c < list.ColumnHeaders().Count(); ++c) row.append(u"\t").append(item.SubItems(c));
      rows.push_back(vb::ToUtf8(row));
    }
    return rows;
  }
  std::vector<std::string> Keys() {
    std::vector<std::string> keys;
    auto& items = Results().lvwSearch.ListItems();
    for (int i = 1; i <= items.Count(); ++i) keys.push_back(vb::ToUtf8(items.Item(i).Key()));
    return keys;
  }
  std::string Status(int panel) { return vb::ToUtf8(Results().sbarResults.Panels(panel).text); }

  AddinWorld world;
  std::shared_ptr<vb::HeadlessPlatformDialogs> dialogs =
      std::make_shared<vb::HeadlessPlatformDialogs>();
};

}  // namespace qmtest
