// SPDX-FileCopyrightText: The Tavrin authors
// SPDX-License-Identifier: MIT

#include "model/ValueRecords.h"

#include "model/RecordKey.h"

#include <algorithm>

namespace tavrin {

bool ValueRecords::needsOpening(quint32 place) const
{
    const plist::Dictionary &record = g_records[place];
    return !std::ranges::all_of(RecordKey::all,
                                [&record](const QString &key) { return record.contains(key); });
}

plist::Value ValueRecords::value(quint32 place, const QString &key) const
{
    return g_records[place].value(key);
}

TextView ValueRecords::fieldValue(quint32 place, const FieldKey &field) const
{
    return TextView(fieldValueIn(g_records[place].find(RecordKey::fields), field.text));
}

TextView ValueRecords::textString(quint32 place) const
{
    return TextView(value(place, RecordKey::textString).toText());
}

QString fieldValueIn(const plist::Value *fields, const QString &fieldIdentifier)
{
    const plist::Dictionary *contents = fields ? fields->dictionary() : nullptr;
    const plist::Value *content = contents ? contents->find(fieldIdentifier) : nullptr;
    if (!content)
        return {};
    const QString text = content->toText();
    return text.isNull() ? QStringLiteral("") : text;
}

} // namespace tavrin
