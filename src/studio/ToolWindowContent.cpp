// studio::ToolWindowContent: the document's own widget when the toolkit draws documents.
#include "studio/ToolWindowContent.h"

#include <QLabel>

#include "studio/QtText.h"
#include "studio/peers/QtToolkit.h"

namespace studio {

QWidget* ToolWindowContent(vb::UserDocument& document, QWidget* parent) {
  if (QWidget* drawn = WidgetOf(document)) return drawn;
  // A document without a peer (no toolkit attached) still gets a dock that says what it is.
  auto* label = new QLabel(ToQt(document.Name()), parent);
  label->setAlignment(Qt::AlignCenter);
  return label;
}

}  // namespace studio
