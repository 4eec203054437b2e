// vb::ListView: the report-view list of rows and columns, with sorting and label editing.
#pragma once

#include <functional>
#include <string>
#include <vector>

#include "runtime/VbConstants.h"
#include "runtime/forms/ColumnHeaders.h"
#include "runtime/forms/Control.h"
#include "runtime/forms/ListItems.h"

namespace vb {

class ImageList;

// SortKey counts columns from 0 (0 sorts by the item's text, k by SubItems(k)); SortOrder is
// lvwAscending or lvwDescending. Setting Sorted, SortKey or SortOrder while Sorted is on sorts.
// The extended style (full-row select is bit 32) is read and written through the window
// system's SendMessage, as the add-in does on Windows.
class ListView : public Control {
 public:
  ListView(FormBase& owner, std::u16string name, int index = -1);
  std::u16string_view TypeName() const override { return u"ListView"; }

  vb::ListItems& ListItems() { return items_; }
  vb::ColumnHeaders& ColumnHeaders() { return columns_; }
  const vb::ColumnHeaders& ColumnHeaders() const { return columns_; }

  int View() const { return view_; }
  void SetView(int value);  // 3 = report
  bool MultiSelect() const { return multiSelect_; }
  void SetMultiSelect(bool value);
  int LabelEdit() const { return labelEdit_; }
  void SetLabelEdit(int value);  // 0 automatic, 1 manual
  bool HideSelection() const { return hideSelection_; }
  void SetHideSelection(bool value) { hideSelection_ = value; }
  ImageList* SmallIcons() const { return smallIcons_; }
  void SetSmallIcons(ImageList* images);

  bool Sorted() const { return sorted_; }
  void SetSorted(bool value);
  int SortKey() const { return sortKey_; }
  void SetSortKey(int value);  // error 380 below 0
  int SortOrder() const { return sortOrder_; }
  void SetSortOrder(int value);

  // The selected row (the last one selected when several are); null for none.
  ListItem* SelectedItem() const { return selected_; }
  void SetSelectedItem(ListItem* item);
  int ExtendedStyle() const { return exStyle_; }

  // Starts editing the selected row's label: BeforeLabelEdit may cancel; the edit then waits
  // for the user to commit (AfterLabelEdit) or cancel it. Error 5 when no row is selected.
  void StartLabelEdit();
  ListItem* EditingItem() const { return editing_; }

  std::function<void(ColumnHeader& column)> ColumnClick;
  std::function<void(ListItem& item)> ItemClick;
  std::function<void(int& cancel)> BeforeLabelEdit;
  std::function<void(int& cancel, std::u16string& newString)> AfterLabelEdit;

  // User actions. Rows count from 1. Selecting rows selects exactly those (all but the last
  // are ignored without MultiSelect), then raises ItemClick for the last and Click.
  void UserSelectRows(const std::vector<int>& rows);
  void UserDblClickRow(int row);
  void UserColumnClick(int column);
  // Automatic label editing of a row: the user selects it and types a new label.
  void UserEditLabel(int row, std::u16string newText);
  // Ends the edit in progress with the typed text (AfterLabelEdit may refuse it) or abandons it.
  void UserCommitLabel(std::u16string newText);
  void UserCancelLabelEdit();

 private:
  friend class vb::ListItems;
  friend class vb::ListItem;
  void SortNow();
  bool Commit(std::u16string newText);
  std::intptr_t OnMessage(int message, std::intptr_t wParam, std::intptr_t lParam);

  vb::ListItems items_;
  vb::ColumnHeaders columns_;
  int view_ = 3;
  bool multiSelect_ = false;
  int labelEdit_ = 0;
  bool hideSelection_ = true;
  ImageList* smallIcons_ = nullptr;
  bool sorted_ = false;
  int sortKey_ = 0;
  int sortOrder_ = lvwAscending;
  int exStyle_ = 0;
  ListItem* selected_ = nullptr;
  ListItem* editing_ = nullptr;
};

}  // namespace vb
