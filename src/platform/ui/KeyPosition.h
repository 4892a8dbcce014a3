#pragma once

class QKeyEvent;

namespace lyrabox {

/// The digit of a key in the upper row, by its position: 1 for the leftmost, up to 9. Keyboard
/// layouts that need Shift for digits have other characters there. Also a digit that was typed by
/// any other key, with Shift or without it. 0 for every other key, and together with Ctrl, Alt and
/// Meta.
int digitOfKey(const QKeyEvent &event);

} // namespace lyrabox
