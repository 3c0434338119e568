// SPDX-FileCopyrightText: The Tavrin authors
// SPDX-License-Identifier: MIT

#include "sorting/RecordTerms.h"

#include "text/DateTerms.h"
#include "text/Names.h"
#include "text/PostalCode.h"
#include "text/TextBlocks.h"
#include "text/Utf16Text.h"

#include <cmath>
#include <limits>
#include <vector>

namespace tavrin {

using namespace Qt::StringLiterals;

namespace {

/// A term that is made anew, as a reader gives it.
template <typename Make>
RecordTextReader made(Make make)
{
    return [make = std::move(make)](quint32 record, QString &buffer) {
        buffer = make(record);
        return QAnyStringView(buffer);
    };
}

// A number below all that people write, and one below that: a field that a record has no entry for comes
// after one that is there and empty.
constexpr double numberOfMissing = -399999999;
constexpr double numberOfEmpty = -400000000;

} // namespace

RecordTerms::RecordTerms(const SortCriteriaData &criteria,
                         const RecordTexts &texts,
                         const SortSettings &settings)
    : g_criteria(criteria)
    , g_texts(&texts)
    , g_settings(settings)
    , g_numbers(settings.locale)
    , g_kind(static_cast<SortKind>(criteria.compareSelector()))
    , g_primary(reader())
{
    const bool isByDate = g_kind == SortKind::CreatedDate || g_kind == SortKind::ModifiedDate;
    const bool hasSecondary = isFieldBased() && !criteria.secondaryFieldIdentifier().isEmpty();
    if (hasSecondary)
        g_secondary = termForField(criteria.secondaryFieldIdentifier());
    g_areNumbers = isByDate || (g_kind == SortKind::Numbers && !hasSecondary);
}

bool RecordTerms::isFieldBased() const
{
    return g_kind < SortKind::AllFields || g_kind > SortKind::FreeformText;
}

RecordTextReader RecordTerms::reader() const
{
    switch (g_kind) {
    case SortKind::AllFields:
        return termForField(u"AllFields"_s);
    case SortKind::FreeformName:
        return termForField(u"Name"_s);
    case SortKind::FreeformWord:
        return termForField(u"Word"_s);
    case SortKind::PostalCode:
        return termForField(u"Postal"_s);
    case SortKind::FreeformText:
        return termForField(u"Text"_s);
    default:
        return termForField(g_criteria.primaryFieldIdentifier());
    }
}

RecordTextReader RecordTerms::termForField(const QString &identifier) const
{
    if (identifier.isEmpty() || identifier == "Text"_L1)
        return g_texts->textReader();
    if (identifier == "CreatedDate"_L1)
        return made([this](quint32 record) { return text::dateDescription(g_texts->createdDate(record)); });
    if (identifier == "ModifiedDate"_L1)
        return made([this](quint32 record) { return text::dateDescription(g_texts->modifiedDate(record)); });
    if (identifier == "AllFields"_L1)
        return allFields();
    if (identifier == "Name"_L1)
        return made([this](quint32 record) { return nameOnLine(record); });
    if (identifier == "Word"_L1)
        return made([this](quint32 record) { return wordOnLine(record); });
    if (identifier == "Postal"_L1) {
        return made([this](quint32 record) {
            return text::postalCode(g_texts->freeformAddressBlock(record)).toString();
        });
    }
    return g_texts->fieldReader(identifier);
}

/// The fields, each with a tab and two characters that once were to be replaced, and the text: datafiles have
/// been sorted so.
RecordTextReader RecordTerms::allFields() const
{
    std::vector<RecordTextReader> fields;
    for (const QString &identifier : g_texts->fieldIdentifiers())
        fields.push_back(g_texts->fieldReader(identifier));
    return made([fields, text = g_texts->textReader()](quint32 record) {
        QString term;
        QString value;
        for (const RecordTextReader &field : fields) {
            term += text::Utf16Text(field(record, value)).view();
            term += "\t%@"_L1;
        }
        term += text::Utf16Text(text(record, value)).view();
        return term;
    });
}

double RecordTerms::number(quint32 record, QString &buffer) const
{
    const bool exists = record != RecordTexts::noRecord;
    if (g_kind == SortKind::Numbers) {
        const QAnyStringView value = exists ? g_primary(record, buffer) : QAnyStringView();
        if (value.isNull())
            return numberOfMissing;
        return value.empty() ? numberOfEmpty : g_numbers.readLeniently(text::Utf16Text(value).view());
    }
    if (!exists)
        return -std::numeric_limits<double>::infinity();
    const Date date =
        g_kind == SortKind::CreatedDate ? g_texts->createdDate(record) : g_texts->modifiedDate(record);
    // Files keep whole seconds: what was saved and read again sorts as before.
    return std::floor(date.secondsSinceReference);
}

/// What sorts a record that lacks the field.
QLatin1StringView RecordTerms::sentinel() const
{
    switch (g_kind) {
    case SortKind::StandardDates:
    case SortKind::EmailDates:
        return "01/01/0100"_L1;
    case SortKind::Numbers:
        return "-399999999"_L1;
    default:
        return ""_L1;
    }
}

std::optional<QAnyStringView> RecordTerms::text(quint32 record, QString &buffer) const
{
    const bool exists = record != RecordTexts::noRecord;
    const QAnyStringView value = exists ? g_primary(record, buffer) : QAnyStringView();
    if (!isFieldBased())
        return value;
    if (g_secondary) {
        QString term = value.isNull() ? QString(sentinel()) : value.toString();
        const QAnyStringView second = exists ? g_secondary(record, buffer) : QAnyStringView();
        term += u'\t' + (second.isNull() ? u"(null)"_s : second.toString());
        buffer = term;
        return buffer;
    }
    // A missing date is no unreadable one: its sentinel comes before all dates.
    if (value.isNull())
        return sentinel();
    const bool isDate = g_kind == SortKind::StandardDates || g_kind == SortKind::EmailDates;
    return isDate ? dateText(value, buffer) : value;
}

std::optional<QAnyStringView> RecordTerms::dateText(QAnyStringView value, QString &buffer) const
{
    const QString text = value.toString();
    const std::optional<QString> term = g_kind == SortKind::EmailDates
                                            ? text::reassembledEmailDateString(text)
                                            : text::reassembledStandardDateString(text);
    if (!term)
        return std::nullopt;
    buffer = *term;
    return buffer;
}

QString RecordTerms::textString(quint32 record) const
{
    QString buffer;
    return g_texts->textReader()(record, buffer).toString();
}

QString RecordTerms::nameOnLine(quint32 record) const
{
    const qint64 number = g_criteria.nameLineNumber();
    if (number == SortPlace::lastLineOfAddress) {
        const QString block = g_texts->freeformAddressBlock(record);
        return text::nameKey(text::lastLineOfTextBlock(block), g_settings.titles);
    }
    const QString block = textString(record);
    return text::nameKey(number == SortPlace::lastLineOfText ? text::lastLineOfTextBlock(block)
                                                             : text::lineNumber(number, block),
                         g_settings.titles);
}

QString RecordTerms::wordOnLine(quint32 record) const
{
    const qint64 offset = g_criteria.wordLineOffset();
    if (offset < SortPlace::fromEndOfText || offset > SortPlace::fromStartOfAddress)
        return u""_s;
    const bool isInText = offset == SortPlace::fromStartOfText || offset == SortPlace::fromEndOfText;
    const bool isFromEnd = offset == SortPlace::fromEndOfText || offset == SortPlace::fromEndOfAddress;
    const QString block = isInText ? textString(record) : g_texts->freeformAddressBlock(record);
    const qint64 number = g_criteria.wordLineNumber();
    const QStringView line =
        isFromEnd ? text::negativeLineNumber(number, block) : text::lineNumber(number, block);
    const qint64 word = g_criteria.wordNumber();
    return (word == SortPlace::lastWord ? text::lastWordOfLine(line) : text::wordNumber(word, line))
        .toString();
}

} // namespace tavrin
