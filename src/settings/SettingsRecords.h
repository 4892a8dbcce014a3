#pragma once

#include "platform/foundation/PropertyList.h"
#include "settings/EqPreset.h"
#include "settings/SongValues.h"
#include "settings/SortDescriptor.h"

#include <QStringList>

/// Converts between the records of the settings files and values. Every record can be read: a
/// default takes the place of a member that is missing or has a wrong type. Any thread.
namespace lyrabox {

/// Band levels are between -eqLevelLimit and +eqLevelLimit, in dB. Levels read from a file are
/// clamped to that.
inline constexpr float eqLevelLimit = 12.0F;

/// The members of a dictionary whose keys are not among the `known` ones, in its order. Empty if
/// `dictionary` is not a dictionary.
PropertyList::Dictionary otherMembers(const PropertyList &dictionary, const QStringList &known);

/// The speed and pitch of a song-settings entry, each its default if it is not a finite number.
SongValues songValues(const PropertyList &entry);
PropertyList songEntry(SongValues values, const QString &inode);

/// The sort of a sort entry: `fallback` if it has no key, ascending if it has no direction.
SortDescriptor sortDescriptor(const PropertyList &entry, const SortDescriptor &fallback);
PropertyList sortEntry(const SortDescriptor &descriptor, const QString &listID);

/// The presets in an array of preset dictionaries, in its order. Other elements are skipped. A
/// preset without a usable "id" (an integer from 0 to 2^31 - 1) gets the largest id in the array
/// plus 1. A preset has ten levels, which are finite and within eqLevelLimit: missing and malformed
/// levels become 0, surplus ones are dropped. Members with unknown keys are kept in
/// EqPreset::others.
EqPresetList eqPresets(const PropertyList &array);
PropertyList eqPresetEntries(const EqPresetList &presets);

/// Makes sure that `presets` has the manual preset (id 0) and that the user cannot remove it. A
/// missing one is taken from `shipped` and added at the front; one that lacks EqPreset::persistent
/// gets the shipped preset's value. Does nothing if `shipped` has no manual preset.
void ensureManualPreset(EqPresetList &presets, const EqPresetList &shipped);

/// The strings in an array, without empty ones and elements of other types.
QStringList strings(const PropertyList &array);

} // namespace lyrabox
