// SPDX-FileCopyrightText: The Tavrin authors
// SPDX-License-Identifier: MIT

#include "io/TextExport.h"

#include "io/ExportFolder.h"
#include "io/RecordLoop.h"
#include "io/TextSink.h"

namespace tavrin {

using namespace Qt::StringLiterals;

namespace {

void writeRecord(const ExportedRecords &records, qsizetype index, TextSink &sink)
{
    const RecordView record = records.record(index);
    for (qsizetype field = 0; field < records.fields().size(); ++field) {
        sink.append(records.fields()[field].name() + u": "_s);
        sink.append(record.fieldValue(records.keys()[static_cast<size_t>(field)]));
        sink.append(QByteArrayView("\n"));
    }
    sink.append(record.textString());
}

} // namespace

Result<> exportTextFile(const ExportedRecords &records, const QString &path, Progress &progress)
{
    return writeText(path, true, [&](TextSink &sink) {
        return forEachRecord(records, progress, [&](qsizetype index) {
            if (index > 0)
                sink.append(QByteArrayView("\n____________________\n\n"));
            writeRecord(records, index, sink);
            return sink.outcome();
        });
    });
}

QString exportedFileName(const ExportedRecords &records, qsizetype index, std::optional<int> nameField)
{
    QString name;
    if (nameField) {
        const FieldKey &key = records.keys()[static_cast<size_t>(*nameField)];
        name = fileNamePart(records.record(index).fieldValue(key).toString());
    }
    if (name.isEmpty())
        name = fileNamePart(records.datafileName());
    return u"%1_%2"_s.arg(name, QString::number(index + 1));
}

QString plainTextOfRecord(const ExportedRecords &records, qsizetype index, std::optional<int> nameField)
{
    const RecordView record = records.record(index);
    QString text;
    for (int field = 0; field < records.fields().size(); ++field) {
        if (field == nameField)
            continue;
        const QString value = record.fieldValue(records.keys()[static_cast<size_t>(field)]).toString();
        text += records.fields()[field].name() + u":\t"_s + value + u'\n';
    }
    if (records.fields().size() > 1)
        text += u'\n';
    if (record.textRTFD().isEmpty())
        return text + record.textString().toString();
    return text + attributedTextOf(record, records.textFont()).text();
}

Result<qsizetype>
exportTextFolder(const ExportedRecords &records, const FolderExportOptions &options, Progress &progress)
{
    const QString path = options.parent + u'/' + fileNamePart(records.datafileName()) + u" Text Folder"_s;
    const auto write = [&](const ExportFolder &folder, qsizetype index) {
        const QByteArray text = plainTextOfRecord(records, index, options.nameField).toUtf8();
        return folder.writeFile(exportedFileName(records, index, options.nameField) + u".txt"_s, text);
    };
    return exportRecordFolder(records, path, options.replacesFolder, progress, write);
}

} // namespace tavrin
