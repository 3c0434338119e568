// SPDX-FileCopyrightText: The Tavrin authors
// SPDX-License-Identifier: MIT

#include "editor/ContentLook.h"

#include "base/FilledIn.h"
#include "document/DatafileDocument.h"
#include "editor/EditorFields.h"

namespace tavrin {

using namespace Qt::StringLiterals;

FormSheetController::Preview ContentLook::preview() const
{
    FormSheetController::Preview preview;
    const ContentWork &work = *g_content;
    preview.summary = g_summary ? g_summary(work)
                                : filledIn(EditorFields::tr("Contents to be changed: %lu, in %lu of %lu "
                                                            "selected records."),
                                           {QString::number(work.changedContents()),
                                            QString::number(work.changedRecords()),
                                            QString::number(work.records())});
    if (work.lockedRecords() > 0)
        preview.summary += u' '
                           + filledIn(EditorFields::tr("Locked records to be skipped: %lu."),
                                      {QString::number(work.lockedRecords())});
    preview.headings = {EditorFields::tr("Record"),
                        EditorFields::tr("Field"),
                        EditorFields::tr("Before"),
                        EditorFields::tr("After")};
    const DatafileSettingsData &settings = g_document.datafileSettings();
    for (const ContentWork::Sample &sample : work.samples()) {
        const QString identifier = g_document.datafileRecords().identifiers().text(sample.record);
        const qint64 index = g_document.datafileCatalog().indexOfSelectedIdentifier(identifier);
        const FieldDefinition *field = settings.fieldWithIdentifier(sample.field);
        preview.rows.append({index == NotFound ? QString() : QString::number(index + 1),
                             sample.field.isNull() ? settings.textName()
                             : field               ? field->name()
                                                   : QString(),
                             sample.before,
                             sample.after});
    }
    return preview;
}

FormSheetController::Preview TotalLook::preview() const
{
    FormSheetController::Preview preview;
    const FieldTotal &total = g_totals.totals().front();
    const FieldDefinition *field = g_document.datafileSettings().fieldWithIdentifier(total.field);
    preview.headings = {EditorFields::tr("Of the numbers"), EditorFields::tr("Value")};
    if (total.count == 0)
        preview.summary = filledIn(EditorFields::tr("There are no numbers in \"%@\"."),
                                   {field ? field->name() : QString()});
    else
        preview.rows = {{EditorFields::tr("Sum"), FieldTotals::textOf(total.sum)},
                        {EditorFields::tr("Count"), QString::number(total.count)},
                        {EditorFields::tr("Average"), FieldTotals::textOf(total.average())},
                        {EditorFields::tr("Smallest"), FieldTotals::textOf(total.smallest)},
                        {EditorFields::tr("Largest"), FieldTotals::textOf(total.largest)}};
    if (total.unreadable > 0)
        preview.rows.append({EditorFields::tr("Unreadable"), QString::number(total.unreadable)});
    for (const QString &sample : total.unreadableSamples)
        preview.rows.append({QString(), sample});
    return preview;
}

} // namespace tavrin
