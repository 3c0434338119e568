// SPDX-FileCopyrightText: The Tavrin authors
// SPDX-License-Identifier: MIT

#pragma once

#include "editor/AttachmentObject.h"
#include "richtext/AttributedText.h"
#include "text/TextMatcher.h"
#include "ui/ScaledDevice.h"

#include <QColor>
#include <QTextEdit>

#include <functional>

namespace tavrin {

class LinkColors;
class TextMarks;

/// The Freeform Text Area.
///
/// Lists, tables and links are edited as the functions of `editor` do it; this is the widget around them.
class FreeformTextEdit : public QTextEdit
{
    Q_OBJECT

public:
    explicit FreeformTextEdit(QWidget *parent = nullptr);
    ~FreeformTextEdit() override;

    /// The text with "\n" between paragraphs; no-break spaces and line separators stay what they are.
    QString plainCharacters() const;
    richtext::AttributedText formattedText() const;
    /// Between ranges of plainCharacters() and what is selected; what lies beyond the text is cut off.
    QTextCursor cursorOn(const text::Match &range) const;
    text::Match placesOf(const QTextCursor &cursor) const;

    /// Puts in a text without anybody being told that the person typed it.
    void setText(const richtext::AttributedText &text, const richtext::CharacterFormat &plain);
    /// Changes how the text looks, without this being an edit.
    void decorate(const std::function<void(QTextDocument &)> &change);

    /// Whether what is pasted may have formats, and images.
    void setMayHaveFormats(bool formats, bool images);

    /// How large the text is shown: 1 is its own size. The text is laid out for a larger or smaller screen;
    /// no format of it changes, so neither do stored sizes, what is undone or the mark of a change.
    void setTextScale(double scale);
    double textScale() const { return g_device.scale(); }

    /// The colour behind the text; white, the paper nobody chose, follows the palette.
    void setPaperColor(const QColor &color);

    /// As if the person had typed it.
    void insertTyped(const QString &text);
    void pasteAsPlainText();

    /// Colours these ranges, and no others, until the text is another one. They are not part of the text.
    void showHits(const QList<text::Match> &hits, const QColor &color);
    /// What is drawn over the text.
    TextMarks &marks() { return *g_marks; }

Q_SIGNALS:
    /// The person changed the text.
    void edited();
    /// The person wants to go where a link leads.
    void linkFollowed(const QString &link);
    /// The same of the link at the caret, if there is one.
    void linkAtCaretFollowed();
    /// Something could not be put in; a sentence for people.
    void refused(const QString &message);
    /// The focus came or went.
    void focusChanged();

protected:
    bool event(QEvent *event) override;
    void keyPressEvent(QKeyEvent *event) override;
    void inputMethodEvent(QInputMethodEvent *event) override;
    void mouseMoveEvent(QMouseEvent *event) override;
    void mousePressEvent(QMouseEvent *event) override;
    void mouseReleaseEvent(QMouseEvent *event) override;
    void contextMenuEvent(QContextMenuEvent *event) override;
    void focusInEvent(QFocusEvent *event) override;
    void focusOutEvent(QFocusEvent *event) override;
    void changeEvent(QEvent *event) override;
    void showEvent(QShowEvent *event) override;
    QMimeData *createMimeDataFromSelection() const override;
    bool canInsertFromMimeData(const QMimeData *source) const override;
    void insertFromMimeData(const QMimeData *source) override;

private:
    void applyPaperColor();
    void applyHits();
    bool handleStructureKey(const QKeyEvent &event);
    bool insertParagraph(QTextCursor &cursor);
    bool moveInTable(bool forward);
    void leaveLinkAndAttachment();
    void showPointerAt(const QPoint &position, Qt::KeyboardModifiers modifiers);

    AttachmentObject g_attachments;
    ScaledDevice g_device;
    LinkColors *g_linkColors;
    TextMarks *g_marks;
    QList<QTextCursor> g_hits;
    QColor g_hitColor;
    QColor g_paperColor;
    QString g_pressedLink;
    bool g_loading = false;
    bool g_mayHaveFormats = true;
    bool g_mayHaveImages = true;
};

} // namespace tavrin
