// The main module's shared routines.
#include "base/mdlMainHelpers.h"

#include "base/ResumeNext.h"
#include "runtime/UserDocument.h"
#include "runtime/forms/Form.h"
#include "runtime/forms/ListView.h"
#include "vbide/VBComponent.h"
#include "vbide/VBE.h"
#include "vbide/VBProject.h"

namespace quillmark {
namespace {

using options::Key;
namespace Placement = options::FormPlacement;

constexpr int kAltOnly = 4;
constexpr std::intptr_t kAltHeldContext = 0x20000000;
constexpr float kDefaultColumnWidth = 1440;
constexpr float kMaxColumnWidth = 15000;
constexpr float kColumnSaveSlack = 5;
constexpr float kColumnSaveShrink = 285;  // subtracted on saving, never added back; intended

}  // namespace

void RefreshTypeList(mdlMain& main, bool refresh) {
  main.gTypeList = std::u16string(kIntrinsicTypes);
  if (!refresh || !main.gVBInstance) return;
  auto project = main.gVBInstance->ActiveVBProject();
  if (!project) return;
  for (auto& component : project->VBComponents()->Items()) {
    switch (component->Type()) {
      case vbide::vbext_ct_VBMDIForm:
      case vbide::vbext_ct_DocObject:
      case vbide::vbext_ct_ClassModule:
      case vbide::vbext_ct_MSForm:
      case vbide::vbext_ct_VBForm:
        main.gTypeList += u"|" + component->Name();
        break;
      default:
        break;  // user controls, standard modules and the rest are no types here
    }
  }
}

void SaveFormPosition(vb::Runtime& runtime, vb::Form& form, bool withSize) {
  options::Settings settings(runtime.Settings());
  auto key = [&](Key k) { return options::ForForm(form.Name(), k); };
  if (withSize) {
    settings.WriteWhole(key(Placement::kWindowState), form.WindowState());
    if (form.WindowState() != vb::vbNormal) return;
    settings.Write(key(Placement::kWidth), vb::CStr(static_cast<double>(form.Width())));
    settings.Write(key(Placement::kHeight), vb::CStr(static_cast<double>(form.Height())));
  }
  settings.Write(key(Placement::kLeft), vb::CStr(static_cast<double>(form.Left())));
  settings.Write(key(Placement::kTop), vb::CStr(static_cast<double>(form.Top())));
}

void LoadFormPosition(vb::Runtime& runtime, vb::Form& form, bool withSize) {
  options::Settings settings(runtime.Settings());
  auto key = [&](Key k) { return options::ForForm(form.Name(), k); };
  std::int16_t left = settings.Short(key(Placement::kLeft));
  std::int16_t top = settings.Short(key(Placement::kTop));
  if (withSize) {
    form.SetWidth(static_cast<float>(options::NumberOf(settings.Text(key(Placement::kWidth)))));
    form.SetHeight(static_cast<float>(options::NumberOf(settings.Text(key(Placement::kHeight)))));
    form.SetWindowState(settings.Short(key(Placement::kWindowState)));
  }
  if (form.WindowState() != vb::vbNormal) return;
  if (left < 1 && top < 1) {
    auto& screen = runtime.GetScreen();
    form.Move((screen.Width() - form.Width()) / 2, (screen.Height() - form.Height()) / 2);
    return;
  }
  form.Move(left, top);
}

void LoadColumnWidths(vb::Runtime& runtime, std::u16string_view section, vb::ListView& listView,
                      std::u16string_view prefix) {
  options::Settings settings(runtime.Settings());
  auto& columns = listView.ColumnHeaders();
  for (int i = 1; i <= columns.Count(); ++i) {
    std::u16string name = options::ColumnKeyName(prefix, i);
    float width =
        static_cast<float>(settings.Whole({section, name, options::ColumnWidths::kDefault}));
    columns.Item(i).SetWidth(width > kMaxColumnWidth ? kDefaultColumnWidth : width);
  }
}

void SaveColumnWidths(vb::Runtime& runtime, std::u16string_view section, vb::ListView& listView,
                      std::u16string_view prefix) {
  options::Settings settings(runtime.Settings());
  auto& columns = listView.ColumnHeaders();
  for (int i = 1; i <= columns.Count(); ++i) {
    std::u16string name = options::ColumnKeyName(prefix, i);
    Key key{section, name, options::ColumnWidths::kDefault};
    float stored = static_cast<float>(settings.Whole(key));
    float width = columns.Item(i).Width();
    if (std::abs(width - stored) > kColumnSaveSlack)
      settings.WriteWhole(key, static_cast<std::int64_t>(width - kColumnSaveShrink));
  }
}

void SetFullRowSelect(vb::Runtime& runtime, vb::Hwnd listView) {
  auto& windows = runtime.Windows();
  auto style = windows.SendMessage(listView, vb::kLvmGetExtendedListViewStyle, 0, 0);
  windows.SendMessage(listView, vb::kLvmSetExtendedListViewStyle, 0,
                      style | vb::kLvsExFullRowSelect);
}

vb::Hwnd TopLevelParent(vb::Runtime& runtime, vb::Hwnd hwnd) {
  auto& windows = runtime.Windows();
  for (vb::Hwnd parent = windows.GetParent(hwnd); parent != 0; parent = windows.GetParent(hwnd))
    hwnd = parent;
  return hwnd;
}

void PassAltKeyToIDE(mdlMain& main, vb::UserDocument& document, int& keyCode, int shift) {
  ResumeNext([&] {
    if (shift != kAltOnly || keyCode < 'A' || keyCode > 'Z') return;
    // The IDE can take an accelerator only while one of its windows is active.
    if (!main.gVBInstance || !main.gVBInstance->ActiveWindow()) return;
    if (main.mainFrame == 0) main.mainFrame = TopLevelParent(main.Rt(), document.hWnd());
    auto& windows = main.Rt().Windows();
    windows.SetFocus(main.mainFrame);
    windows.PostMessage(main.mainFrame, vb::kWmSysKeyDown, keyCode, kAltHeldContext);
    keyCode = 0;
  });
}

}  // namespace quillmark
