// The headless shell: answers from its settings and records every call.
#include "runtime/Shell.h"

#include "runtime/FileSystem.h"

namespace vb {

std::intptr_t HeadlessShell::FindExecutable(std::u16string_view file, std::u16string_view directory,
                                            std::u16string& result) {
  calls.push_back({u"FindExecutable", {}, std::u16string(file), {}, std::u16string(directory)});
  result.clear();
  std::u16string path = directory.empty() ? std::u16string(file)
                                          : std::u16string(directory) + u'/' + std::u16string(file);
  if (!files_.FileExists(path)) return shellResult::kFileNotFound;
  if (!browser) return shellResult::kNoAssociation;
  result = *browser;
  return shellResult::kSuccess;
}

std::intptr_t HeadlessShell::ShellExecute(std::intptr_t, std::u16string_view verb,
                                          std::u16string_view file, std::u16string_view parameters,
                                          std::u16string_view directory, int showCmd) {
  calls.push_back({u"ShellExecute", std::u16string(verb), std::u16string(file),
                   std::u16string(parameters), std::u16string(directory), showCmd});
  return executeResult;
}

}  // namespace vb
