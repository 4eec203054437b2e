// studio::AddInList: the add-ins the studio knows, as listed in vbaddin.ini in the config folder.
#pragma once

#include <filesystem>
#include <string>
#include <vector>

namespace studio {

// The file's section [Add-Ins32] lists one add-in per line: `ProgId=1` connects it at start-up,
// `ProgId=0` only lists it in the Add-In Manager. Every other line and section is kept as it was
// read and written back unchanged.
class AddInList {
 public:
  struct Entry {
    std::string progId;
    bool loadOnStartup = false;
  };

  explicit AddInList(std::filesystem::path file) : file_(std::move(file)) {}

  // Reads the file; a missing file is an empty list. A value other than 0 or 1 is reported in
  // Problems() with the file and line, and the entry is listed as not loading at start-up.
  void Load();
  // First run: a missing file is written with `progId=1`. True when it wrote the file.
  bool WriteDefaultIfMissing(const std::string& progId);
  // Writes through a temporary file and a rename, so a failure leaves the old file whole; throws
  // std::runtime_error naming the file.
  void Save() const;

  const std::vector<Entry>& Entries() const { return entries_; }
  const std::vector<std::string>& Problems() const { return problems_; }
  const std::filesystem::path& File() const { return file_; }
  // Adds the entry when it is missing.
  void SetLoadOnStartup(const std::string& progId, bool load);

 private:
  struct Line {
    std::string text;
    int entry = -1;  // index into entries_ for the lines that hold one
  };
  int FindEntry(const std::string& progId) const;

  std::filesystem::path file_;
  std::vector<Line> lines_;
  std::vector<Entry> entries_;
  std::vector<std::string> problems_;
  std::size_t sectionEnd_ = 0;  // where a new entry goes: after the last line of the section
  bool hasSection_ = false;
};

}  // namespace studio
