#pragma once

namespace lyrabox {

/// The tags of the three cells of a ButtonMatrix that steps a value: one step down, back to the
/// normal value, one step up.
enum StepTag { StepDown = 0, StepReset = 1, StepUp = 2 };

} // namespace lyrabox
