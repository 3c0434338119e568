// SPDX-FileCopyrightText: The Tavrin authors
// SPDX-License-Identifier: MIT

#include "cli/DatafileAccess.h"
#include "cli/Json.h"
#include "cli/RecordAccess.h"
#include "cli/SearchOptions.h"
#include "cli/Table.h"
#include "cli/TerminalProgress.h"
#include "search/DatafileSearch.h"
#include "search/FindSelection.h"
#include "search/TargetStringList.h"

#include <QJsonArray>

#include <algorithm>

namespace tavrin {

using namespace Qt::StringLiterals;

namespace {

/// What is looked for, and where.
struct Query
{
    QStringList keys;
    KeyOptions options;
    qint64 fieldsToSearchIn;
};

/// A record that was found, with its hits.
struct FoundRecord
{
    qint64 number;
    QString identifier;
    QList<RecordHit> hits;
};

Result<Query> queryOf(const Call &call, const DatafileSettingsData &settings)
{
    const Result<qint64> code = fieldsToSearchIn(call.arguments, settings);
    if (!code)
        return code.error();
    const bool isInternet = call.arguments.value(u"--style"_s) == u"internet";
    const FindEntryStyle style = isInternet ? FindEntryStyle::Internet : FindEntryStyle::Classic;
    return Query{targetStringList(call.arguments.operand(1), style), keyOptions(call.arguments), *code};
}

/// The hit between what stands before and behind it.
QString contextOf(const RecordHit &hit, const QString &content)
{
    constexpr qsizetype before = 20;
    constexpr qsizetype length = 70;
    const qsizetype start = std::max<qsizetype>(0, hit.range.start - before);
    return (start > 0 ? u"…"_s : QString()) + singleLine(content.mid(start, length));
}

void writeForPeople(Output &output, const QList<FoundRecord> &found, const DatafileDocument &document)
{
    const DatafileSettingsData &settings = document.datafileSettings();
    const QList<NamedField> fields = allFields(settings);
    QList<QStringList> rows;
    for (const FoundRecord &record : found) {
        const auto view = document.datafileRecords().view(record.identifier);
        for (const RecordHit &hit : record.hits) {
            const bool isText = hit.field == HitField::freeformText;
            const NamedField field = isText ? NamedField{settings.textName(), {}} : fields[hit.field];
            rows.append({QString::number(record.number),
                         singleLine(field.name),
                         contextOf(hit, field.contentIn(*view))});
        }
    }
    writeTable(output, {u"#"_s, Cli::tr("Field"), Cli::tr("Found")}, rows.size(), [&rows](qint64 row) {
        return rows[row];
    });
}

void writeAsJson(Output &output, const QList<FoundRecord> &found, const DatafileSettingsData &settings)
{
    const QList<NamedField> fields = allFields(settings);
    {
        JsonArrayWriter array(output);
        for (const FoundRecord &record : found) {
            QJsonArray hits;
            for (const RecordHit &hit : record.hits) {
                hits.append(QJsonObject{
                    {u"field"_s, hit.field == HitField::freeformText ? u"Text"_s : fields[hit.field].name},
                    {u"location"_s, hit.range.start},
                    {u"length"_s, hit.range.length}});
            }
            array.append(
                {{u"number"_s, record.number}, {u"identifier"_s, record.identifier}, {u"hits"_s, hits}});
        }
    }
    output.write("\n");
}

ExitStatus listHits(Call &call)
{
    const auto document = openDatafile(call, call.arguments.operand(0));
    if (!document)
        return call.failed(document.error());
    const DatafileSettingsData &settings = (*document)->datafileSettings();
    const Result<Query> query = queryOf(call, settings);
    if (!query)
        return call.failed(query.error());

    const DatafileSearch search(**document, query->options, query->fieldsToSearchIn);
    const SubsetSortedData &catalog = (*document)->datafileCatalog();
    QList<FoundRecord> found;
    TerminalProgress progress(call.arguments);
    search.forEachRecordHolding(query->keys, progress, [&](qint64 record, const RecordView &view) {
        found.append(
            {record + 1, catalog.selectedIdentifierAtIndex(record), search.hitsInRecord(view, query->keys)});
    });
    if (call.wantsJson())
        writeAsJson(call.output, found, settings);
    else if (!found.isEmpty())
        writeForPeople(call.output, found, **document);
    return found.isEmpty() ? ExitStatus::Failed : ExitStatus::Done;
}

ExitStatus narrowSelection(Call &call)
{
    Result<DatafileEdit> edit = DatafileEdit::open(call, call.arguments.operand(0));
    if (!edit)
        return call.failed(edit.error());
    DatafileDocument &document = edit->document();
    const Result<Query> query = queryOf(call, document.datafileSettings());
    if (!query)
        return call.failed(query.error());
    TerminalProgress progress(call.arguments);
    FindSelection selection(document, query->keys, query->options, query->fieldsToSearchIn);
    selection.run(progress);
    if (const Result<bool> isDone = selection.apply(document); !isDone || !*isDone)
        return ExitStatus::Failed;
    if (const Result<> written = edit->write(); !written)
        return call.failed(written.error());
    writeSelected(call, document);
    return ExitStatus::Done;
}

ExitStatus runFind(Call &call)
{
    const QString style = call.arguments.value(u"--style"_s);
    if (!style.isNull() && style != u"classic" && style != u"internet")
        return call.wrongUsage(Cli::tr("--style is classic or internet."));
    if (const QString fault = faultOfOptionalTarget(call.arguments, u"--select"_s); !fault.isNull())
        return call.wrongUsage(fault);
    return call.arguments.has(u"--select"_s) ? narrowSelection(call) : listHits(call);
}

} // namespace

Command findCommand()
{
    return {
        u"find"_s,
        u"FILE TEXT"_s,
        2,
        2,
        Cli::tr("Finds text in the selected records."),
        Cli::tr("In the classic style && stands between keys, in the internet style blanks do, and double "
                "quotes keep\nwords together. A record is found when it holds every key. Of each field the "
                "first hit is given, of the\ntext every one; hidden fields are not searched.\nWith --select "
                "the records that hold every key stay selected, and hidden fields count.\nNothing found is "
                "exit status 1."),
        QList<Option>{{u"--style"_s, u"classic|internet"_s, Cli::tr("How the keys stand in TEXT.")},
                      {u"--select"_s, {}, Cli::tr("Narrow the selection instead of listing hits.")}}
            + searchOptions() + writingOptions(),
        runFind};
}

} // namespace tavrin
