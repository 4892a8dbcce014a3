#pragma once

#include <QString>

class QWidget;

namespace lyrabox {

/// The list of keys, as plain text in the user's language.
QString keysHelpText();

/// Version and licence, as plain text in the user's language.
QString aboutText();

/// Shows `text` in a modal box over `window`, with `title` above it. Both are plain text. Main
/// thread.
void showHelp(QWidget *window, const QString &title, const QString &text);

} // namespace lyrabox
