// host::Designer, host::Controls and host::Control.
#include "host/Designer.h"

#include <algorithm>

#include "host/Component.h"
#include "host/Ide.h"
#include "host/Project.h"
#include "host/VbLexer.h"
#include "host/files/HeaderEdits.h"
#include "runtime/Utf.h"

namespace host {
namespace {

vb::Error OutOfRange(std::u16string_view what) {
  return vb::Error::Standard(vb::err::kSubscriptOutOfRange, what);
}

// A property value as VB hands it out: a quoted string without its quotes, anything else
// without the trailing "'True"-style comment the designer writes for readers.
std::u16string PropertyText(std::u16string_view raw) {
  if (raw.size() >= 2 && raw.front() == u'"') {
    std::size_t close = raw.rfind(u'"');
    if (close > 0 && (close + 1 == raw.size())) {
      std::u16string out;
      for (std::size_t i = 1; i < close; ++i) {
        out += raw[i];
        if (raw[i] == u'"' && i + 1 < close && raw[i + 1] == u'"') ++i;
      }
      return out;
    }
    return std::u16string(raw);  // "x.frx":0000 and the like stay as written
  }
  std::size_t comment = raw.find(u'\'');
  std::u16string_view value = comment == std::u16string_view::npos ? raw : raw.substr(0, comment);
  while (!value.empty() && value.back() == u' ') value.remove_suffix(1);
  return std::u16string(value);
}

// VB's rule for a control's name: a letter first, then letters, digits and "_", at most 40.
bool IsControlName(std::u16string_view name) {
  constexpr std::size_t kLongest = 40;
  if (name.empty() || name.size() > kLongest) return false;
  if (!IsIdentifierUnit(name[0]) || name[0] == u'_' || (name[0] >= u'0' && name[0] <= u'9'))
    return false;
  return std::all_of(name.begin(), name.end(), IsIdentifierUnit);
}

// What VB calls a new control of a class: Command1, Text1, Label1 ...
std::u16string_view BaseName(std::u16string_view className) {
  static constexpr std::pair<std::u16string_view, std::u16string_view> kShort[] = {
      {u"VB.CommandButton", u"Command"}, {u"VB.TextBox", u"Text"},
      {u"VB.CheckBox", u"Check"},        {u"VB.OptionButton", u"Option"},
      {u"VB.ListBox", u"List"},          {u"VB.ComboBox", u"Combo"},
      {u"VB.PictureBox", u"Picture"},    {u"VB.HScrollBar", u"HScroll"},
      {u"VB.VScrollBar", u"VScroll"},    {u"VB.DriveListBox", u"Drive"},
      {u"VB.DirListBox", u"Dir"},        {u"VB.FileListBox", u"File"}};
  for (auto& [cls, base] : kShort)
    if (SameName(cls, className)) return base;
  std::size_t dot = className.rfind(u'.');
  return dot == std::u16string_view::npos ? className : className.substr(dot + 1);
}

}  // namespace

// ---- Control -----------------------------------------------------------------------------------

const files::DesignerControl& Control::Node() {
  CheckAlive(u"control");
  auto designer = designer_.lock();
  if (!designer) throw vb::Error::Standard(vb::err::kObjectNotSet, u"designer");
  return designer->Node(flatIndex_);
}

std::u16string Control::Properties(std::u16string_view name) {
  const auto& node = Node();
  if (SameName(name, u"Name")) return node.name;
  if (SameName(name, u"Index")) return vb::FromUtf8(std::to_string(node.index));
  for (auto& [key, value] : node.properties)
    if (SameName(key, name)) return PropertyText(value);
  throw OutOfRange(u"no property " + std::u16string(name) + u" on " + node.name);
}

void Control::SetProperty(std::u16string_view name, std::u16string_view value) {
  Node();
  if (!SameName(name, u"Name"))
    throw vb::Error::Standard(vb::err::kInvalidProcedureCall,
                              u"only Name can be set: " + std::u16string(name));
  designer_.lock()->Rename(*this, value);
}

std::vector<std::pair<std::u16string, std::u16string>> Control::PropertyList() {
  const auto& node = Node();
  std::vector<std::pair<std::u16string, std::u16string>> list;
  list.emplace_back(u"Name", node.name);
  if (node.index >= 0) list.emplace_back(u"Index", vb::FromUtf8(std::to_string(node.index)));
  for (auto& [key, value] : node.properties)
    if (!SameName(key, u"Index")) list.emplace_back(key, PropertyText(value));
  return list;
}

std::u16string Control::ClassName() {
  return Node().className;
}

bool Control::InSelection() {
  Node();
  return selected_;
}

void Control::SetInSelection(bool selected) {
  Node();
  selected_ = selected;
  if (auto d = designer_.lock())
    if (auto c = d->Owner())
      if (auto ide = c->OwnerIde()) ide->changed.Raise();
}

vbide::ControlObjectPtr Control::ControlObject() {
  Node();
  return shared_from_this();
}

vbide::VBControlPtr Control::Container() {
  Node();
  return designer_.lock()->ContainerOf(flatIndex_);
}

vbide::VBControlsPtr Control::Collection() {
  Node();
  return designer_.lock()->VBControls();
}

void Control::ZOrder(int position) {
  Node();
  if (position != 0)
    throw vb::Error::Standard(vb::err::kInvalidProcedureCall,
                              u"ZOrder position " + vb::FromUtf8(std::to_string(position)));
  designer_.lock()->BringToFront(flatIndex_);
}

// ---- Controls ----------------------------------------------------------------------------------

std::vector<vbide::VBControlPtr> Controls::Items() {
  auto designer = designer_.lock();
  if (!designer) return {};
  std::vector<vbide::VBControlPtr> items;
  for (auto& c : designer->List())
    if (!selectedOnly_ || c->InSelection()) items.push_back(c);
  return items;
}

int Controls::Count() {
  return static_cast<int>(Items().size());
}

vbide::VBControlPtr Controls::Item(int index) {
  auto items = Items();
  if (index < 1 || index > static_cast<int>(items.size())) throw OutOfRange(u"control");
  return items[index - 1];
}

vbide::VBControlPtr Controls::Add(std::u16string_view progId) {
  return designer_.lock()->Add(progId);
}

void Controls::Remove(int index) {
  auto control = std::static_pointer_cast<Control>(Item(index));
  designer_.lock()->Remove(control->FlatIndex());
}

// ---- Designer ----------------------------------------------------------------------------------

void Designer::Init() {
  Reindex();
  controls_.clear();
  for (int i = 0; i < static_cast<int>(nodes_.size()); ++i)
    controls_.push_back(std::make_shared<Control>(weak_from_this(), i));
}

void Designer::Reindex() {
  nodes_.clear();
  parents_.clear();
  depths_.clear();
  auto component = component_.lock();
  if (!component || !component->File().designer) return;
  // Pre-order walk: containers before their children, siblings bottom of the z-order first.
  // An explicit stack, so that no nesting depth in a file can exhaust the call stack.
  struct Pending {
    const files::DesignerControl* node;
    int parent;
  };
  std::vector<Pending> stack;
  auto pushChildren = [&](const files::DesignerControl& node, int self) {
    for (auto child = node.children.rbegin(); child != node.children.rend(); ++child)
      stack.push_back({&*child, self});
  };
  pushChildren(*component->File().designer, -1);
  while (!stack.empty()) {
    Pending next = stack.back();
    stack.pop_back();
    int self = static_cast<int>(nodes_.size());
    nodes_.push_back(next.node);
    parents_.push_back(next.parent);
    depths_.push_back(next.parent < 0 ? 0 : depths_[next.parent] + 1);
    pushChildren(*next.node, self);
  }
}

int Designer::SubtreeEnd(int flatIndex) const {
  // In pre-order the subtree ends at the first later node that is no deeper than its root.
  int end = flatIndex + 1;
  while (end < static_cast<int>(nodes_.size()) && depths_[end] > depths_[flatIndex]) ++end;
  return end;
}

vbide::VBControlsPtr Designer::VBControls() {
  CheckAlive(u"designer");
  return std::make_shared<Controls>(weak_from_this(), false);
}

vbide::VBControlsPtr Designer::SelectedVBControls() {
  CheckAlive(u"designer");
  return std::make_shared<Controls>(weak_from_this(), true);
}

vbide::VBComponentPtr Designer::Parent() {
  CheckAlive(u"designer");
  return component_.lock();
}

std::shared_ptr<Control> Designer::ContainerOf(int flatIndex) const {
  int parent = parents_[flatIndex];
  return parent < 0 ? nullptr : controls_[parent];
}

void Designer::Rename(Control& control, std::u16string_view newName) {
  if (!IsControlName(newName))
    throw vb::Error::Standard(vb::err::kInvalidPropertyValue,
                              u"not a control name: \"" + std::u16string(newName) + u"\"");
  auto component = component_.lock();
  auto project = component->OwnerProject();
  const auto& node = nodes_[control.FlatIndex()];
  std::u16string oldName = node->name;
  int oldIndex = node->index;
  files::RenameControl(component->File(), node->beginLine, newName, project->Codec());
  Reindex();
  component->MarkChanged();
  auto ide = component->OwnerIde();
  ide->Hub().ForControls(project.get(), this, [&](vbide::VBControlsEvents& e) {
    e.ItemRenamed.Raise(control.shared_from_this(), oldName, oldIndex);
  });
  ide->changed.Raise();
}

std::shared_ptr<Control> Designer::Add(std::u16string_view className) {
  auto component = component_.lock();
  auto project = component->OwnerProject();
  std::u16string base(BaseName(className));
  std::u16string name;
  for (int n = 1; name.empty(); ++n) {
    std::u16string candidate = base + vb::FromUtf8(std::to_string(n));
    bool used = std::any_of(nodes_.begin(), nodes_.end(), [&](const files::DesignerControl* node) {
      return SameName(node->name, candidate);
    });
    if (!used) name = candidate;
  }
  int beginLine = files::AddControl(component->File(), className, name, project->Codec());
  Reindex();
  int at = static_cast<int>(std::find_if(nodes_.begin(), nodes_.end(),
                                         [&](const files::DesignerControl* node) {
                                           return node->beginLine == beginLine;
                                         }) -
                            nodes_.begin());
  auto added = std::make_shared<Control>(weak_from_this(), at);
  controls_.insert(controls_.begin() + at, added);
  for (int i = 0; i < static_cast<int>(controls_.size()); ++i) controls_[i]->SetFlatIndex(i);
  component->MarkChanged();
  auto ide = component->OwnerIde();
  ide->Hub().ForControls(project.get(), this,
                         [&](vbide::VBControlsEvents& e) { e.ItemAdded.Raise(added); });
  ide->changed.Raise();
  return added;
}

void Designer::Remove(int flatIndex) {
  auto component = component_.lock();
  auto project = component->OwnerProject();
  int end = SubtreeEnd(flatIndex);
  files::RemoveControl(component->File(), nodes_[flatIndex]->beginLine, project->Codec());
  std::vector<std::shared_ptr<Control>> removed(controls_.begin() + flatIndex,
                                                controls_.begin() + end);
  controls_.erase(controls_.begin() + flatIndex, controls_.begin() + end);
  for (auto& c : removed) c->MarkRemoved();
  Reindex();
  for (int i = 0; i < static_cast<int>(controls_.size()); ++i) controls_[i]->SetFlatIndex(i);
  component->MarkChanged();
  auto ide = component->OwnerIde();
  // The removed object stays valid for the handler to hold; using it raises 91.
  ide->Hub().ForControls(project.get(), this,
                         [&](vbide::VBControlsEvents& e) { e.ItemRemoved.Raise(removed.front()); });
  ide->changed.Raise();
}

void Designer::BringToFront(int flatIndex) {
  auto component = component_.lock();
  auto project = component->OwnerProject();
  int parent = parents_[flatIndex];
  int end = SubtreeEnd(flatIndex);
  // The block moves after the subtree of its last sibling that is not a menu.
  int insertAt = end;
  for (int i = end; i < static_cast<int>(nodes_.size()) && parents_[i] == parent;) {
    if (nodes_[i]->IsMenu()) break;
    insertAt = SubtreeEnd(i);  // siblings' subtrees are skipped whole, so a non-sibling ends it
    i = insertAt;
  }
  if (nodes_[flatIndex]->IsMenu() || insertAt == end) return;
  files::BringControlToFront(component->File(), nodes_[flatIndex]->beginLine, project->Codec());
  std::vector<std::shared_ptr<Control>> moved(controls_.begin() + flatIndex,
                                              controls_.begin() + end);
  controls_.erase(controls_.begin() + flatIndex, controls_.begin() + end);
  controls_.insert(controls_.begin() + (insertAt - (end - flatIndex)), moved.begin(), moved.end());
  Reindex();
  for (int i = 0; i < static_cast<int>(controls_.size()); ++i) controls_[i]->SetFlatIndex(i);
  component->MarkChanged();
  component->OwnerIde()->changed.Raise();
}

void Designer::Detach() {
  for (auto& c : controls_) c->MarkRemoved();
  MarkRemoved();
}

}  // namespace host
