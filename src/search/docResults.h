// quillmark::docResults: the "Search Results" tool window's document: the rows of a search, its
// progress and status, and the commands on the rows (open, sort, stop, replace, export).
#pragma once

#include <cstdint>
#include <memory>
#include <string>
#include <string_view>
#include <vector>

#include "base/ConnectRef.h"
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

struct mdlMain;

// A row's key is project, module, procedure and line joined by "|"; its tag is the line's
// untrimmed text. Lines count from 1.
class docResults final : public vb::UserDocument {
 public:
  explicit docResults(vb::Runtime& runtime);
  ~docResults() override;
  // The connection hands over a reference to itself when it creates the window; the columns,
  // which live in the add-in's settings, are loaded then.
  void SetConnect(ConnectRef connect);

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

  // cmdToolbar's buttons, by index.
  static constexpr int kSearchButton = 0;
  static constexpr int kStopButton = 1;
  static constexpr int kReplaceButton = 2;
  static constexpr int kExportButton = 3;

  vb::PictureBox picToolbar{*this, u"picToolbar"};
  vb::ControlArray<vb::CommandButton> cmdToolbar{
      *this, u"cmdToolbar", {kSearchButton, kStopButton, kReplaceButton, kExportButton}};
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
  // The add-in's state while connected; run-time error 91 once the connection is gone.
  mdlMain& Main() const { return connect_.Main(); }

  vb::Runtime& runtime_;
  ConnectRef connect_;
  bool connected_ = false;  // set once SetConnect ran: the widths are saved at termination
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
