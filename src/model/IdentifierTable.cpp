// SPDX-FileCopyrightText: The Tavrin authors
// SPDX-License-Identifier: MIT

#include "model/IdentifierTable.h"

#include "plist/Utf8.h"

#include <QHash>

#include <hwy/cache_control.h>

#include <algorithm>
#include <bit>
#include <functional>
#include <utility>

namespace tavrin {

namespace {

// No UTF-8 begins so: behind it stand the code units of a text that UTF-8 cannot hold.
constexpr char codeUnitsMark = '\xff';

QByteArray keyOf(const QString &identifier)
{
    if (identifier.isValidUtf16())
        return identifier.toUtf8();
    QByteArray key(1, codeUnitsMark);
    return key.append(reinterpret_cast<const char *>(identifier.utf16()),
                      identifier.size() * qsizetype(sizeof(char16_t)));
}

quint32 hashOf(QByteArrayView key)
{
    static const size_t seed = QHashSeed::globalSeed();
    const size_t hash = qHashBits(key.data(), static_cast<size_t>(key.size()), seed);
    return static_cast<quint32>(hash ^ hash >> 32);
}

bool contains(QByteArrayView whole, QByteArrayView part)
{
    const std::less_equal<const char *> isNotBehind;
    return isNotBehind(whole.begin(), part.begin()) && isNotBehind(part.end(), whole.end());
}

} // namespace

IdentifierTable::Hashed::Hashed(QByteArrayView text) : utf8(text), hash(hashOf(text)) {}

void IdentifierTable::reserve(quint32 count)
{
    // Some more, so that the first new identifier does not move them all.
    count += count / 4;
    g_entries.reserve(count);
    const size_t places = std::bit_ceil(size_t(count) * 3 / 2);
    if (g_places.size() < places)
        enlarge(places);
}

quint32 IdentifierTable::number(const QString &identifier) const
{
    const QByteArray key = keyOf(identifier);
    return find(key, hashOf(key));
}

QString IdentifierTable::text(quint32 number) const
{
    const QByteArrayView key = bytes(number);
    if (!key.startsWith(codeUnitsMark))
        return key.isEmpty() ? QStringLiteral("") : plist::fromUtf8(key);
    QString text((key.size() - 1) / qsizetype(sizeof(char16_t)), Qt::Uninitialized);
    std::copy(key.begin() + 1, key.end(), reinterpret_cast<char *>(text.data()));
    return text;
}

quint32 IdentifierTable::add(const QString &identifier)
{
    return add(QByteArrayView(keyOf(identifier)));
}

quint32 IdentifierTable::add(QByteArrayView utf8, quint32 guess)
{
    return guess < count() && bytes(guess) == utf8 ? guess : add(utf8);
}

quint32 IdentifierTable::add(QByteArrayView utf8)
{
    return add(Hashed(utf8));
}

quint32 IdentifierTable::add(const Hashed &identifier)
{
    const auto [utf8, hash] = identifier;
    if (const quint32 known = find(utf8, hash); known != none)
        return known;
    if ((g_entries.size() + 1) * 3 > g_places.size() * 2)
        enlarge(std::max<size_t>(16, g_places.size() * 2));
    const QByteArrayView kept = stored(utf8);
    const quint32 number = count();
    g_entries.push_back({kept.data(), static_cast<quint32>(kept.size())});
    put({number, hash});
    return number;
}

void IdentifierTable::fetch(const Hashed &identifier) const
{
    if (!g_places.empty())
        hwy::Prefetch(&g_places[identifier.hash & (g_places.size() - 1)]);
}

void IdentifierTable::keep(const SharedBytes &bytes)
{
    g_kept.push_back(bytes);
}

quint32 IdentifierTable::find(QByteArrayView key, quint32 hash) const
{
    if (g_places.empty())
        return none;
    for (size_t at = hash & (g_places.size() - 1);; at = (at + 1) & (g_places.size() - 1)) {
        const Place &place = g_places[at];
        if (place.number == none || (place.hash == hash && bytes(place.number) == key))
            return place.number;
    }
}

// Of an identifier that has none yet.
void IdentifierTable::put(const Place &place)
{
    size_t at = place.hash & (g_places.size() - 1);
    while (g_places[at].number != none)
        at = (at + 1) & (g_places.size() - 1);
    g_places[at] = place;
}

void IdentifierTable::enlarge(size_t places)
{
    const LargeVector<Place> before = std::exchange(g_places, LargeVector<Place>(places));
    for (const Place &place : before) {
        if (place.number != none)
            put(place);
    }
}

QByteArrayView IdentifierTable::stored(QByteArrayView key)
{
    const bool isKept =
        std::ranges::any_of(g_kept, [key](const SharedBytes &bytes) { return contains(bytes.view(), key); });
    if (isKept)
        return key;
    g_own.push_back(std::make_shared<const QByteArray>(key.toByteArray()));
    return *g_own.back();
}

} // namespace tavrin
