#pragma once

#include "platform/foundation/PropertyList.h"

#include <QString>

#include <map>

namespace lyrabox {

/// A set of dictionaries, each with an identifier under one key, as "UserSettings.plist" holds
/// them. What is added here takes the place of every entry of its identifier; what a file holds is
/// taken as it is, and stays so until it is replaced.
class EntrySet {
public:
    /// `identifierKey` names the member by which entries are told apart.
    explicit EntrySet(QString identifierKey);

    /// Replaces the set by the dictionaries of `array`. One without a text under the identifier key
    /// answers no lookup; whatever is no dictionary is left out.
    void load(const PropertyList &array);

    /// The entry of that identifier, the last where a file holds several; none without one. Valid
    /// until the set changes.
    const PropertyList *find(const QString &identifier) const;

    /// Adds `entry` in the place of those that had its identifier.
    void replace(const QString &identifier, PropertyList entry);
    void remove(const QString &identifier);

    PropertyList::Array elements() const;

private:
    QString m_identifierKey;
    std::multimap<QString, PropertyList> m_entries;
    PropertyList::Array m_others;
};

} // namespace lyrabox
