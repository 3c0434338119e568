// SPDX-FileCopyrightText: The Tavrin authors
// SPDX-License-Identifier: MIT

#include "base/DurableFile.h"
#include "io/BatchBuilder.h"
#include "io/ExportFolder.h"
#include "io/FolderFiles.h"
#include "io/ReadProgress.h"
#include "io/RecordFiles.h"
#include "io/TextExport.h"
#include "io/TextFile.h"
#include "sorting/WorkSteps.h"

#include <QFileInfo>
#include <QJsonArray>
#include <QJsonDocument>

#include <algorithm>

namespace tavrin {

using namespace Qt::StringLiterals;

namespace {

// Keys of the bookkeeping; every other key of the front matter is a field. A field's name stands between
// quotes, so that one called "created" is told from these.
const QStringList textKeys = {u"identifier"_s,
                              u"name"_s,
                              u"created"_s,
                              u"modified"_s,
                              u"viewed"_s,
                              u"createdBy"_s,
                              u"modifiedBy"_s,
                              u"viewedBy"_s,
                              u"textRTFD"_s};
const QStringList flagKeys = {u"locked"_s, u"needsSync"_s, u"isSum"_s};
const QString numberKey = u"number"_s;
const QString textNameKey = u"textName"_s;

QByteArray quoted(const QString &text)
{
    return QJsonDocument(QJsonArray{text}).toJson(QJsonDocument::Compact).chopped(1).sliced(1);
}

QByteArray fileOf(const ExportedRecords &records, qsizetype index)
{
    QJsonObject object = jsonOfRecord(records, index);
    QByteArray file = "---\n";
    const QJsonArray values = object.value(u"values"_s).toArray();
    for (qsizetype field = 0; field < values.size(); ++field)
        file += quoted(records.fields()[field].name()) + ": " + quoted(values[field].toString()) + '\n';
    file += "number: " + QByteArray::number(index + 1) + '\n';
    file += "textName: " + quoted(records.textName()) + '\n';
    for (const QString &key : textKeys) {
        if (object.contains(key))
            file += key.toUtf8() + ": " + quoted(object.value(key).toString()) + '\n';
    }
    for (const QString &key : flagKeys)
        file += key.toUtf8() + (object.value(key).toBool() ? ": true\n" : ": false\n");
    return file + "---\n" + object.value(u"text"_s).toString().toUtf8();
}

/// One file, taken apart.
struct MarkdownRecord
{
    QList<std::pair<QString, QString>> fields;
    QJsonObject bookkeeping;
    QString textName;
    double number = 0;
};

QString unquoted(QByteArrayView text)
{
    const QByteArray json = "[" + text.toByteArray() + "]";
    const QJsonArray array = QJsonDocument::fromJson(json).array();
    if (text.startsWith('"') && array.size() == 1)
        return array.first().toString();
    return QString::fromUtf8(text);
}

/// Where the key of a line ends; -1 when the line has none.
qsizetype endOfKey(QByteArrayView line)
{
    if (!line.startsWith('"'))
        return line.indexOf(':');
    for (qsizetype at = 1; at < line.size(); ++at) {
        if (line[at] == '\\')
            ++at;
        else if (line[at] == '"')
            return at + 1 < line.size() && line[at + 1] == ':' ? at + 1 : -1;
    }
    return -1;
}

void takeLine(QByteArrayView line, MarkdownRecord &record)
{
    // An element of a list, as other programs write them.
    if (line.trimmed().startsWith("- ") && !record.fields.isEmpty()) {
        QString &value = record.fields.last().second;
        value += (value.isEmpty() ? u""_s : u", "_s) + unquoted(line.trimmed().sliced(2));
        return;
    }
    const qsizetype end = endOfKey(line);
    if (end < 0)
        return;
    const QString key = unquoted(line.first(end));
    const QString value = unquoted(line.sliced(end + 1).trimmed());
    const bool isField = line.startsWith('"');
    if (!isField && key == numberKey)
        record.number = value.toDouble();
    else if (!isField && key == textNameKey)
        record.textName = value;
    else if (!isField && textKeys.contains(key))
        record.bookkeeping.insert(key, value);
    else if (!isField && flagKeys.contains(key))
        record.bookkeeping.insert(key, value == u"true");
    else
        record.fields.append({key, value});
}

MarkdownRecord recordOf(QByteArrayView file)
{
    MarkdownRecord record;
    QByteArrayView rest = file;
    const auto takeNext = [&rest] {
        const qsizetype end = rest.indexOf('\n');
        QByteArrayView line = rest.first(end < 0 ? rest.size() : end);
        rest = end < 0 ? QByteArrayView() : rest.sliced(end + 1);
        return line.endsWith('\r') ? line.chopped(1) : line;
    };
    if (takeNext() == "---") {
        while (!rest.isEmpty()) {
            const QByteArrayView line = takeNext();
            if (line == "---") {
                record.bookkeeping.insert(u"text"_s, QString::fromUtf8(rest));
                return record;
            }
            takeLine(line, record);
        }
    }
    // No front matter, or none that ends.
    MarkdownRecord plain;
    plain.bookkeeping.insert(u"text"_s, QString::fromUtf8(file));
    return plain;
}

/// The names of all fields. A record may have two fields of one name: the second is one more field.
QStringList fieldNamesOf(const QList<MarkdownRecord> &records)
{
    QStringList names;
    for (const MarkdownRecord &record : records) {
        QStringList left = names;
        for (const auto &field : record.fields) {
            if (!left.removeOne(field.first))
                names.append(field.first);
        }
    }
    return names;
}

void fill(RecordData &record,
          const MarkdownRecord &source,
          const QStringList &names,
          const QStringList &fields)
{
    takeBookkeeping(source.bookkeeping, record);
    QList<bool> isTaken(names.size());
    for (const auto &[name, value] : source.fields) {
        qsizetype at = names.indexOf(name);
        while (at >= 0 && isTaken[at])
            at = names.indexOf(name, at + 1);
        if (at < 0 || at >= fields.size())
            continue;
        isTaken[at] = true;
        record.setFieldValue(value, fields[at]);
    }
}

} // namespace

Result<qsizetype>
exportMarkdown(const ExportedRecords &records, const QString &folderPath, bool replaces, Progress &progress)
{
    const std::optional<int> nameField = records.fields().isEmpty() ? std::optional<int>() : 0;
    const auto write = [&](const ExportFolder &folder, qsizetype index) {
        return folder.writeFile(exportedFileName(records, index, nameField) + u".md"_s,
                                fileOf(records, index));
    };
    return exportRecordFolder(records, folderPath, replaces, progress, write);
}

Result<ReadRecords> readMarkdownFolder(const QString &folder, Progress &progress)
{
    const Result<FolderFiles> files = filesOfFolder(folder, {u"md"_s, u"markdown"_s}, false);
    if (!files)
        return files.error();
    QList<MarkdownRecord> read;
    WorkSteps steps(progress, static_cast<size_t>(files->paths.size()));
    for (const QString &path : files->paths) {
        if (!steps.goOn())
            return cancelled();
        const Result<TextContent> text = readTextFile(path, {}, progress);
        if (!text)
            return text.error();
        read.append(recordOf(text->utf8));
    }
    std::ranges::stable_sort(read, {}, &MarkdownRecord::number);
    ReadRecords records;
    records.fieldNames = fieldNamesOf(read);
    records.count = read.size();
    records.skippedCount = files->skippedCount;
    if (!read.isEmpty())
        records.textName = read.first().textName;
    records.make = [read, names = records.fieldNames](const RecordsGoal &goal, Progress &making) {
        return batchOfEach(read, goal, making, [&](const MarkdownRecord &source, RecordData &record) {
            fill(record, source, names, goal.fields);
        });
    };
    return records;
}

} // namespace tavrin
