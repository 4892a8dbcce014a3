#include "settings/SettingsRecords.h"

#include <QCoreApplication>

#include <algorithm>
#include <cmath>
#include <iterator>
#include <limits>

using namespace Qt::Literals::StringLiterals;

namespace lyrabox {
namespace {

const QString inodeKey = u"inode"_s;
const QString speedKey = u"speed"_s;
const QString pitchKey = u"pitch"_s;
const QString idKey = u"id"_s;
const QString sortKey = u"key"_s;
const QString ascendingKey = u"ascending"_s;
const QString nameKey = u"name"_s;
const QString levelsKey = u"levels"_s;
const QString persistentKey = u"persistent"_s;

float finiteFloat(const PropertyList &value, float fallback)
{
    const float number =
        static_cast<float>(value.real().value_or(std::numeric_limits<double>::quiet_NaN()));
    return std::isfinite(number) ? number : fallback;
}

std::shared_ptr<std::vector<float>> levels(const PropertyList &array)
{
    auto result = std::make_shared<std::vector<float>>(EqPreset::bands, 0.0F);
    if (const PropertyList::Array *const elements = array.array()) {
        const std::size_t count = std::min(elements->size(), result->size());
        for (std::size_t i = 0; i < count; ++i)
            (*result)[i] =
                std::clamp(finiteFloat((*elements)[i], 0.0F), -eqLevelLimit, eqLevelLimit);
    }
    return result;
}

std::optional<qint64> usableId(const PropertyList &value)
{
    const std::optional<qint64> id = value.integer();
    return id && *id >= 0 && *id <= std::numeric_limits<qint32>::max() ? id : std::nullopt;
}

} // namespace

PropertyList::Dictionary otherMembers(const PropertyList &dictionary, const QStringList &known)
{
    PropertyList::Dictionary others;
    if (const PropertyList::Dictionary *const members = dictionary.dictionary())
        std::copy_if(
            members->begin(), members->end(), std::back_inserter(others),
            [&](const PropertyList::Member &member) { return !known.contains(member.first); });
    return others;
}

SongValues songValues(const PropertyList &entry)
{
    const SongValues normal;
    return {finiteFloat(entry.value(speedKey), normal.speed),
            finiteFloat(entry.value(pitchKey), normal.pitch)};
}

PropertyList songEntry(SongValues values, const QString &inode)
{
    return PropertyList::Dictionary{
        {inodeKey, inode}, {speedKey, values.speed}, {pitchKey, values.pitch}};
}

SortDescriptor sortDescriptor(const PropertyList &entry, const SortDescriptor &fallback)
{
    const QString *const key = entry.value(sortKey).string();
    if (!key || key->isEmpty())
        return fallback;
    return {*key, entry.value(ascendingKey).boolean().value_or(true)};
}

PropertyList sortEntry(const SortDescriptor &descriptor, const QString &listID)
{
    return PropertyList::Dictionary{
        {idKey, listID}, {sortKey, descriptor.key}, {ascendingKey, descriptor.ascending}};
}

EqPresetList eqPresets(const PropertyList &array)
{
    EqPresetList presets;
    if (!array.array())
        return presets;
    qint64 largestId = 0;
    for (const PropertyList &element : *array.array())
        largestId = std::max(largestId, usableId(element.value(idKey)).value_or(0));
    for (const PropertyList &element : *array.array()) {
        if (!element.dictionary())
            continue;
        auto preset = std::make_shared<EqPreset>();
        const std::optional<qint64> id = usableId(element.value(idKey));
        preset->id = id ? *id : ++largestId;
        const QString *const name = element.value(nameKey).string();
        preset->name =
            name ? *name : QCoreApplication::translate("LB_SettingsController", "Untitled");
        preset->levels = levels(element.value(levelsKey));
        const PropertyList &persistent = element.value(persistentKey);
        if (!persistent.isNull())
            preset->persistent = persistent.string() ? *persistent.string() : QString();
        preset->others = otherMembers(element, {idKey, nameKey, levelsKey, persistentKey});
        presets.push_back(std::move(preset));
    }
    return presets;
}

PropertyList eqPresetEntries(const EqPresetList &presets)
{
    PropertyList::Array entries;
    for (const EqPresetRef &preset : presets) {
        if (!preset)
            continue;
        PropertyList::Array values;
        if (preset->levels)
            values.assign(preset->levels->begin(), preset->levels->end());
        PropertyList::Dictionary entry{
            {idKey, preset->id}, {nameKey, preset->name}, {levelsKey, std::move(values)}};
        if (preset->persistent)
            entry.emplace_back(persistentKey, *preset->persistent);
        entry.insert(entry.end(), preset->others.begin(), preset->others.end());
        entries.emplace_back(std::move(entry));
    }
    return entries;
}

void ensureManualPreset(EqPresetList &presets, const EqPresetList &shipped)
{
    const auto isManual = [](const EqPresetRef &preset) { return preset->id == 0; };
    const auto original = std::find_if(shipped.begin(), shipped.end(), isManual);
    if (original == shipped.end())
        return;
    const auto present = std::find_if(presets.begin(), presets.end(), isManual);
    if (present == presets.end())
        presets.insert(presets.begin(), *original);
    else if (!(*present)->persistent)
        (*present)->persistent = (*original)->persistent;
}

QStringList strings(const PropertyList &array)
{
    QStringList texts;
    if (!array.array())
        return texts;
    for (const PropertyList &element : *array.array()) {
        if (const QString *const text = element.string(); text && !text->isEmpty())
            texts.append(*text);
    }
    return texts;
}

} // namespace lyrabox
