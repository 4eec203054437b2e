// The add-in's own dialogs and documents drawn by the peers: written as PNG files into the build
// folder for a person to look at, and checked for captions their widgets cut off.
#include <QAbstractButton>
#include <QCheckBox>
#include <QDir>
#include <QGroupBox>
#include <QLabel>
#include <QRadioButton>
#include <string>

#include "ClippedCaptions.h"
#include "PeersFixture.h"
#include "PeersForms.h"
#include "search/docResults.h"
#include "support/AddinWorld.h"
#include "viewer/docListView.h"

namespace {

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
  std::string Shoot(vb::Form& form, const QString& name) {
    form.Show();
    Settle();
    QWidget* window = studio::WidgetOf(form);
    EXPECT_NE(window, nullptr);
    if (!window) return "no window";
    EXPECT_TRUE(window->grab().save(Folder() + "/" + name + ".png"));
    return studiotest::ClippedCaptions(window);
  }

  std::unique_ptr<qmtest::AddinWorld> world;
};

TEST_F(PeersScreenshotTest, AFormLaidOutInTwipsShowsEveryCaptionWhole) {
  peerstest::Log log;
  auto form = vb::New<peerstest::frmContract>(*runtime, log);
  form->SetCaption(u"Find");
  EXPECT_EQ(Shoot(*form, "frmContract"), "");
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
