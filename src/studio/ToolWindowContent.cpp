// studio::ToolWindowContent: the document's own widget when the toolkit draws documents.
#include "studio/ToolWindowContent.h"

#include <QLabel>

#include "studio/QtText.h"

namespace studio {

QWidget* ToolWindowContent(vb::UserDocument& document, QWidget* parent) {
  auto* label = new QLabel(ToQt(document.Name()), parent);
  label->setAlignment(Qt::AlignCenter);
  return label;
}

}  // namespace studio
