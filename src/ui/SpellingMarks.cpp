// SPDX-FileCopyrightText: The Tavrin authors
// SPDX-License-Identifier: MIT

#include "ui/SpellingMarks.h"

#include "editor/Spelling.h"
#include "editor/SpellingDictionary.h"
#include "ui/TextMarks.h"

#include <QContextMenuEvent>
#include <QMenu>
#include <QScrollBar>
#include <QTextBlock>

using namespace Qt::StringLiterals;

namespace tavrin {

namespace {

constexpr int restMilliseconds = 300;
constexpr int sliceMilliseconds = 4;

} // namespace

SpellingMarks::SpellingMarks(QTextEdit &text, TextMarks &marks, Spelling &spelling)
    : QObject(&text)
    , g_text(text)
    , g_marks(marks)
    , g_spelling(spelling)
{
    g_rest.setSingleShot(true);
    g_rest.setInterval(restMilliseconds);
    connect(&g_rest, &QTimer::timeout, this, &SpellingMarks::begin);
    g_next.setSingleShot(true);
    connect(&g_next, &QTimer::timeout, this, &SpellingMarks::goOn);
    connect(&text, &QTextEdit::textChanged, this, &SpellingMarks::lookSoon);
    connect(&text, &QTextEdit::cursorPositionChanged, this, &SpellingMarks::lookSoon);
    connect(text.verticalScrollBar(), &QScrollBar::valueChanged, this, &SpellingMarks::lookSoon);
    connect(text.verticalScrollBar(), &QScrollBar::rangeChanged, this, &SpellingMarks::lookSoon);
    connect(&spelling, &Spelling::changed, this, &SpellingMarks::lookSoon);
    text.installEventFilter(this);
    text.viewport()->installEventFilter(this);
    lookSoon();
}

void SpellingMarks::lookSoon()
{
    g_next.stop();
    g_rest.start();
}

void SpellingMarks::begin()
{
    g_found.clear();
    // What is only read is as it is.
    if (!g_spelling.isReady() || g_text.isReadOnly()) {
        g_marks.setMarks(u"spelling"_s, {});
        return;
    }
    g_place = g_text.cursorForPosition(QPoint(0, 0)).block().position();
    const QRect area = g_text.viewport()->rect();
    g_end = g_text.cursorForPosition(area.bottomRight()).position();
    goOn();
}

void SpellingMarks::goOn()
{
    QElapsedTimer since;
    since.start();
    QTextBlock paragraph = g_text.document()->findBlock(g_place);
    while (paragraph.isValid() && paragraph.position() <= g_end) {
        if (!checkParagraph(paragraph, since)) {
            g_next.start();
            return;
        }
        paragraph = paragraph.next();
        if (paragraph.isValid())
            g_place = paragraph.position();
    }
    g_marks.setMarks(u"spelling"_s, g_found);
}

/// False when the time is over before its end; g_place is where to go on then.
bool SpellingMarks::checkParagraph(const QTextBlock &paragraph, const QElapsedTimer &since)
{
    const int caret = g_text.textCursor().position();
    for (const SpellingWord &place : wordsToSpell(paragraph.text())) {
        const int start = paragraph.position() + static_cast<int>(place.start);
        const int end = start + static_cast<int>(place.length);
        if (start < g_place)
            continue;
        if (start > g_end)
            break;
        if (since.elapsed() >= sliceMilliseconds) {
            g_place = start;
            return false;
        }
        // The word at whose end the caret stands is still being typed.
        if (end == caret || g_spelling.isCorrect(paragraph.text().sliced(place.start, place.length)))
            continue;
        QTextCursor word(g_text.document());
        word.setPosition(start);
        word.setPosition(end, QTextCursor::KeepAnchor);
        markWord(word);
    }
    return true;
}

void SpellingMarks::markWord(const QTextCursor &word)
{
    QTextEdit::ExtraSelection mark;
    mark.cursor = word;
    mark.format.setUnderlineStyle(QTextCharFormat::SpellCheckUnderline);
    mark.format.setUnderlineColor(QColor(0xd9, 0x30, 0x25));
    g_found.append(mark);
}

bool SpellingMarks::eventFilter(QObject *object, QEvent *event)
{
    if (event->type() == QEvent::ContextMenu) {
        const auto *menu = static_cast<QContextMenuEvent *>(event);
        const bool byKey = menu->reason() == QContextMenuEvent::Keyboard;
        return showMenu(byKey ? g_text.cursorRect().center() : menu->pos());
    }
    if (event->type() == QEvent::Resize || event->type() == QEvent::ReadOnlyChange)
        lookSoon();
    return QObject::eventFilter(object, event);
}

QTextCursor SpellingMarks::misspeltWordAt(const QPoint &position) const
{
    const int place = g_text.cursorForPosition(position).position();
    for (const QTextEdit::ExtraSelection &mark : g_found) {
        if (mark.cursor.selectionStart() <= place && place <= mark.cursor.selectionEnd())
            return mark.cursor;
    }
    return {};
}

/// The text's usual menu, with better words first. False where there is nothing to add to it.
bool SpellingMarks::showMenu(const QPoint &position)
{
    const QTextCursor word = misspeltWordAt(position);
    if (word.isNull() || !g_spelling.isReady())
        return false;
    QMenu *menu = g_text.createStandardContextMenu(position);
    menu->setAttribute(Qt::WA_DeleteOnClose);
    addSuggestions(*menu, word);
    menu->popup(g_text.viewport()->mapToGlobal(position));
    return true;
}

void SpellingMarks::addSuggestions(QMenu &menu, const QTextCursor &word)
{
    constexpr qsizetype most = 6;
    QAction *first = menu.actions().value(0);
    const QString misspelt = word.selectedText();
    const QStringList suggestions = g_spelling.suggestions(misspelt, most);
    for (const QString &suggestion : suggestions) {
        auto *action = new QAction(suggestion, &menu);
        QFont bold = menu.font();
        bold.setBold(true);
        action->setFont(bold);
        connect(action, &QAction::triggered, this, [word, suggestion] {
            QTextCursor replaced(word);
            replaced.insertText(suggestion);
        });
        menu.insertAction(first, action);
    }
    if (suggestions.isEmpty()) {
        auto *none = new QAction(tr("No Suggestions"), &menu);
        none->setEnabled(false);
        menu.insertAction(first, none);
    }
    auto *add = new QAction(tr("&Add to Personal Dictionary"), &menu);
    connect(
        add, &QAction::triggered, this, [this, misspelt] { g_spelling.addToPersonalDictionary(misspelt); });
    menu.insertAction(first, add);
    menu.insertSeparator(first);
}

} // namespace tavrin
