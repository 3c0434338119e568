// SPDX-FileCopyrightText: The Tavrin authors
// SPDX-License-Identifier: MIT

#include "ui/CellLinks.h"

#include "ui/CellEditor.h"
#include "ui/LinkColors.h"

#include <QGuiApplication>
#include <QHelpEvent>
#include <QInputMethodEvent>
#include <QLineEdit>
#include <QMouseEvent>
#include <QToolTip>

namespace tavrin {

CellLinks::CellLinks(QWidget *editor) : QObject(editor), g_editor(*editor)
{
    if (auto *line = qobject_cast<QLineEdit *>(editor)) {
        line->installEventFilter(this);
        line->setMouseTracking(true);
        connect(line, &QLineEdit::textChanged, this, &CellLinks::update);
        connect(line, &QLineEdit::cursorPositionChanged, this, &CellLinks::caretDidMove);
    } else if (auto *area = qobject_cast<QPlainTextEdit *>(editor)) {
        area->viewport()->installEventFilter(this);
        area->viewport()->setMouseTracking(true);
        connect(area->document(), &QTextDocument::contentsChanged, this, &CellLinks::update);
        connect(area, &QPlainTextEdit::cursorPositionChanged, this, &CellLinks::caretDidMove);
    }
}

CellLinks *CellLinks::of(const QWidget *editor)
{
    return editor ? editor->findChild<CellLinks *>(QString(), Qt::FindDirectChildrenOnly) : nullptr;
}

void CellLinks::update()
{
    const bool hadLinks = !g_links.empty();
    g_links =
        g_isActive ? text::linksIn(cellText(&g_editor), text::UrlPlace::Field) : std::vector<text::Link>();
    if (hadLinks || !g_links.empty())
        show();
    caretDidMove();
}

void CellLinks::show() const
{
    QTextCharFormat shown;
    shown.setForeground(linkColorOn(g_editor.palette().color(QPalette::Base)));
    shown.setFontUnderline(true);
    if (auto *area = qobject_cast<QPlainTextEdit *>(&g_editor)) {
        QList<QTextEdit::ExtraSelection> selections;
        for (const text::Link &link : g_links) {
            QTextCursor cursor(area->document());
            cursor.setPosition(static_cast<int>(link.range.location));
            cursor.setPosition(static_cast<int>(link.range.end()), QTextCursor::KeepAnchor);
            selections.append({cursor, shown});
        }
        area->setExtraSelections(selections);
        return;
    }
    // A line has formats only for what is being composed; they may lie anywhere, counted from the caret.
    QList<QInputMethodEvent::Attribute> formats;
    const int caret = static_cast<const QLineEdit &>(g_editor).cursorPosition();
    for (const text::Link &link : g_links)
        formats.append({QInputMethodEvent::TextFormat,
                        static_cast<int>(link.range.location) - caret,
                        static_cast<int>(link.range.length),
                        shown});
    QInputMethodEvent event({}, formats);
    QCoreApplication::sendEvent(&g_editor, &event);
}

void CellLinks::caretDidMove()
{
    const QString link = linkAtCaret();
    if (link != std::exchange(g_caretLink, link))
        Q_EMIT caretLinkChanged();
}

QString CellLinks::linkAtCaret() const
{
    const int caret = cellSelection(&g_editor).first;
    for (const text::Link &link : g_links) {
        if (link.range.location <= caret && caret <= link.range.end())
            return link.url;
    }
    return {};
}

QString CellLinks::linkAt(const QPoint &position) const
{
    const int place = cellPositionAt(&g_editor, position);
    for (const text::Link &link : g_links) {
        if (link.range.location <= place && place < link.range.end())
            return link.url;
    }
    return {};
}

void CellLinks::followAt(const QPoint &position)
{
    if (const QString link = linkAt(position); !link.isEmpty())
        Q_EMIT followed(link);
}

void CellLinks::deactivate()
{
    g_isActive = false;
    update();
}

bool CellLinks::eventFilter(QObject *object, QEvent *event)
{
    auto *widget = static_cast<QWidget *>(object);
    switch (event->type()) {
    case QEvent::MouseMove: {
        const auto *mouse = static_cast<QMouseEvent *>(event);
        const bool isLink = mouse->modifiers().testFlag(Qt::ControlModifier)
                            && !linkAt(mouse->position().toPoint()).isEmpty();
        widget->setCursor(isLink ? Qt::PointingHandCursor : Qt::IBeamCursor);
        break;
    }
    case QEvent::MouseButtonRelease: {
        const auto *mouse = static_cast<QMouseEvent *>(event);
        if (mouse->button() == Qt::LeftButton && mouse->modifiers().testFlag(Qt::ControlModifier))
            followAt(mouse->position().toPoint());
        break;
    }
    case QEvent::ToolTip: {
        const auto *help = static_cast<QHelpEvent *>(event);
        QToolTip::showText(help->globalPos(), linkAt(help->pos()), widget);
        return true;
    }
    default:
        break;
    }
    return QObject::eventFilter(object, event);
}

} // namespace tavrin
