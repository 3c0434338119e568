// SPDX-FileCopyrightText: The Tavrin authors
// SPDX-License-Identifier: MIT

#include "document/ContentChange.h"

#include "document/DatafileDocument.h"
#include "model/RecordView.h"

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

void exchangeContents(RecordData &record, ContentChange::Record &changed, const Environment &environment)
{
    for (auto &[field, content] : changed.fields) {
        const QString present = record.fieldValue(field);
        record.setFieldValue(std::exchange(content, present), field);
    }
    if (changed.text) {
        const RecordText present{record.textString(), record.textRTFD()};
        record.setTextString(changed.text->plain);
        if (changed.text->textRTFD != present.textRTFD)
            record.setTextRTFD(changed.text->textRTFD);
        changed.text = present;
    }
    record.modified(environment);
}

} // namespace

void ContentChange::Record::makeReady(const RecordView &record, const Environment &environment)
{
    ready = std::make_unique<RecordData>(record.dictionary(), environment);
    exchangeContents(*ready, *this, environment);
}

void ContentChange::exchange(DatafileDocument &document)
{
    DatafileRecordsData &records = document.datafileRecords();
    for (Record &changed : g_records) {
        if (changed.ready)
            records.setContents(std::move(changed.ready), changed.number);
        else if (RecordData *record = records.recordForNumber(changed.number))
            exchangeContents(*record, changed, document.services().environment);
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
