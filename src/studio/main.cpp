// quillmark-studio [--config-dir DIR] [--screenshot FILE.png] [PROJECT]: the Qt desktop IDE.
#include <QApplication>
#include <QCommandLineParser>
#include <cstdio>
#include <optional>

#include "studio/Studio.h"

int main(int argc, char** argv) {
  QApplication app(argc, argv);
  QApplication::setApplicationName(QStringLiteral("Quillmark Studio"));
  QApplication::setApplicationDisplayName(QStringLiteral("Quillmark Studio"));
  QCommandLineParser parser;
  parser.setApplicationDescription(
      QStringLiteral("A Visual Basic 6 IDE shell hosting Quillmark Tools."));
  parser.addHelpOption();
  QCommandLineOption configDir(QStringLiteral("config-dir"),
                               QStringLiteral("Folder of settings and vbaddin.ini."),
                               QStringLiteral("DIR"));
  QCommandLineOption screenshot(
      QStringLiteral("screenshot"),
      QStringLiteral("Start, write a PNG of the main window as shown, with its floating "
                     "toolbars and dialogs, to FILE and exit."),
      QStringLiteral("FILE"));
  parser.addOption(configDir);
  parser.addOption(screenshot);
  parser.addPositionalArgument(QStringLiteral("PROJECT"),
                               QStringLiteral("A .vbg or .vbp file to open."));
  parser.process(app);

  std::optional<std::string> folder;
  if (parser.isSet(configDir)) folder = parser.value(configDir).toStdString();
  QStringList positional = parser.positionalArguments();
  std::filesystem::path project = positional.isEmpty()
                                      ? std::filesystem::path(QM_SAMPLE_GROUP)
                                      : std::filesystem::path(positional.front().toStdString());
  studio::Studio studio(composition::ConfigFolder(folder));
  studio.Start(project);
  if (parser.isSet(screenshot)) {
    bool written = studio.WriteScreenshot(parser.value(screenshot));
    studio.Shutdown();
    if (!written)
      std::fprintf(stderr, "quillmark-studio: cannot write %s\n",
                   qPrintable(parser.value(screenshot)));
    return written ? 0 : 1;
  }
  return QApplication::exec();
}
