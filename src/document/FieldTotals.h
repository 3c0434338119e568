// SPDX-FileCopyrightText: The Tavrin authors
// SPDX-License-Identifier: MIT

#pragma once

#include "base/Progress.h"
#include "base/Result.h"
#include "document/StoredTexts.h"

#include <QCoreApplication>
#include <QLocale>
#include <QStringList>

namespace tavrin {

class DatafileDocument;

namespace text {
class NumberReader;
}

/// What the numbers in one field come to.
struct FieldTotal
{
    QString field; ///< Its identifier.
    qint64 count = 0;
    double sum = 0;
    double smallest = 0;
    double largest = 0;
    qint64 unreadable = 0;         ///< Contents that are no number; empty ones are neither.
    QStringList unreadableSamples; ///< The first of those.

    double average() const { return count > 0 ? sum / static_cast<double>(count) : 0; }
};

/// The totals of fields over the selected records, in three steps: they are made and recorded on the
/// document's thread, and run in between on any. Records that hold totals themselves do not count.
class FieldTotals
{
    Q_DECLARE_TR_FUNCTIONS(FieldTotals)

public:
    FieldTotals(const DatafileDocument &document,
                const QStringList &fields,
                const QLocale &locale = QLocale());

    /// Once.
    void run(Progress &progress);

    bool wasCancelled() const { return g_wasCancelled; }
    const std::vector<FieldTotal> &totals() const { return g_totals; }
    qint64 records() const { return g_countedRecords; } ///< Those that count.

    /// Adds a record with the totals as the last one, as one step of Undo. Its identifier.
    QString addTotalRecord(DatafileDocument &document) const;
    /// The same into a record that has older totals: into its fields and the first line of its text. Refused,
    /// and no change, when the text would lose its formatting.
    Result<> updateTotalRecord(DatafileDocument &document, const QString &identifier) const;

    /// A record of totals that the datafile has, the first of them; null when there is none.
    static QString totalRecordIn(const DatafileDocument &document);
    /// As a person of the locale writes it, without digits that adding up has made.
    static QString textOf(double number, const QLocale &locale = QLocale());

private:
    void take(quint32 record, const text::NumberReader &numbers, std::vector<double> &lost);
    QString firstLine() const;
    QList<std::pair<QString, QString>> contents() const;

    StoredTexts g_texts;
    std::vector<quint32> g_records;
    std::vector<FieldKey> g_fields;
    std::vector<FieldTotal> g_totals;
    QLocale g_locale;
    qint64 g_countedRecords = 0;
    bool g_wasCancelled = false;
};

} // namespace tavrin
