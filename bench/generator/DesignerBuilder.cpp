// DesignerBuilder: controls in alphabetical property order, containers, arrays and menus.
#include "DesignerBuilder.h"

#include <array>

namespace vbgen {
namespace {

constexpr std::string_view kColumnHeaderGuid = "{BDD1F052-858B-11D1-B16A-00C0F0283628}";
constexpr std::array<std::string_view, 5> kKinds = {"TextBox", "Label", "CommandButton", "ComboBox",
                                                    "CheckBox"};
constexpr std::array<std::string_view, 4> kShortcuts = {"^S", "^P", "{F5}", "^F"};

std::string_view PrefixOf(std::string_view kind) {
  if (kind == "TextBox") return "txt";
  if (kind == "Label") return "lbl";
  if (kind == "CommandButton") return "cmd";
  if (kind == "ComboBox") return "cbo";
  return "chk";
}

std::string Spaced(std::string_view compound) {
  std::string text;
  for (char c : compound) {
    if (c >= 'A' && c <= 'Z' && !text.empty() && text.back() >= 'a') text += ' ';
    text += c;
  }
  return text;
}

// A caption with its access key on the first letter, e.g. "&Save".
std::string Accelerated(std::string_view text) {
  std::string caption = "&";
  caption += text;
  return caption;
}

}  // namespace

std::vector<ControlInfo> DesignerBuilder::Write(const ModulePlan& plan, bool listView) {
  switch (plan.kind) {
    case ModuleKind::Form:
      writer_.Begin("VB.Form", plan.name);
      break;
    case ModuleKind::UserControl:
      writer_.Begin("VB.UserControl", plan.name);
      break;
    case ModuleKind::PropertyPage:
      writer_.Begin("VB.PropertyPage", plan.name);
      break;
    default:
      writer_.Begin("VB.UserDocument", plan.name);
      break;
  }
  OwnProperties(plan);
  int count = plan.kind == ModuleKind::Form ? rng_.Between(4, 24) : rng_.Between(2, 8);
  if (!plan.hostedControl.empty()) HostedControl(plan.hostedControl);
  Controls(count, listView);
  if (plan.kind == ModuleKind::Form && rng_.Chance(60)) Menus();
  writer_.End();
  return std::move(controls_);
}

void DesignerBuilder::OwnProperties(const ModulePlan& plan) {
  int height = rng_.Between(20, 90) * 75;
  int width = rng_.Between(40, 140) * 75;
  if (plan.kind == ModuleKind::Form) {
    writer_.Text("Caption", Spaced(plan.name.substr(3)));
    writer_.Prop("ClientHeight", height);
    writer_.Prop("ClientLeft", 60);
    writer_.Prop("ClientTop", 345);
    writer_.Prop("ClientWidth", width);
    if (rng_.Chance(30)) FontBlock();
    writer_.Text("LinkTopic", "Form1");
    writer_.Prop("ScaleHeight", height);
    writer_.Prop("ScaleWidth", width);
    writer_.Enum("StartUpPosition", 3, "Windows Default");
    return;
  }
  if (plan.kind == ModuleKind::PropertyPage) writer_.Text("Caption", "General");
  writer_.Prop("ClientHeight", height);
  writer_.Prop("ClientLeft", 0);
  writer_.Prop("ClientTop", 0);
  writer_.Prop("ClientWidth", width);
  if (plan.kind == ModuleKind::UserDocument) writer_.Prop("HScrollSmallChange", 225);
  if (plan.kind == ModuleKind::PropertyPage) writer_.Enum("PaletteMode", 0, "Halftone");
  writer_.Prop("ScaleHeight", height);
  writer_.Prop("ScaleWidth", width);
  if (plan.kind == ModuleKind::UserDocument) writer_.Prop("VScrollSmallChange", 225);
}

void DesignerBuilder::FontBlock() {
  writer_.BeginProperty("Font");
  writer_.Text("Name", "Tahoma");
  writer_.Prop("Size", "8.25");
  writer_.Prop("Charset", 0);
  writer_.Prop("Weight", 400);
  writer_.Bool("Underline", false);
  writer_.Bool("Italic", false);
  writer_.Bool("Strikethrough", false);
  writer_.EndProperty();
}

// Places `count` controls; one control array is spread among the others, as z-order leaves it.
void DesignerBuilder::Controls(int count, bool listView) {
  std::string arrayName = NewName("cmd");
  int arraySize = count >= 4 ? rng_.Between(2, 4) : 0;
  int arrayPlaced = 0;
  if (arraySize > 0) controls_.push_back({arrayName, "Caption", "Click", true, 0});
  if (listView) ListView();
  for (int i = 0; i < count; ++i) {
    if (arrayPlaced < arraySize && rng_.Chance(35)) {
      Control("CommandButton", arrayName, arrayPlaced++);
      continue;
    }
    if (rng_.Chance(10)) {
      Frame(rng_.Between(2, 5));
      continue;
    }
    std::string_view kind = rng_.Pick(kKinds);
    Control(kind, NewName(PrefixOf(kind)), -1);
  }
  while (arrayPlaced < arraySize) Control("CommandButton", arrayName, arrayPlaced++);
}

void DesignerBuilder::Control(std::string_view kind, const std::string& name, int index) {
  std::string cls = "VB.";
  cls += kind;
  writer_.Begin(cls, name);
  std::string caption = Spaced(words_.Compound());
  int height = kind == "ComboBox" ? 315 : kind == "CommandButton" ? 375 : 285;
  if (kind == "Label" && rng_.Chance(30)) writer_.Bool("AutoSize", true);
  if (kind == "CommandButton" || kind == "Label" || kind == "CheckBox") {
    writer_.Text("Caption", kind == "CommandButton" ? Accelerated(caption) : caption);
  }
  if (kind == "CommandButton" && index < 0 && rng_.Chance(20)) writer_.Bool("Default", true);
  writer_.Prop("Height", height);
  if (index >= 0) writer_.Prop("Index", index);
  writer_.Prop("Left", rng_.Between(1, 60) * 120);
  if (kind == "TextBox" && rng_.Chance(30)) writer_.Prop("MaxLength", rng_.Between(5, 80));
  if (kind == "ComboBox") writer_.Enum("Style", 2, "Dropdown List");
  writer_.Prop("TabIndex", tabIndex_++);
  if (kind == "TextBox") writer_.Text("Text", rng_.Chance(50) ? "" : "0.00");
  writer_.Prop("Top", top_);
  top_ += 360;
  if (kind == "CheckBox" && rng_.Chance(30)) writer_.Enum("Value", 1, "Checked");
  writer_.Prop("Width", rng_.Between(8, 40) * 120);
  writer_.End();
  if (index >= 0) return;
  std::string_view property = kind == "TextBox"    ? "Text"
                              : kind == "ComboBox" ? "ListIndex"
                              : kind == "CheckBox" ? "Value"
                                                   : "Caption";
  std::string_view event = kind == "TextBox" ? "Change" : kind == "Label" ? "" : "Click";
  controls_.push_back({name, property, event, false, 0});
}

// A Frame holding a PictureBox that holds the controls: containers nest in the block.
void DesignerBuilder::Frame(int children) {
  std::string frame = NewName("fra");
  writer_.Begin("VB.Frame", frame);
  writer_.Text("Caption", Spaced(words_.Compound()));
  writer_.Prop("Height", 360 * children + 480);
  writer_.Prop("Left", 120);
  writer_.Prop("TabIndex", tabIndex_++);
  writer_.Prop("Top", top_);
  writer_.Prop("Width", 6000);
  std::string picture = NewName("pic");
  writer_.Begin("VB.PictureBox", picture);
  writer_.Enum("BorderStyle", 0, "None");
  writer_.Prop("Height", 360 * children + 60);
  writer_.Prop("Left", 120);
  writer_.Prop("ScaleHeight", 360 * children + 60);
  writer_.Prop("ScaleWidth", 5760);
  writer_.Prop("TabIndex", tabIndex_++);
  writer_.Prop("Top", 240);
  writer_.Prop("Width", 5760);
  int outerTop = top_;
  top_ = 0;
  for (int i = 0; i < children; ++i) {
    std::string_view kind = rng_.Pick(kKinds);
    Control(kind, NewName(PrefixOf(kind)), -1);
  }
  top_ = outerTop + 360 * children + 600;
  writer_.End();
  writer_.End();
  controls_.push_back({frame, "Enabled", "", false, 0});
}

void DesignerBuilder::ListView() {
  std::string name = NewName("lvw");
  int columns = rng_.Between(2, 5);
  writer_.Begin("MSComctlLib.ListView", name);
  writer_.Prop("Height", 2775);
  writer_.Prop("Left", 120);
  writer_.Prop("TabIndex", tabIndex_++);
  writer_.Prop("Top", top_);
  writer_.Prop("Width", 1800 * columns);
  writer_.Prop("_ExtentX", 3175 * columns);
  writer_.Prop("_ExtentY", 4895);
  writer_.Prop("View", 3);
  writer_.Bool("LabelWrap", true);
  writer_.Bool("HideSelection", false);
  writer_.Bool("FullRowSelect", true);
  writer_.Prop("_Version", 393217);
  writer_.Prop("ForeColor", -2147483640);
  writer_.Prop("BackColor", -2147483643);
  writer_.Prop("BorderStyle", 1);
  writer_.Prop("Appearance", 1);
  writer_.Prop("NumItems", columns);
  for (int c = 1; c <= columns; ++c) {
    writer_.BeginProperty("ColumnHeader(" + std::to_string(c) + ")", kColumnHeaderGuid);
    if (c > 1) writer_.Prop("SubItemIndex", c - 1);
    writer_.Text("Text", Spaced(words_.Compound()));
    writer_.Prop("Object.Width", 2540);
    writer_.EndProperty();
  }
  writer_.End();
  top_ += 2895;
  controls_.push_back({name, "Enabled", "", false, 0});
}

// A user control from a control project of the group: extender properties, then its extent.
void DesignerBuilder::HostedControl(const std::string& qualifiedClass) {
  std::string name = qualifiedClass.substr(qualifiedClass.find('.') + 1) + "1";
  names_.insert(name);
  int height = rng_.Between(4, 30) * 75;
  int width = rng_.Between(10, 60) * 75;
  writer_.Begin(qualifiedClass, name);
  writer_.Prop("Height", height);
  writer_.Prop("Left", 120);
  writer_.Prop("TabIndex", tabIndex_++);
  writer_.Prop("Top", top_);
  writer_.Prop("Width", width);
  // Twips to HiMetric, as the extent is stored: 1 twip = 2540 / 1440 HiMetric units.
  writer_.Prop("_ExtentX", width * 127 / 72);
  writer_.Prop("_ExtentY", height * 127 / 72);
  writer_.End();
  top_ += height + 120;
  controls_.push_back({name, "Enabled", "", false, 0});
}

void DesignerBuilder::Menus() {
  int menus = rng_.Between(1, 3);
  for (int m = 0; m < menus; ++m) {
    std::string top = NewName("mnu" + std::string(words_.Noun()));
    writer_.Begin("VB.Menu", top);
    writer_.Text("Caption", Accelerated(std::string_view(top).substr(3)));
    int items = rng_.Between(2, 5);
    for (int i = 0; i < items; ++i) {
      bool separator = i > 0 && i + 1 < items && rng_.Chance(20);
      std::string item = NewName(top + (separator ? "Sep" : std::string(words_.Verb())));
      writer_.Begin("VB.Menu", item);
      writer_.Text("Caption", separator ? std::string("-")
                                        : Accelerated(Spaced(item.substr(top.size())) + "..."));
      std::string_view key = rng_.Pick(kShortcuts);
      if (!separator && rng_.Chance(25) && shortcuts_.insert(key).second) {
        writer_.Prop("Shortcut", key);
      }
      writer_.End();
      if (!separator) controls_.push_back({item, "Enabled", "Click", false, 0});
    }
    writer_.End();
  }
}

std::string DesignerBuilder::NewName(std::string_view prefix) {
  for (;;) {
    std::string name(prefix);
    if (prefix.size() <= 3) name += words_.Compound();
    if (names_.insert(name).second) return name;
    if (prefix.size() > 3) {
      for (int n = 2;; ++n) {
        std::string numbered = name + std::to_string(n);
        if (names_.insert(numbered).second) return numbered;
      }
    }
  }
}

}  // namespace vbgen
