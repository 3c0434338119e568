// SPDX-FileCopyrightText: The Tavrin authors
// SPDX-License-Identifier: MIT

#pragma once

#include "sorting/RecordTexts.h"
#include "sorting/SelectionCodes.h"
#include "text/DateReader.h"
#include "text/NumberReader.h"
#include "text/TextMatcher.h"

#include <compare>
#include <optional>
#include <vector>

namespace tavrin {

/// How numbers and dates are read when records are selected.
struct SelectionSettings
{
    QLocale locale;
    QTimeZone zone = QTimeZone::systemTimeZone();
};

/// One condition that records meet or not, prepared for all of them. Outlived by the texts.
class RecordCondition
{
public:
    struct Terms
    {
        SelectionOperator wherePopup;
        SelectionBasis basedOnPopup;
        QString fieldIdentifier;
        QString whereField; ///< What the person typed.
        TreatAs treatAsPopup;
    };

    RecordCondition(const Terms &terms, const RecordTexts &texts, const SelectionSettings &settings);

    /// A record that does not exist has empty texts.
    bool isMetBy(quint32 record, QString &buffer) const;

private:
    QAnyStringView read(const RecordTextReader &reader, quint32 record, QString &buffer) const;
    bool contains(quint32 record, QString &buffer) const;
    bool textEquals(quint32 record, QString &buffer) const;
    bool beginsWith(quint32 record, QString &buffer) const;
    bool isEmpty(quint32 record, QString &buffer) const;
    bool dateMatches(quint32 record, QString &buffer) const;
    bool numberMatches(quint32 record, QString &buffer) const;
    bool isWanted(std::partial_ordering order) const;

    Terms g_terms;
    const RecordTexts *g_texts;
    text::TextMatcher g_matcher;
    text::NumberReader g_numberReader;
    text::DateReader g_dateReader;
    double g_number;
    std::optional<Date> g_date;
    RecordTextReader g_text;
    RecordTextReader g_field;
    std::vector<RecordTextReader> g_anyField; ///< Empty unless any field may match.
};

} // namespace tavrin
