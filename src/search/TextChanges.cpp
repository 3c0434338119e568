// SPDX-FileCopyrightText: The Tavrin authors
// SPDX-License-Identifier: MIT

#include "search/TextChanges.h"

#include "document/DatafileDocument.h"

#include <utility>

namespace tavrin {

void TextChanges::exchange(DatafileDocument &document)
{
    for (Record &changed : g_records) {
        const auto record = document.datafileRecords().view(changed.identifier);
        if (!record)
            continue;
        const QString oldText = record->textString().toString();
        const QByteArray oldRTFD = record->textRTFD();
        for (auto &[field, value] : changed.fields) {
            // Asked for anew: the record is an object from the first change on.
            const auto present = document.datafileRecords().view(changed.identifier);
            const QString oldValue = present->fieldValue(field).toString();
            document.storeFieldValue(changed.identifier, field, std::exchange(value, oldValue));
        }
        if (changed.text && changed.textRTFD == oldRTFD)
            document.storeText(changed.identifier, std::exchange(*changed.text, oldText));
        else if (changed.text)
            document.storeFormattedText(changed.identifier,
                                        std::exchange(*changed.text, oldText),
                                        std::exchange(changed.textRTFD, oldRTFD));
        document.markRecordModified(changed.identifier);
    }
}

} // namespace tavrin
