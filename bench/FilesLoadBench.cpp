// Measures loading a large project group from disk (2,000 module files, about 50 MB, read,
// split and decoded) and writing every module back. Prints figures; checks only that the bytes
// come back the same.
#include <unistd.h>

#include <chrono>
#include <cstdio>
#include <filesystem>
#include <fstream>
#include <string>
#include <vector>

#include "host/files/Concat.h"
#include "host/files/FileIo.h"
#include "host/files/ProjectLoader.h"

namespace {

using Clock = std::chrono::steady_clock;
namespace fs = std::filesystem;
using host::files::Concat;

double MillisecondsSince(Clock::time_point start) {
  return std::chrono::duration<double, std::milli>(Clock::now() - start).count();
}

void Write(const fs::path& path, const std::string& bytes) {
  fs::create_directories(path.parent_path());
  std::ofstream(path, std::ios::binary)
      .write(bytes.data(), static_cast<std::streamsize>(bytes.size()));
}

// About `size` bytes of procedures with a member attribute now and then, as real modules have.
std::string Body(std::size_t size, int seed) {
  std::string body = "Option Explicit\r\n\r\nPrivate mItems As Collection\r\n";
  for (int n = 0; body.size() < size; ++n) {
    std::string name = Concat({"Proc", std::to_string(seed), "_", std::to_string(n)});
    body += Concat({"\r\n' Computes the caf\xE9 total for ", name, "\r\n"});
    body += Concat({"Public Function ", name, "(ByVal nIndex As Long) As Long\r\n"});
    if (n % 5 == 0) body += Concat({"Attribute ", name, ".VB_Description = \"Totals.\"\r\n"});
    body += "    Dim sName As String, nCount As Long\r\n";
    body += "    sName = txtName.Text & \" \" & CStr(nIndex)\r\n";
    body += Concat(
        {"    For nCount = 1 To mItems.Count\r\n        ", name, " = ", name, " + nCount\r\n"});
    body += "    Next nCount\r\nEnd Function\r\n";
  }
  return body;
}

std::string Form(const std::string& name, std::size_t size, int seed) {
  std::string header = Concat(
      {"VERSION 5.00\r\nBegin VB.Form ", name, " \r\n   Caption         =   \"", name, "\"\r\n"});
  for (int c = 0; c < 40; ++c)
    header += Concat({"   Begin VB.CommandButton cmd", std::to_string(c),
                      " \r\n      Caption         =   \"Go\"\r\n      Height          =   375\r\n"
                      "   End\r\n"});
  header += Concat(
      {"End\r\nAttribute VB_Name = \"", name,
       "\"\r\nAttribute VB_GlobalNameSpace = False\r\nAttribute VB_PredeclaredId = True\r\n"});
  return header + Body(size, seed);
}

// 10 projects of 200 modules (forms, classes, standard modules) of 25 KB each.
std::size_t MakeGroup(const fs::path& root) {
  std::string group = "VBGROUP 5.0\r\n";
  std::size_t bytes = 0;
  for (int p = 0; p < 10; ++p) {
    std::string project = Concat({"P", std::to_string(p)});
    std::string vbp = "Type=Exe\r\n";
    for (int m = 0; m < 200; ++m) {
      std::string name = Concat({"M", std::to_string(m)});
      std::string file;
      std::string text;
      if (m % 3 == 0) {
        file = Concat({name, ".frm"});
        vbp += Concat({"Form=", file, "\r\n"});
        text = Form(name, 25000, m);
      } else {
        bool cls = m % 3 == 1;
        file = Concat({name, cls ? ".cls" : ".bas"});
        vbp += Concat({cls ? "Class=" : "Module=", name, "; ", file, "\r\n"});
        text = Concat({"Attribute VB_Name = \"", name, "\"\r\n", Body(25000, m)});
      }
      Write(root / project / file, text);
      bytes += text.size();
    }
    vbp += Concat({"Name=\"", project, "\"\r\n"});
    Write(root / project / Concat({project, ".vbp"}), vbp);
    group += Concat({"Project=", project, "\\", project, ".vbp\r\n"});
  }
  Write(root / "Group.vbg", group);
  return bytes;
}

}  // namespace

int main() {
  fs::path root =
      fs::temp_directory_path() / Concat({"qm-files-bench-", std::to_string(::getpid())});
  std::size_t bytes = MakeGroup(root);
  const vb::CodePage& page = vb::CodePage::Windows1252();
  double megabytes = static_cast<double>(bytes) / (1 << 20);

  for (int run = 0; run < 3; ++run) {
    host::files::Problems problems;
    Clock::time_point start = Clock::now();
    host::files::LoadedGroup group = host::files::LoadGroup(root / "Group.vbg", page, problems);
    double loadMs = MillisecondsSince(start);

    std::size_t files = 0, lines = 0;
    std::vector<std::string> written;
    written.reserve(2000);
    start = Clock::now();
    for (const auto& project : group.projects)
      for (const auto& module : project.modules) {
        written.push_back(host::files::WriteModule(module.module, page));
        ++files;
        lines += static_cast<std::size_t>(module.module.code.Count());
      }
    double writeMs = MillisecondsSince(start);
    std::size_t same = 0, index = 0;
    for (const auto& project : group.projects)
      for (const auto& module : project.modules)
        same += written[index++] == host::files::ReadFileBytes(module.path) ? 1 : 0;
    std::printf(
        "run %d: %zu files, %.1f MB, %zu code lines  load %.0f ms (%.0f MB/s)  write %.0f ms  "
        "%zu problems  %zu/%zu identical\n",
        run + 1, files, megabytes, lines, loadMs, megabytes / loadMs * 1000, writeMs,
        problems.size(), same, files);
  }
  fs::remove_all(root);
  return 0;
}
