// host::files file access on POSIX systems.
#include "host/files/FileIo.h"

#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

#include <cerrno>
#include <cstring>
#include <utility>
#include <vector>

#include "runtime/Error.h"
#include "runtime/Utf.h"

namespace host::files {
namespace {

vb::Error FileError(int number, const std::filesystem::path& path, int error) {
  std::string detail = path.string();
  if (error != 0) detail.append(" (").append(std::strerror(error)).append(")");
  return vb::Error::Standard(number, vb::FromUtf8(detail));
}

int NumberFor(int error) {
  return error == EACCES || error == EPERM || error == EROFS ? vb::err::kPermissionDenied
                                                             : vb::err::kPathFileAccess;
}

// Closes a descriptor when the scope ends, whatever path leaves it.
class Descriptor {
 public:
  explicit Descriptor(int fd) : fd_(fd) {}
  ~Descriptor() {
    if (fd_ >= 0) ::close(fd_);
  }
  Descriptor(const Descriptor&) = delete;
  Descriptor& operator=(const Descriptor&) = delete;
  int Get() const { return fd_; }
  int Release() { return std::exchange(fd_, -1); }

 private:
  int fd_;
};

bool WriteAll(int fd, std::string_view bytes) {
  while (!bytes.empty()) {
    ssize_t written = ::write(fd, bytes.data(), bytes.size());
    if (written < 0 && errno == EINTR) continue;
    if (written <= 0) return false;
    bytes.remove_prefix(static_cast<std::size_t>(written));
  }
  return true;
}

void SyncFolder(const std::filesystem::path& folder) {
  // Makes the rename itself durable; a file system that cannot do this still renamed the file.
  int fd = ::open(folder.c_str(), O_RDONLY | O_DIRECTORY | O_CLOEXEC);
  if (fd < 0) return;
  ::fsync(fd);
  ::close(fd);
}

}  // namespace

std::string ReadFileBytes(const std::filesystem::path& path) {
  Descriptor fd(::open(path.c_str(), O_RDONLY | O_CLOEXEC));
  if (fd.Get() < 0) {
    int error = errno;
    if (error == ENOENT || error == ENOTDIR) throw FileError(vb::err::kFileNotFound, path, 0);
    throw FileError(NumberFor(error), path, error);
  }
  struct stat info {};
  if (::fstat(fd.Get(), &info) != 0) throw FileError(vb::err::kPathFileAccess, path, errno);
  if (S_ISDIR(info.st_mode)) throw FileError(vb::err::kPathFileAccess, path, EISDIR);
  std::string bytes(static_cast<std::size_t>(info.st_size), '\0');
  std::size_t done = 0;
  while (done < bytes.size()) {
    ssize_t got = ::read(fd.Get(), bytes.data() + done, bytes.size() - done);
    if (got < 0 && errno == EINTR) continue;
    if (got < 0) throw FileError(vb::err::kPathFileAccess, path, errno);
    if (got == 0) break;  // the file shrank while we read it
    done += static_cast<std::size_t>(got);
  }
  bytes.resize(done);
  return bytes;
}

void WriteFileAtomically(const std::filesystem::path& path, std::string_view bytes) {
  std::filesystem::path folder = path.has_parent_path() ? path.parent_path() : ".";
  std::string hidden = ".";
  hidden.append(path.filename().string()).append(".XXXXXX");
  std::string pattern = (folder / hidden).string();
  std::vector<char> name(pattern.begin(), pattern.end());
  name.push_back('\0');
  Descriptor fd(::mkstemp(name.data()));
  if (fd.Get() < 0) {
    int error = errno;
    throw FileError(NumberFor(error), path, error);
  }
  std::string temporary(name.data());
  auto fail = [&](int error) {
    ::unlink(temporary.c_str());
    return FileError(NumberFor(error), path, error);
  };
  struct stat old {};
  mode_t mode = ::stat(path.c_str(), &old) == 0 ? (old.st_mode & 07777) : 0644;
  if (::fchmod(fd.Get(), mode) != 0) throw fail(errno);
  if (!WriteAll(fd.Get(), bytes) || ::fsync(fd.Get()) != 0) throw fail(errno);
  if (::close(fd.Release()) != 0) throw fail(errno);
  if (::rename(temporary.c_str(), path.c_str()) != 0) throw fail(errno);
  SyncFolder(folder);
}

}  // namespace host::files
