// SPDX-FileCopyrightText: The Tavrin authors
// SPDX-License-Identifier: MIT

#pragma once

#include <QCache>
#include <QImage>
#include <QObject>
#include <QTextObjectInterface>

class QTextDocument;

namespace tavrin {

namespace richtext {
struct Attachment;
}

/// Draws the attachments of a document: pictures as such, no wider than the text, other files by their names.
class AttachmentObject : public QObject, public QTextObjectInterface
{
    Q_OBJECT
    Q_INTERFACES(QTextObjectInterface)

public:
    explicit AttachmentObject(QObject *parent = nullptr);

    /// Lets the document show attachments; also one that is printed.
    void registerAt(QTextDocument &document);

    QSizeF intrinsicSize(QTextDocument *document, int position, const QTextFormat &format) override;
    void drawObject(QPainter *painter,
                    const QRectF &rect,
                    QTextDocument *document,
                    int position,
                    const QTextFormat &format) override;

    /// The picture of an attachment; null when it is none that can be shown.
    QImage image(const richtext::Attachment &attachment);

private:
    /// By where their bytes are, which copies share.
    QCache<quintptr, std::pair<QByteArray, QImage>> g_images;
};

} // namespace tavrin
