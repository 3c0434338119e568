// SPDX-FileCopyrightText: The Tavrin authors
// SPDX-License-Identifier: MIT

#pragma once

#include "text/AsciiSearch.h"
#include "text/Folding.h"

#include <optional>

namespace tavrin::text {

/// Where a text was found, in 16-bit units. The length may differ from that of the text searched for.
struct Match
{
    qsizetype start = -1;
    qsizetype length = 0;

    explicit operator bool() const { return start >= 0; }
    friend bool operator==(const Match &, const Match &) = default;
};

/// A text to be searched for, prepared once for any number of texts.
///
/// Matches begin and end between characters, so "e" is not in "e" + U+0301 unless literal. The empty needle
/// is nowhere, not even in an empty text.
class TextMatcher
{
public:
    TextMatcher(QStringView needle, Sameness sameness);

    bool isEmpty() const { return g_folded.isEmpty(); }

    /// The first match that starts at or behind `from`.
    Match firstIn(QStringView text, qsizetype from = 0) const;
    Match lastIn(QStringView text) const;
    bool isIn(QAnyStringView text) const;

    Match atStartOf(QStringView text) const { return matchAt(text, 0); }
    Match atEndOf(QStringView text) const;
    bool equals(QStringView text) const;

private:
    Match matchAt(QStringView text, qsizetype start) const;
    Match asciiMatchAt(QStringView text, qsizetype start) const;
    bool foldsInto(QStringView character, qsizetype &matched) const;
    Match search(QStringView text, qsizetype from) const;
    template <typename View>
    bool isInBytes(View text) const;
    bool mayFoldToNeedle(QStringView text) const;

    Sameness g_sameness;
    QString g_folded;
    /// Set when the folded needle is ASCII.
    std::optional<AsciiSearch> g_ascii;
    /// The needle has letters that other scripts' characters fold to.
    bool g_hasForeignForms = false;
    char16_t g_firstUnit = anyUnit;
};

} // namespace tavrin::text
