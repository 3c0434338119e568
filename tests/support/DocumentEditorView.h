// SPDX-FileCopyrightText: The Tavrin authors
// SPDX-License-Identifier: MIT

#pragma once

#include "editor/TextBridge.h"
#include "support/FakeEditorView.h"

#include <QTextDocument>

namespace tavrin {

/// A FakeEditorView whose freeform text is a document with a caret, as in a window.
class DocumentEditorView : public FakeEditorView
{
public:
    DocumentEditorView() { focused = EditorFocus::FreeformText; }

    QString freeformText() const override { return plainTextOf(document); }
    richtext::AttributedText formattedFreeformText() const override { return textOf(document); }
    void setFreeformText(const richtext::AttributedText &newText,
                         const richtext::CharacterFormat &plain) override
    {
        FakeEditorView::setFreeformText(newText, plain);
        tavrin::setText(document, newText, plain);
        cursor = QTextCursor(&document);
    }
    bool isFreeformTextModified() const override { return document.isModified(); }
    void clearFreeformTextModified() override { document.setModified(false); }
    QTextCursor freeformCursor() const override { return cursor; }
    void setFreeformCursor(const QTextCursor &newCursor) override { cursor = newCursor; }
    void decorateFreeformText(const std::function<void(QTextDocument &)> &change) override
    {
        change(document);
        document.setModified(false);
    }
    void insertIntoCell(const QString &newText) override { inserted = newText; }

    void select(int start, int end)
    {
        cursor.setPosition(start);
        cursor.setPosition(end, QTextCursor::KeepAnchor);
    }

    QTextDocument document;
    QTextCursor cursor;
    QString inserted;
};

} // namespace tavrin
