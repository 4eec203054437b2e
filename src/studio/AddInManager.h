// studio::AddInManager: the Add-Ins > Add-In Manager dialog: the add-ins of vbaddin.ini with
// their load behaviour; OK connects, disconnects and records the choices.
#pragma once

#include <QDialog>
#include <string>
#include <vector>

class QCheckBox;
class QTableWidget;

namespace studio {

class Studio;

class AddInManager final : public QDialog {
  Q_OBJECT
 public:
  AddInManager(Studio& studio, QWidget* parent = nullptr);

  int RowOf(const std::string& progId) const;
  // What the two check boxes say for `row` (as the user ticks them).
  void SetChoice(int row, bool loaded, bool loadOnStartup);
  QString BehaviourText(int row) const;  // "Loaded", "Startup / Loaded", "Unloaded" ...
  void accept() override;

 private:
  struct Choice {
    std::string progId;
    bool loaded;
    bool loadOnStartup;
  };
  void ShowRow(int row);
  void CurrentChanged();

  Studio& studio_;
  std::vector<Choice> choices_;
  QTableWidget* table_;
  QCheckBox* loaded_;
  QCheckBox* startup_;
};

}  // namespace studio
