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

void ContentChange::exchange(DatafileDocument &document)
{
    for (Record &changed : g_records) {
        RecordData *record = document.datafileRecords().recordForNumber(changed.number);
        if (!record)
            continue;
        for (auto &[field, content] : changed.fields) {
            const QString present = record->fieldValue(field);
            record->setFieldValue(std::exchange(content, present), field);
        }
        if (changed.text) {
            const RecordText present{record->textString(), record->textRTFD()};
            record->setTextString(changed.text->plain);
            if (changed.text->textRTFD != present.textRTFD)
                record->setTextRTFD(changed.text->textRTFD);
            changed.text = present;
        }
        record->modified(document.services().environment);
    }
    announceChanged(document, g_records);
}

void LockChange::exchange(DatafileDocument &document)
{
    for (Record &changed : g_records) {
        RecordData *record = document.datafileRecords().recordForNumber(changed.number);
        if (!record)
            continue;
        const Record present{changed.number, record->recordLocked(), record->recordWasLocked()};
        record->setRecordLocked(changed.isLocked);
        record->setRecordWasLocked(changed.wasLocked);
        changed = present;
    }
    document.datafileSettings().setDatafileSettingsDidChange(true);
    announceChanged(document, g_records);
}

} // namespace tavrin
