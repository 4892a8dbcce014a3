#include "settings/EntrySet.h"

#include <utility>

namespace lyrabox {

EntrySet::EntrySet(QString identifierKey) : m_identifierKey(std::move(identifierKey)) {}

void EntrySet::load(const PropertyList &array,
                    const std::function<bool(const PropertyList &)> &isRedundant)
{
    m_entries.clear();
    m_others.clear();
    if (!array.array())
        return;
    for (const PropertyList &element : *array.array()) {
        if (!element.dictionary())
            continue;
        const QString *const identifier = element.value(m_identifierKey).string();
        if (!identifier)
            m_others.push_back(element);
        else if (!isRedundant(element))
            m_entries.insert_or_assign(*identifier, element);
    }
}

const PropertyList *EntrySet::find(const QString &identifier) const
{
    const auto found = m_entries.find(identifier);
    return found == m_entries.end() ? nullptr : &found->second;
}

void EntrySet::replace(const QString &identifier, PropertyList entry)
{
    m_entries.insert_or_assign(identifier, std::move(entry));
}

void EntrySet::remove(const QString &identifier)
{
    m_entries.erase(identifier);
}

PropertyList::Array EntrySet::elements() const
{
    PropertyList::Array all;
    all.reserve(m_entries.size() + m_others.size());
    for (const auto &entry : m_entries)
        all.push_back(entry.second);
    all.insert(all.end(), m_others.begin(), m_others.end());
    return all;
}

} // namespace lyrabox
