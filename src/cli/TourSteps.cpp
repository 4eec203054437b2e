// The tour's steps, and opening a file in a desk.
#include "cli/TourSteps.h"

#include "cli/Args.h"
#include "host/files/Problem.h"

namespace cli {

int OpenInDesk(Desk& desk, const std::string& file, std::ostream& err) {
  std::filesystem::path path(file);
  std::string ext = path.extension().string();
  for (auto& c : ext) c = static_cast<char>(std::tolower(static_cast<unsigned char>(c)));
  if (ext != ".vbg" && ext != ".vbp") throw UsageError(file + ": not a .vbg or .vbp file");
  if (!std::filesystem::is_regular_file(path)) throw UsageError(file + ": no such file");
  int problems = 0;
  for (auto& problem : desk.ide->Open(path)) {
    err << host::files::FormatProblem(problem) << "\n";
    ++problems;
  }
  return problems;
}

int RunTourSteps(Desk&, Streams) { return 0; }

}  // namespace cli
