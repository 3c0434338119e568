// SPDX-FileCopyrightText: The Tavrin authors
// SPDX-License-Identifier: MIT

#include "editor/ModifyFieldsSheetController.h"

#include "document/DatafileContents.h"
#include "model/DatafileSettingsData.h"
#include "model/FieldText.h"

#include <QSet>

#include <algorithm>
#include <utility>

namespace tavrin {

ModifyFieldsSheetController::ModifyFieldsSheetController(const QList<FieldDefinition> &fields,
                                                         const QString &textName,
                                                         const QHash<QString, qint64> &use,
                                                         MakeIdentifier makeIdentifier)
    : g_fields(fields)
    , g_textName(textName)
    , g_use(use)
    , g_makeIdentifier(std::move(makeIdentifier))
{}

QString ModifyFieldsSheetController::problem() const
{
    const bool isNameless = std::ranges::any_of(
        g_fields, [](const FieldDefinition &field) { return field.name().trimmed().isEmpty(); });
    if (isNameless)
        return tr("A field must have a name.");
    return g_textName.trimmed().isEmpty() ? tr("The text must have a name.") : QString();
}

QString ModifyFieldsSheetController::note() const
{
    QSet<QString> names;
    for (const FieldDefinition &field : g_fields) {
        if (names.contains(field.name()))
            return tr("More than one field is named \"%1\".").arg(field.name());
        names.insert(field.name());
    }
    return {};
}

qsizetype ModifyFieldsSheetController::addField(const QString &name)
{
    g_fields.append(FieldDefinition(g_makeIdentifier(), singleLineFieldText(name)));
    Q_EMIT changed();
    return g_fields.size() - 1;
}

void ModifyFieldsSheetController::deleteField(qsizetype index)
{
    g_fields.removeAt(index);
    Q_EMIT changed();
}

void ModifyFieldsSheetController::renameField(qsizetype index, const QString &name)
{
    g_fields[index].setName(singleLineFieldText(name).trimmed());
    Q_EMIT changed();
}

void ModifyFieldsSheetController::setShown(qsizetype index, bool shown)
{
    if (g_fields.at(index).show() == shown)
        return;
    g_fields[index].setShow(shown);
    Q_EMIT changed();
}

void ModifyFieldsSheetController::moveField(qsizetype from, qsizetype to)
{
    g_fields.move(from, qBound<qsizetype>(0, to, g_fields.size() - 1));
    Q_EMIT changed();
}

void ModifyFieldsSheetController::setTextName(const QString &name)
{
    g_textName = singleLineFieldText(name);
    Q_EMIT changed();
}

QString ModifyFieldsSheetController::addNamesOf(const QString &path)
{
    Progress progress;
    const Result<DatafileContents> contents = readDatafile(path, progress);
    if (!contents)
        return contents.error().message;
    const auto settings = DatafileSettingsData::settingsWithDictionary(contents->settings, nullptr);
    for (const FieldDefinition &field : settings ? settings->fields() : QList<FieldDefinition>()) {
        const bool isHere = std::ranges::any_of(
            g_fields, [&](const FieldDefinition &other) { return other.name() == field.name(); });
        if (!isHere)
            addField(field.name());
    }
    return {};
}

void ModifyFieldsSheetController::goOnWith(const QList<FieldDefinition> &fields, const QString &textName)
{
    g_fields = fields;
    g_textName = textName;
    Q_EMIT changed();
}

} // namespace tavrin
