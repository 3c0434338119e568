// SPDX-FileCopyrightText: The Tavrin authors
// SPDX-License-Identifier: MIT

#include "document/FieldTotals.h"

#include "base/FilledIn.h"
#include "document/ContentChange.h"
#include "document/DatafileDocument.h"
#include "document/RecordAdding.h"
#include "sorting/WorkSteps.h"
#include "text/NumberReader.h"
#include "text/UrlScanner.h"

#include <algorithm>
#include <cmath>

namespace tavrin {

using namespace Qt::StringLiterals;

namespace {

/// Adds without losing the small parts of many numbers.
void add(double number, double &sum, double &lost)
{
    const double corrected = number - lost;
    const double next = sum + corrected;
    lost = (next - sum) - corrected;
    sum = next;
}

bool isMinus(QChar character, const QLocale &locale)
{
    constexpr QChar minus(0x2212);
    return character == u'-' || character == minus || locale.negativeSign() == character;
}

/// "https://example.com/44" names a place, and no amount.
bool isInAddress(QStringView content, qsizetype place)
{
    return std::ranges::any_of(
        text::linksIn(content, text::UrlPlace::Field),
        [place](const text::Link &link) { return link.range.location <= place && place < link.range.end(); });
}

/// What stands before the number ("$12") is passed over, but for its sign ("-$12"). A stroke or a point that
/// joins it to a word or another number ("A-3", "No.5") is no part of it.
std::optional<double>
numberIn(const QString &content, const text::NumberReader &numbers, const QLocale &locale)
{
    const QStringView text = QStringView(content).trimmed();
    const auto digit = std::ranges::find_if(text, [](QChar character) { return character.isDigit(); });
    if (digit == text.end())
        return {};
    const auto beginsAt = [text](qsizetype place) {
        return place == 0 || !text[place - 1].isLetterOrNumber();
    };
    qsizetype start = digit - text.begin();
    if (start > 0 && locale.decimalPoint() == text[start - 1] && beginsAt(start - 1))
        --start;
    qsizetype sign = start - 1;
    while (sign >= 0 && text[sign].category() == QChar::Symbol_Currency)
        --sign;
    const bool isNegative = sign >= 0 && isMinus(text[sign], locale) && beginsAt(sign);
    const std::optional<double> number = numbers.read(text.sliced(start));
    if (number && start > 0 && isInAddress(text, start))
        return {};
    return number && isNegative ? -*number : number;
}

} // namespace

FieldTotals::FieldTotals(const DatafileDocument &document, const QStringList &fields, const QLocale &locale)
    : g_texts(document.datafileRecords(), document.datafileSettings())
    , g_records(document.datafileCatalog().selectedNumbers(0, document.datafileCatalog().countSelected()))
    , g_locale(locale)
{
    for (const QString &field : fields) {
        g_fields.emplace_back(field);
        g_totals.push_back({.field = field, .unreadableSamples = {}});
    }
}

void FieldTotals::run(Progress &progress)
{
    WorkSteps steps(progress, g_records.size());
    std::vector<double> lost(g_fields.size());
    const text::NumberReader numbers(g_locale);
    for (const quint32 record : g_records) {
        if (!steps.goOn())
            break;
        if (g_texts.contains(record))
            take(record, numbers, lost);
    }
    g_wasCancelled = steps.isStopped();
}

void FieldTotals::take(quint32 record, const text::NumberReader &numbers, std::vector<double> &lost)
{
    constexpr qsizetype mostSamples = 20;
    const RecordView view = g_texts.view(record);
    if (view.isSum())
        return;
    ++g_countedRecords;
    for (size_t i = 0; i < g_fields.size(); ++i) {
        const QString content = view.fieldValue(g_fields[i]).toString();
        if (content.isEmpty())
            continue;
        FieldTotal &total = g_totals[i];
        const std::optional<double> number = numberIn(content, numbers, g_locale);
        if (!number) {
            if (total.unreadable++ < mostSamples)
                total.unreadableSamples.append(content);
            continue;
        }
        total.smallest = total.count == 0 ? *number : std::min(total.smallest, *number);
        total.largest = total.count == 0 ? *number : std::max(total.largest, *number);
        ++total.count;
        add(*number, total.sum, lost[i]);
    }
}

QString FieldTotals::textOf(double number, const QLocale &locale)
{
    constexpr int exactDigits = 15;
    constexpr double beyondExact = 1e15;
    if (std::abs(number) >= beyondExact)
        return locale.toString(number, 'f', 0);
    return locale.toString(number, 'g', exactDigits);
}

QString FieldTotals::firstLine() const
{
    return filledIn(tr("Total of %lu records"), {QString::number(g_countedRecords)});
}

QList<std::pair<QString, QString>> FieldTotals::contents() const
{
    QList<std::pair<QString, QString>> contents;
    for (const FieldTotal &total : g_totals) {
        if (total.count > 0)
            contents.append({total.field, textOf(total.sum, g_locale)});
    }
    return contents;
}

QString FieldTotals::addTotalRecord(DatafileDocument &document) const
{
    return RecordAdding(document).addRecord(
        {},
        {.fields = contents(), .text = RecordText{firstLine(), {}}, .isSum = true},
        RecordPlace::Last,
        tr("Add Total Record"));
}

Result<> FieldTotals::updateTotalRecord(DatafileDocument &document, const QString &identifier) const
{
    const std::optional<RecordView> record = document.datafileRecords().view(identifier);
    if (!record)
        return {};
    const RecordText text{record->textString().toString(),
                          document.isMobile() ? QByteArray() : record->textRTFD()};
    const qsizetype end = text.plain.indexOf(u'\n');
    ContentChange::Record changed{
        document.datafileRecords().identifiers().number(identifier), contents(), {}};
    for (const FieldTotal &total : g_totals) {
        if (total.count == 0) // What stands there is the total of numbers that are gone.
            changed.fields.append({total.field, u""_s});
    }
    changed.text = withReplaced(text, {0, end < 0 ? text.plain.size() : end}, firstLine());
    if (!changed.text)
        return Error{Error::Kind::Refused,
                     tr("The text of the total record cannot be changed without losing its formatting."),
                     identifier};
    std::vector<ContentChange::Record> changes;
    changes.push_back(std::move(changed));
    auto change = std::make_unique<ContentChange>(tr("Update Total Record"), std::move(changes));
    change->exchange(document);
    document.undoHistory().push(std::move(change));
    document.updateChangeCount(DatafileDocument::ChangeCount::Done);
    return {};
}

QString FieldTotals::totalRecordIn(const DatafileDocument &document)
{
    const SubsetSortedData &catalog = document.datafileCatalog();
    for (const CatalogEntry &entry : catalog.entries()) {
        const auto record = document.datafileRecords().view(entry.identifier());
        if (record && record->isSum() && !record->recordLocked())
            return document.datafileRecords().identifiers().text(entry.identifier());
    }
    return {};
}

} // namespace tavrin
