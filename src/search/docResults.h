// quillmark::docResults: the "Search Results" tool window's document: the rows of a search, its
// progress and status, and the commands on the rows (open, sort, stop, replace, export).
#pragma once

#include <cstdint>
#include <memory>
#include <string>
#include <string_view>
#include <vector>

#include "runtime/UserDocument.h"
#include "runtime/forms/CommandButton.h"
#include "runtime/forms/ControlArray.h"
#include "runtime/forms/ImageList.h"
#include "runtime/forms/ListView.h"
#include "runtime/forms/PictureBox.h"
#include "runtime/forms/StatusBar.h"
#include "vbide/Fwd.h"

namespace vb {
class Runtime;
}

namespace quillmark {

class Connect;
struct mdlMain;

// A row's key is project, module, procedure and line joined by "|"; its tag is the line's
// untrimmed text. Lines count from 1.
class docResults final : public vb::UserDocument {
 public:
  explicit docResults(vb::Runtime& runtime);
  ~docResults() override;
  // The connection hands itself over when it creates the window; the columns, which live in
  // the add-in's settings, are loaded then.
  void SetConnect(Connect* connect);

  // Called by the search engine.
  void InitSearch();
  void AddResult(const vbide::VBProjectPtr& project, const vbide::VBComponentPtr& component,
                 int line, std::u16string_view code);
  std::int32_t ProgressMax() const { return progressMaximum_; }
  void SetProgressMax(std::int32_t value) { progressMaximum_ = value; }
  void IncrementProgressBar(std::int16_t step);
  void EndSearch();
  // Rebuilds the columns from the "Columns" setting (the Options dialog calls it too).
  void LoadColumnHeaders();

  vb::PictureBox picToolbar{*this, u"picToolbar"};
  // 0 search dialog, 1 stop, 2 replace, 3 export.
  vb::ControlArray<vb::CommandButton> cmdToolbar{*this, u"cmdToolbar", {0, 1, 2, 3}};
  vb::ListView lvwSearch{*this, u"lvwSearch"};
  vb::ImageList ImageList1{*this, u"ImageList1"};
  vb::StatusBar sbarResults{*this, u"sbarResults"};

 protected:
  void UserDocument_Show() override { Layout(); }
  void UserDocument_Resize() override { Layout(); }
  void UserDocument_Terminate() override;

 private:
  void cmdToolbar_Click(int index);
  void lvwSearch_DblClick();
  void lvwSearch_ColumnClick(vb::ColumnHeader& column);
  void Layout();
  void Export();
  void Replace();
  Connect& TheConnect() const;
  mdlMain& Main() const;

  vb::Runtime& runtime_;
  Connect* connect_ = nullptr;
  std::shared_ptr<vb::Runtime> sharedRuntime_;  // for saving the widths after the add-in is gone
  std::int32_t progressValue_ = 0;
  std::int32_t progressMaximum_ = 1;
  bool sortAscending_ = false;
  // Which row value each shown column displays, left to right (-1: none).
  std::vector<int> columnValues_;
  // The names of the component last added, so that a module's rows ask the IDE once.
  vbide::VBProjectPtr cachedProjectObject_;
  vbide::VBComponentPtr cachedComponent_;
  std::u16string cachedProject_, cachedModule_, cachedIcon_;
  vbide::CodeModulePtr cachedCode_;
  std::u16string key_;  // the row key being built, its room kept from row to row
};

}  // namespace quillmark
