// SPDX-FileCopyrightText: The Tavrin authors
// SPDX-License-Identifier: MIT

#pragma once

#include "sorting/RecordTexts.h"
#include "sorting/SortCriteriaData.h"
#include "sorting/SortKind.h"
#include "text/NumberReader.h"

#include <optional>

namespace tavrin {

/// What is not in the records, but decides how they are sorted.
struct SortSettings
{
    QStringList titles; ///< No part of a name; none when empty.
    QLocale locale;     ///< In which numbers are written.
};

/// The term that a record is sorted by, as the criteria say. Outlived by the texts.
class RecordTerms
{
public:
    RecordTerms(const SortCriteriaData &criteria, const RecordTexts &texts, const SortSettings &settings);

    RecordTerms(const RecordTerms &) = delete;
    RecordTerms &operator=(const RecordTerms &) = delete;

    /// Whether the terms are numbers, rather than texts.
    bool areNumbers() const { return g_areNumbers; }

    double number(quint32 record, QString &buffer) const;
    /// None when the record has a date that cannot be read. As to the buffer, see RecordTextReader.
    std::optional<QAnyStringView> text(quint32 record, QString &buffer) const;

    /// What a record goes into a term with, under a field's identifier or one of "Text", "Name", "Word",
    /// "Postal", "AllFields", "CreatedDate" and "ModifiedDate".
    RecordTextReader termForField(const QString &identifier) const;

private:
    bool isFieldBased() const;
    RecordTextReader reader() const;
    RecordTextReader allFields() const;
    QString nameOnLine(quint32 record) const;
    QString wordOnLine(quint32 record) const;
    QString textString(quint32 record) const;
    std::optional<QAnyStringView> dateText(QAnyStringView value, QString &buffer) const;
    QLatin1StringView sentinel() const;

    SortCriteriaData g_criteria;
    const RecordTexts *g_texts;
    SortSettings g_settings;
    text::NumberReader g_numbers;
    SortKind g_kind;
    bool g_areNumbers = false;
    RecordTextReader g_primary;
    RecordTextReader g_secondary; ///< Empty when nothing breaks ties.
};

} // namespace tavrin
