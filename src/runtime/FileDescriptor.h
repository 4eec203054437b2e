// vb::FileDescriptor: a POSIX file descriptor closed when the scope ends, whatever path leaves it.
#pragma once

#include <unistd.h>

#include <utility>

namespace vb {

class FileDescriptor {
 public:
  explicit FileDescriptor(int fd) : fd_(fd) {}
  ~FileDescriptor() {
    if (fd_ >= 0) ::close(fd_);
  }
  FileDescriptor(const FileDescriptor&) = delete;
  FileDescriptor& operator=(const FileDescriptor&) = delete;
  int Get() const { return fd_; }
  // Hands the descriptor over (to a caller that closes it and checks the close).
  int Release() { return std::exchange(fd_, -1); }

 private:
  int fd_;
};

}  // namespace vb
