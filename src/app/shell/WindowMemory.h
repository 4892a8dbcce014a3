#pragma once

#include <QString>

class QHeaderView;
class QWidget;

namespace lyrabox {

class SplitView;

/// Remembers sizes, positions, the divider and the column layout from run to run, in user defaults
/// of their own.
namespace windowMemory {

/// Puts the window where it was; where it was never shown, or its screen is gone, it stays as it
/// is. Returns whether it was moved.
bool restoreWindow(QWidget *window, const QString &name);
void saveWindow(const QWidget *window, const QString &name);

void restoreDivider(SplitView *view);
void saveDivider(const SplitView *view);

/// The widths of the columns that the user can resize. A layout of another number of columns is
/// ignored.
void restoreColumns(QHeaderView *header, const QString &name);
void saveColumns(const QHeaderView *header, const QString &name);

} // namespace windowMemory
} // namespace lyrabox
