// vb::AtomicWriter: the one way files are replaced on disk (modules, projects, settings), so
// that no failure ever leaves a half-written file where the user's file was.
#pragma once

#include <cerrno>
#include <cstddef>
#include <filesystem>
#include <optional>
#include <string_view>

namespace vb {

// The steps of a save, in order. A fault makes the chosen step fail with `error`; a fault at
// Write first writes `atByte` bytes, so a save can be cut off anywhere in the file.
enum class WriteStep { Open, Write, Sync, Close, Rename };
struct WriteFault {
  WriteStep step = WriteStep::Open;
  std::size_t atByte = 0;
  int error = EIO;
};

class AtomicWriter {
 public:
  // Replaces `path` with exactly `bytes`: a temporary file ".NAME.XXXXXX" is written beside the
  // file, flushed to disk, closed, and renamed over it only when every step succeeded; the new
  // file keeps the old one's permissions. A symbolic link stays a link: the file it points at
  // is the one replaced. A file whose owner may not write it (mode 0444) is refused even when
  // this process could replace it, as VB refuses to save over a read-only file. Temporary files
  // of ours left by a save that was killed (".NAME.XXXXXX", "NAME.tmpNNN") are removed first.
  // On failure the old file is untouched, no temporary file is left, and vb::Error 70
  // (permission denied by the system) or 75 (a read-only file, anything else) is raised naming
  // the file and why.
  void Write(const std::filesystem::path& path, std::string_view bytes) const;

  // Makes the next writes fail at `fault` (tests of what a failing disk leaves behind).
  void InjectFault(std::optional<WriteFault> fault) { fault_ = fault; }

  // The file a write of `path` replaces: `path` itself, or what its chain of links ends at.
  static std::filesystem::path FinalTarget(const std::filesystem::path& path);

 private:
  bool Fails(WriteStep step) const { return fault_ && fault_->step == step; }
  std::optional<WriteFault> fault_;
};

}  // namespace vb
