// SPDX-FileCopyrightText: The Tavrin authors
// SPDX-License-Identifier: MIT

#pragma once

#include <QColor>
#include <QDateTime>
#include <QLocale>
#include <QObject>

#include <optional>

namespace tavrin {

class EditorWindowController;
class SheetHost;
class WorkHost;

/// How a date stamp is written.
enum class StampFormat { Iso, Short, Medium, Long, Full };
enum class StampTime { None, Minutes, Seconds };

/// A date, and the time behind it where it is wanted, as people of that place write them.
QString dateTimeStamp(const QDateTime &instant, StampFormat format, StampTime time, const QLocale &locale);

/// The small commands on the text of an editor window: stamps, highlighter, blank lines, plain pasting, the
/// default font. Nothing happens to a text that may not be edited.
class EditorTextCommands : public QObject
{
    Q_OBJECT

public:
    EditorTextCommands(EditorWindowController &window, SheetHost &sheets, WorkHost &work);

    /// Now, written as the preferences say.
    void insertDateTime();
    void pasteAsPlainText();

    /// Of the selected lines, or of the whole text. Lines in tables stay.
    void removeBlankLines();

    /// Marks what is selected, or the word at the caret, in the highlighter's colour; takes the mark away
    /// where all of it is marked.
    void toggleHighlighter();
    QColor highlighterColor() const;

    /// Bold, italic, underline, colours, links and images stay.
    void changeCurrentRecordToDefaultFont();
    /// Asks, then changes the selected records.
    void changeAllToDefaultFont();

private:
    /// All selected records, or only one.
    void changeToDefaultFont(std::optional<quint32> onlyRecord);

    EditorWindowController &g_window;
    SheetHost &g_sheets;
    WorkHost &g_work;
};

} // namespace tavrin
