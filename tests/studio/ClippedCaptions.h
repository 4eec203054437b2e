// The captions a window's widgets cut off: what a person would find unreadable in a dialog laid
// out in twips and drawn with the platform's fonts.
#pragma once

#include <QAbstractButton>
#include <QCheckBox>
#include <QLabel>
#include <QRadioButton>
#include <QStringList>
#include <string>

namespace studiotest {

// One entry per visible label or button whose text does not fit on one line, as
// `name "text" needs N px, has M`; the entries joined by "; ", so that none reads "".
inline std::string ClippedCaptions(QWidget* window) {
  QStringList clipped;
  for (auto* widget : window->findChildren<QWidget*>()) {
    if (!widget->isVisibleTo(window)) continue;
    QString text;
    int needed = 0;
    if (auto* label = qobject_cast<QLabel*>(widget)) {
      text = label->text();
      needed = label->fontMetrics().horizontalAdvance(QString(text).remove(u'&'));
    } else if (auto* button = qobject_cast<QAbstractButton*>(widget)) {
      text = button->text();
      // A push button's hint adds a generous margin; its text only needs the label's width.
      bool box = qobject_cast<QCheckBox*>(button) || qobject_cast<QRadioButton*>(button);
      needed = box ? button->sizeHint().width()
                   : button->fontMetrics().horizontalAdvance(QString(text).remove(u'&')) + 8;
    }
    if (!text.isEmpty() && needed > widget->width())
      clipped << widget->objectName() + " \"" + text + "\" needs " + QString::number(needed) +
                     " px, has " + QString::number(widget->width());
  }
  return clipped.join(QStringLiteral("; ")).toStdString();
}

}  // namespace studiotest
