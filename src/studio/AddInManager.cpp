// studio::AddInManager.
#include "studio/AddInManager.h"

#include <QCheckBox>
#include <QDialogButtonBox>
#include <QGroupBox>
#include <QHBoxLayout>
#include <QHeaderView>
#include <QTableWidget>
#include <QVBoxLayout>

#include "host/Addins.h"
#include "runtime/Utf.h"
#include "studio/QtText.h"
#include "studio/Studio.h"

namespace studio {

AddInManager::AddInManager(Studio& studio, QWidget* parent)
    : QDialog(parent),
      studio_(studio),
      table_(new QTableWidget(0, 2)),
      loaded_(new QCheckBox(tr("&Loaded/Unloaded"))),
      startup_(new QCheckBox(tr("Load on &Startup"))) {
  setWindowTitle(tr("Add-In Manager"));
  for (auto& entry : studio_.AddIns().Entries())
    choices_.push_back({entry.progId, studio_.IsLoaded(entry.progId), entry.loadOnStartup});
  table_->setHorizontalHeaderLabels({tr("Available Add-Ins"), tr("Load Behavior")});
  table_->horizontalHeader()->setSectionResizeMode(0, QHeaderView::Stretch);
  table_->horizontalHeader()->setSectionResizeMode(1, QHeaderView::ResizeToContents);
  table_->verticalHeader()->hide();
  table_->setSelectionBehavior(QAbstractItemView::SelectRows);
  table_->setSelectionMode(QAbstractItemView::SingleSelection);
  table_->setEditTriggers(QAbstractItemView::NoEditTriggers);
  table_->setRowCount(static_cast<int>(choices_.size()));
  for (int row = 0; row < table_->rowCount(); ++row) {
    const auto& progId = choices_[static_cast<std::size_t>(row)].progId;
    auto addIn = studio_.Desk().ide->AddinList()->Find(vb::FromUtf8(progId));
    std::u16string description = addIn ? addIn->Description() : std::u16string();
    table_->setItem(row, 0,
                    new QTableWidgetItem(description.empty() ? QString::fromStdString(progId)
                                                             : ToQt(description)));
    table_->setItem(row, 1, new QTableWidgetItem);
    ShowRow(row);
  }
  auto* behaviour = new QGroupBox(tr("Load Behavior"));
  auto* checks = new QHBoxLayout(behaviour);
  checks->addWidget(loaded_);
  checks->addWidget(startup_);
  auto* buttons = new QDialogButtonBox(QDialogButtonBox::Ok | QDialogButtonBox::Cancel);
  auto* layout = new QVBoxLayout(this);
  layout->addWidget(table_);
  layout->addWidget(behaviour);
  layout->addWidget(buttons);
  connect(buttons, &QDialogButtonBox::accepted, this, &AddInManager::accept);
  connect(buttons, &QDialogButtonBox::rejected, this, &AddInManager::reject);
  connect(table_, &QTableWidget::currentCellChanged, this, [this] { CurrentChanged(); });
  auto edited = [this] {
    if (int row = table_->currentRow(); row >= 0)
      SetChoice(row, loaded_->isChecked(), startup_->isChecked());
  };
  connect(loaded_, &QCheckBox::toggled, this, edited);
  connect(startup_, &QCheckBox::toggled, this, edited);
  if (!choices_.empty()) table_->setCurrentCell(0, 0);
  CurrentChanged();
  resize(520, 320);
}

int AddInManager::RowOf(const std::string& progId) const {
  for (std::size_t i = 0; i < choices_.size(); ++i)
    if (choices_[i].progId == progId) return static_cast<int>(i);
  return -1;
}

void AddInManager::SetChoice(int row, bool loaded, bool loadOnStartup) {
  auto& choice = choices_.at(static_cast<std::size_t>(row));
  choice.loaded = loaded;
  choice.loadOnStartup = loadOnStartup;
  ShowRow(row);
}

QString AddInManager::BehaviourText(int row) const {
  const auto& choice = choices_.at(static_cast<std::size_t>(row));
  QString state = choice.loaded ? tr("Loaded") : tr("Unloaded");
  return choice.loadOnStartup ? tr("Startup / ") + state : state;
}

void AddInManager::ShowRow(int row) {
  table_->item(row, 1)->setText(BehaviourText(row));
}

void AddInManager::CurrentChanged() {
  int row = table_->currentRow();
  bool any = row >= 0;
  loaded_->setEnabled(any);
  startup_->setEnabled(any);
  if (!any) return;
  const auto& choice = choices_[static_cast<std::size_t>(row)];
  QSignalBlocker a(loaded_), b(startup_);
  loaded_->setChecked(choice.loaded);
  startup_->setChecked(choice.loadOnStartup);
}

void AddInManager::accept() {
  for (auto& choice : choices_)
    studio_.ApplyAddInChoice(choice.progId, choice.loaded, choice.loadOnStartup);
  QDialog::accept();
}

}  // namespace studio
