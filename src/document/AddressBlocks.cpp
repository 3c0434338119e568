// SPDX-FileCopyrightText: The Tavrin authors
// SPDX-License-Identifier: MIT

#include "document/AddressPlace.h"
#include "document/DatafileDocument.h"
#include "plist/KeyedArchive.h"

#include <QRegularExpression>

namespace tavrin {

using namespace Qt::StringLiterals;

namespace {

bool endsLine(QChar c)
{
    return c == u'\n' || c == u'\r' || c == QChar::LineSeparator || c == QChar::ParagraphSeparator;
}

/// The first line of the text, which is shortened to what follows it. A carriage return and line feed are one
/// end of line.
QStringView takeLine(QStringView &text)
{
    qsizetype end = 0;
    while (end < text.size() && !endsLine(text[end]))
        ++end;
    const QStringView line = text.first(end);
    const qsizetype endSize = text.sliced(end).startsWith(u"\r\n") ? 2 : 1;
    text = text.sliced(std::min(end + endSize, text.size()));
    return line;
}

bool isBlank(QStringView line)
{
    return line.trimmed().isEmpty();
}

/// The text from its line of that number on.
QStringView fromLine(QStringView text, qint64 number)
{
    for (qint64 line = 1; line < number && !text.isEmpty(); ++line)
        takeLine(text);
    return text;
}

/// The text behind the marker; from the next line on when nothing follows the marker on its own.
QStringView behindMarker(QStringView text, const QString &marker)
{
    const qsizetype found = text.indexOf(marker);
    if (found < 0)
        return {};
    const QStringView behind = text.sliced(found + marker.size());
    QStringView rest = behind;
    return isBlank(takeLine(rest)) ? rest : behind;
}

/// The plain text of an archived attributed string; null when the data is anything else.
QString attributedStringText(const QByteArray &data)
{
    const std::optional<plist::KeyedArchive> archive = plist::KeyedArchive::open(data);
    if (!archive)
        return {};
    const plist::Value root = archive->root();
    if (!root.dictionary() || !archive->isKindOf(*root.dictionary(), u"NSAttributedString"_s))
        return {};
    const plist::Value text = archive->member(*root.dictionary(), u"NSString"_s);
    // A text that could be changed was archived as an object of its own.
    const plist::Dictionary *object = text.dictionary();
    return object ? archive->member(*object, u"NS.string"_s).toText() : text.toText();
}

/// The plain text of the layout, which is stored as archived rich text, or as mere text.
QString layoutText(const plist::Value &layout)
{
    return layout.data() ? attributedStringText(*layout.data()) : layout.toText();
}

} // namespace

AddressPlace AddressPlace::of(const DatafileSettingsData &settings)
{
    return {.startsAtLineNumber = settings.addressStartsAtLineNumber(),
            .startingLine = settings.addressBlockStartingLine(),
            .marker = settings.addressSpecialCharacter(),
            .hasFixedLineCount = settings.addressFixedLineCount(),
            .lineCount = settings.addressBlockLineCount()};
}

QString freeformAddressBlock(QStringView text, const AddressPlace &place)
{
    QStringView rest =
        place.startsAtLineNumber ? fromLine(text, place.startingLine) : behindMarker(text, place.marker);
    const qint64 lineCount = place.hasFixedLineCount ? place.lineCount : NotFound;
    QStringList lines;
    while (lines.size() < lineCount && !rest.isEmpty()) {
        const QStringView line = takeLine(rest);
        if (!place.hasFixedLineCount && isBlank(line))
            break;
        lines.append(line.trimmed().toString());
    }
    return lines.join(u'\n');
}

QString DatafileDocument::freeformAddressBlockForRecord(const RecordData &record) const
{
    return freeformAddressBlock(record.textString(), AddressPlace::of(*g_settings));
}

// In the layout a field's name in angle quotes stands for the field's content: «City». Names that no field
// has stay as they are, so that the person sees them; lines that come out empty are left out.
QString DatafileDocument::fieldBasedAddressBlockForRecord(const RecordData &record) const
{
    static const QRegularExpression place(u"«([^«»]*)»"_s);
    const QString layout = layoutText(g_settings->addressBlockLayout());
    QStringView rest = layout;
    QStringList lines;
    while (!rest.isEmpty()) {
        const QString line = takeLine(rest).toString();
        QString filled;
        qsizetype done = 0;
        for (auto places = place.globalMatch(line); places.hasNext();) {
            const QRegularExpressionMatch match = places.next();
            const QString name = match.captured(1);
            filled += QStringView(line).sliced(done, match.capturedStart() - done);
            filled += g_settings->fieldWithName(name) ? tavrin::contentOfField(name, record, *g_settings)
                                                      : match.captured();
            done = match.capturedEnd();
        }
        filled += QStringView(line).sliced(done);
        if (!isBlank(filled))
            lines.append(filled.trimmed());
    }
    return lines.join(u'\n');
}

QString DatafileDocument::addressBlockAtIndex(qint64 catalogIndex) const
{
    const RecordData *record = g_records->recordForIdentifier(g_catalog->identifierAtIndex(catalogIndex));
    if (!record)
        return {};
    return g_settings->addressInText() ? freeformAddressBlockForRecord(*record)
                                       : fieldBasedAddressBlockForRecord(*record);
}

} // namespace tavrin
