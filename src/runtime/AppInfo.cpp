// Where the running program lives.
#include "runtime/AppInfo.h"

#include <system_error>

namespace vb {

std::filesystem::path AppInfo::RunningProgramFolder(const std::filesystem::path& argv0) {
  std::error_code ec;
  std::filesystem::path self = std::filesystem::read_symlink("/proc/self/exe", ec);
  if (ec || self.empty()) self = std::filesystem::absolute(argv0, ec);
  return self.parent_path();
}

}  // namespace vb
