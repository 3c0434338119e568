// SPDX-FileCopyrightText: The Tavrin authors
// SPDX-License-Identifier: MIT

#pragma once

#include "richtext/AttributedText.h"

#include <QHash>

namespace tavrin::richtext {

/// Inside of rich text, attachments of equal names are told apart by something before the name. This is the
/// name without it.
QString nameOfAttachmentKey(const QString &key);

/// The files of a text's attachments: each under a name of its own, which is fit to be the name of a file in
/// a folder beside the text.
class AttachmentFiles
{
public:
    explicit AttachmentFiles(const AttributedText &text);

    struct File
    {
        QString key;
        QByteArray bytes; ///< Null: there is no file, but the text names it.
    };

    /// In the order of the text.
    const QList<File> &files() const { return g_files; }
    QString keyOf(const Attachment &attachment) const;

private:
    void add(const Attachment &attachment);

    QList<File> g_files;
    QHash<QString, int> g_countsByName;
    QHash<std::pair<QString, QByteArray>, QString> g_keysByContent;
    /// Many copies of one attachment share their bytes, and are not compared.
    QHash<std::pair<QString, const char *>, QString> g_keysByPlace;
};

} // namespace tavrin::richtext
