// studio::OpenProjectDialog: File > Open: a project or group file and the code page its files
// were written in, which nothing in the files names.
#pragma once

#include <QString>
#include <filesystem>
#include <functional>
#include <optional>
#include <string_view>
#include <vector>

class QWidget;
class QFileDialog;

namespace studio {

struct CodePageChoice {
  int number;
  std::string_view name;  // what the list shows beside the number
};
// The code pages a project can be opened in, Western European first.
const std::vector<CodePageChoice>& CodePageChoices();

struct ProjectToOpen {
  std::filesystem::path file;
  int codePage = 1252;
};

// A file dialog with a "Code page" list under the file list, preset to `codePage`.
// `prepare` sees the dialog before it runs (a test answers it from there).
std::optional<ProjectToOpen> AskProjectToOpen(
    QWidget* parent, int codePage, const std::function<void(QFileDialog&)>& prepare = {});

}  // namespace studio
