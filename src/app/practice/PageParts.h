#pragma once

#include <QString>

class QLabel;
class QScrollArea;
class QWidget;

/// Parts of the pages on the right of the practice pane. Main thread.
namespace lyrabox::pageParts {

/// An area that scrolls `form`, and owns it, where a page is too low for it. It has no frame and no
/// ground of its own.
QScrollArea *scrolling(QWidget *form, QWidget *parent);

/// A label in the quieter colour of texts that name a control.
QLabel *quietLabel(const QString &text, QWidget *parent);

} // namespace lyrabox::pageParts
