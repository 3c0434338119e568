// SPDX-FileCopyrightText: The Tavrin authors
// SPDX-License-Identifier: MIT

#pragma once

#include <QStringList>
#include <QStringView>

namespace tavrin::text {

/// A part of a text, in 16-bit units. Of length 0 when nothing was found.
struct FoundRange
{
    qsizetype location = 0;
    qsizetype length = 0;

    qsizetype end() const { return location + length; }
    bool isEmpty() const { return length == 0; }
    friend bool operator==(const FoundRange &, const FoundRange &) = default;
};

/// The first address with an "@" within a range of a text, without a sign that ends a sentence behind it.
/// It may be too short to be one: see isPlausibleEmailAddress().
FoundRange emailRangeInString(QStringView string, const FoundRange &range);

/// The first address within a range of a text that begins with "http://", "https://" or "www." and goes on
/// behind that, without a sign that ends a sentence behind it.
FoundRange webLinkRangeInString(QStringView string, const FoundRange &range);

/// The first part within a range of a text that has the form of one of the templates, in which "#" stands for
/// a digit and every other character for itself. Digits right before or behind it would make it another
/// number. Of templates that fit at the same place, the longest counts.
FoundRange phoneNumberInString(QStringView string, const FoundRange &testRange, const QStringList &templates);

/// Whether a domain with a full stop inside it follows the "@".
bool isPlausibleEmailAddress(QStringView address);

} // namespace tavrin::text
