// quillmark-studio [--config-dir DIR] [--codepage N] [--screenshot FILE.png [--show NAME]]
// [--search TEXT] [--exit] [PROJECT]: the Qt desktop IDE.
#include <QApplication>
#include <QCommandLineParser>
#include <QTimer>
#include <cstdio>
#include <optional>

#include "runtime/CodePage.h"
#include "runtime/Error.h"
#include "runtime/Utf.h"
#include "studio/Studio.h"

namespace {

QCommandLineOption Option(const char* name, const char* help, const char* value = nullptr) {
  return value ? QCommandLineOption(QString::fromLatin1(name), QString::fromLatin1(help),
                                    QString::fromLatin1(value))
               : QCommandLineOption(QString::fromLatin1(name), QString::fromLatin1(help));
}

int Usage(const QString& message) {
  std::fprintf(stderr, "quillmark-studio: %s\n", qPrintable(message));
  return 2;
}

}  // namespace

int main(int argc, char** argv) {
  QApplication app(argc, argv);
  studio::NameApplication();
  QCommandLineParser parser;
  parser.setApplicationDescription(
      QStringLiteral("A Visual Basic 6 IDE shell hosting Quillmark Tools."));
  parser.addHelpOption();
  QCommandLineOption configDir = Option("config-dir", "Folder of settings and vbaddin.ini.", "DIR");
  QCommandLineOption codePage =
      Option("codepage",
             "Code page the project's files were written in (default: the one it was last "
             "opened in, else 1252).",
             "N");
  QCommandLineOption screenshot =
      Option("screenshot",
             "Start, write a PNG of the main window as shown, with its floating toolbars and "
             "dialogs, to FILE and exit.",
             "FILE");
  QCommandLineOption show =
      Option("show",
             "With --screenshot: open the add-in's window NAME first (frmSearch, frmReplace, "
             "docResults, docListView, frmNewMember, frmOptions, frmAutoSave, frmAbout).",
             "NAME");
  QCommandLineOption search = Option(
      "search", "Once started, type TEXT into the toolbar's search box and press Enter.", "TEXT");
  QCommandLineOption exit = Option("exit", "Once started (and searched), choose File > Exit.");
  for (auto* option : {&configDir, &codePage, &screenshot, &show, &search, &exit})
    parser.addOption(*option);
  parser.addPositionalArgument(QStringLiteral("PROJECT"),
                               QStringLiteral("A .vbg or .vbp file to open."));
  parser.process(app);

  std::optional<std::string> folder;
  if (parser.isSet(configDir)) folder = parser.value(configDir).toStdString();
  std::optional<int> page;
  if (parser.isSet(codePage)) {
    bool number = false;
    page = parser.value(codePage).toInt(&number);
    if (!number || !vb::CodePage::Find(*page))
      return Usage(QStringLiteral("unsupported code page: %1").arg(parser.value(codePage)));
  }
  if (parser.isSet(show) && !parser.isSet(screenshot))
    return Usage(QStringLiteral("--show needs --screenshot FILE"));
  QStringList positional = parser.positionalArguments();
  std::filesystem::path project = positional.isEmpty()
                                      ? std::filesystem::path(QM_SAMPLE_GROUP)
                                      : std::filesystem::path(positional.front().toStdString());
  std::filesystem::path config;
  try {
    config = composition::ConfigFolder(folder);
  } catch (const vb::Error& e) {
    // No folder for the settings (no home set): said, not a crash.
    std::fprintf(stderr, "quillmark-studio: %s\n", vb::ToUtf8(e.Description()).c_str());
    return 1;
  }
  studio::Studio studio(config, {}, page);
  studio.Start(project);
  if (parser.isSet(search) && !studio.SearchThroughToolbar(parser.value(search)))
    std::fprintf(stderr, "quillmark-studio: the add-in's toolbar has no search box\n");
  if (parser.isSet(screenshot)) {
    QString file = parser.value(screenshot);
    bool written = parser.isSet(show) ? studio.WriteScreenshotShowing(file, parser.value(show))
                                      : studio.WriteScreenshot(file);
    studio.Shutdown();
    if (!written)
      std::fprintf(stderr, "quillmark-studio: cannot %s%s\n",
                   parser.isSet(show) ? "open the window or write " : "write ", qPrintable(file));
    return written ? 0 : 1;
  }
  // Chosen from the running loop, as a user would: the loop ends when the main window closes.
  if (parser.isSet(exit)) QTimer::singleShot(0, &app, [&studio] { studio.ExitThroughMenu(); });
  return QApplication::exec();
}
