#pragma once

#include "platform/foundation/PropertyList.h"
#include "settings/EqPreset.h"
#include "settings/SongValues.h"
#include "settings/SortDescriptor.h"

#include <QStringList>

/// How the records of the settings files become values and values become records. No record is too
/// odd to be read: what it lacks, or has of a wrong type, is filled in.
namespace lyrabox {

/// Furthest a band level may lie from 0, in dB; what a file holds beyond it is brought back.
inline constexpr float eqLevelLimit = 12.0F;

/// The members of a dictionary under other keys than the `known` ones, in its order; none for what
/// is no dictionary.
PropertyList::Dictionary otherMembers(const PropertyList &dictionary, const QStringList &known);

/// The speed and pitch of a song-settings entry; the default for one that is no finite number.
SongValues songValues(const PropertyList &entry);
PropertyList songEntry(SongValues values, const QString &inode);

/// The sort of a sort entry: `fallback` when it names no key, ascending when it names no direction.
SortDescriptor sortDescriptor(const PropertyList &entry, const SortDescriptor &fallback);
PropertyList sortEntry(const SortDescriptor &descriptor, const QString &listID);

/// The presets of an array of preset dictionaries, in its order. Elements that are no dictionaries
/// are left out. A preset without a usable "id" (an integer from 0 to 2^31 - 1) gets the largest id
/// present plus 1. Levels are ten finite numbers within the limit: missing and malformed ones are
/// 0, surplus ones are dropped. What a preset holds under unknown keys stays with it.
EqPresetList eqPresets(const PropertyList &array);
PropertyList eqPresetEntries(const EqPresetList &presets);

/// Makes sure that `presets` has the manual preset (id 0) and that it cannot be removed, with what
/// `shipped` has to give: a missing one is added at the front.
void ensureManualPreset(EqPresetList &presets, const EqPresetList &shipped);

/// The texts of an array, empty ones and other types left out.
QStringList strings(const PropertyList &array);

} // namespace lyrabox
