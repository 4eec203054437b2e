// Atomic replacement of a file on POSIX systems, every step checked.
#include "runtime/AtomicWriter.h"

#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

#include <cctype>
#include <cstring>
#include <string>
#include <system_error>
#include <utility>
#include <vector>

#include "runtime/Error.h"
#include "runtime/FileDescriptor.h"
#include "runtime/Utf.h"

namespace vb {
namespace {

namespace fs = std::filesystem;

constexpr int kMaxLinkHops = 40;  // as the kernel's own limit on a chain of links

Error FileError(int number, const fs::path& path, std::string_view why) {
  std::string detail = path.string();
  if (!why.empty()) detail.append(" (").append(why).append(")");
  return Error::Standard(number, FromUtf8(detail));
}

Error SystemError(const fs::path& path, int error) {
  int number = error == EACCES || error == EPERM || error == EROFS ? err::kPermissionDenied
                                                                   : err::kPathFileAccess;
  return FileError(number, path, std::strerror(error));
}

using Descriptor = vb::FileDescriptor;

bool WriteAll(int fd, std::string_view bytes) {
  while (!bytes.empty()) {
    ssize_t written = ::write(fd, bytes.data(), bytes.size());
    if (written < 0 && errno == EINTR) continue;
    if (written < 0) return false;
    if (written == 0) {
      errno = EIO;
      return false;
    }
    bytes.remove_prefix(static_cast<std::size_t>(written));
  }
  return true;
}

void SyncFolder(const fs::path& folder) {
  // Makes the rename itself durable; a file system that cannot do this still renamed the file.
  int fd = ::open(folder.c_str(), O_RDONLY | O_DIRECTORY | O_CLOEXEC);
  if (fd < 0) return;
  ::fsync(fd);
  ::close(fd);
}

// ".NAME." followed by the six characters mkstemp fills in, or "NAME.tmp" followed by digits
// (the settings store's older naming): what a save of NAME killed half-way leaves behind.
bool IsOurTemporary(const std::string& entry, const std::string& name) {
  std::string dotted = "." + name + ".";
  if (entry.size() == dotted.size() + 6 && entry.starts_with(dotted)) {
    for (std::size_t i = dotted.size(); i < entry.size(); ++i)
      if (!std::isalnum(static_cast<unsigned char>(entry[i]))) return false;
    return true;
  }
  std::string tmp = name + ".tmp";
  if (entry.size() <= tmp.size() || !entry.starts_with(tmp)) return false;
  for (std::size_t i = tmp.size(); i < entry.size(); ++i)
    if (!std::isdigit(static_cast<unsigned char>(entry[i]))) return false;
  return true;
}

void RemoveStaleTemporaries(const fs::path& folder, const std::string& name) {
  std::error_code ec;
  for (fs::directory_iterator it(folder, ec), end; !ec && it != end; it.increment(ec)) {
    std::string entry = it->path().filename().string();
    std::error_code kind;
    if (IsOurTemporary(entry, name) && it->is_regular_file(kind)) fs::remove(it->path(), kind);
  }
}

}  // namespace

fs::path AtomicWriter::FinalTarget(const fs::path& path) {
  fs::path target = path;
  std::error_code ec;
  for (int hop = 0; hop < kMaxLinkHops && fs::is_symlink(target, ec); ++hop) {
    fs::path link = fs::read_symlink(target, ec);
    if (ec) break;
    target = link.is_absolute() ? link : target.parent_path() / link;
  }
  return target;
}

void AtomicWriter::Write(const fs::path& path, std::string_view bytes) const {
  fs::path target = FinalTarget(path);
  fs::path folder = target.has_parent_path() ? target.parent_path() : fs::path(".");
  std::string name = target.filename().string();

  struct stat old {};
  bool exists = ::stat(target.c_str(), &old) == 0;
  if (exists && S_ISDIR(old.st_mode)) throw SystemError(path, EISDIR);
  // The owner's write bit is what "read-only" means for a file, whoever runs the save; VB's
  // error for opening a read-only file for output is 75.
  if (exists && ((old.st_mode & S_IWUSR) == 0 || ::access(target.c_str(), W_OK) != 0))
    throw FileError(err::kPathFileAccess, path, "the file is read-only");
  RemoveStaleTemporaries(folder, name);

  std::string pattern = (folder / ("." + name + ".XXXXXX")).string();
  std::vector<char> buffer(pattern.begin(), pattern.end());
  buffer.push_back('\0');
  Descriptor fd(Fails(WriteStep::Open) ? -1 : ::mkstemp(buffer.data()));
  if (fd.Get() < 0) throw SystemError(path, Fails(WriteStep::Open) ? fault_->error : errno);
  std::string temporary(buffer.data());
  auto fail = [&](int error) {
    ::unlink(temporary.c_str());
    return SystemError(path, error);
  };
  mode_t mode = exists ? (old.st_mode & 07777) : 0644;
  if (::fchmod(fd.Get(), mode) != 0) throw fail(errno);
  if (Fails(WriteStep::Write)) {
    WriteAll(fd.Get(), bytes.substr(0, std::min(fault_->atByte, bytes.size())));
    throw fail(fault_->error);
  }
  if (!WriteAll(fd.Get(), bytes)) throw fail(errno);
  if (Fails(WriteStep::Sync)) throw fail(fault_->error);
  if (::fsync(fd.Get()) != 0) throw fail(errno);
  // A close that fails may have lost data the disk had not yet taken: the file is not renamed in.
  int closed = ::close(fd.Release());
  if (Fails(WriteStep::Close)) throw fail(fault_->error);
  if (closed != 0) throw fail(errno);
  if (Fails(WriteStep::Rename)) throw fail(fault_->error);
  if (::rename(temporary.c_str(), target.c_str()) != 0) throw fail(errno);
  SyncFolder(folder);
}

}  // namespace vb
