// SPDX-FileCopyrightText: The Tavrin authors
// SPDX-License-Identifier: MIT

#pragma once

#include "text/TextMatcher.h"

#include <QColor>
#include <QTextEdit>

namespace tavrin {

/// The Freeform Text Area. Plain text for now: what is pasted comes in without formatting.
class FreeformTextEdit : public QTextEdit
{
    Q_OBJECT

public:
    explicit FreeformTextEdit(QWidget *parent = nullptr);

    /// The text with "\n" between paragraphs; no-break spaces and line separators stay what they are.
    QString plainCharacters() const;

    /// Puts in a text without anybody being told that the person typed it.
    void setPlainCharacters(const QString &text);

    /// The colour behind the text; white, the paper nobody chose, follows the palette.
    void setPaperColor(const QColor &color);

    /// Colours these ranges, and no others, until the text is another one. They are not part of the text.
    void showHits(const QList<text::Match> &hits, const QColor &color);

Q_SIGNALS:
    /// The person changed the text.
    void edited();

protected:
    bool event(QEvent *event) override;
    void keyPressEvent(QKeyEvent *event) override;
    void changeEvent(QEvent *event) override;
    void showEvent(QShowEvent *event) override;
    bool canInsertFromMimeData(const QMimeData *source) const override;
    void insertFromMimeData(const QMimeData *source) override;

private:
    void applyPaperColor();
    void applyHits();

    QList<QTextCursor> g_hits;
    QColor g_hitColor;
    QColor g_paperColor;
    bool g_loading = false;
};

} // namespace tavrin
