// SPDX-FileCopyrightText: The Tavrin authors
// SPDX-License-Identifier: MIT

#pragma once

#include <QPlainTextEdit>

#include <utility>

namespace tavrin {

/// Edits a value on as many lines as it takes. The value itself has no line ends.
class WrappedCellEdit : public QPlainTextEdit
{
    Q_OBJECT

public:
    WrappedCellEdit(QTextOption::WrapMode mode, QWidget *parent);
};

// The editor of a cell is a QLineEdit, or a WrappedCellEdit where values are wrapped. What both can do; any
// other widget has no text, and nothing is done to it.

bool isCellEditor(const QWidget *widget);
QString cellText(const QWidget *editor);
bool isCellTextModified(const QWidget *editor);
/// In place of the whole text, without the person having done it.
void setCellText(QWidget *editor, const QString &text);
/// As if it were typed.
void insertInCell(QWidget *editor, const QString &text);
/// Start and length of what is selected, or the caret's place and 0.
std::pair<int, int> cellSelection(const QWidget *editor);
void selectInCell(QWidget *editor, int start, int length);
void selectAllInCell(QWidget *editor);
/// The place in the text that is nearest to a point in the editor's own coordinates; -1 without a text.
int cellPositionAt(const QWidget *editor, const QPoint &position);
/// Puts the caret there.
void placeCaretInCell(QWidget *editor, const QPoint &position);

/// Puts a value as a field may hold it in place of what is typed, keeping the selection and what can be
/// undone.
void replaceTypedText(QWidget *editor, const QString &cleaned);

} // namespace tavrin
