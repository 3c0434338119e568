// SPDX-FileCopyrightText: The Tavrin authors
// SPDX-License-Identifier: MIT

#include "sorting/CatalogEntry.h"

#include <array>

namespace tavrin {

using namespace Qt::StringLiterals;

namespace {

/// Whether the entry is exactly what value() makes of its three parts.
bool isUsual(const plist::Dictionary &entry)
{
    using Type = plist::ValueType;
    constexpr std::array<QStringView, 3> keys{u"CurrentlySelected", u"Identifier", u"PreviouslySelected"};
    constexpr std::array types{Type::Boolean, Type::String, Type::Boolean};
    if (entry.size() != 3)
        return false;
    bool usual = true;
    size_t place = 0;
    entry.forEach([&](const QString &key, const plist::Value &value) {
        usual = usual && key == keys[place] && value.type() == types[place];
        ++place;
    });
    return usual;
}

} // namespace

CatalogEntry::CatalogEntry(const QString &identifier)
    : g_identifier(identifier)
    , g_currentlySelected(true)
    , g_previouslySelected(true)
{}

CatalogEntry CatalogEntry::entryWithValue(const plist::Value &stored)
{
    CatalogEntry entry;
    const plist::Dictionary *dictionary = stored.dictionary();
    if (dictionary)
        entry.g_identifier = dictionary->value(u"Identifier"_s).toText();
    if (entry.g_identifier.isEmpty()) {
        entry.g_identifier = QString();
        entry.g_unusualForm = std::make_shared<const plist::Value>(stored);
        return entry;
    }
    entry.g_currentlySelected = dictionary->value(u"CurrentlySelected"_s).toBool();
    entry.g_previouslySelected = dictionary->value(u"PreviouslySelected"_s).toBool();
    if (!isUsual(*dictionary))
        entry.g_unusualForm = std::make_shared<const plist::Value>(stored);
    return entry;
}

plist::Value CatalogEntry::value() const
{
    if (g_unusualForm)
        return *g_unusualForm;
    return plist::Dictionary{{u"CurrentlySelected"_s, g_currentlySelected},
                             {u"Identifier"_s, g_identifier},
                             {u"PreviouslySelected"_s, g_previouslySelected}};
}

void CatalogEntry::setCurrentlySelected(bool selected)
{
    if (selected == g_currentlySelected || isInert())
        return;
    g_currentlySelected = selected;
    store(selected, u"CurrentlySelected"_s);
}

void CatalogEntry::setPreviouslySelected(bool selected)
{
    if (selected == g_previouslySelected || isInert())
        return;
    g_previouslySelected = selected;
    store(selected, u"PreviouslySelected"_s);
}

void CatalogEntry::store(bool flag, const QString &key)
{
    if (!g_unusualForm)
        return;
    plist::Dictionary form = *g_unusualForm->dictionary();
    form.insert(key, flag);
    g_unusualForm = std::make_shared<const plist::Value>(form);
}

} // namespace tavrin
