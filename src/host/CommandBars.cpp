// host::CommandBars, its bars and controls.
#include "host/CommandBars.h"

#include "host/EventHub.h"

namespace host {
namespace {

vb::Error OutOfRange(std::u16string_view what) {
  return vb::Error::Standard(vb::err::kSubscriptOutOfRange, what);
}

// The IDE's menus, in the order of its menu bar, with a few of each menu's own items so that the
// studio shows a familiar menu bar. Their tags let the studio wire its own commands to them.
struct BuiltInItem {
  const char16_t* caption;
  IdeCommand command;
  bool beginGroup;
};
struct BuiltInMenu {
  const char16_t* caption;
  std::vector<BuiltInItem> items;
};

const std::vector<BuiltInMenu>& BuiltInMenus() {
  static const std::vector<BuiltInMenu> menus = {
      {u"&File",
       {{u"&Open Project...", IdeCommand::Open, false},
        {u"&Save Project", IdeCommand::Save, true},
        {u"Save Project &As...", IdeCommand::SaveAs, false},
        {u"&Close Project", IdeCommand::Close, false},
        {u"E&xit", IdeCommand::Exit, true}}},
      {u"&Edit", {{u"&Undo", IdeCommand::Undo, false}, {u"&Find...", IdeCommand::Find, true}}},
      {u"&View",
       {{u"&Code", IdeCommand::ViewCode, false},
        {u"O&bject", IdeCommand::ViewObject, false},
        {u"&Immediate Window", IdeCommand::ViewImmediate, true},
        {u"Project E&xplorer", IdeCommand::ViewProject, false},
        {u"Properties &Window", IdeCommand::ViewProperties, false}}},
      {u"&Project", {{u"Add &Module", IdeCommand::AddModule, false}, {u"Add &Class Module", IdeCommand::AddClass, false}}},
      {u"F&ormat", {{u"&Align", IdeCommand::Align, false}}},
      {u"&Debug", {{u"Step &Into", IdeCommand::StepInto, false}}},
      {u"&Run", {{u"&Start", IdeCommand::Start, false}, {u"&End", IdeCommand::End, false}}},
      {u"&Tools", {{u"&Add Procedure...", IdeCommand::AddProcedure, false}, {u"&Options...", IdeCommand::Options, true}}},
      {u"&Add-Ins", {{u"&Add-In Manager...", IdeCommand::AddInManager, false}}},
      {u"&Window", {{u"&Cascade", IdeCommand::Cascade, false}}},
      {u"&Help", {{u"&About Microsoft Visual Basic...", IdeCommand::About, false}}},
  };
  return menus;
}

// The Standard toolbar's buttons, with the commands of the menu items that do the same work. They
// carry no faces: the studio draws its toolkit's usual pictures for these tags.
constexpr BuiltInItem kStandardButtons[] = {
    {u"Open Project", IdeCommand::Open, false},
    {u"Save Project", IdeCommand::Save, false},
    {u"Cut", IdeCommand::Cut, true},
    {u"Copy", IdeCommand::Copy, false},
    {u"Paste", IdeCommand::Paste, false},
    {u"Find", IdeCommand::Find, true},
    {u"Start", IdeCommand::Start, true},
    {u"End", IdeCommand::End, false},
    {u"Project Explorer", IdeCommand::ViewProject, true},
    {u"Properties Window", IdeCommand::ViewProperties, false},
};

}  // namespace

std::u16string StripAccessKey(std::u16string_view caption) {
  std::u16string out;
  for (std::size_t i = 0; i < caption.size(); ++i) {
    if (caption[i] == u'&') {
      if (i + 1 < caption.size() && caption[i + 1] == u'&') out += u'&', ++i;
      continue;
    }
    out += caption[i];
  }
  return out;
}

// ---- BarControl --------------------------------------------------------------------------------

template <class Interface>
void BarControl<Interface>::PasteFace() {
  CheckAlive(u"command-bar control");
  auto picture = context_->clipboard ? context_->clipboard->GetData() : std::nullopt;
  if (!picture || picture->Empty())
    throw vb::Error::Standard(vb::err::kInvalidProcedureCall, u"the clipboard holds no picture");
  face_ = std::move(*picture);
  context_->changed.Raise();
}

template <class Interface>
void BarControl<Interface>::Delete() {
  CheckAlive(u"command-bar control");
  if (auto bar = parent_.lock()) bar->ControlList()->Remove(this);
  Detach();
  context_->changed.Raise();
}

template <class Interface>
void BarControl<Interface>::Detach() {
  MarkRemoved();
}

template <class Interface>
vbide::CommandBarPtr BarControl<Interface>::Parent() {
  CheckAlive(u"command-bar control");
  return parent_.lock();
}

template class BarControl<vbide::CommandBarControl>;
template class BarControl<vbide::CommandBarComboBox>;

void CommandBarButton::Click() {
  CheckAlive(u"command-bar control");
  if (!Enabled()) return;
  context_->hub->RaiseClick(shared_from_this());
}

// ---- CommandBarComboBox ------------------------------------------------------------------------

void CommandBarComboBox::CheckIndex(int index) const {
  if (index < 1 || index > static_cast<int>(list_.size()))
    throw vb::Error::Standard(vb::err::kInvalidProcedureCall, u"list index " + vb::FromUtf8(std::to_string(index)));
}

void CommandBarComboBox::AddItem(std::u16string_view text, int index) {
  CheckAlive(u"command-bar combo box");
  if (index == 0) {
    list_.emplace_back(text);
  } else {
    if (index < 1 || index > static_cast<int>(list_.size()) + 1) CheckIndex(index);
    list_.insert(list_.begin() + (index - 1), std::u16string(text));
    if (listIndex_ >= index) ++listIndex_;
  }
  context_->changed.Raise();
}

void CommandBarComboBox::RemoveItem(int index) {
  CheckAlive(u"command-bar combo box");
  CheckIndex(index);
  list_.erase(list_.begin() + (index - 1));
  if (listIndex_ == index) listIndex_ = 0;
  else if (listIndex_ > index) --listIndex_;
  context_->changed.Raise();
}

void CommandBarComboBox::Clear() {
  CheckAlive(u"command-bar combo box");
  list_.clear();
  listIndex_ = 0;
  context_->changed.Raise();
}

std::u16string CommandBarComboBox::List(int index) {
  CheckAlive(u"command-bar combo box");
  CheckIndex(index);
  return list_[index - 1];
}

int CommandBarComboBox::ListCount() { return static_cast<int>(Get(list_).size()); }

void CommandBarComboBox::SetListIndex(int index) {
  CheckAlive(u"command-bar combo box");
  if (index != 0) {
    CheckIndex(index);
    text_ = list_[index - 1];
  }
  listIndex_ = index;
  context_->changed.Raise();
}

void CommandBarComboBox::SetText(std::u16string_view text) {
  CheckAlive(u"command-bar combo box");
  text_ = text;
  listIndex_ = 0;
  for (std::size_t i = 0; i < list_.size(); ++i)
    if (list_[i] == text_) listIndex_ = static_cast<int>(i) + 1;
  context_->changed.Raise();
}

void CommandBarComboBox::CommitTyped(std::u16string_view text) {
  CheckAlive(u"command-bar combo box");
  text_ = text;
  listIndex_ = 0;  // typed, not picked, even when the text is in the list
  context_->changed.Raise();
  context_->hub->RaiseClick(shared_from_this());
}

void CommandBarComboBox::Pick(int index) {
  SetListIndex(index);
  context_->hub->RaiseClick(shared_from_this());
}

// ---- CommandBarPopup ---------------------------------------------------------------------------

CommandBarPopup::CommandBarPopup(std::shared_ptr<CommandBarContext> context, std::u16string barName)
    : BarControl(std::move(context), vbide::msoControlPopup), barName_(std::move(barName)) {}

void CommandBarPopup::Init(const std::shared_ptr<CommandBarPopup>&) {
  bar_ = std::make_shared<host::CommandBar>(context_, barName_, true);
  bar_->Init({});
}

vbide::CommandBarControlsPtr CommandBarPopup::Controls() {
  CheckAlive(u"command-bar popup");
  return bar_->Controls();
}

vbide::CommandBarPtr CommandBarPopup::CommandBar() {
  CheckAlive(u"command-bar popup");
  return bar_;
}

void CommandBarPopup::Detach() {
  bar_->Detach();
  MarkRemoved();
}

// ---- CommandBarControls ------------------------------------------------------------------------

vbide::CommandBarControlPtr CommandBarControls::Item(int index) {
  if (index < 1 || index > Count()) throw OutOfRange(u"command-bar control");
  return items_[index - 1];
}

vbide::CommandBarControlPtr CommandBarControls::Add(int type, int before) {
  vbide::CommandBarControlPtr control;
  switch (type) {
    case vbide::msoControlButton:
      control = std::make_shared<CommandBarButton>(context_, type);
      std::static_pointer_cast<CommandBarButton>(control)->AttachTo(bar_);
      break;
    case vbide::msoControlComboBox: {
      auto combo = std::make_shared<CommandBarComboBox>(context_, type);
      combo->AttachTo(bar_);
      combo->SetWidth(100);
      control = combo;
      break;
    }
    case vbide::msoControlPopup: {
      auto popup = std::make_shared<CommandBarPopup>(context_, u"");
      popup->Init(popup);
      popup->AttachTo(bar_);
      control = popup;
      break;
    }
    default:
      throw vb::Error::Standard(vb::err::kInvalidProcedureCall,
                                u"control type " + vb::FromUtf8(std::to_string(type)));
  }
  if (before < 1 || before > Count()) items_.push_back(control);
  else items_.insert(items_.begin() + (before - 1), control);
  context_->changed.Raise();
  return control;
}

vbide::CommandBarPtr CommandBarControls::Parent() { return bar_.lock(); }

void CommandBarControls::Remove(const vbide::CommandBarControl* control) {
  std::erase_if(items_, [control](auto& c) { return c.get() == control; });
}

void CommandBarControls::DetachAll() {
  for (auto& c : items_) {
    if (auto b = std::dynamic_pointer_cast<CommandBarButton>(c)) b->Detach();
    else if (auto k = std::dynamic_pointer_cast<CommandBarComboBox>(c)) k->Detach();
    else if (auto p = std::dynamic_pointer_cast<CommandBarPopup>(c)) p->Detach();
  }
  items_.clear();
}

// ---- CommandBar --------------------------------------------------------------------------------

CommandBar::CommandBar(std::shared_ptr<CommandBarContext> context, std::u16string name, bool isMenu)
    : context_(std::move(context)), name_(std::move(name)), isMenu_(isMenu) {}

void CommandBar::Init(std::weak_ptr<host::CommandBars> owner) {
  owner_ = std::move(owner);
  controls_ = std::make_shared<CommandBarControls>(context_, weak_from_this());
}

void CommandBar::Delete() {
  CheckAlive(u"command bar", name_);
  if (auto owner = owner_.lock()) owner->Remove(this);
  Detach();
  context_->changed.Raise();
}

void CommandBar::Detach() {
  controls_->DetachAll();
  MarkRemoved();
}

// ---- CommandBars -------------------------------------------------------------------------------

void CommandBars::BuildBuiltIns() {
  auto menuBar = std::make_shared<CommandBar>(context_, u"Menu Bar", true);
  menuBar->Init(weak_from_this());
  bars_.push_back(menuBar);
  for (auto& menu : BuiltInMenus()) {
    auto popup = std::static_pointer_cast<CommandBarPopup>(menuBar->Controls()->Add(vbide::msoControlPopup));
    popup->SetCaption(menu.caption);
    // The IDE's own menus are reachable by their caption without "&" (CommandBars("Tools")).
    auto bar = std::make_shared<CommandBar>(context_, StripAccessKey(menu.caption), true);
    bar->Init(weak_from_this());
    for (auto& item : menu.items) {
      auto c = bar->Controls()->Add(vbide::msoControlButton);
      c->SetCaption(item.caption);
      c->SetTag(CommandTag(item.command));
      c->SetBeginGroup(item.beginGroup);
    }
    popup->Bar()->Detach();  // replaced by the named bar below
    popup->ReplaceBar(bar);
    bars_.push_back(bar);
  }
  int row = 1;
  for (const char16_t* name : {u"Standard", u"Edit", u"Debug", u"Form Editor"}) {
    auto bar = std::make_shared<CommandBar>(context_, name, false);
    bar->Init(weak_from_this());
    bar->SetRowIndex(row++);
    bar->SetVisible(std::u16string_view(name) == u"Standard");
    bars_.push_back(bar);
  }
  auto standard = Find(u"Standard");
  for (auto& item : kStandardButtons) {
    auto c = standard->Controls()->Add(vbide::msoControlButton);
    c->SetCaption(item.caption);
    c->SetTag(CommandTag(item.command));
    c->SetBeginGroup(item.beginGroup);
  }
}

vbide::CommandBarPtr CommandBars::Item(int index) {
  if (index < 1 || index > Count()) throw OutOfRange(u"command bar");
  return bars_[index - 1];
}

std::shared_ptr<CommandBar> CommandBars::Find(std::u16string_view name) const {
  for (auto& b : bars_)
    if (SameName(b->Name(), name)) return b;
  return nullptr;
}

vbide::CommandBarPtr CommandBars::Item(std::u16string_view name) {
  if (auto bar = Find(name)) return bar;
  throw OutOfRange(u"no command bar named " + std::u16string(name));
}

std::vector<vbide::CommandBarPtr> CommandBars::Items() {
  return std::vector<vbide::CommandBarPtr>(bars_.begin(), bars_.end());
}

vbide::CommandBarPtr CommandBars::Add(std::u16string_view name) {
  auto bar = std::make_shared<CommandBar>(context_, std::u16string(name), false);
  bar->Init(weak_from_this());
  bar->SetPosition(vbide::msoBarTop);
  bar->SetRowIndex(static_cast<int>(bars_.size()) + 1);
  bars_.push_back(bar);
  context_->changed.Raise();
  return bar;
}

void CommandBars::Remove(const CommandBar* bar) {
  std::erase_if(bars_, [bar](auto& b) { return b.get() == bar; });
}

}  // namespace host
