// The common dialogs through Qt: what the user picks lands in the caller's record by the
// platform's rules (buffers, titles, offsets, default extension, errors).
#include <QColorDialog>
#include <QFileDialog>
#include <QFontDialog>
#include <QRadioButton>
#include <QSpinBox>
#include <algorithm>
#include <string>

#include "PeersFixture.h"
#include "runtime/PlatformDialogs.h"
#include "studio/peers/QtPlatformDialogs.h"
#include "support/TempFolder.h"

namespace {

template <class Dialog>
Dialog* ActiveDialog() {
  auto* dialog = qobject_cast<Dialog*>(QApplication::activeModalWidget());
  EXPECT_NE(dialog, nullptr);
  return dialog;
}

std::u16string Padded(std::u16string text, std::size_t size) {
  text.resize(size, u'\0');
  return text;
}

class PeersDialogsTest : public peerstest::PeersFixture {
 protected:
  vb::PlatformDialogs& Dialogs() { return runtime->Dialogs(); }
  qmtest::TempFolder folder;
};

TEST(NameFilters, PairsOfDescriptionAndPatternsBecomeQtFilters) {
  struct Case {
    std::u16string filter;
    QStringList expected;
  };
  const std::vector<Case> cases{
      {std::u16string(u"Basic files\0*.bas;*.cls\0All files (*.*)\0*.*\0", 44),
       {"Basic files (*.bas *.cls)", "All files (*.*)"}},
      {std::u16string(u"Text\0*.txt", 10), {"Text (*.txt)"}},
      {u"", {}},
      {std::u16string(u"Odd one out\0", 12), {}},
  };
  for (const auto& c : cases) EXPECT_EQ(studio::NameFiltersOf(c.filter), c.expected);
}

TEST_F(PeersDialogsTest, ASavedNameGetsTheDefaultExtensionAndItsOffsets) {
  vb::FileDialogRecord record;
  record.file = Padded(u"", 260);
  record.fileTitle = Padded(u"", 260);
  record.defaultExt = u"txt";
  record.filter = std::u16string(u"Text\0*.txt\0All\0*.*\0", 20);
  record.filterIndex = 2;
  record.initialDir = folder.Path().u16string();
  QString chosen = QString::fromStdString((folder.Path() / "results").string());
  QString title;
  QString filter;
  WhenModal([&] {
    auto* dialog = ActiveDialog<QFileDialog>();
    title = dialog->windowTitle();
    filter = dialog->selectedNameFilter();
    dialog->selectFile(chosen);
    static_cast<QDialog*>(dialog)->accept();
  });
  EXPECT_EQ(Dialogs().GetSaveFileName(record), 1);
  EXPECT_EQ(title, "Save As");
  EXPECT_EQ(filter, "All (*.*)");
  std::u16string path = folder.Path().u16string() + u"/results.txt";
  EXPECT_EQ(record.file.substr(0, path.size() + 1), path + u'\0');
  EXPECT_EQ(record.file.size(), 260u);  // the caller's buffer keeps its size
  EXPECT_EQ(record.fileTitle.substr(0, 12), std::u16string(u"results.txt\0", 12));
  EXPECT_EQ(record.fileOffset, static_cast<int>(path.size()) - 11);
  EXPECT_EQ(record.fileExtension, static_cast<int>(path.size()) - 3);
}

TEST_F(PeersDialogsTest, ABufferTooSmallFailsWithTheExtendedError) {
  vb::FileDialogRecord record;
  record.file = Padded(u"", 8);
  record.title = u"Open Log";
  QString title;
  WhenModal([&] {
    auto* dialog = ActiveDialog<QFileDialog>();
    title = dialog->windowTitle();
    dialog->selectFile(QString::fromStdString((folder.Path() / "a-long-name.log").string()));
    static_cast<QDialog*>(dialog)->accept();
  });
  EXPECT_EQ(Dialogs().GetOpenFileName(record), 0);
  EXPECT_EQ(title, "Open Log");
  EXPECT_EQ(Dialogs().CommDlgExtendedError(), vb::kFnErrBufferTooSmall);
  EXPECT_EQ(record.file, Padded(u"", 8));
}

TEST_F(PeersDialogsTest, CancellingAFileDialogChangesNothing) {
  vb::FileDialogRecord record;
  record.file = Padded(u"Module1.bas", 64);
  QString preselected;
  WhenModal([&] {
    auto* dialog = ActiveDialog<QFileDialog>();
    preselected = dialog->selectedFiles().value(0);
    static_cast<QDialog*>(dialog)->reject();
  });
  EXPECT_EQ(Dialogs().GetOpenFileName(record), 0);
  EXPECT_TRUE(preselected.endsWith("Module1.bas"));
  EXPECT_EQ(Dialogs().CommDlgExtendedError(), 0);
  EXPECT_EQ(record.file, Padded(u"Module1.bas", 64));
}

TEST_F(PeersDialogsTest, AColourIsReturnedAsAColorRef) {
  vb::ColorDialogRecord record;
  record.color = 0x00336699;
  record.flags = 1;  // start from the record's colour
  QColor initial;
  WhenModal([&] {
    auto* dialog = ActiveDialog<QColorDialog>();
    initial = dialog->currentColor();
    dialog->setCurrentColor(QColor(0x12, 0x34, 0x56));
    static_cast<QDialog*>(dialog)->accept();
  });
  EXPECT_EQ(Dialogs().ChooseColor(record), 1);
  EXPECT_EQ(initial, QColor(0x99, 0x66, 0x33));
  EXPECT_EQ(record.color, 0x00563412u);
}

TEST_F(PeersDialogsTest, AFontComesBackAsALogicalFont) {
  vb::FontDialogRecord record;
  record.pointSizeTenths = 100;
  record.flags = 0x41;  // the caller's flags survive the answer
  QString family;
  int initialSize = 0;
  WhenModal([&] {
    auto* dialog = ActiveDialog<QFontDialog>();
    QFont font = dialog->currentFont();
    initialSize = font.pointSize();
    family = font.family();
    font.setPointSize(14);
    dialog->setCurrentFont(font);
    static_cast<QDialog*>(dialog)->accept();
  });
  EXPECT_EQ(Dialogs().ChooseFont(record), 1);
  EXPECT_EQ(initialSize, 10);
  EXPECT_EQ(record.pointSizeTenths, 140);
  EXPECT_EQ(record.weight, 400);
  EXPECT_EQ(record.flags, 0x41);
  auto end = std::find(record.faceName.begin(), record.faceName.end(), 0);
  EXPECT_EQ(QString::fromLatin1(reinterpret_cast<const char*>(record.faceName.data()),
                                end - record.faceName.begin()),
            family);
}

TEST_F(PeersDialogsTest, ThePrinterDialogAnswersCopiesAndPages) {
  vb::PrintDialogRecord record;
  record.minPage = 1;
  record.maxPage = 9;
  record.copies = 1;
  WhenModal([&] {
    auto* dialog = QApplication::activeModalWidget();
    ASSERT_NE(dialog, nullptr);
    auto spins = dialog->findChildren<QSpinBox*>();
    ASSERT_EQ(spins.size(), 3);
    spins[0]->setValue(3);
    spins[1]->setValue(2);
    spins[2]->setValue(4);
    dialog->findChildren<QRadioButton*>()[1]->setChecked(true);
    static_cast<QDialog*>(dialog)->accept();
  });
  EXPECT_EQ(Dialogs().PrintDlg(record), 1);
  EXPECT_EQ(record.copies, 3);
  EXPECT_EQ(record.fromPage, 2);
  EXPECT_EQ(record.toPage, 4);
}

}  // namespace
