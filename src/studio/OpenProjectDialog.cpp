// studio::OpenProjectDialog.
#include "studio/OpenProjectDialog.h"

#include <QComboBox>
#include <QFileDialog>
#include <QGridLayout>
#include <QLabel>

namespace studio {

const std::vector<CodePageChoice>& CodePageChoices() {
  static const std::vector<CodePageChoice> kChoices = {
      {1252, "Western European"},
      {1250, "Central European"},
      {1251, "Cyrillic"},
      {1253, "Greek"},
      {1254, "Turkish"},
      {1255, "Hebrew"},
      {1256, "Arabic"},
      {1257, "Baltic"},
      {1258, "Vietnamese"},
      {874, "Thai"},
      {932, "Japanese"},
      {936, "Simplified Chinese"},
      {949, "Korean"},
      {950, "Traditional Chinese"},
      {65001, "UTF-8"},
  };
  return kChoices;
}

std::optional<ProjectToOpen> AskProjectToOpen(QWidget* parent, int codePage,
                                              const std::function<void(QFileDialog&)>& prepare) {
  QFileDialog dialog(parent, QObject::tr("Open Project"), {},
                     QObject::tr("Visual Basic projects (*.vbp *.vbg);;All files (*)"));
  dialog.setFileMode(QFileDialog::ExistingFile);
  // The desktop's own dialog cannot take the extra list.
  dialog.setOption(QFileDialog::DontUseNativeDialog);
  auto* pages = new QComboBox(&dialog);
  pages->setObjectName(QStringLiteral("codePage"));
  for (auto& choice : CodePageChoices()) {
    pages->addItem(QStringLiteral("%1 (%2)")
                       .arg(choice.number)
                       .arg(QString::fromLatin1(choice.name.data(), choice.name.size())),
                   choice.number);
  }
  pages->setCurrentIndex(std::max(0, pages->findData(codePage)));
  if (auto* grid = qobject_cast<QGridLayout*>(dialog.layout())) {
    int row = grid->rowCount();
    auto* label = new QLabel(QObject::tr("Code &page:"), &dialog);
    label->setBuddy(pages);
    grid->addWidget(label, row, 0);
    grid->addWidget(pages, row, 1);
  }
  if (prepare) prepare(dialog);
  if (dialog.exec() != QDialog::Accepted || dialog.selectedFiles().isEmpty()) return std::nullopt;
  return ProjectToOpen{std::filesystem::path(dialog.selectedFiles().front().toStdString()),
                       pages->currentData().toInt()};
}

}  // namespace studio
