// host::CommandBars and its bars and controls: the IDE's menus and toolbars as a live model that
// the add-in edits and the studio draws.
#pragma once

#include <memory>
#include <optional>
#include <string>
#include <vector>

#include "host/Liveness.h"
#include "runtime/Clipboard.h"
#include "runtime/Picture.h"
#include "runtime/Utf.h"
#include "vbide/CommandBars.h"
#include "vbide/Event.h"

namespace host {

class EventHub;
class CommandBar;
class CommandBarControls;

// What every bar and control shares: where clicks go, where faces come from, and the one
// notification the studio listens to ("something in the command-bar model changed").
struct CommandBarContext {
  EventHub* hub = nullptr;
  std::shared_ptr<vb::Clipboard> clipboard;
  vbide::Event<> changed;
};

// State and behaviour common to buttons, combo boxes and popups.
template <class Interface>
class BarControl : public Interface, public Liveness {
 public:
  BarControl(std::shared_ptr<CommandBarContext> context, int type)
      : context_(std::move(context)), type_(type) {}

  int Type() override { return type_; }
  std::u16string Caption() override { return Get(caption_); }
  void SetCaption(std::u16string_view v) override { Set(caption_, std::u16string(v)); }
  bool BeginGroup() override { return Get(beginGroup_); }
  void SetBeginGroup(bool v) override { Set(beginGroup_, v); }
  int Width() override { return Get(width_); }
  void SetWidth(int v) override { Set(width_, v); }
  bool Enabled() override { return Get(enabled_); }
  void SetEnabled(bool v) override { Set(enabled_, v); }
  bool Visible() override { return Get(visible_); }
  void SetVisible(bool v) override { Set(visible_, v); }
  std::u16string ToolTipText() override { return Get(toolTip_); }
  void SetToolTipText(std::u16string_view v) override { Set(toolTip_, std::u16string(v)); }
  std::u16string Tag() override { return Get(tag_); }
  void SetTag(std::u16string_view v) override { Set(tag_, std::u16string(v)); }
  void PasteFace() override;
  void Delete() override;
  vbide::CommandBarPtr Parent() override;
  vbide::CommandBarControlsPtr Controls() override { return nullptr; }
  vbide::CommandBarPtr CommandBar() override { return nullptr; }

  // The face pasted last (studio).
  const std::optional<vb::Picture>& Face() const { return face_; }
  void AttachTo(std::weak_ptr<host::CommandBar> parent) { parent_ = std::move(parent); }
  virtual void Detach();  // called when it leaves its bar

 protected:
  template <class T>
  const T& Get(const T& field) const {
    CheckAlive(u"command-bar control");
    return field;
  }
  template <class T>
  void Set(T& field, T value) {
    CheckAlive(u"command-bar control");
    if (field == value) return;
    field = std::move(value);
    context_->changed.Raise();
  }
  std::shared_ptr<CommandBarContext> context_;

 private:
  int type_;
  std::u16string caption_, toolTip_, tag_;
  bool beginGroup_ = false, enabled_ = true, visible_ = true;
  int width_ = 0;
  std::optional<vb::Picture> face_;
  std::weak_ptr<host::CommandBar> parent_;
};

class CommandBarButton final : public BarControl<vbide::CommandBarControl>,
                               public std::enable_shared_from_this<CommandBarButton> {
 public:
  using BarControl::BarControl;
  // The user clicks it (a menu item or a toolbar button).
  void Click();
};

class CommandBarComboBox final : public BarControl<vbide::CommandBarComboBox>,
                                 public std::enable_shared_from_this<CommandBarComboBox> {
 public:
  using BarControl::BarControl;
  void AddItem(std::u16string_view text, int index = 0) override;
  void RemoveItem(int index) override;
  void Clear() override;
  std::u16string List(int index) override;
  int ListCount() override;
  int ListIndex() override { return Get(listIndex_); }
  void SetListIndex(int index) override;
  std::u16string Text() override { return Get(text_); }
  void SetText(std::u16string_view text) override;

  // The user types a text and presses Enter (ListIndex becomes 0), or picks entry `index`.
  void CommitTyped(std::u16string_view text);
  void Pick(int index);

 private:
  void CheckIndex(int index) const;
  std::vector<std::u16string> list_;
  int listIndex_ = 0;
  std::u16string text_;
};

class CommandBarPopup final : public BarControl<vbide::CommandBarControl> {
 public:
  CommandBarPopup(std::shared_ptr<CommandBarContext> context, std::u16string barName);
  void Init(const std::shared_ptr<CommandBarPopup>& self);
  vbide::CommandBarControlsPtr Controls() override;
  vbide::CommandBarPtr CommandBar() override;
  void Detach() override;
  std::shared_ptr<host::CommandBar> Bar() const { return bar_; }
  // The IDE's built-in menus use the named bar that CommandBars lists.
  void ReplaceBar(std::shared_ptr<host::CommandBar> bar) { bar_ = std::move(bar); }

 private:
  std::u16string barName_;
  std::shared_ptr<host::CommandBar> bar_;
};

class CommandBarControls final : public vbide::CommandBarControls {
 public:
  CommandBarControls(std::shared_ptr<CommandBarContext> context,
                     std::weak_ptr<host::CommandBar> bar)
      : context_(std::move(context)), bar_(std::move(bar)) {}
  int Count() override { return static_cast<int>(items_.size()); }
  vbide::CommandBarControlPtr Item(int index) override;
  std::vector<vbide::CommandBarControlPtr> Items() override { return items_; }
  vbide::CommandBarControlPtr Add(int type, int before = 0) override;
  vbide::CommandBarPtr Parent() override;

