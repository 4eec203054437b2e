// Running programs with fork and exec: capturing output, and starting detached ones.
#include "runtime/ProcessRunner.h"

#include <fcntl.h>
#include <sys/wait.h>
#include <unistd.h>

#include <cerrno>

namespace vb {

namespace {

// execv wants mutable C strings; these point into `argv`, which must outlive them.
std::vector<char*> CArguments(const std::vector<std::string>& argv) {
  std::vector<char*> pointers;
  for (const auto& word : argv) pointers.push_back(const_cast<char*>(word.c_str()));
  pointers.push_back(nullptr);
  return pointers;
}

int WaitFor(pid_t pid) {
  int status = 0;
  while (waitpid(pid, &status, 0) < 0)
    if (errno != EINTR) return -1;
  return WIFEXITED(status) ? WEXITSTATUS(status) : -1;
}

}  // namespace

std::optional<std::string> PosixProcessRunner::Capture(const std::vector<std::string>& argv) {
  if (argv.empty()) return std::nullopt;
  std::vector<char*> cargv = CArguments(argv);
  int out[2];
  if (pipe2(out, O_CLOEXEC) != 0) return std::nullopt;
  pid_t pid = fork();
  if (pid == 0) {
    dup2(out[1], STDOUT_FILENO);
    execvp(cargv[0], cargv.data());
    _exit(127);
  }
  close(out[1]);
  if (pid < 0) {
    close(out[0]);
    return std::nullopt;
  }
  std::string text;
  char buffer[4096];
  for (ssize_t n; (n = read(out[0], buffer, sizeof buffer)) != 0;) {
    if (n > 0)
      text.append(buffer, static_cast<std::size_t>(n));
    else if (errno != EINTR)
      break;
  }
  close(out[0]);
  if (WaitFor(pid) != 0) return std::nullopt;
  return text;
}

int PosixProcessRunner::StartDetached(const std::vector<std::string>& argv) {
  if (argv.empty()) return ENOENT;
  std::vector<char*> cargv = CArguments(argv);
  // The grandchild reports a failed exec through this pipe; a successful exec closes it.
  int report[2];
  if (pipe2(report, O_CLOEXEC) != 0) return errno;
  pid_t child = fork();
  if (child == 0) {
    setsid();
    pid_t grandchild = fork();
    if (grandchild == 0) {
      execv(cargv[0], cargv.data());
      int failure = errno;
      (void)!write(report[1], &failure, sizeof failure);
      _exit(127);
    }
    _exit(grandchild < 0 ? 1 : 0);
  }
  int forkError = errno;
  close(report[1]);
  if (child < 0) {
    close(report[0]);
    return forkError;
  }
  int failure = 0;
  ssize_t n;
  while ((n = read(report[0], &failure, sizeof failure)) < 0 && errno == EINTR) {
  }
  close(report[0]);
  bool forked = WaitFor(child) == 0;
  if (n == static_cast<ssize_t>(sizeof failure)) return failure;
  return forked ? 0 : EAGAIN;
}

}  // namespace vb
