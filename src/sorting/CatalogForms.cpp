// SPDX-FileCopyrightText: The Tavrin authors
// SPDX-License-Identifier: MIT

#include "sorting/CatalogForms.h"

#include "plist/KeyRow.h"
#include "plist/XmlReader.h"
#include "plist/XmlWriter.h"

#include <algorithm>
#include <array>

namespace tavrin {

using namespace Qt::StringLiterals;

namespace {

enum Part : size_t { Current, Identifier, Previous };
constexpr size_t partCount = 3;

const std::array<QString, partCount> keys{u"CurrentlySelected"_s, u"Identifier"_s, u"PreviouslySelected"_s};
constexpr std::array<QByteArrayView, partCount> keyBytes{
    "CurrentlySelected", "Identifier", "PreviouslySelected"};

using Order = std::array<Part, partCount>;

/// The orders in which the three keys may stand; the number of an order is the form of its entries. New
/// entries have the first.
constexpr std::array<Order, 6> orders{{{Current, Identifier, Previous},
                                       {Identifier, Current, Previous},
                                       {Identifier, Previous, Current},
                                       {Current, Previous, Identifier},
                                       {Previous, Current, Identifier},
                                       {Previous, Identifier, Current}}};
constexpr auto orderCount = static_cast<quint32>(orders.size());

/// The part that the key names, partCount when none.
template <typename Keys, typename Key>
size_t partNamed(const Key &key, const Keys &names)
{
    return static_cast<size_t>(std::ranges::find(names, key) - names.begin());
}

/// The number of the order, orderCount when a part is there twice.
quint32 numberOf(const Order &order)
{
    return static_cast<quint32>(std::ranges::find(orders, order) - orders.begin());
}

/// The order of an entry that has the three parts, each of its usual type, and nothing else; else orderCount.
quint32 orderOf(const plist::Dictionary &entry)
{
    using Type = plist::ValueType;
    Order order{};
    size_t place = 0;
    bool usual = entry.size() == partCount;
    entry.forEach([&](const QString &key, const plist::Value &value) {
        const size_t part = partNamed(key, keys);
        usual =
            usual && part < partCount && value.type() == (part == Identifier ? Type::String : Type::Boolean);
        if (usual)
            order[place++] = static_cast<Part>(part);
    });
    return usual ? numberOf(order) : orderCount;
}

bool isBoolean(plist::Element element)
{
    return element == plist::Element::True || element == plist::Element::False;
}

/// Goes over the entries of a catalog, one after the other.
class EntryReader
{
public:
    explicit EntryReader(plist::XmlCursor &cursor) : g_cursor(cursor) {}

    /// Over the whole entry, whether it is a usual one or not. False when the cursor failed.
    bool read();

    /// Of the entry that was read last: orderCount when it is not a usual one.
    quint32 form() const { return g_form; }
    QByteArrayView identifier() const { return g_identifier; }
    bool flag(Part part) const { return g_flags[part]; }

private:
    size_t part();
    bool readPart(size_t part, bool &isUsual);

