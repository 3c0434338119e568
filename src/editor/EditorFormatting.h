// SPDX-FileCopyrightText: The Tavrin authors
// SPDX-License-Identifier: MIT

#pragma once

#include "editor/CopiedStyles.h"
#include "editor/SheetHost.h"
#include "editor/TextChanging.h"

#include <QObject>

#include <memory>
#include <optional>

namespace tavrin {

class EditorWindowController;

/// The Format menu: what it does to the selected text, or to what is typed next.
///
/// Nothing happens where validateAction() says no. Each command is one step that the text's own Undo takes
/// back.
class EditorFormatting : public QObject
{
    Q_OBJECT

public:
    EditorFormatting(EditorWindowController &window, SheetHost &sheets);

    /// Whether commands on the freeform text's look may run: the caret is in it, it may be edited, and the
    /// datafile's texts have formats.
    bool mayFormat() const;

    void changeLook(const LookChange &change);
    void changeParagraphs(const ParagraphChange &change);

    // Characters.
    void toggleBold();
    void toggleItalic();
    void toggleUnderline();
    void toggleStrikethrough();
    void chooseFont();
    void chooseColor();
    void changeSize(int points);
    void setLigatures(richtext::Ligatures ligatures);
    void setKerning(std::optional<qint32> twips);
    void changeKerning(qint32 twips);
    void setScript(richtext::Script script);
    void moveBaseline(qint32 halfPoints);
    void unscript(); ///< On the line again: no superscript, no raised baseline.
    void clearFormatting();

    // Paragraphs.
    void setAlignment(richtext::Alignment alignment);
    void chooseSpacing();
    void setListMarker(const QString &marker);
    void changeListLevel(int by);

    // Styles that are copied: the look of characters, and what a ruler shows.
    void copyStyle();
    void pasteFTAStyle();
    bool hasCopiedStyle() const { return g_copied->style.has_value(); }
    void copyRuler();
    void pasteFTARuler();
    bool hasCopiedRuler() const { return g_copied->ruler.has_value(); }
    /// Has the window share what is copied with others.
    void shareCopied(std::shared_ptr<CopiedStyles> copied) { g_copied = std::move(copied); }
    void toggleFreeformRuler() { Q_EMIT rulerToggled(); }

    // Tables.
    void insertTable();
    void insertRow(bool below);
    void insertColumn(bool right);
    void removeRows();
    void removeColumns();
    bool isInTable() const;

    /// Whether a command that is a state is on for what is selected; none for other commands.
    std::optional<bool> isOn(const QString &selector) const;

Q_SIGNALS:
    void rulerToggled();

private:
    QTextCursor cursor() const;
    void setCursor(const QTextCursor &cursor);
    void toggle(bool richtext::CharacterFormat::*trait);
    void takeFont(const QFont &before, const QFont &font);

    EditorWindowController &g_window;
    SheetHost &g_sheets;
    std::shared_ptr<CopiedStyles> g_copied = std::make_shared<CopiedStyles>();
};

} // namespace tavrin
