// The add-in's own dialogs and documents drawn by the peers: written as PNG files into the build
// folder for a person to look at, and checked for captions their widgets cut off.
#include <QAbstractButton>
#include <QCheckBox>
#include <QDir>
#include <QFile>
#include <QGroupBox>
#include <QLabel>
#include <QRadioButton>
#include <functional>
#include <string>

#include "PeersFixture.h"
#include "PeersForms.h"
#include "addin/frmAbout.h"
#include "newmember/frmNewMember.h"
#include "options/frmAutoSave.h"
#include "options/frmOptions.h"
#include "search/docResults.h"
#include "search/frmSearch.h"
#include "support/AddinWorld.h"
#include "viewer/docListView.h"

namespace {

// The captions of buttons, check boxes and option buttons that do not fit their widget.
std::vector<std::string> ClippedCaptions(QWidget* window) {
  std::vector<std::string> clipped;
  for (auto* button : window->findChildren<QAbstractButton*>()) {
    if (!button->isVisibleTo(window) || button->text().isEmpty()) continue;
    int needed = button->sizeHint().width();
    // A push button's hint adds a generous margin; its text only needs the label's width.
    if (!qobject_cast<QCheckBox*>(button) && !qobject_cast<QRadioButton*>(button)) {
      needed = button->fontMetrics().horizontalAdvance(QString(button->text()).remove('&')) + 8;
    }
    if (needed > button->width()) {
      clipped.push_back(button->objectName().toStdString() + " \"" + button->text().toStdString() +
                        "\" needs " + std::to_string(needed) + " px, has " +
                        std::to_string(button->width()));
    }
  }
  return clipped;
}

class PeersScreenshotTest : public peerstest::PeersFixture {
 protected:
  void SetUp() override {
    world = std::make_unique<qmtest::AddinWorld>();
    runtime = world->runtime;  // the toolkit draws the world's forms
    PeersFixture::SetUp();
    world->ConnectAtStartup();
    QDir().mkpath(Folder());
  }
  void TearDown() override {
    PeersFixture::TearDown();
    world.reset();
  }
  static QString Folder() { return QString(QM_BINARY_DIR) + "/peers-screenshots"; }

  // Shows the form modeless, writes its picture and answers what its captions lack.
  std::vector<std::string> Shoot(vb::Form& form, const QString& name) {
    form.Show();
    Settle();
    QWidget* window = studio::WidgetOf(form);
    EXPECT_NE(window, nullptr);
    if (!window) return {"no window"};
    EXPECT_TRUE(window->grab().save(Folder() + "/" + name + ".png"));
    return ClippedCaptions(window);
  }

  std::unique_ptr<qmtest::AddinWorld> world;
};

TEST_F(PeersScreenshotTest, AFormLaidOutInTwipsShowsEveryCaptionWhole) {
  peerstest::Log log;
  auto form = vb::New<peerstest::frmContract>(*runtime, log);
  form->SetCaption(u"Find");
  EXPECT_EQ(Shoot(*form, "frmContract"), std::vector<std::string>{});
}

// The add-in's dialogs, for a person to look at. They are drawn where their controls stand.
TEST_F(PeersScreenshotTest, TheAddInsDialogsAreWrittenAsPictures) {
  auto& main = world->Main();
  std::vector<std::pair<QString, std::function<std::shared_ptr<vb::Form>()>>> forms{
      {"frmAbout", [&] { return vb::New<quillmark::frmAbout>(main); }},
      {"frmSearch", [&] { return vb::New<quillmark::frmSearch>(main); }},
      {"frmNewMember", [&] { return vb::New<quillmark::frmNewMember>(main); }},
      {"frmOptions", [&] { return vb::New<quillmark::frmOptions>(main); }},
      {"frmAutoSave", [&] { return vb::New<quillmark::frmAutoSave>(main); }},
  };
  for (auto& [name, make] : forms) {
    SCOPED_TRACE(name.toStdString());
    auto form = make();
    Shoot(*form, name);
    EXPECT_TRUE(QFile::exists(Folder() + "/" + name + ".png"));
    form->Unload();
  }
}

TEST_F(PeersScreenshotTest, DocumentsAreWidgetsADockCanHold) {
  auto results = vb::New<quillmark::docResults>(*runtime);
  QWidget* widget = studio::WidgetOf(*results);
  ASSERT_NE(widget, nullptr);
  EXPECT_FALSE(widget->isWindow() && widget->isVisible());
  EXPECT_EQ(widget->sizeHint(), QSize(320, 240));  // the document's extent opens the dock
  // The dock decides the size; the document lays itself out.
  widget->resize(640, 220);
  widget->show();
  Settle();
  EXPECT_EQ(results->ScaleWidth(), 640 * 15);
  EXPECT_TRUE(widget->grab().save(Folder() + "/docResults.png"));
}

}  // namespace
