// SPDX-FileCopyrightText: The Tavrin authors
// SPDX-License-Identifier: MIT

#include "cli/DatafileAccess.h"
#include "cli/Json.h"
#include "cli/RecordAccess.h"
#include "richtext/Rtfd.h"

namespace tavrin {

using namespace Qt::StringLiterals;

namespace {

QJsonObject wholeRecordObject(const PlacedRecord &placed, const DatafileSettingsData &settings)
{
    const RecordView &record = *placed.record;
    // RTF is 7-bit text; a byte beyond is kept as it is by the one encoding that has all 256.
    const std::optional<QByteArray> rtf = richtext::rtfOfRichText(record.textRTFD());
    QJsonObject object = recordObject(placed, allFields(settings));
    object.insert(u"createdBy"_s, record.createdBy());
    object.insert(u"modifiedBy"_s, record.modifiedBy());
    object.insert(u"viewedBy"_s, record.viewedBy());
    object.insert(u"name"_s, record.name());
    object.insert(u"rtf"_s, rtf ? QJsonValue(QString::fromLatin1(*rtf)) : QJsonValue());
    return object;
}

ExitStatus runShow(Call &call)
{
    const auto document = openDatafile(call, call.arguments.operand(0));
    if (!document)
        return call.failed(document.error());
    const Result<PlacedRecord> placed = recordNamed(call.arguments.operand(1), **document);
    if (!placed)
        return call.failed(placed.error());
    const DatafileSettingsData &settings = (*document)->datafileSettings();
    if (call.wantsJson())
        writeJson(call.output, wholeRecordObject(*placed, settings));
    else
        writeRecordForPeople(call.output, *placed, settings);
    return ExitStatus::Done;
}

} // namespace

Command showCommand()
{
    return {u"show"_s,
            u"FILE NUMBER|IDENTIFIER"_s,
            2,
            2,
            Cli::tr("Shows one record whole."),
            Cli::tr("NUMBER counts the selected records from 1. An identifier of digits alone is written "
                    "id:IDENTIFIER."),
            {},
            runShow};
}

} // namespace tavrin
