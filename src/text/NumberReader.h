// SPDX-FileCopyrightText: The Tavrin authors
// SPDX-License-Identifier: MIT

#pragma once

#include <QLocale>

#include <optional>

namespace tavrin::text {

/// Reads decimal numbers as people of one locale write them.
class NumberReader
{
public:
    explicit NumberReader(const QLocale &locale = QLocale());

    /// None unless the whole text is a number: "1,234.5", "-.5", "1e3", groups of the right size.
    std::optional<double> read(QStringView text) const;

    /// What people typed in some field: what stands before the first of "-.0123456789" is passed over
    /// ("$12"), and what is no number counts as 0.
    double readLeniently(QStringView text) const;

private:
    std::optional<double> readPlain(QStringView text) const;
    bool isGroupSeparator(QChar c) const;
    bool takeInteger(QStringView &text, struct Digits &digits) const;

    QChar g_decimalPoint;
    QChar g_groupSeparator; ///< The locale's own; null when groups are not of three digits.
    QString g_minusSigns;
    QString g_groupSeparators;
    qsizetype g_lastGroup = 3;   ///< Digits in the last group before the decimal point,
    qsizetype g_otherGroups = 3; ///< and in those before it.
};

} // namespace tavrin::text
