// SPDX-FileCopyrightText: The Tavrin authors
// SPDX-License-Identifier: MIT

#pragma once

#include <QByteArray>
#include <QtGlobal>

#include <array>

namespace tavrin::bench {

/// The fields of a made datafile, in order.
inline constexpr std::array fieldNames = {"Name", "Company", "Phone", "E-mail", "City", "Balance", "Web"};

/// One record of a made datafile; texts are UTF-8, dates seconds since 1970.
struct MadeRecord
{
    std::array<QByteArray, fieldNames.size()> fields;
    QByteArray text;
    QByteArray textRTFD; ///< Flat RTFD of the same text; empty unless asked for.
    QByteArray createdBy;
    QByteArray modifiedBy;
    qint64 created = 0;
    qint64 modified = 0;
    qint64 viewed = 0;
    bool needsSync = false;
    bool locked = false;
};

enum class RecordSize {
    Small, ///< A name, a balance and a sentence.
    Plain,
    Rich, ///< With rich text.
};

/// Makes records out of a seed and a number alone: the same two give the same record, on every machine and
/// in whatever order they are asked for, so that nothing has to be remembered.
class RecordMaker
{
public:
    explicit RecordMaker(quint64 seed, RecordSize size) : g_seed(seed), g_size(size) {}

    RecordSize size() const { return g_size; }

    QByteArray identifier(quint64 number) const;
    QByteArray fieldIdentifier(std::size_t field) const;
    bool isSelected(quint64 number) const;
    MadeRecord record(quint64 number) const;

private:
    quint64 g_seed;
    RecordSize g_size;
};

} // namespace tavrin::bench
