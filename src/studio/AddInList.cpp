// studio::AddInList.
#include "studio/AddInList.h"

#include <cctype>
#include <fstream>
#include <sstream>
#include <stdexcept>

namespace studio {
namespace {

constexpr std::string_view kSection = "[Add-Ins32]";

std::string Trim(std::string_view s) {
  auto first = s.find_first_not_of(" \t\r");
  if (first == std::string_view::npos) return {};
  auto last = s.find_last_not_of(" \t\r");
  return std::string(s.substr(first, last - first + 1));
}

bool SameIgnoringCase(std::string_view a, std::string_view b) {
  if (a.size() != b.size()) return false;
  for (std::size_t i = 0; i < a.size(); ++i)
    if (std::tolower(static_cast<unsigned char>(a[i])) !=
        std::tolower(static_cast<unsigned char>(b[i])))
      return false;
  return true;
}

}  // namespace

void AddInList::Load() {
  lines_.clear();
  entries_.clear();
  problems_.clear();
  hasSection_ = false;
  sectionEnd_ = 0;
  std::ifstream in(file_, std::ios::binary);
  if (!in) return;
  bool inSection = false;
  std::string text;
  for (int number = 1; std::getline(in, text); ++number) {
    if (!text.empty() && text.back() == '\r') text.pop_back();
    Line line{text, -1};
    std::string trimmed = Trim(text);
    if (trimmed.starts_with('[')) {
      inSection = SameIgnoringCase(trimmed, kSection);
      hasSection_ = hasSection_ || inSection;
    } else if (inSection && !trimmed.empty() && !trimmed.starts_with(';')) {
      auto eq = trimmed.find('=');
      std::string key = Trim(trimmed.substr(0, eq));
      std::string value = eq == std::string::npos ? std::string() : Trim(trimmed.substr(eq + 1));
      if (value != "0" && value != "1")
        problems_.push_back(file_.string() + " line " + std::to_string(number) + ": the value of " +
                            key + " is '" + value + "', not 0 or 1");
      line.entry = static_cast<int>(entries_.size());
      entries_.push_back({key, value == "1"});
    }
    lines_.push_back(std::move(line));
    if (inSection) sectionEnd_ = lines_.size();
  }
}

bool AddInList::WriteDefaultIfMissing(const std::string& progId) {
  if (std::filesystem::exists(file_)) return false;
  Load();
  SetLoadOnStartup(progId, true);
  Save();
  return true;
}

int AddInList::FindEntry(const std::string& progId) const {
  for (std::size_t i = 0; i < entries_.size(); ++i)
    if (SameIgnoringCase(entries_[i].progId, progId)) return static_cast<int>(i);
  return -1;
}

void AddInList::SetLoadOnStartup(const std::string& progId, bool load) {
  int index = FindEntry(progId);
  std::string text = progId + "=" + (load ? "1" : "0");
  if (index >= 0) {
    entries_[static_cast<std::size_t>(index)].loadOnStartup = load;
    for (auto& line : lines_)
      if (line.entry == index) line.text = text;
    return;
  }
  if (!hasSection_) {
    lines_.push_back({std::string(kSection), -1});
    sectionEnd_ = lines_.size();
    hasSection_ = true;
  }
  lines_.insert(lines_.begin() + static_cast<std::ptrdiff_t>(sectionEnd_),
                {text, static_cast<int>(entries_.size())});
  ++sectionEnd_;
  entries_.push_back({progId, load});
}

void AddInList::Save() const {
  std::ostringstream out;
  for (auto& line : lines_) out << line.text << "\r\n";
  std::error_code error;
  std::filesystem::create_directories(file_.parent_path(), error);
  auto temporary = file_;
  temporary += ".tmp";
  {
    std::ofstream file(temporary, std::ios::binary | std::ios::trunc);
    file << out.str();
    file.flush();
    if (!file) {
      std::filesystem::remove(temporary, error);
      throw std::runtime_error("cannot write " + file_.string());
    }
  }
  std::filesystem::rename(temporary, file_, error);
  if (error) {
    std::filesystem::remove(temporary, error);
    throw std::runtime_error("cannot write " + file_.string() + ": " + error.message());
  }
}

}  // namespace studio
