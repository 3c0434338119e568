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
                                  u"Criteria"_s,
                                  u"Mode"_s};
    return keys;
}

/// What differs, as it stands in the first of them.
FieldFormatChange::Settings differences(const DatafileSettingsData &settings,
                                        const DatafileSettingsData &others)
{
    FieldFormatChange::Settings differing;
    for (const QString &key : settingsOfFields()) {
        if (const plist::Value value = settings.objectForKey(key); value != others.objectForKey(key))
            differing.append({key, value});
    }
    return differing;
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
                                     Settings otherSettings,
                                     std::vector<ContentChange::Record> contents)
    : g_otherSettings(std::move(otherSettings))
    , g_contents(name, std::move(contents))
{}

void FieldFormatChange::conclude(DatafileDocument &document)
{
    DatafileSettingsData &settings = document.datafileSettings();
    for (auto &[key, value] : g_otherSettings) {
        const plist::Value present = settings.objectForKey(key);
        settings.setObject(std::exchange(value, present), key);
    }
    settings.setDatafileSettingsDidChange(true);
    document.datafileCatalog().setCriteria(settings.criteria<SubsetSortCriteriaData>());
    g_contents.conclude(document);
    document.announce(FieldFormatChanged{});
    Q_EMIT document.datafileFieldFormatChanged();
}

// Contents.

FieldContents::FieldContents(const DatafileDocument &document, const QStringList &fields)
    : g_watch(document)
    , g_stored(document.datafileRecords())
    , g_fields(fields.begin(), fields.end())
{
    if (!fields.isEmpty())
        document.datafileRecords().forEach(
            [this](quint32 record, const RecordView &) { g_records.push_back(record); });
}

void FieldContents::run(Progress &progress)
{
    WorkSteps steps(progress, g_records.size());
    for (const quint32 number : g_records) {
        if (!steps.goOn())
            break;
        const RecordView record = *g_stored.view(number);
        ContentChange::Record changed{number, {}, {}};
        for (const FieldKey &field : g_fields) {
            if (!record.fieldValue(field).isAbsent())
                changed.fields.append({field.text, QString()});
        }
        if (!changed.isEmpty())
            g_contents.push_back(std::move(changed));
    }
    g_wasCancelled = steps.isStopped();
}

// The operations.

std::unique_ptr<SteppedChange> FieldOperations::changeTo(const QList<FieldDefinition> &fields,
                                                         const QString &textName,
                                                         std::vector<ContentChange::Record> contents,
                                                         const QString &name) const
{
    // Worked out on a copy: the step puts it into the document.
    const DatafileSettingsData &present = g_document.datafileSettings();
    DatafileSettingsData settings = present;
    for (const QString &removed : removedBy(fields))
        forgetField(settings, removed);
    settings.setFields(fields);
    // Without fields there is nothing that Basic View could show.
    if (fields.isEmpty() && settings.mode() != "List"_L1)
        settings.setMode(u"List"_s);
    if (!textName.isEmpty() && textName != settings.textName())
        settings.setTextName(textName);
    const FieldFormatChange::Settings wanted = differences(settings, present);
    if (wanted.isEmpty() && contents.empty())
        return nullptr;
    return std::make_unique<FieldFormatChange>(name, wanted, std::move(contents));
}

QStringList FieldOperations::removedBy(const QList<FieldDefinition> &fields) const
{
    QStringList removed = identifiersOf(g_document.datafileSettings().fields());
    for (const QString &kept : identifiersOf(fields))
        removed.removeAll(kept);
    return removed;
}

void FieldOperations::change(const QList<FieldDefinition> &fields,
                             const QString &textName,
                             const QString &name)
{
    FieldContents contents(g_document, removedBy(fields));
    Progress progress;
    contents.run(progress);
    std::unique_ptr<SteppedChange> change = changeTo(fields, textName, contents.takeContents(), name);
    if (!change)
        return;
    change->exchange(g_document);
    g_document.undoHistory().push(std::move(change));
    g_document.updateChangeCount(DatafileDocument::ChangeCount::Done);
}

Result<>
FieldOperations::setFields(const QList<FieldDefinition> &fields, const QString &textName, const QString &name)
{
    for (const FieldDefinition &field : fields) {
        if (field.name().trimmed().isEmpty())
            return Error{Error::Kind::Refused, tr("A field must have a name."), {}};
    }
    change(fields, textName, name);
    return {};
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
    change(fields, {}, tr("Delete Field"));
}

void FieldOperations::move(const QString &identifier, qint64 toIndex)
{
    QList<FieldDefinition> fields = g_document.datafileSettings().fields();
    const auto field = std::ranges::find(fields, identifier, &FieldDefinition::identifier);
    if (field == fields.end())
        return;
    const qsizetype to = std::clamp<qsizetype>(toIndex, 0, fields.size() - 1);
    fields.move(field - fields.begin(), to);
    change(fields, {}, tr("Move Field"));
}

void FieldOperations::setShown(const QString &identifier, bool shown)
{
    QList<FieldDefinition> fields = g_document.datafileSettings().fields();
    for (FieldDefinition &field : fields) {
        if (field.identifier() == identifier && field.show() != shown)
            field.setShow(shown);
    }
    change(fields, {}, shown ? tr("Show Field") : tr("Hide Field"));
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

std::unique_ptr<SteppedChange>
AddFieldWithContent::changeOf(DatafileDocument &document, const QString &name, std::vector<Change> changes)
{
    return FieldOperations(document).changeTo(
        document.datafileSettings().fields() + QList<FieldDefinition>{g_field}, {}, std::move(changes), name);
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
    std::vector<qint64> lockedCounts(fields.size());
    for (const quint32 record : g_records) {
        if (!steps.goOn())
            break;
        const RecordView view = g_texts.view(record);
        const bool isLocked = view.recordLocked();
        for (size_t i = 0; i < fields.size(); ++i) {
            const bool isUsed = !view.fieldValue(fields[i]).isEmpty();
            counts[i] += isUsed ? 1 : 0;
            lockedCounts[i] += isUsed && isLocked ? 1 : 0;
        }
    }
    g_wasCancelled = steps.isStopped();
    for (size_t i = 0; i < fields.size(); ++i) {
        g_counts.insert(fields[i].text, counts[i]);
        g_lockedCounts.insert(fields[i].text, lockedCounts[i]);
    }
}

} // namespace tavrin
