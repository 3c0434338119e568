// SPDX-FileCopyrightText: The Tavrin authors
// SPDX-License-Identifier: MIT

#include "cli/DatafileAccess.h"
#include "cli/Json.h"
#include "cli/RecordAccess.h"
#include "cli/Table.h"

namespace tavrin {

using namespace Qt::StringLiterals;

namespace {

void writeForPeople(Output &output, const std::vector<PlacedRecord> &records, const QList<NamedField> &fields)
{
    QStringList headings{u"#"_s};
    for (const NamedField &field : fields)
        headings.append(singleLine(field.name));
    writeTable(output, headings, static_cast<qint64>(records.size()), [&](qint64 row) {
        const PlacedRecord &placed = records[static_cast<size_t>(row)];
        QStringList cells{placed.number ? QString::number(*placed.number) : u"-"_s};
        for (const NamedField &field : fields)
            cells.append(singleLine(field.contentIn(*placed.record)));
        return cells;
    });
}

ExitStatus runList(Call &call)
{
    const auto document = openDatafile(call, call.arguments.operand(0));
    if (!document)
        return call.failed(document.error());
    const DatafileSettingsData &settings = (*document)->datafileSettings();
    const bool allColumns = !call.arguments.has(u"--fields"_s);
    const Result<QList<NamedField>> fields =
        allColumns ? allFields(settings)
                   : fieldsNamed(splitNames(call.arguments.value(u"--fields"_s)), settings);
    if (!fields)
        return call.failed(fields.error());

    const std::vector<PlacedRecord> records = recordsOfCatalog(**document, call.arguments.has(u"--all"_s));
    if (!call.wantsJson()) {
        const NamedField text{settings.textName(), {}};
        writeForPeople(call.output, records, allColumns ? *fields + QList{text} : *fields);
        return ExitStatus::Done;
    }
    {
        JsonArrayWriter array(call.output);
        for (const PlacedRecord &placed : records)
            array.append(recordObject(placed, *fields));
    }
    call.output.write("\n");
    return ExitStatus::Done;
}

} // namespace

Command listCommand()
{
    return {u"list"_s,
            u"FILE"_s,
            1,
            1,
            Cli::tr("Lists the selected records in their order."),
            Cli::tr("Records that are not selected have no number.\nA field is named by its name, or by "
                    "id:IDENTIFIER; Text is the text. A comma in a name has a backslash before it."),
            {{u"--all"_s, {}, Cli::tr("List every record, not only the selected ones.")},
             {u"--fields"_s, u"A,B"_s, Cli::tr("Give only these fields, in this order.")}},
            runList};
}

} // namespace tavrin
