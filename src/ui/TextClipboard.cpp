// SPDX-FileCopyrightText: The Tavrin authors
// SPDX-License-Identifier: MIT

#include "ui/TextClipboard.h"

#include "editor/CopiedRecord.h"
#include "editor/TextBridge.h"
#include "richtext/RtfReader.h"
#include "richtext/RtfWriter.h"
#include "richtext/Rtfd.h"

#include <QBuffer>
#include <QFileInfo>
#include <QImage>
#include <QImageReader>
#include <QMimeData>
#include <QTextCursor>
#include <QTextDocumentFragment>
#include <QUrl>

namespace tavrin {

using namespace richtext;
using namespace Qt::StringLiterals;

namespace {

const QStringList rtfTypes{u"text/rtf"_s, u"application/rtf"_s, u"text/richtext"_s};

AttributedText textOfAttachment(Attachment attachment, const CharacterFormat &base)
{
    CharacterFormat look = base;
    look.link.clear();
    look.attachment = std::move(attachment);
    return AttributedText(QString(QChar(attachmentCharacter)), look);
}

std::optional<AttributedText> textOfImage(const QImage &image, const CharacterFormat &base)
{
    constexpr qint32 twipsPerPixel = 15;
    Attachment attachment;
    QBuffer buffer(&attachment.bytes);
    if (image.isNull() || !image.save(&buffer, "PNG"))
        return {};
    attachment.name = u"Pasted image.png"_s;
    attachment.width = qRound(image.width() / image.devicePixelRatio()) * twipsPerPixel;
    attachment.height = qRound(image.height() / image.devicePixelRatio()) * twipsPerPixel;
    return textOfAttachment(std::move(attachment), base);
}

/// A picture comes in, another file as a link to it.
AttributedText textOfFile(const QUrl &url, const CharacterFormat &base)
{
    constexpr qint64 largest = 64 * 1024 * 1024;
    const QString path = url.toLocalFile();
    QFile file(path);
    if (!QImageReader::imageFormat(path).isEmpty() && file.size() <= largest && file.open(QFile::ReadOnly))
        return textOfAttachment({QFileInfo(path).fileName(), file.readAll(), 0, 0}, base);
    CharacterFormat look = base;
    look.link = QString::fromLatin1(url.toEncoded());
    return AttributedText(QFileInfo(path).fileName(), look);
}

std::optional<AttributedText> textOfFiles(const QList<QUrl> &urls, const CharacterFormat &base)
{
    AttributedText text;
    for (const QUrl &url : urls) {
        if (!url.isLocalFile())
            return {};
        if (!text.isEmpty())
            text.append(AttributedText(u"\n"_s, base));
        text.append(textOfFile(url, base));
    }
    return text.isEmpty() ? std::nullopt : std::optional(text);
}

} // namespace

std::unique_ptr<QMimeData> mimeDataOfSelection(const QTextCursor &cursor)
{
    auto data = std::make_unique<QMimeData>();
    const AttributedText text = selectedText(cursor);
    data->setText(text.text());
    const QByteArray rtf = writeRtf(text);
    data->setData(flatRtfdType, writeRichText(text));
    data->setData(rtfTypes[0], rtf);
    data->setData(rtfTypes[1], rtf);
    data->setHtml(cursor.selection().toHtml());
    if (text.size() == 1 && text.characterFormatAt(0).attachment) {
        const QImage image = QImage::fromData(text.characterFormatAt(0).attachment->bytes);
        if (!image.isNull())
            data->setImageData(image);
    }
    return data;
}

std::optional<AttributedText> formattedTextOf(const QMimeData &data, const CharacterFormat &base)
{
    if (data.hasFormat(flatRtfdType)) {
        if (auto text = readRichText(data.data(flatRtfdType)))
            return std::move(*text);
    }
    for (const QString &type : rtfTypes) {
        if (!data.hasFormat(type))
            continue;
        if (auto text = readRtf(data.data(type)))
            return std::move(*text);
    }
    if (data.hasUrls()) {
        if (auto text = textOfFiles(data.urls(), base))
            return text;
    }
    // A picture copied in a browser comes with HTML that only says where it is.
    if (data.hasImage() && !data.hasText())
        return textOfImage(qvariant_cast<QImage>(data.imageData()), base);
    if (data.hasHtml())
        return textOfHtml(data.html(), base);
    return {};
}

bool hasFormattedText(const QMimeData &data)
{
    const auto has = [&data](const QString &type) { return data.hasFormat(type); };
    return has(flatRtfdType) || std::ranges::any_of(rtfTypes, has) || data.hasHtml() || data.hasImage()
           || data.hasUrls();
}

bool removeAttachments(AttributedText &text)
{
    bool found = false;
    for (qsizetype i = text.size(); i-- > 0;) {
        if (text.text().at(i) != QChar(attachmentCharacter) || !text.characterFormatAt(i).attachment)
            continue;
        text.remove(i, 1);
        found = true;
    }
    return found;
}

} // namespace tavrin