  void Remove(const vbide::CommandBarControl* control);
  void DetachAll();

 private:
  std::shared_ptr<CommandBarContext> context_;
  std::weak_ptr<host::CommandBar> bar_;
  std::vector<vbide::CommandBarControlPtr> items_;
};

class CommandBars;

class CommandBar final : public vbide::CommandBar,
                         public Liveness,
                         public std::enable_shared_from_this<CommandBar> {
 public:
  CommandBar(std::shared_ptr<CommandBarContext> context, std::u16string name, bool isMenu);
  void Init(std::weak_ptr<host::CommandBars> owner);

  std::u16string Name() override { return Get(name_); }
  vbide::CommandBarControlsPtr Controls() override { return Get(controls_); }
  int Position() override { return Get(position_); }
  void SetPosition(int v) override { Set(position_, v); }
  int Left() override { return Get(left_); }
  void SetLeft(int v) override { Set(left_, v); }
  int Top() override { return Get(top_); }
  void SetTop(int v) override { Set(top_, v); }
  int RowIndex() override { return Get(rowIndex_); }
  void SetRowIndex(int v) override { Set(rowIndex_, v); }
  bool Visible() override { return Get(visible_); }
  void SetVisible(bool v) override { Set(visible_, v); }
  int Protection() override { return Get(protection_); }
  void SetProtection(int v) override { Set(protection_, v); }
  void Delete() override;

  bool IsMenu() const { return isMenu_; }  // the menu bar or a popup's bar
  std::shared_ptr<CommandBarControls> ControlList() const { return controls_; }
  void Detach();

 private:
  template <class T>
  const T& Get(const T& field) const {
    CheckAlive(u"command bar", name_);
    return field;
  }
  template <class T>
  void Set(T& field, T value) {
    CheckAlive(u"command bar", name_);
    if (field == value) return;
    field = std::move(value);
    context_->changed.Raise();
  }
  std::shared_ptr<CommandBarContext> context_;
  std::u16string name_;
  bool isMenu_;
  std::shared_ptr<CommandBarControls> controls_;
  std::weak_ptr<host::CommandBars> owner_;
  int position_ = vbide::msoBarTop, left_ = 0, top_ = 0, rowIndex_ = 1, protection_ = 0;
  bool visible_ = true;
};

class CommandBars final : public vbide::CommandBars,
                          public std::enable_shared_from_this<CommandBars> {
 public:
  explicit CommandBars(std::shared_ptr<CommandBarContext> context) : context_(std::move(context)) {}
  // Builds "Menu Bar" with the IDE's menus and the built-in toolbars.
  void BuildBuiltIns();

  int Count() override { return static_cast<int>(bars_.size()); }
  vbide::CommandBarPtr Item(int index) override;
  vbide::CommandBarPtr Item(std::u16string_view name) override;
  std::vector<vbide::CommandBarPtr> Items() override;
  vbide::CommandBarPtr Add(std::u16string_view name) override;

  std::shared_ptr<CommandBar> MenuBar() const { return bars_.empty() ? nullptr : bars_.front(); }
  std::shared_ptr<CommandBar> Find(std::u16string_view name) const;
  void Remove(const CommandBar* bar);
  // Registers a popup's bar under its name (the IDE's own menus are reachable by name).
  void RegisterMenu(const std::shared_ptr<CommandBar>& bar) { bars_.push_back(bar); }
  CommandBarContext& Context() { return *context_; }

 private:
  std::shared_ptr<CommandBarContext> context_;
  std::vector<std::shared_ptr<CommandBar>> bars_;
};

// The IDE's own menu items and Standard-toolbar buttons that a front end wires its commands to,
// through the Tag each control carries.
enum class IdeCommand {
  Open,
  Save,
  SaveAs,
  Close,
  Exit,
  Undo,
  Find,
  ViewCode,
  ViewObject,
  ViewImmediate,
  ViewProject,
  ViewProperties,
  AddModule,
  AddClass,
  Align,
  StepInto,
  Start,
  End,
  AddProcedure,
  Options,
  AddInManager,
  Cascade,
  About,
  Cut,
  Copy,
  Paste,
};

inline constexpr std::u16string_view kIdeCommandTags[] = {
    u"ide.open",           u"ide.save",         u"ide.saveas",
    u"ide.close",          u"ide.exit",         u"ide.undo",
    u"ide.find",           u"ide.view.code",    u"ide.view.object",
    u"ide.view.immediate", u"ide.view.project", u"ide.view.properties",
    u"ide.addmodule",      u"ide.addclass",     u"ide.align",
    u"ide.stepinto",       u"ide.start",        u"ide.end",
    u"ide.addprocedure",   u"ide.options",      u"ide.addinmanager",
    u"ide.cascade",        u"ide.about",        u"ide.cut",
    u"ide.copy",           u"ide.paste",
};
static_assert(std::size(kIdeCommandTags) == static_cast<std::size_t>(IdeCommand::Paste) + 1);

constexpr std::u16string_view CommandTag(IdeCommand command) {
  return kIdeCommandTags[static_cast<std::size_t>(command)];
}

// "&File" -> "File": a caption without its access-key marks.
std::u16string StripAccessKey(std::u16string_view caption);

}  // namespace host
