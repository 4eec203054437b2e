// Registers the add-in's pictures; their XPM sources are compiled in as C arrays.
#include "QuillmarkResources.h"

#include <iterator>
#include <string>

#include "runtime/Xpm.h"

namespace quillmark {

namespace {

#include "pictures/activex_control.xpm"
#include "pictures/activex_dll.xpm"
#include "pictures/activex_exe.xpm"
#include "pictures/class.xpm"
#include "pictures/clear_debug_window.xpm"
#include "pictures/close_all_windows.xpm"
#include "pictures/code_pane.xpm"
#include "pictures/component_viewer.xpm"
#include "pictures/constant.xpm"
#include "pictures/control.xpm"
#include "pictures/designer.xpm"
#include "pictures/document.xpm"
#include "pictures/enumeration.xpm"
#include "pictures/event.xpm"
#include "pictures/form.xpm"
#include "pictures/mdi_child.xpm"
#include "pictures/mdi_form.xpm"
#include "pictures/method.xpm"
#include "pictures/module.xpm"
#include "pictures/new_member.xpm"
#include "pictures/property.xpm"
#include "pictures/property_page.xpm"
#include "pictures/replace.xpm"
#include "pictures/resource_file.xpm"
#include "pictures/search.xpm"
#include "pictures/standard_exe.xpm"
#include "pictures/stop.xpm"
#include "pictures/udt.xpm"
#include "pictures/user_control.xpm"
#include "pictures/user_document.xpm"
#include "pictures/variable.xpm"

template <std::size_t N>
vb::Picture Load(const char* const (&xpm)[N], std::string_view name) {
  return vb::ParseXpm(std::vector<std::string_view>(std::begin(xpm), std::end(xpm)), name);
}

struct Named {
  std::u16string_view key;
  const char* const* xpm;
  std::size_t size;
  std::string_view file;
};

#define QM_PICTURE(key, file)                            \
  Named {                                                \
    key, file##_xpm, std::size(file##_xpm), #file ".xpm" \
  }

const Named kImageList[] = {
    QM_PICTURE(u"ActiveX Control", activex_control),
    QM_PICTURE(u"Search", search),
    QM_PICTURE(u"Constant", constant),
    QM_PICTURE(u"Stop", stop),
    QM_PICTURE(u"Replace", replace),
    QM_PICTURE(u"Control", control),
    QM_PICTURE(u"Variable", variable),
    QM_PICTURE(u"Enumeration", enumeration),
    QM_PICTURE(u"Event", event),
    QM_PICTURE(u"Method", method),
    QM_PICTURE(u"Property", property),
    QM_PICTURE(u"UDT", udt),
    QM_PICTURE(u"Code Pane", code_pane),
    QM_PICTURE(u"Designer", designer),
    QM_PICTURE(u"Document", document),
    QM_PICTURE(u"UserDocument", user_document),
    QM_PICTURE(u"Resource File", resource_file),
    QM_PICTURE(u"ActiveX DLL", activex_dll),
    QM_PICTURE(u"ActiveX EXE", activex_exe),
    QM_PICTURE(u"Class", class),
    QM_PICTURE(u"Form", form),
    QM_PICTURE(u"MDI Child", mdi_child),
    QM_PICTURE(u"MDI Form", mdi_form),
    QM_PICTURE(u"Module", module),
    QM_PICTURE(u"Property Page", property_page),
    QM_PICTURE(u"Standard EXE", standard_exe),
    QM_PICTURE(u"UserControl", user_control),
};

#undef QM_PICTURE

vb::Picture Load(const Named& named) {
  return vb::ParseXpm(std::vector<std::string_view>(named.xpm, named.xpm + named.size), named.file);
}

}  // namespace

void RegisterQuillmarkResources(vb::Resources& resources) {
  resources.Register(101, Load(search_xpm, "search.xpm"));
  resources.Register(104, Load(close_all_windows_xpm, "close_all_windows.xpm"));
  resources.Register(105, Load(clear_debug_window_xpm, "clear_debug_window.xpm"));
  resources.Register(107, Load(component_viewer_xpm, "component_viewer.xpm"));
  resources.Register(u"NewMember", Load(new_member_xpm, "new_member.xpm"));
  for (const Named& named : kImageList) resources.Register(named.key, Load(named));
}

const std::vector<std::u16string_view>& ImageListKeys() {
  static const std::vector<std::u16string_view> keys = [] {
    std::vector<std::u16string_view> all;
    for (const Named& named : kImageList) all.push_back(named.key);
    return all;
  }();
  return keys;
}

}  // namespace quillmark
