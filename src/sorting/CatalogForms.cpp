// SPDX-FileCopyrightText: The Tavrin authors
// SPDX-License-Identifier: MIT

#include "sorting/CatalogForms.h"

#include "plist/XmlReader.h"

#include <array>

namespace tavrin {

using namespace Qt::StringLiterals;

namespace {

const QString currentKey = u"CurrentlySelected"_s;
const QString identifierKey = u"Identifier"_s;
const QString previousKey = u"PreviouslySelected"_s;

/// Whether the entry is exactly what valueOf() makes of its three parts.
bool isUsual(const plist::Dictionary &entry)
{
    using Type = plist::ValueType;
    const std::array<QStringView, 3> keys{currentKey, identifierKey, previousKey};
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

bool isBoolean(plist::Element element)
{
    return element == plist::Element::True || element == plist::Element::False;
}

} // namespace

CatalogEntry CatalogForms::entryWithValue(const plist::Value &stored)
{
    const plist::Dictionary *dictionary = stored.dictionary();
    const QString identifier = dictionary ? dictionary->value(identifierKey).toText() : QString();
    quint32 form = 0;
    if (identifier.isEmpty() || !isUsual(*dictionary)) {
        g_forms.push_back(stored);
        form = static_cast<quint32>(g_forms.size());
    }
    if (identifier.isEmpty())
        return {IdentifierTable::none, false, false, form};
    return {g_identifiers->add(identifier),
            dictionary->value(currentKey).toBool(),
            dictionary->value(previousKey).toBool(),
            form};
}

plist::Value CatalogForms::valueOf(const CatalogEntry &entry) const
{
    if (entry.form() != 0)
        return g_forms[entry.form() - 1];
    return plist::Dictionary{{currentKey, entry.currentlySelected()},
                             {identifierKey, g_identifiers->text(entry.identifier())},
                             {previousKey, entry.previouslySelected()}};
}

bool CatalogForms::readEntries(plist::XmlCursor &cursor, std::vector<CatalogEntry> &entries)
{
    if (!cursor.enter())
        return !cursor.hasFailed();
    while (cursor.nextElement()) {
        const char *start = cursor.valueStart();
        CatalogEntry entry(IdentifierTable::none);
        bool usual = false;
        if (!readUsualEntry(cursor, entry, usual))
            return false;
        if (!usual) {
            const Result<plist::Value> stored = plist::readXml({start, cursor.at()});
            entry = entryWithValue(stored ? *stored : plist::Value());
        }
        entries.push_back(entry);
    }
    return !cursor.hasFailed();
}

// Over the whole entry, whether it is a usual one or not.
bool CatalogForms::readUsualEntry(plist::XmlCursor &cursor, CatalogEntry &entry, bool &isUsual)
{
    using plist::Element;
    if (cursor.tag().element != Element::Dict)
        return cursor.skipValue();
    if (!cursor.enter())
        return !cursor.hasFailed();
    constexpr std::array<QByteArrayView, 3> keys{"CurrentlySelected", "Identifier", "PreviouslySelected"};
    std::array<bool, 3> flags{};
    QByteArrayView identifier;
    size_t place = 0;
    isUsual = true;
    while (cursor.nextKey()) {
        isUsual = isUsual && place < keys.size() && cursor.key() == keys[place];
        if (!cursor.nextValue())
            return false;
        const Element element = cursor.tag().element;
        if (isUsual && place == 1 && element == Element::String) {
            if (!cursor.readString(identifier))
                return false;
            isUsual = !cursor.isEncoded() && !identifier.isEmpty();
        } else {
            isUsual = isUsual && place != 1 && isBoolean(element);
            if (isUsual)
                flags[place] = element == Element::True;
            if (!cursor.skipValue())
                return false;
        }
        ++place;
    }
    isUsual = isUsual && place == keys.size();
    if (isUsual) {
        const quint32 number = g_identifiers->add(identifier, g_guess);
        g_guess = number + 1;
        entry = {number, flags[0], flags[2], 0};
    }
    return !cursor.hasFailed();
}

void CatalogForms::setCurrentlySelected(CatalogEntry &entry, bool selected)
{
    if (selected == entry.currentlySelected() || entry.isInert())
        return;
    entry.setCurrentlySelected(selected);
    store(entry, selected, currentKey);
}

void CatalogForms::setPreviouslySelected(CatalogEntry &entry, bool selected)
{
    if (selected == entry.previouslySelected() || entry.isInert())
        return;
    entry.setPreviouslySelected(selected);
    store(entry, selected, previousKey);
}

void CatalogForms::store(const CatalogEntry &entry, bool flag, const QString &key)
{
    if (entry.form() == 0)
        return;
    plist::Value &form = g_forms[entry.form() - 1];
    plist::Dictionary changed = *form.dictionary();
    changed.insert(key, flag);
    form = std::move(changed);
}

} // namespace tavrin
