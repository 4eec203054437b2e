// studio::ToolWindowContent: the widget a tool window's dock shows for the document it hosts.
#pragma once

#include <QWidget>

#include "runtime/UserDocument.h"

namespace studio {

QWidget* ToolWindowContent(vb::UserDocument& document, QWidget* parent);

}  // namespace studio
