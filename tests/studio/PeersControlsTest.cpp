// Each kind of control's widget shows the engine's state: combo styles, list styles, pictures,
// containers, status bar panels and graphical buttons.
#include <QComboBox>
#include <QLabel>
#include <QListWidget>
#include <QPushButton>
#include <QStatusBar>
#include <string>

#include "PeersFixture.h"
#include "runtime/forms/ComboBox.h"
#include "runtime/forms/CommandButton.h"
#include "runtime/forms/Form.h"
#include "runtime/forms/Image.h"
#include "runtime/forms/Label.h"
#include "runtime/forms/ListBox.h"
#include "runtime/forms/PictureBox.h"
#include "runtime/forms/StatusBar.h"

namespace {

vb::Picture Square(int side, std::uint32_t argb) {
  return vb::Picture{side, side,
                     std::vector<std::uint32_t>(static_cast<std::size_t>(side * side), argb)};
}

class frmParts : public vb::Form {
 public:
  explicit frmParts(vb::Runtime& runtime) : Form(runtime, u"frmParts") {
    Move(0, 0, 6000, 4500);
    picHolder.Move(120, 120, 3000, 1500);
    lblInside.SetContainer(&picHolder);
    lblInside.Move(150, 150, 1500, 300);
    lblInside.SetCaption(u"&Inside");
    imgLogo.Move(3300, 120, 480, 480);
    sbrStatus.Move(0, 3600, 5800, 330);
    sbrStatus.AddPanel().width = 2400;
    cmdPick.Move(3300, 720, 900, 900);
    cmdPick.SetCaption(u"Pick");
  }
  vb::PictureBox picHolder{*this, u"picHolder"};
  vb::Label lblInside{*this, u"lblInside"};
  vb::Image imgLogo{*this, u"imgLogo"};
  vb::StatusBar sbrStatus{*this, u"sbrStatus"};
  vb::CommandButton cmdPick{*this, u"cmdPick"};
  vb::ComboBox cboStyle{*this, u"cboStyle"};
  vb::ListBox lstPlain{*this, u"lstPlain"};
};

class PeersControlsTest : public peerstest::PeersFixture {
 protected:
  void SetUp() override {
    PeersFixture::SetUp();
    form = vb::New<frmParts>(*runtime);
    form->Show();
    window = studio::WidgetOf(*form);
  }
  void TearDown() override {
    form.reset();
    PeersFixture::TearDown();
  }
  std::shared_ptr<frmParts> form;
  QWidget* window = nullptr;
};

TEST_F(PeersControlsTest, ComboStylesDecideWhetherTheBoxCanBeTypedIn) {
  struct Case {
    int style;
    bool editable;
  };
  for (auto c : {Case{0, true}, Case{1, true}, Case{2, false}}) {
    form->cboStyle.SetStyle(c.style);
    EXPECT_EQ(Child<QComboBox>(window, u"cboStyle")->isEditable(), c.editable) << c.style;
  }
  form->cboStyle.AddItem(u"Public");
  form->cboStyle.AddItem(u"Private");
  auto* combo = Child<QComboBox>(window, u"cboStyle");
  ASSERT_EQ(combo->count(), 2);
  Q_EMIT combo->activated(1);
  EXPECT_EQ(form->cboStyle.ListIndex(), 1);
  EXPECT_EQ(form->cboStyle.Text(), u"Private");
  form->cboStyle.RemoveItem(0);
  EXPECT_EQ(combo->count(), 1);
  EXPECT_EQ(combo->currentText(), "Private");
}

TEST_F(PeersControlsTest, APlainMultiSelectListKeepsEachRowsSelection) {
  form->lstPlain.SetMultiSelect(1);
  for (auto* entry : {u"Sub", u"Function", u"Property"}) form->lstPlain.AddItem(entry);
  auto* list = Child<QListWidget>(window, u"lstPlain");
  EXPECT_EQ(list->selectionMode(), QAbstractItemView::MultiSelection);
  form->lstPlain.SetSelected(0, true);
  form->lstPlain.SetSelected(2, true);
  EXPECT_TRUE(list->item(0)->isSelected());
  EXPECT_FALSE(list->item(1)->isSelected());
  EXPECT_TRUE(list->item(2)->isSelected());
  EXPECT_EQ(list->item(1)->flags() & Qt::ItemIsUserCheckable, Qt::ItemFlags{});

  list->item(1)->setSelected(true);  // the user adds a row
  Q_EMIT list->itemClicked(list->item(1));
  EXPECT_EQ(form->lstPlain.SelCount(), 3);
  EXPECT_EQ(form->lstPlain.ListIndex(), 1);
}

TEST_F(PeersControlsTest, AContainersChildrenCountFromInsideItsBorder) {
  auto* holder = Child<QLabel>(window, u"picHolder");
  auto* inside = Child<QLabel>(window, u"lblInside");
  EXPECT_EQ(inside->parentWidget(), holder);
  int border = holder->frameWidth();
  EXPECT_GT(border, 0);
  EXPECT_EQ(inside->pos(), QPoint(10 + border, 10 + border));
  EXPECT_EQ(inside->text(), "Inside");  // an access key's & is not shown
  form->picHolder.SetBorderStyle(0);
  form->lblInside.Move(150, 150);
  EXPECT_EQ(inside->pos(), QPoint(10, 10));
}

TEST_F(PeersControlsTest, PicturesAreShownAndStretchedOnRequest) {
  form->imgLogo.SetPicture(Square(16, 0xFF123456));
  auto* logo = Child<QLabel>(window, u"imgLogo");
  EXPECT_EQ(logo->pixmap().size(), QSize(16, 16));
  EXPECT_EQ(logo->pixmap().toImage().pixel(3, 3), 0xFF123456u);
  EXPECT_FALSE(logo->hasScaledContents());
  form->imgLogo.SetStretch(true);
  EXPECT_TRUE(logo->hasScaledContents());

  auto* pick = Child<QPushButton>(window, u"cmdPick");
  form->cmdPick.SetPicture(Square(24, 0xFF00FF00));
  EXPECT_TRUE(pick->icon().isNull());  // a plain button shows no picture
  form->cmdPick.SetStyle(1);
  EXPECT_FALSE(pick->icon().isNull());
  EXPECT_EQ(pick->iconSize(), QSize(24, 24));
}

TEST_F(PeersControlsTest, StatusBarPanelsShowTheirTextsAndWidths) {
  form->sbrStatus.SetPanelText(1, u"Ready");
  form->sbrStatus.SetPanelText(2, u"3 matches");
  Settle();
  auto labels = Child(window, u"sbrStatus")->findChildren<QLabel*>();
  ASSERT_EQ(labels.size(), 2);
  EXPECT_EQ(labels[0]->text(), "Ready");
  EXPECT_EQ(labels[0]->width(), 96);  // 1440 twips
  EXPECT_EQ(labels[1]->text(), "3 matches");
  EXPECT_GT(labels[1]->width(), 96);  // the last panel takes the rest
}

}  // namespace
