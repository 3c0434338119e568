// SPDX-FileCopyrightText: The Tavrin authors
// SPDX-License-Identifier: MIT

#include "model/DatafileRecordsData.h"

#include "model/DatafileSettingsData.h"

namespace tavrin {

QString contentOfField(const QString &name, const RecordData &record, const DatafileSettingsData &settings)
{
    const FieldDefinition *field = settings.fieldWithName(name);
    const QString content = field ? record.fieldValue(field->identifier()) : QString();
    return content.isEmpty() ? QString() : content;
}

} // namespace tavrin
