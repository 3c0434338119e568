// SPDX-FileCopyrightText: The Tavrin authors
// SPDX-License-Identifier: MIT

#include "document/FieldOperations.h"

#include "document/DatafileDocument.h"
#include "model/FieldText.h"
#include "sorting/WorkSteps.h"

#include <algorithm>

namespace tavrin {

using namespace Qt::StringLiterals;

namespace {

const QStringList &settingsOfFields()
{
    static const QStringList keys{u"Fields"_s,
                                  u"TextName"_s,
                                  u"TitleField"_s,
                                  u"URLField"_s,
                                  u"AutoAddContentFieldID"_s,
                                  u"Criteria"_s};
    return keys;
}

plist::Dictionary storedSettings(const DatafileSettingsData &settings)
{
    plist::Dictionary stored;
    for (const QString &key : settingsOfFields()) {
        if (const plist::Value value = settings.objectForKey(key); !value.isNull())
            stored.insert(key, value);
    }
    return stored;
}

/// Whatever was chosen that is no longer there falls back to what counts when nothing is chosen.
void forgetField(DatafileSettingsData &settings, const QString &field)
{
    if (settings.titleField() == field)
        settings.setTitleField(u"Text"_s);
    if (settings.urlField() == field)
        settings.setUrlField(u"Text"_s);
    if (settings.autoAddContentFieldID() == field)
        settings.setAutoAddContentFieldID({});
    auto criteria = settings.criteria<SubsetSortCriteriaData>();
    if (criteria.primaryFieldIdentifier() == field)
        criteria.setPrimaryFieldIdentifier({});
    if (criteria.secondaryFieldIdentifier() == field)
        criteria.setSecondaryFieldIdentifier({});
    if (criteria.basedOnIdentifier1() == field || criteria.basedOnIdentifier2() == field)
        criteria.selectEverything();
    if (criteria.storedDictionary() != settings.criteria<SubsetSortCriteriaData>().storedDictionary())
        settings.setCriteria(criteria);
}

QStringList identifiersOf(const QList<FieldDefinition> &fields)
{
    QStringList identifiers;
    for (const FieldDefinition &field : fields)
        identifiers.append(field.identifier());
    return identifiers;
}

} // namespace

// The step.

FieldFormatChange::FieldFormatChange(const QString &name,
                                     plist::Dictionary otherSettings,
                                     std::vector<ContentChange::Record> contents)
    : g_otherSettings(std::move(otherSettings))
    , g_contents(name, std::move(contents))
{}

void FieldFormatChange::exchange(DatafileDocument &document)
{
    DatafileSettingsData &settings = document.datafileSettings();
    const plist::Dictionary present = storedSettings(settings);
    for (const QString &key : settingsOfFields())
        settings.setObject(g_otherSettings.value(key), key);
    g_otherSettings = present;
    settings.setDatafileSettingsDidChange(true);
    document.datafileCatalog().setCriteria(settings.criteria<SubsetSortCriteriaData>());
    g_contents.exchange(document);
    document.announce(FieldFormatChanged{});
    Q_EMIT document.datafileFieldFormatChanged();
}

// The operations.

std::unique_ptr<UndoStep> FieldOperations::changed(const QList<FieldDefinition> &fields,
                                                   const QString &textName,
                                                   std::vector<ContentChange::Record> contents,
                                                   const QString &name)
{
    // Worked out on a copy: the step puts it into the document.
    DatafileSettingsData settings = g_document.datafileSettings();
    const QStringList kept = identifiersOf(fields);
    for (const FieldDefinition &field : g_document.datafileSettings().fields()) {
        if (!kept.contains(field.identifier()))
            forgetField(settings, field.identifier());
    }
    settings.setFields(fields);
    if (!textName.isEmpty() && textName != settings.textName())
        settings.setTextName(textName);
    const plist::Dictionary wanted = storedSettings(settings);
    if (wanted == storedSettings(g_document.datafileSettings()) && contents.empty())
        return nullptr;
    auto step = std::make_unique<FieldFormatChange>(name, wanted, std::move(contents));
    step->exchange(g_document);
    return step;
}

void FieldOperations::change(const QList<FieldDefinition> &fields,
                             const QString &textName,
                             std::vector<ContentChange::Record> contents,
                             const QString &name)
{
    std::unique_ptr<UndoStep> step = changed(fields, textName, std::move(contents), name);
    if (!step)
        return;
    g_document.undoHistory().push(std::move(step));
    g_document.updateChangeCount(DatafileDocument::ChangeCount::Done);
}

std::vector<ContentChange::Record> FieldOperations::contentsOf(const QStringList &removedFields) const
{
    std::vector<ContentChange::Record> contents;
    if (removedFields.isEmpty())
        return contents;
    const std::vector<FieldKey> fields(removedFields.begin(), removedFields.end());
    g_document.datafileRecords().forEach([&](quint32 number, const RecordView &record) {
        ContentChange::Record changed{number, {}, {}};
        for (const FieldKey &field : fields) {
            if (!record.fieldValue(field).isAbsent())
                changed.fields.append({field.text, QString()});
        }
        if (!changed.isEmpty())
            contents.push_back(std::move(changed));
    });
    return contents;
}

Result<>
FieldOperations::setFields(const QList<FieldDefinition> &fields, const QString &textName, const QString &name)
{
    for (const FieldDefinition &field : fields) {
        if (field.name().trimmed().isEmpty())
            return Error{Error::Kind::Refused, tr("A field must have a name."), {}};
    }
    QStringList removed = identifiersOf(g_document.datafileSettings().fields());
    for (const QString &kept : identifiersOf(fields))
        removed.removeAll(kept);
    change(fields, textName, contentsOf(removed), name);
    return {};
}

std::unique_ptr<UndoStep> FieldOperations::addWithContents(const FieldDefinition &field,
                                                           std::vector<ContentChange::Record> contents,
                                                           const QString &name)
{
    return changed(g_document.datafileSettings().fields() + QList<FieldDefinition>{field},
                   {},
                   std::move(contents),
                   name);
}

Result<QString> FieldOperations::add(const QString &name)
{
    const FieldDefinition field(g_document.services().environment.identifier(), singleLineFieldText(name));
    if (const Result<> set = setFields(
            g_document.datafileSettings().fields() + QList<FieldDefinition>{field}, {}, tr("Add Field"));
        !set)
        return set.error();
    return field.identifier();
}

Result<> FieldOperations::rename(const QString &identifier, const QString &name)
{
    QList<FieldDefinition> fields = g_document.datafileSettings().fields();
    for (FieldDefinition &field : fields) {
        if (field.identifier() == identifier)
            field.setName(singleLineFieldText(name));
    }
    return setFields(fields, {}, tr("Rename Field"));
}

void FieldOperations::remove(const QString &identifier)
{
    QList<FieldDefinition> fields = g_document.datafileSettings().fields();
    fields.removeIf([&](const FieldDefinition &field) { return field.identifier() == identifier; });
    change(fields, {}, contentsOf({identifier}), tr("Delete Field"));
}

void FieldOperations::move(const QString &identifier, qint64 toIndex)
{
    QList<FieldDefinition> fields = g_document.datafileSettings().fields();
    const auto field = std::ranges::find(fields, identifier, &FieldDefinition::identifier);
    if (field == fields.end())
        return;
    const qsizetype to = std::clamp<qsizetype>(toIndex, 0, fields.size() - 1);
    fields.move(field - fields.begin(), to);
    change(fields, {}, {}, tr("Move Field"));
}

void FieldOperations::setShown(const QString &identifier, bool shown)
{
    QList<FieldDefinition> fields = g_document.datafileSettings().fields();
    for (FieldDefinition &field : fields) {
        if (field.identifier() == identifier && field.show() != shown)
            field.setShow(shown);
    }
    change(fields, {}, {}, shown ? tr("Show Field") : tr("Hide Field"));
}

// A field with content.

AddFieldWithContent::AddFieldWithContent(const DatafileDocument &document,
                                         const QString &name,
                                         const QString &content)
    : ContentWork(document, tr("Add Field with Content"))
    , g_field(document.services().environment.identifier(), singleLineFieldText(name))
    , g_content(content)
{}

void AddFieldWithContent::change(const RecordView & /*record*/, Change &change)
{
    setField(g_field.identifier(), {}, g_content, change);
}

std::unique_ptr<UndoStep>
AddFieldWithContent::applied(DatafileDocument &document, const QString &name, std::vector<Change> changes)
{
    return FieldOperations(document).addWithContents(g_field, std::move(changes), name);
}

// Use.

FieldUse::FieldUse(const DatafileDocument &document)
    : g_texts(document.datafileRecords(), document.datafileSettings())
{
    document.datafileRecords().forEach(
        [this](quint32 record, const RecordView &) { g_records.push_back(record); });
}

void FieldUse::run(Progress &progress)
{
    WorkSteps steps(progress, g_records.size());
    const QStringList identifiers = g_texts.fieldIdentifiers();
    const std::vector<FieldKey> fields(identifiers.begin(), identifiers.end());
    std::vector<qint64> counts(fields.size());
    for (const quint32 record : g_records) {
        if (!steps.goOn())
            return;
        const RecordView view = g_texts.view(record);
        for (size_t i = 0; i < fields.size(); ++i)
            counts[i] += view.fieldValue(fields[i]).isEmpty() ? 0 : 1;
    }
    for (size_t i = 0; i < fields.size(); ++i)
        g_counts.insert(fields[i].text, counts[i]);
}

} // namespace tavrin
