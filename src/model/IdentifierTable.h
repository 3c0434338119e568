// SPDX-FileCopyrightText: The Tavrin authors
// SPDX-License-Identifier: MIT

#pragma once

#include "base/LargeMemory.h"
#include "base/SharedBytes.h"

#include <QString>

#include <memory>
#include <vector>

namespace tavrin {

/// Identifiers, each stored once and known by its number from then on. Numbers count from 0 and stay.
///
/// The text of an identifier that came from a file stays in the file's bytes.
class IdentifierTable
{
public:
    static constexpr quint32 none = 0xffffffff;

    /// An identifier in UTF-8 with its hash.
    struct Hashed
    {
        explicit Hashed(QByteArrayView text);

        QByteArrayView utf8;
        quint32 hash;
    };

    quint32 count() const { return static_cast<quint32>(g_entries.size()); }
    void reserve(quint32 count);

    /// The number of an identifier, `none` when it was never added.
    quint32 number(const QString &identifier) const;
    QString text(quint32 number) const;
    /// As UTF-8, for identifiers that are valid UTF-16; valid as long as the table's bytes.
    QByteArrayView bytes(quint32 number) const { return {g_entries[number].start, g_entries[number].size}; }

    /// The number of an identifier, which is added when it is new.
    quint32 add(const QString &identifier);
    /// The same, in UTF-8. It is not copied when it lies in bytes that keep() was told of.
    quint32 add(QByteArrayView utf8);
    /// The same, for whoever has the hash already: computed while the bytes are near, in another thread.
    quint32 add(const Hashed &identifier);
    /// Has the memory bring what add() is about to read, for whoever adds many and knows them ahead.
    void fetch(const Hashed &identifier) const;
    /// As add(), trying the guessed number first.
    quint32 add(QByteArrayView utf8, quint32 guess);
    void keep(const SharedBytes &bytes);

private:
    struct Entry
    {
        const char *start;
        quint32 size;
    };
    /// The hash stands beside the number, so that whoever passes a place need not look at the entry.
    struct Place
    {
        quint32 number = none;
        quint32 hash = 0;
    };

    quint32 find(QByteArrayView key, quint32 hash) const;
    void put(const Place &place);
    void enlarge(size_t places);
    QByteArrayView stored(QByteArrayView key);

    LargeVector<Entry> g_entries;
    LargeVector<Place> g_places; ///< By hash. A power of two, at most two thirds full.
    std::vector<SharedBytes> g_kept;
    std::vector<std::shared_ptr<const QByteArray>> g_own;
};

} // namespace tavrin
