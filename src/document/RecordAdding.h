// SPDX-FileCopyrightText: The Tavrin authors
// SPDX-License-Identifier: MIT

#pragma once

#include "base/Result.h"
#include "document/RecordText.h"
#include "model/RecordView.h"

#include <QCoreApplication>
#include <QList>

namespace tavrin {

class DatafileDocument;
class DatafileSettingsData;
class RecordData;

/// Where a new record is placed; the numbers are those of the stored setting.
enum class RecordPlace { AfterCurrent, First, Last };

/// New records, and records made after the pattern of others. Each is one step of the document's Undo and
/// marks it as changed.
class RecordAdding
{
    Q_DECLARE_TR_FUNCTIONS(RecordAdding)

public:
    /// What a new record begins with, beside its automatic number.
    struct Content
    {
        QList<std::pair<QString, QString>> fields; ///< By field identifier; cleaned to one line.
        std::optional<RecordText> text;
        bool isSum = false; ///< It holds the totals of others, and gets no number.
    };

    /// The document outlives it.
    explicit RecordAdding(DatafileDocument &document) : g_document(document) {}

    /// Where the settings place new records.
    RecordPlace place() const;

    /// Adds a record behind another (empty: at the beginning), then places it as the settings say. Its
    /// identifier.
    QString addRecord(const QString &afterIdentifier);
    /// The same where it is said where it goes, and what Undo calls it.
    QString addRecord(const QString &afterIdentifier,
                      const Content &content,
                      RecordPlace place,
                      const QString &name = tr("New Record"));

    /// Adds a record with the contents of another, but a number of its own, behind that or, where the
    /// settings want it, where new records are placed. Null, and no change, when the other is empty or not
    /// there.
    QString duplicateRecord(const QString &identifier);

private:
    DatafileDocument &g_document;
};

/// Fills the field that the settings name for it with the next automatic number, between prefix and suffix.
void updateAutoAddContentField(RecordData &record, DatafileSettingsData &settings);

/// Whether all fields and the text are empty.
bool isEmptyRecord(const RecordView &record, const DatafileSettingsData &settings);

} // namespace tavrin
