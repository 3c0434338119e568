// SPDX-FileCopyrightText: The Tavrin authors
// SPDX-License-Identifier: MIT

#pragma once

#include "richtext/AttributedText.h"

#include <QString>
#include <QTextCursor>

#include <functional>
#include <utility>

namespace tavrin {

/// The parts of an editor window that can hold the keyboard focus.
enum class EditorFocus { FreeformText, Table, Elsewhere };

/// What the controller of an editor window asks of the window's widgets. It holds no record and decides
/// nothing; tests stand in for it.
class EditorView
{
public:
    EditorView() = default;
    EditorView(const EditorView &) = delete;
    EditorView &operator=(const EditorView &) = delete;
    virtual ~EditorView() = default;

    /// The freeform text's plain characters, lines ended by "\n".
    virtual QString freeformText() const = 0;
    /// The freeform text with its formats.
    virtual richtext::AttributedText formattedFreeformText() const = 0;
    /// Puts in a text, with the caret at its start and nothing to undo. An empty one is typed into with
    /// `plain`.
    virtual void setFreeformText(const richtext::AttributedText &text,
                                 const richtext::CharacterFormat &plain) = 0;
    /// The caret and what is selected in the freeform text; what is done with it is done to the text.
    virtual QTextCursor freeformCursor() const { return {}; }
    virtual void setFreeformCursor(const QTextCursor & /*cursor*/) {}
    /// Lets `change` change how the text looks without this being an edit: there is nothing to undo and no
    /// mark of a change.
    virtual void decorateFreeformText(const std::function<void(QTextDocument &)> & /*change*/) {}
    /// The person changed the text since it was put in, or since the mark was last cleared.
    virtual bool isFreeformTextModified() const = 0;
    virtual void clearFreeformTextModified() = 0;
    virtual void setFreeformTextEditable(bool editable) = 0;
    /// Puts what is on the clipboard where the caret is. False when that could not be done.
    virtual bool pasteIntoFreeformText(bool /*plain*/) { return true; }

    virtual bool isTableEditing() const = 0;
    /// Commits the cell being edited, if any.
    virtual void endTableEditing() = 0;
    /// Selects the row of the visible table and scrolls it into view.
    virtual void selectTableRow(int row) = 0;
    /// Starts editing a cell of the visible table, with its text selected.
    virtual void editTableCell(int row, int column) = 0;
    /// Goes on editing a cell that had to be committed in between: nothing is selected, so that the next
    /// key adds to what was typed.
    virtual void resumeTableCell(int row, int column) { editTableCell(row, column); }

    /// At the caret of the cell that is being edited.
    virtual void insertIntoCell(const QString & /*text*/) {}

    /// The link at the caret of the cell that is being edited; empty: there is none.
    virtual QString linkInCell() const { return {}; }
    /// Its addresses are but text, until it is edited anew.
    virtual void deactivateCellLinks() {}

    virtual EditorFocus focus() const = 0;
    virtual void setFocus(EditorFocus focus) = 0;

    /// The window's frame as "x y w h screenX screenY screenW screenH ", origin at the bottom left.
    virtual QString frame() const = 0;
    /// Applies a frame, shrunk and moved onto the screen where need be; an unreadable one changes nothing.
    virtual void setFrame(const QString &frame) = 0;

    /// Height of the table above the divider as it was set or dragged, in points; -1: never.
    virtual double splitHeight() const = 0;
    virtual void setSplitHeight(double height) = 0;

    /// As if the person had typed it where the caret is: into the cell being edited, else into the text.
    virtual void insertTyped(const QString & /*text*/) {}
    /// Shows the freeform text at that scale; what is stored does not change.
    virtual void setTextScale(double /*scale*/) {}
    /// The part of the cell being edited that is selected, as start and length; {-1, 0} without one.
    virtual std::pair<int, int> cellTextSelection() const { return {-1, 0}; }
    virtual void setCellTextSelection(int /*start*/, int /*length*/) {}
};

} // namespace tavrin
