#pragma once

#include "platform/ui/DesktopWindows.h"

#include <QString>

class QHeaderView;
class QWidget;

namespace lyrabox {

class SplitView;

/// Remembers sizes, positions, the divider and the column layout from run to run, in user defaults
/// of their own.
namespace windowMemory {

/// Gives the window the place and the size that it had; where it was never shown, or its screen is
/// gone, it stays as it is. Returns whether it was moved.
bool restoreWindow(QWidget *window, const QString &name);

/// Remembers place and size. A program that does not know its place (see programPlacesWindows())
/// remembers the size alone, and a place that was remembered before stays.
void saveWindow(const QWidget *window, const QString &name,
                bool knowsPlace = programPlacesWindows());

void restoreDivider(SplitView *view);
void saveDivider(const SplitView *view);

/// The widths of the columns that the user can resize. A layout of another number of columns is
/// ignored.
void restoreColumns(QHeaderView *header, const QString &name);
void saveColumns(const QHeaderView *header, const QString &name);

} // namespace windowMemory
} // namespace lyrabox
