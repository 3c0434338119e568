// SPDX-FileCopyrightText: The Tavrin authors
// SPDX-License-Identifier: MIT

#pragma once

#include "editor/EditorView.h"
#include "editor/EditorWindowController.h"

#include <QAbstractItemModel>

namespace tavrin {

/// The widgets of an editor window without widgets: it keeps what it was told, and types like a person.
class FakeEditorView : public EditorView
{
public:
    /// The person changes the text.
    void type(EditorWindowController &window, const QString &newText)
    {
        text = newText;
        textModified = true;
        window.textDidChange();
    }

    /// The person types into a cell and stays in it.
    void typeInCell(
        EditorWindowController &window, QAbstractItemModel &model, int row, int column, const QString &value)
    {
        cell = {&model, row, column, value};
        window.cellTextDidChange();
    }

    QString freeformText() const override { return text; }
    richtext::AttributedText formattedFreeformText() const override
    {
        return formatted.text() == text ? formatted : richtext::AttributedText(text, plainLook);
    }
    void setFreeformText(const richtext::AttributedText &newText,
                         const richtext::CharacterFormat &plain) override
    {
        text = newText.text();
        formatted = newText;
        plainLook = plain;
        textModified = false;
    }
    bool isFreeformTextModified() const override { return textModified; }
    void clearFreeformTextModified() override { textModified = false; }
    void setFreeformTextEditable(bool isEditable) override { editable = isEditable; }

    bool isTableEditing() const override { return cell.model != nullptr; }
    void endTableEditing() override
    {
        const Cell edited = std::exchange(cell, {});
        if (edited.model)
            edited.model->setData(edited.model->index(edited.row, edited.column), edited.value, Qt::EditRole);
    }
    void selectTableRow(int row) override { selectedRow = row; }
    void editTableCell(int row, int column) override
    {
        focused = EditorFocus::Table;
        editedCell = {row, column};
    }
    void resumeTableCell(int row, int column) override { resumedCell = {row, column}; }
    std::pair<int, int> cellTextSelection() const override { return cellSelection; }
    void setCellTextSelection(int start, int length) override { restoredSelection = {start, length}; }

    QString linkInCell() const override { return cellLink; }
    void deactivateCellLinks() override { cellLink.clear(); }
    EditorFocus focus() const override { return focused; }
    void setFocus(EditorFocus focus) override { focused = focus; }
    QString frame() const override { return frameText; }
    void setFrame(const QString &frame) override { frameText = frame; }
    double splitHeight() const override { return split; }
    void setSplitHeight(double height) override { split = height; }

    struct Cell
    {
        QAbstractItemModel *model = nullptr;
        int row = -1;
        int column = -1;
        QString value = {};
    };

    QString text;
    richtext::AttributedText formatted;
    richtext::CharacterFormat plainLook;
    QString frameText = QStringLiteral("10 20 800 600 0 0 1920 1080 ");
    Cell cell;
    QString cellLink;
    std::pair<int, int> editedCell{-1, -1};
    std::pair<int, int> resumedCell{-1, -1};
    std::pair<int, int> cellSelection{-1, 0};
    std::pair<int, int> restoredSelection{-1, 0};
    double split = 120;
    int selectedRow = -1;
    EditorFocus focused = EditorFocus::Elsewhere;
    bool textModified = false;
    bool editable = false;
};

} // namespace tavrin
