// host::files file access on POSIX systems.
#include "host/files/FileIo.h"

#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

#include <cerrno>
#include <cstring>
#include <utility>

#include "runtime/Error.h"
#include "runtime/FileDescriptor.h"
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

using Descriptor = vb::FileDescriptor;

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

}  // namespace host::files
