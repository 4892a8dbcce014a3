#include "settings/EntrySet.h"

#include <iterator>
#include <utility>

namespace lyrabox {

EntrySet::EntrySet(QString identifierKey) : m_identifierKey(std::move(identifierKey)) {}

void EntrySet::load(const PropertyList &array)
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
        else
            m_entries.emplace(*identifier, element);
    }
}

const PropertyList *EntrySet::find(const QString &identifier) const
{
    const auto [first, last] = m_entries.equal_range(identifier);
    return first == last ? nullptr : &std::prev(last)->second;
}

void EntrySet::replace(const QString &identifier, PropertyList entry)
{
    m_entries.erase(identifier);
    m_entries.emplace(identifier, std::move(entry));
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