    plist::XmlCursor &g_cursor;
    plist::KeyRow g_keys;
    std::vector<size_t> g_parts; ///< By number in g_keys.
    quint32 g_form = orderCount;
    QByteArrayView g_identifier;
    std::array<bool, partCount> g_flags{};
};

bool EntryReader::read()
{
    g_form = orderCount;
    if (g_cursor.tag().element != plist::Element::Dict)
        return g_cursor.skipValue();
    if (!g_cursor.enter())
        return !g_cursor.hasFailed();
    Order order{};
    size_t place = 0;
    bool isUsual = true;
    g_keys.begin();
    while (g_keys.next(g_cursor)) {
        const size_t met = part();
        isUsual = isUsual && met < partCount && place < partCount;
        if (isUsual)
            order[place++] = static_cast<Part>(met);
        if (!readPart(met, isUsual))
            return false;
    }
    if (isUsual && place == partCount)
        g_form = numberOf(order);
    return !g_cursor.hasFailed();
}

// The part that the key names at which the cursor is.
size_t EntryReader::part()
{
    if (g_keys.number() == g_parts.size())
        g_parts.push_back(partNamed(g_cursor.key(), keyBytes));
    return g_parts[g_keys.number()];
}

bool EntryReader::readPart(size_t part, bool &isUsual)
{
    using plist::Element;
    const Element element = g_cursor.tag().element;
    isUsual = isUsual && (part == Identifier ? element == Element::String : isBoolean(element));
    if (!isUsual)
        return g_cursor.skipValue();
    if (part != Identifier) {
        g_flags[part] = element == Element::True;
        return g_cursor.skipValue();
    }
    const bool isRead = g_cursor.readString(g_identifier);
    isUsual = !g_cursor.isEncoded() && !g_identifier.isEmpty();
    return isRead;
}

} // namespace

CatalogEntry CatalogForms::entryWithValue(const plist::Value &stored)
{
    const plist::Dictionary *dictionary = stored.dictionary();
    const QString identifier = dictionary ? dictionary->value(keys[Identifier]).toText() : QString();
    quint32 form = identifier.isEmpty() ? orderCount : orderOf(*dictionary);
    if (form == orderCount) {
        g_forms.push_back(stored);
        form = orderCount + static_cast<quint32>(g_forms.size()) - 1;
    }
    if (identifier.isEmpty())
        return {IdentifierTable::none, false, false, form};
    return {g_identifiers->add(identifier),
            dictionary->value(keys[Current]).toBool(),
            dictionary->value(keys[Previous]).toBool(),
            form};
}

plist::Value CatalogForms::valueOf(const CatalogEntry &entry) const
{
    if (entry.form() >= orderCount)
        return g_forms[entry.form() - orderCount];
    const std::array<plist::Value, partCount> parts{
        entry.currentlySelected(), g_identifiers->text(entry.identifier()), entry.previouslySelected()};
    plist::Dictionary value;
    for (const Part part : orders[entry.form()])
        value.insert(keys[part], parts[part]);
    return value;
}

// Without making a dictionary of each: a large datafile has a million of them.
void CatalogForms::write(const CatalogEntry &entry, plist::XmlWriter &writer, int level) const
{
    if (entry.form() >= orderCount) {
        writer.writeValue(g_forms[entry.form() - orderCount], level);
        return;
    }
    const std::array<plist::Value, partCount> parts{
        entry.currentlySelected(), g_identifiers->text(entry.identifier()), entry.previouslySelected()};
    writer.beginContainer("dict", level);
    for (const Part part : orders[entry.form()]) {
        writer.writeKey(keys[part], level + 1);
        writer.writeValue(parts[part], level + 1);
    }
    writer.endContainer("dict", level);
}

bool CatalogForms::readEntries(plist::XmlCursor &cursor, std::vector<CatalogEntry> &entries)
{
    if (!cursor.enter())
        return !cursor.hasFailed();
    EntryReader reader(cursor);
    while (cursor.nextElement()) {
        const char *start = cursor.valueStart();
        if (!reader.read())
            return false;
        if (reader.form() < orderCount) {
            const quint32 number = g_identifiers->add(reader.identifier(), g_guess);
            g_guess = number + 1;
            entries.emplace_back(number, reader.flag(Current), reader.flag(Previous), reader.form());
        } else {
            const Result<plist::Value> stored = plist::readXml({start, cursor.at()});
            entries.push_back(entryWithValue(stored ? *stored : plist::Value()));
        }
    }
    return !cursor.hasFailed();
}

void CatalogForms::setCurrentlySelected(CatalogEntry &entry, bool selected)
{
    if (selected == entry.currentlySelected() || entry.isInert())
        return;
    entry.setCurrentlySelected(selected);
    store(entry, selected, keys[Current]);
}

void CatalogForms::setPreviouslySelected(CatalogEntry &entry, bool selected)
{
    if (selected == entry.previouslySelected() || entry.isInert())
        return;
    entry.setPreviouslySelected(selected);
    store(entry, selected, keys[Previous]);
}

void CatalogForms::store(const CatalogEntry &entry, bool flag, const QString &key)
{
    if (entry.form() < orderCount)
        return;
    plist::Value &form = g_forms[entry.form() - orderCount];
    plist::Dictionary changed = *form.dictionary();
    changed.insert(key, flag);
    form = std::move(changed);
}

} // namespace tavrin
