// Plan: file extensions and project-file keys of the component kinds.
#include "Plan.h"

namespace vbgen {

std::string_view Extension(ModuleKind kind) {
  switch (kind) {
    case ModuleKind::Standard:
      return ".bas";
    case ModuleKind::Class:
      return ".cls";
    case ModuleKind::Form:
      return ".frm";
    case ModuleKind::UserControl:
      return ".ctl";
    case ModuleKind::PropertyPage:
      return ".pag";
    case ModuleKind::UserDocument:
      return ".dob";
    case ModuleKind::Designer:
      return ".dsr";
  }
  return ".bas";
}

std::string_view VbpKey(ModuleKind kind) {
  switch (kind) {
    case ModuleKind::Standard:
      return "Module";
    case ModuleKind::Class:
      return "Class";
    case ModuleKind::Form:
      return "Form";
    case ModuleKind::UserControl:
      return "UserControl";
    case ModuleKind::PropertyPage:
      return "PropertyPage";
    case ModuleKind::UserDocument:
      return "UserDocument";
    case ModuleKind::Designer:
      return "Designer";
  }
  return "Module";
}

}  // namespace vbgen
