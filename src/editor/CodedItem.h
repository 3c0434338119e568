// SPDX-FileCopyrightText: The Tavrin authors
// SPDX-License-Identifier: MIT

#pragma once

#include <QList>
#include <QString>

namespace tavrin {

/// The number under which a choice is stored.
template <typename Choice>
constexpr qint64 codeOf(Choice choice)
{
    return static_cast<qint64>(choice);
}

/// An item of a sheet's list: its stored code, and the identifier where the item is a field.
struct CodedItem
{
    QString text;
    qint64 code = 0;
    QString identifier = {};
};

/// The first item of that code; 0 when there is none: what a list does not offer becomes its first item.
inline qsizetype indexOfCode(const QList<CodedItem> &items, qint64 code)
{
    for (qsizetype i = 0; i < items.size(); ++i) {
        if (items.at(i).code == code)
            return i;
    }
    return 0;
}

} // namespace tavrin
