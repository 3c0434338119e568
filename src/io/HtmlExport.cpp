// SPDX-FileCopyrightText: The Tavrin authors
// SPDX-License-Identifier: MIT

#include "io/HtmlExport.h"

#include "io/ExportFolder.h"
#include "io/RecordLoop.h"
#include "io/TextSink.h"

namespace tavrin {

using namespace Qt::StringLiterals;
using richtext::AttributedText;
using richtext::CharacterFormat;

namespace {

QString escaped(const QString &text)
{
    return text.toHtmlEscaped();
}

QString pageStart(const QString &title)
{
    return u"<!DOCTYPE html>\n<html>\n<head>\n<meta charset=\"utf-8\">\n"
           "<meta name=\"viewport\" content=\"width=device-width\">\n<title>%1</title>\n"
           "<style>\n:root { color-scheme: light dark; }\nbody { font-family: sans-serif; margin: 2em; }\n"
           "table { border-collapse: collapse; }\n"
           "th, td { border: 1px solid #888; padding: 0.2em 0.6em; text-align: left; vertical-align: top; }\n"
           "td.text { white-space: pre-wrap; }\np { margin: 0; min-height: 1.2em; white-space: pre-wrap; }\n"
           "</style>\n</head>\n<body>\n"_s.arg(escaped(title));
}

const QString pageEnd = u"</body>\n</html>\n"_s;

/// The tags around a stretch of one format, in the order in which they open.
QStringList tagsOf(const CharacterFormat &format)
{
    QStringList tags;
    // Only addresses that a page may lead to; a script is none.
    const bool isLink = format.link.startsWith(u"http://") || format.link.startsWith(u"https://")
                        || format.link.startsWith(u"mailto:");
    if (isLink)
        tags.append(u"a href=\"%1\""_s.arg(escaped(format.link)));
    if (format.bold)
        tags.append(u"b"_s);
    if (format.italic)
        tags.append(u"i"_s);
    if (format.underline != richtext::Underline::None)
        tags.append(u"u"_s);
    if (format.strike != richtext::Strike::None)
        tags.append(u"s"_s);
    if (format.script != richtext::Script::Normal)
        tags.append(format.script == richtext::Script::Super ? u"sup"_s : u"sub"_s);
    QString style;
    const auto addColor = [&style](const QString &name, const std::optional<richtext::Color> &color) {
        if (color)
            style += u"%1:rgb(%2,%3,%4);"_s.arg(name).arg(color->red).arg(color->green).arg(color->blue);
    };
    addColor(u"color"_s, format.foreground);
    addColor(u"background-color"_s, format.background);
    if (!style.isEmpty())
        tags.append(u"span style=\"%1\""_s.arg(style));
    return tags;
}

QString contentOf(const QString &text, const CharacterFormat &format)
{
    if (!format.attachment)
        return escaped(text);
    return u"[%1]"_s.arg(escaped(format.attachment->name));
}

void writeFields(const ExportedRecords &records, const RecordView &record, QString &page)
{
    if (records.fields().isEmpty())
        return;
    page += u"<table>\n"_s;
    for (qsizetype field = 0; field < records.fields().size(); ++field) {
        const QString value = record.fieldValue(records.keys()[static_cast<size_t>(field)]).toString();
        page += u"<tr><th>%1</th><td>%2</td></tr>\n"_s.arg(escaped(records.fields()[field].name()),
                                                           escaped(value));
    }
    page += u"</table>\n"_s;
}

} // namespace

QString htmlOfText(const AttributedText &text)
{
    QString html = u"<p>"_s;
    for (qsizetype at = 0; at < text.size();) {
        const CharacterFormat &format = text.characterFormatAt(at);
        qsizetype end = at;
        while (end < text.size() && text.text()[end] != u'\n' && text.characterFormatAt(end) == format)
            ++end;
        if (end == at) {
            html += u"</p>\n<p>"_s;
            ++at;
            continue;
        }
        const QStringList tags = tagsOf(format);
        for (const QString &tag : tags)
            html += u'<' + tag + u'>';
        html += contentOf(text.text().sliced(at, end - at), format);
        for (auto tag = tags.rbegin(); tag != tags.rend(); ++tag)
            html += u"</"_s + tag->section(u' ', 0, 0) + u'>';
        at = end;
    }
    return html + u"</p>\n"_s;
}

Result<> exportHtml(const ExportedRecords &records, const QString &path, Progress &progress)
{
    return writeText(path, false, [&](TextSink &sink) -> Result<> {
        sink.append(pageStart(records.datafileName()) + u"<table>\n<thead><tr>"_s);
        for (const FieldDefinition &field : records.fields())
            sink.append(u"<th>%1</th>"_s.arg(escaped(field.name())));
        sink.append(u"<th>%1</th></tr></thead>\n<tbody>\n"_s.arg(escaped(records.textName())));
        const auto writeRow = [&](qsizetype index) {
            const RecordView record = records.record(index);
            QString row = u"<tr>"_s;
            for (const FieldKey &key : records.keys())
                row += u"<td>"_s + escaped(record.fieldValue(key).toString()) + u"</td>"_s;
            row += u"<td class=\"text\">"_s + escaped(record.textString().toString()) + u"</td></tr>\n"_s;
            sink.append(row);
            return sink.outcome();
        };
        if (Result<> written = forEachRecord(records, progress, writeRow); !written)
            return written;
        sink.append(u"</tbody>\n</table>\n"_s + pageEnd);
        return {};
    });
}

Result<qsizetype>
exportHtmlFolder(const ExportedRecords &records, const FolderExportOptions &options, Progress &progress)
{
    const QString path = options.parent + u'/' + fileNamePart(records.datafileName()) + u" HTML Folder"_s;
    const auto write = [&](const ExportFolder &folder, qsizetype index) {
        const RecordView record = records.record(index);
        const QString name = exportedFileName(records, index, options.nameField);
        QString page = pageStart(name);
        writeFields(records, record, page);
        page += htmlOfText(attributedTextOf(record, records.textFont())) + pageEnd;
        return folder.writeFile(name + u".html"_s, page.toUtf8());
    };
    return exportRecordFolder(records, path, options.replacesFolder, progress, write);
}

} // namespace tavrin
