#pragma once

#include "platform/ui/DesktopWindows.h"

#include <QString>

class QDialog;
class QHeaderView;
class QWidget;

namespace lyrabox {

class SplitView;

/// Saves the geometry of windows, the divider and the columns to the user defaults, and restores
/// it. `name` is the prefix of the keys. Main thread.
namespace windowMemory {

/// Restores the geometry of the window and returns true. Returns false and changes nothing if none
/// was saved or its screen is gone.
bool restoreWindow(QWidget *window, const QString &name);

/// Saves position and size. A program that does not know its position (see programPlacesWindows())
/// saves the size alone, and a position that was saved earlier stays.
void saveWindow(const QWidget *window, const QString &name,
                bool knowsPlace = programPlacesWindows());

/// Restores a window that is made when it is first shown. Saves it when it is closed, and when the
/// program ends while it is visible.
void keepWindow(QDialog *window, const QString &name);

/// The position of the divider. Without a saved one a default is set.
void restoreDivider(SplitView *view);
void saveDivider(const SplitView *view);

/// The widths of the columns that the user can resize. Saved widths for another number of columns
/// are ignored.
void restoreColumns(QHeaderView *header, const QString &name);
void saveColumns(const QHeaderView *header, const QString &name);

} // namespace windowMemory
} // namespace lyrabox
