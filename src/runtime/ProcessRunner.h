// vb::ProcessRunner: starting other programs, without a shell between us and their arguments.
#pragma once

#include <optional>
#include <string>
#include <vector>

namespace vb {

// The seam the desktop shell starts programs through; tests put a recording fake here so that
// no browser is ever started.
class ProcessRunner {
 public:
  virtual ~ProcessRunner() = default;
  // Runs argv[0] (looked up on PATH), waits for it, and returns what it wrote to standard
  // output; nothing when it could not be started or did not exit with status 0.
  virtual std::optional<std::string> Capture(const std::vector<std::string>& argv) = 0;
  // Starts argv[0] (a path) in a session of its own and does not wait for it. Returns 0, or the
  // errno of the failure to start it (ENOENT, EACCES, ...).
  virtual int StartDetached(const std::vector<std::string>& argv) = 0;
};

// fork and exec. The detached program is the grandchild of this process, so it is never left as
// a zombie of ours and outlives us.
class PosixProcessRunner : public ProcessRunner {
 public:
  std::optional<std::string> Capture(const std::vector<std::string>& argv) override;
  int StartDetached(const std::vector<std::string>& argv) override;
};

}  // namespace vb
