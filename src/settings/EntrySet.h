#pragma once

#include "platform/foundation/PropertyList.h"

#include <QString>

#include <map>

namespace lyrabox {

/// Dictionaries keyed by one of their members, as stored in the arrays of "UserSettings.plist".
/// Entries that were loaded stay unchanged, even if several have the same identifier, until
/// replace() or remove() is called for that identifier; docs/kept-on-purpose.md says why. One
/// thread at a time.
class EntrySet {
public:
    /// `identifierKey` is the key of the member that identifies an entry.
    explicit EntrySet(QString identifierKey);

    /// Replaces the content with the dictionaries in `array`; other elements are ignored. A
    /// dictionary without a string under the identifier key is kept, but find() never returns it.
    void load(const PropertyList &array);

    /// The entry with that identifier, or the last one if several were loaded; null if there is
    /// none. Valid until the set changes.
    const PropertyList *find(const QString &identifier) const;

    /// Removes all entries with `identifier` and adds `entry`, which has that identifier.
    void replace(const QString &identifier, PropertyList entry);

    /// Removes all entries with `identifier`.
    void remove(const QString &identifier);

    /// All entries sorted by identifier, then those without an identifier.
    PropertyList::Array elements() const;

private:
    QString m_identifierKey;
    std::multimap<QString, PropertyList> m_entries;
    PropertyList::Array m_others;
};

} // namespace lyrabox
