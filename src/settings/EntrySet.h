#pragma once

#include "platform/foundation/PropertyList.h"

#include <QString>

#include <functional>
#include <map>

namespace lyrabox {

/// A set of dictionaries of which each has an identifier of its own under one key, as
/// "UserSettings.plist" holds them. What a file held beyond the keys known here stays in the entry
/// until it is replaced.
class EntrySet {
public:
    /// `identifierKey` names the member by which entries are told apart.
    explicit EntrySet(QString identifierKey);

    /// Replaces the set by the dictionaries of `array`, the later of two with one identifier, save
    /// those for which `isRedundant` holds. A dictionary without a text under the identifier key
    /// answers no lookup and is kept to be written again; whatever is no dictionary is left out.
    void load(const PropertyList &array,
              const std::function<bool(const PropertyList &)> &isRedundant);

    /// The entry of that identifier, or none. Valid until the set changes.
    const PropertyList *find(const QString &identifier) const;

    /// Adds `entry` in the place of the one that had its identifier.
    void replace(const QString &identifier, PropertyList entry);
    void remove(const QString &identifier);

    PropertyList::Array elements() const;

private:
    QString m_identifierKey;
    std::map<QString, PropertyList> m_entries;
    PropertyList::Array m_others;
};

} // namespace lyrabox
