// SPDX-FileCopyrightText: The Tavrin authors
// SPDX-License-Identifier: MIT

#include "base/FilledIn.h"
#include "io/ExportFolder.h"
#include "io/RecordLoop.h"
#include "io/TextExport.h"
#include "richtext/Rtfd.h"

namespace tavrin {

using namespace Qt::StringLiterals;
using richtext::AttributedText;

namespace {

/// Its fields, a line each, in the field font.
QString fieldLines(const ExportedRecords &records, const RecordView &record)
{
    QString lines;
    for (qsizetype field = 0; field < records.fields().size(); ++field)
        lines += records.fields()[field].name() + u": "_s
                 + record.fieldValue(records.keys()[static_cast<size_t>(field)]).toString() + u'\n';
    return lines;
}

AttributedText partOf(const ExportedRecords &records, qsizetype index)
{
    const RecordView record = records.record(index);
    const QString heading = index == 0 ? u"____________________\nRecord number: %lu\n\n"_s
                                       : u"\n\n____________________\nRecord number: %lu\n\n"_s;
    richtext::CharacterFormat bold = formatOf(records.fieldsFont());
    bold.bold = true;
    AttributedText part(filledIn(heading, {QString::number(index + 1)}), bold);
    const QString lines = fieldLines(records, record) + u"\n*** Freeform Text Area ***\n\n"_s;
    part.append(AttributedText(lines, formatOf(records.fieldsFont())));
    part.append(attributedTextOf(record, records.textFont()));
    return part;
}

} // namespace

Result<> exportRtfd(const ExportedRecords &records, const QString &path, Progress &progress)
{
    AttributedText whole;
    const Result<> joined = forEachRecord(records, progress, [&](qsizetype index) -> Result<> {
        whole.append(partOf(records, index));
        return {};
    });
    return joined ? richtext::writeRtfdFolder(path, whole) : joined;
}

Result<qsizetype>
exportRtfdFolder(const ExportedRecords &records, const FolderExportOptions &options, Progress &progress)
{
    const QString path = options.parent + u'/' + fileNamePart(records.datafileName()) + u" RTFD Folder"_s;
    const auto write = [&](const ExportFolder &folder, qsizetype index) {
        const RecordView record = records.record(index);
        QString lines = fieldLines(records, record);
        if (!lines.isEmpty())
            lines += u'\n';
        AttributedText text(lines, formatOf(records.fieldsFont()));
        text.append(attributedTextOf(record, records.textFont()));
        const QString name = exportedFileName(records, index, options.nameField) + u".rtfd"_s;
        return richtext::writeRtfdFolder(folder.pathOf(name), text);
    };
    return exportRecordFolder(records, path, options.replacesFolder, progress, write);
}

} // namespace tavrin
