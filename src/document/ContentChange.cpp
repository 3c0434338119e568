// SPDX-FileCopyrightText: The Tavrin authors
// SPDX-License-Identifier: MIT

#include "document/ContentChange.h"

#include "document/DatafileDocument.h"

#include <utility>

namespace tavrin {

namespace {

void announceChanged(DatafileDocument &document, const auto &records)
{
    if (records.size() == 1)
        document.announce(
            RecordChanged{document.datafileRecords().identifiers().text(records.front().number)});
    else if (!records.empty())
        document.announce(RecordsChanged{});
}

} // namespace

void ContentChange::makeParts(DatafileDocument &document, size_t from, size_t to)
{
    for (size_t part = from; part < to; ++part) {
        Record &changed = g_records[part % g_records.size()];
        if (part < g_records.size())
            exchangeContents(document, changed);
        else if (RecordData *record = document.datafileRecords().recordForNumber(changed.number))
            record->modified(document.services().environment);
    }
}

void ContentChange::exchangeContents(DatafileDocument &document, Record &changed) const
{
    RecordData *record = document.datafileRecords().recordForNumber(changed.number);
    if (!record)
        return;
    for (auto &[field, content] : changed.fields) {
        const QString present = record->fieldValue(field);
        record->setFieldValue(std::exchange(content, present), field);
    }
    if (!changed.text)
        return;
    const RecordText present{record->textString(), record->textRTFD()};
    record->setTextString(changed.text->plain);
    if (changed.text->textRTFD != present.textRTFD)
        record->setTextRTFD(changed.text->textRTFD);
    changed.text = present;
}

void ContentChange::conclude(DatafileDocument &document)
{
    announceChanged(document, g_records);
}

void LockChange::makeParts(DatafileDocument &document, size_t from, size_t to)
{
    for (size_t part = from; part < to; ++part) {
        Record &changed = g_records[part];
        RecordData *record = document.datafileRecords().recordForNumber(changed.number);
        if (!record)
            continue;
        const Record present{changed.number, record->recordLocked(), record->recordWasLocked()};
        record->setRecordLocked(changed.isLocked);
        record->setRecordWasLocked(changed.wasLocked);
        changed = present;
    }
}

void LockChange::conclude(DatafileDocument &document)
{
    document.datafileSettings().setDatafileSettingsDidChange(true);
    announceChanged(document, g_records);
}

} // namespace tavrin
