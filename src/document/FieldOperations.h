// SPDX-FileCopyrightText: The Tavrin authors
// SPDX-License-Identifier: MIT

#pragma once

#include "base/Progress.h"
#include "base/Result.h"
#include "document/ContentChange.h"
#include "document/ContentWork.h"
#include "document/StoredTexts.h"
#include "model/FieldDefinition.h"

#include <QCoreApplication>
#include <QHash>
#include <QStringList>

namespace tavrin {

class DatafileDocument;

/// Other field definitions, with the settings that point to fields and the contents that go with them.
class FieldFormatChange : public UndoStep
{
public:
    FieldFormatChange(const QString &name,
                      plist::Dictionary otherSettings,
                      std::vector<ContentChange::Record>);

    QString name() const override { return g_contents.name(); }
    /// Announces it.
    void exchange(DatafileDocument &document);
    void undo(DatafileDocument &document) override { exchange(document); }
    void redo(DatafileDocument &document) override { exchange(document); }

private:
    plist::Dictionary g_otherSettings; ///< By key; a null value is none.
    ContentChange g_contents;
};

/// The fields of a document: which there are, in which order, and which are shown as columns. Each operation
/// is one step of Undo and marks the document as changed; what changes nothing is none of this.
class FieldOperations
{
    Q_DECLARE_TR_FUNCTIONS(FieldOperations)

public:
    /// The document outlives it.
    explicit FieldOperations(DatafileDocument &document) : g_document(document) {}

    /// Refused for an empty name.
    Result<QString> add(const QString &name); ///< The identifier of the new field, which is the last.
    Result<> rename(const QString &identifier, const QString &name);
    /// With its contents in all records, locked and omitted ones too.
    void remove(const QString &identifier);
    /// The index counts without the field itself; past the end means the end.
    void move(const QString &identifier, qint64 toIndex);
    void setShown(const QString &identifier, bool shown);

    /// All at once: other definitions, of which those with a known identifier are the same fields, and the
    /// name of the text. Refused when one has no name.
    Result<> setFields(const QList<FieldDefinition> &fields, const QString &textName, const QString &name);
    /// Adds a field and the contents that records have in it. The step is left to the caller.
    std::unique_ptr<UndoStep> addWithContents(const FieldDefinition &field,
                                              std::vector<ContentChange::Record> contents,
                                              const QString &name);

private:
    std::unique_ptr<UndoStep> changed(const QList<FieldDefinition> &fields,
                                      const QString &textName,
                                      std::vector<ContentChange::Record> contents,
                                      const QString &name);
    void change(const QList<FieldDefinition> &fields,
                const QString &textName,
                std::vector<ContentChange::Record> contents,
                const QString &name);
    std::vector<ContentChange::Record> contentsOf(const QStringList &removedFields) const;

    DatafileDocument &g_document;
};

/// A new field with the same text in every selected record; locked ones have nothing in it.
class AddFieldWithContent : public ContentWork
{
    Q_DECLARE_TR_FUNCTIONS(AddFieldWithContent)

public:
    AddFieldWithContent(const DatafileDocument &document, const QString &name, const QString &content);

    QString field() const { return g_field.identifier(); }

private:
    void change(const RecordView &record, Change &change) override;
    bool isWorthwhile() const override { return true; }
    std::unique_ptr<UndoStep>
    applied(DatafileDocument &document, const QString &name, std::vector<Change> changes) override;

    FieldDefinition g_field;
    QString g_content;
};

/// How many records hold something in each field, omitted records too. It runs on any thread.
class FieldUse
{
public:
    explicit FieldUse(const DatafileDocument &document);
    /// Once.
    void run(Progress &progress);
    /// By field identifier.
    const QHash<QString, qint64> &counts() const { return g_counts; }

private:
    StoredTexts g_texts;
    std::vector<quint32> g_records;
    QHash<QString, qint64> g_counts;
};

} // namespace tavrin
