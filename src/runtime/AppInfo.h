// vb::AppInfo: VB's App object: the program's folder, title and version numbers.
#pragma once

#include <filesystem>
#include <string>

namespace vb {

// The version numbers come from the build (the project's version, passed in by the program that
// assembles the add-in), so the About box always shows the version that was built.
class AppInfo {
 public:
  AppInfo(std::u16string path, std::u16string title, int major, int minor, int revision)
      : path_(std::move(path)),
        title_(std::move(title)),
        major_(major),
        minor_(minor),
        revision_(revision) {}

  const std::u16string& Path() const { return path_; }  // no trailing separator, as App.Path
  const std::u16string& Title() const { return title_; }
  int Major() const { return major_; }
  int Minor() const { return minor_; }
  int Revision() const { return revision_; }

  // The folder of the running program: the target of /proc/self/exe where there is one, else
  // the folder of `argv0` made absolute.
  static std::filesystem::path RunningProgramFolder(const std::filesystem::path& argv0);

 private:
  std::u16string path_;
  std::u16string title_;
  int major_;
  int minor_;
  int revision_;
};

}  // namespace vb
