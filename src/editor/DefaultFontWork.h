// SPDX-FileCopyrightText: The Tavrin authors
// SPDX-License-Identifier: MIT

#pragma once

#include "editor/LongWork.h"
#include "model/FontDescription.h"
#include "search/TextChanges.h"

namespace tavrin {

/// Putting the formatted texts of records into the datafile's text font. A text without formatting is in it
/// anyway; locked records are passed over.
class DefaultFontWork : public LongWork
{
    Q_OBJECT

public:
    DefaultFontWork(const DatafileDocument &document, const QStringList &identifiers);

    QString title() const override { return tr("Changing to the default font…"); }
    void run(Progress &progress) override;

    /// Stores the texts as one step that can be undone; passes over those that changed meanwhile. How many
    /// there were.
    qsizetype apply(DatafileDocument &document);

private:
    struct Text
    {
        QString identifier;
        QByteArray before;
        QByteArray after;
    };

    QList<Text> g_texts;
    FontDescription g_font;
    bool g_cancelled = false;
};

/// The stored text with every character in that family and size, all else as it was; empty when it cannot be
/// read.
QByteArray textInFont(const QByteArray &textRTFD, const FontDescription &font);

} // namespace tavrin
