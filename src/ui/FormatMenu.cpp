// SPDX-FileCopyrightText: The Tavrin authors
// SPDX-License-Identifier: MIT

// The Format menu and its ruler.

#include "editor/EditorFormatting.h"
#include "editor/EditorFreeformText.h"
#include "editor/EditorLinks.h"
#include "ui/EditorWindow.h"
#include "ui/FormatCommands.h"
#include "ui/FreeformRuler.h"
#include "ui/FreeformTextEdit.h"

#include <QAction>
#include <QCoreApplication>
#include <QMenuBar>
#include <QStatusBar>

#include <utility>

namespace tavrin {

void EditorWindow::buildFormatMenu()
{
    QMenu *format = menuBar()->addMenu(tr("Forma&t"));
    for (const CommandMenu &part : formatMenus()) {
        QMenu *menu = format;
        if (*part.title)
            menu = format->addMenu(QCoreApplication::translate("Commands", part.title));
        else
            format->addSeparator();
        addCommands(menu, part.commands);
        connect(menu, &QMenu::aboutToShow, this, [this, menu] { updateStates(*menu); });
    }
}

/// What is on for the text at the caret is checked.
void EditorWindow::updateStates(const QMenu &menu)
{
    updateOperations();
    for (QAction *action : menu.actions()) {
        auto isOn = g_controller.formatting().isOn(action->objectName());
        if (action->objectName() == QLatin1StringView("toggleFreeformRuler:"))
            isOn = !g_ruler->isHidden();
        if (isOn) {
            action->setCheckable(true);
            action->setChecked(*isOn);
        }
    }
}

void EditorWindow::followText()
{
    connect(g_text, &FreeformTextEdit::edited, &g_controller, &EditorWindowController::textDidChange);
    connect(g_text, &FreeformTextEdit::linkFollowed, &g_controller.links(), &EditorLinks::openLink);
    connect(g_text, &FreeformTextEdit::linkAtCaretFollowed, &g_controller.links(), [this] {
        g_controller.links().openLinkAtCaret();
    });
    connect(g_text, &FreeformTextEdit::refused, this, [this](const QString &message) {
        constexpr int shownMilliseconds = 6000;
        statusBar()->showMessage(message, shownMilliseconds);
    });
    connect(g_text, &FreeformTextEdit::focusChanged, this, &EditorWindow::updateOperations);
    connect(g_text, &QTextEdit::selectionChanged, this, &EditorWindow::updateOperations);
    connect(g_text, &QTextEdit::cursorPositionChanged, this, &EditorWindow::updateRuler);
    connect(g_text, &QTextEdit::textChanged, this, &EditorWindow::updateRuler);
    EditorFormatting &formatting = g_controller.formatting();
    connect(g_ruler, &FreeformRuler::changed, &formatting, &EditorFormatting::changeParagraphs);
    connect(&formatting, &EditorFormatting::rulerToggled, this, [this] {
        g_ruler->setVisible(g_ruler->isHidden());
        updateRuler();
    });
}

void EditorWindow::updateRuler()
{
    // Commands on links and tables come and go with the caret.
    const bool isInLink = !g_controller.links().linkAtCaret().isEmpty();
    const bool isInTable = g_controller.formatting().isInTable();
    if (std::pair(isInLink, isInTable) != std::exchange(g_caretPlace, std::pair(isInLink, isInTable)))
        updateOperations();
    if (g_ruler->isHidden())
        return;
    const double margin = g_text->document()->documentMargin() * g_text->textScale();
    g_ruler->show(paragraphAt(g_text->textCursor()),
                  margin,
                  g_text->viewport()->width() - margin,
                  pixelsForTwips(1) * g_text->textScale());
}

// What the controller asks of the text.

QString EditorWindow::freeformText() const
{
    return g_text->plainCharacters();
}

richtext::AttributedText EditorWindow::formattedFreeformText() const
{
    return g_text->formattedText();
}

void EditorWindow::setFreeformText(const richtext::AttributedText &text,
                                   const richtext::CharacterFormat &plain)
{
    g_text->setMayHaveFormats(g_controller.text().mayHaveFormats(), g_controller.text().mayHaveImages());
    g_text->setText(text, plain);
}

QTextCursor EditorWindow::freeformCursor() const
{
    return g_text->textCursor();
}

void EditorWindow::setFreeformCursor(const QTextCursor &cursor)
{
    g_text->setTextCursor(cursor);
    g_text->ensureCursorVisible();
}

void EditorWindow::decorateFreeformText(const std::function<void(QTextDocument &)> &change)
{
    g_text->decorate(change);
}

bool EditorWindow::isFreeformTextModified() const
{
    return g_text->document()->isModified();
}

void EditorWindow::clearFreeformTextModified()
{
    g_text->document()->setModified(false);
}

void EditorWindow::setFreeformTextEditable(bool editable)
{
    g_text->setReadOnly(!editable);
    // A text that is only read can still be walked through and copied from by keyboard.
    if (!editable)
        g_text->setTextInteractionFlags(Qt::TextSelectableByMouse | Qt::TextSelectableByKeyboard);
}

} // namespace tavrin
