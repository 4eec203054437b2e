// cli::ComponentChanges.
#include "cli/ComponentChanges.h"

#include <algorithm>

#include "host/Ide.h"
#include "runtime/Error.h"
#include "runtime/Utf.h"
#include "vbide/CodeModule.h"
#include "vbide/VBComponent.h"
#include "vbide/VBForm.h"
#include "vbide/VBProject.h"

namespace cli {
namespace {

std::string Utf8(std::u16string_view text) {
  return vb::ToUtf8(text);
}

bool IsBlankOrComment(std::u16string_view line) {
  auto first = line.find_first_not_of(u" \t");
  return first == std::u16string_view::npos || line[first] == u'\'';
}

}  // namespace

ComponentChanges::ComponentChanges(vbide::VBComponentPtr component, std::string label)
    : component_(std::move(component)), label_(std::move(label)) {
  lines_ = Lines();
  controls_ = Controls();
}

std::vector<std::u16string> ComponentChanges::Lines() const {
  std::vector<std::u16string> lines;
  auto code = component_->CodeModule();
  if (!code) return lines;
  for (int i = 1; i <= code->CountOfLines(); ++i) lines.emplace_back(code->LineView(i));
  return lines;
}

std::vector<std::u16string> ComponentChanges::Controls() const {
  std::vector<std::u16string> names;
  auto designer = component_->Designer();
  if (!designer) return names;
  for (auto& c : designer->VBControls()->Items()) {
    int index = c->Index();
    names.push_back(c->Name() +
                    (index >= 0 ? u"(" + vb::FromUtf8(std::to_string(index)) + u")" : u""));
  }
  return names;
}

ComponentChanges::Counts ComponentChanges::Print(std::ostream& out) const {
  Counts counts;
  PrintControls(out, counts);
  PrintLines(out, counts);
  return counts;
}

void ComponentChanges::PrintControls(std::ostream& out, Counts& counts) const {
  auto after = Controls();
  if (after.size() == controls_.size()) {
    for (std::size_t i = 0; i < after.size(); ++i) {
      if (after[i] == controls_[i]) continue;
      out << label_ << ": control " << Utf8(controls_[i]) << " renamed " << Utf8(after[i]) << "\n";
      ++counts.controls;
    }
    return;
  }
  // Removed controls: those of the snapshot the designer no longer holds.
  for (auto& name : controls_) {
    auto it = std::find(after.begin(), after.end(), name);
    if (it != after.end()) {
      after.erase(it);
      continue;
    }
    out << label_ << ": control " << Utf8(name) << " removed\n";
    ++counts.controls;
  }
}

void ComponentChanges::PrintLines(std::ostream& out, Counts& counts) const {
  auto after = Lines();
  const auto& before = lines_;
  auto line = [&](std::size_t index) { return label_ + ":" + std::to_string(index + 1) + "\t"; };
  if (after.size() == before.size()) {
    for (std::size_t i = 0; i < after.size(); ++i) {
      if (after[i] == before[i]) continue;
      out << line(i) << Utf8(before[i]) << "\t" << Utf8(after[i]) << "\n";
      ++counts.changed;
    }
    return;
  }
  // Lines went (or came): the common head and tail are skipped; in between, each line of the
  // snapshot that does not come next in the new text is one that went.
  std::size_t head = 0;
  while (head < before.size() && head < after.size() && before[head] == after[head]) ++head;
  std::size_t tail = 0;
  while (tail < before.size() - head && tail < after.size() - head &&
         before[before.size() - 1 - tail] == after[after.size() - 1 - tail])
    ++tail;
  std::vector<bool> gone(before.size(), false);
  std::size_t next = head;
  for (std::size_t i = head; i < before.size() - tail; ++i) {
    if (next < after.size() - tail && before[i] == after[next])
      ++next;
    else
      gone[i] = true;
  }
  // A run of removed lines that could as well start higher, as the blank or comment line above
  // it equals its last line, is moved up: such lines above a procedure belong to it.
  for (std::size_t end = before.size(); end-- > 0;) {
    if (!gone[end] || (end + 1 < before.size() && gone[end + 1])) continue;
    std::size_t start = end;
    while (start > 0 && gone[start - 1]) --start;
    for (std::size_t last = end;
         start > 0 && !gone[start - 1] && before[start - 1] == before[last] &&
         IsBlankOrComment(before[last]);
         --last) {
      gone[--start] = true;
      gone[last] = false;
    }
  }
  for (std::size_t i = 0; i < before.size(); ++i) {
    if (!gone[i]) continue;
    out << line(i) << Utf8(before[i]) << "\n";
    ++counts.removed;
  }
  for (; next < after.size() - tail; ++next) {
    out << line(next) << "+\t" << Utf8(after[next]) << "\n";
    ++counts.added;
  }
}

int SaveChanged(host::Ide& ide, std::ostream& out, std::ostream& err) {
  int failures = 0;
  auto save = [&](auto& item, const std::u16string& file) {
    try {
      item->SaveAs(file);
      out << "saved " << Utf8(file) << "\n";
    } catch (const vb::Error& e) {
      err << "quillmark: " << Utf8(e.Description()) << "\n";
      ++failures;
    }
  };
  for (auto& project : ide.VBProjects()->Items()) {
    int before = failures;
    for (auto& component : project->VBComponents()->Items())
      if (component->IsDirty()) save(component, component->FileNames(1));
    // A component that could not be saved keeps its project changed; it is not tried twice.
    if (failures == before && project->IsDirty()) save(project, project->FileName());
  }
  return failures;
}

}  // namespace cli
