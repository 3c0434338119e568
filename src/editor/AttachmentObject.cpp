// SPDX-FileCopyrightText: The Tavrin authors
// SPDX-License-Identifier: MIT

#include "editor/AttachmentObject.h"

#include "editor/TextFormats.h"

#include <QAbstractTextDocumentLayout>
#include <QBuffer>
#include <QFontMetricsF>
#include <QImageReader>
#include <QPainter>
#include <QTextDocument>

namespace tavrin {

using namespace richtext;

namespace {

constexpr int cachedKilobytes = 128 * 1024;
constexpr int largestSide = 8192;
constexpr double nameMargin = 6;

double scaleOf(const QTextDocument &document)
{
    constexpr double usualDpi = 96;
    const QPaintDevice *device = document.documentLayout()->paintDevice();
    return device ? device->logicalDpiY() / usualDpi : 1;
}

QFont nameFont(const QTextDocument &document)
{
    QFont font = document.defaultFont();
    if (QPaintDevice *device = document.documentLayout()->paintDevice())
        font = QFont(font, device);
    return font;
}

Attachment attachmentOf(const QTextFormat &format)
{
    return lookOf(format.toCharFormat())->attachment.value_or(Attachment());
}

QString shownName(const Attachment &attachment)
{
    return attachment.name.isEmpty() ? AttachmentObject::tr("attachment") : attachment.name;
}

QImage decoded(const QByteArray &bytes)
{
    QBuffer buffer;
    buffer.setData(bytes);
    QImageReader reader(&buffer);
    reader.setAutoTransform(true);
    const QSize size = reader.size();
    // More than a screen shows would only take memory.
    if (size.width() > largestSide || size.height() > largestSide)
        reader.setScaledSize(size.scaled(largestSide, largestSide, Qt::KeepAspectRatio));
    return reader.read();
}

} // namespace

AttachmentObject::AttachmentObject(QObject *parent) : QObject(parent)
{
    g_images.setMaxCost(cachedKilobytes);
}

void AttachmentObject::registerAt(QTextDocument &document)
{
    document.documentLayout()->registerHandler(attachmentObject, this);
}

QImage AttachmentObject::image(const Attachment &attachment)
{
    if (attachment.bytes.isEmpty())
        return {};
    const auto key = reinterpret_cast<quintptr>(attachment.bytes.constData());
    if (const auto *known = g_images.object(key);
        known && known->first.constData() == attachment.bytes.constData())
        return known->second;
    const QImage image = decoded(attachment.bytes);
    // The bytes are kept with it, so that no others come to their place.
    const qsizetype cost = (image.sizeInBytes() + attachment.bytes.size()) / 1024 + 1;
    g_images.insert(key, new std::pair(attachment.bytes, image), cost);
    return image;
}

QSizeF AttachmentObject::intrinsicSize(QTextDocument *document, int /*position*/, const QTextFormat &format)
{
    constexpr double pixelsPerPoint = 96.0 / 72;
    const Attachment attachment = attachmentOf(format);
    const double scale = scaleOf(*document);
    const QImage picture = image(attachment);
    if (picture.isNull()) {
        const QFontMetricsF metrics(nameFont(*document));
        return {metrics.horizontalAdvance(shownName(attachment)) + 2 * nameMargin,
                metrics.height() + nameMargin};
    }
    QSizeF size(pixelsForTwips(attachment.width), pixelsForTwips(attachment.height));
    if (size.isEmpty())
        size = QSizeF(picture.size()) * pixelsPerPoint;
    size *= scale;
    const double available = document->pageSize().width() - 2 * document->documentMargin();
    if (available > 0 && size.width() > available)
        size *= available / size.width();
    return size;
}

void AttachmentObject::drawObject(QPainter *painter,
                                  const QRectF &rect,
                                  QTextDocument *document,
                                  int /*position*/,
                                  const QTextFormat &format)
{
    const Attachment attachment = attachmentOf(format);
    const QImage picture = image(attachment);
    painter->save();
    if (!picture.isNull()) {
        painter->setRenderHint(QPainter::SmoothPixmapTransform);
        painter->drawImage(rect, picture);
    } else {
        painter->setFont(nameFont(*document));
        painter->setRenderHint(QPainter::Antialiasing);
        painter->drawRoundedRect(rect.adjusted(1, 1, -1, -1), 3, 3);
        painter->drawText(rect, Qt::AlignCenter, shownName(attachment));
    }
    painter->restore();
}

} // namespace tavrin
