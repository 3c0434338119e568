// SPDX-FileCopyrightText: The Tavrin authors
// SPDX-License-Identifier: MIT

#pragma once

#include <QElapsedTimer>
#include <QTextCursor>
#include <QTextEdit>
#include <QTimer>

class QMenu;

namespace tavrin {

class Spelling;
class TextMarks;

/// Underlines the misspelt words that are on screen, and offers better ones in the text's menu.
///
/// It looks when the person has stopped typing for a moment, a few milliseconds at a time. The marks are no
/// part of the text.
class SpellingMarks : public QObject
{
    Q_OBJECT

public:
    /// All three outlive it.
    SpellingMarks(QTextEdit &text, TextMarks &marks, Spelling &spelling);

    bool eventFilter(QObject *object, QEvent *event) override;

private:
    void lookSoon();
    void begin();
    void goOn();
    bool checkParagraph(const QTextBlock &paragraph, const QElapsedTimer &since);
    void markWord(const QTextCursor &word);
    QTextCursor misspeltWordAt(const QPoint &position) const;
    bool showMenu(const QPoint &position);
    void addSuggestions(QMenu &menu, const QTextCursor &word);

    QTextEdit &g_text;
    TextMarks &g_marks;
    Spelling &g_spelling;
    QTimer g_rest; ///< Until the person has stopped for a moment.
    QTimer g_next;
    int g_place = 0; ///< Everything on screen before it was looked at.
    int g_end = 0;
    QList<QTextEdit::ExtraSelection> g_found;
};

} // namespace tavrin
