// SPDX-FileCopyrightText: The Tavrin authors
// SPDX-License-Identifier: MIT

#pragma once

#include "editor/CodedItem.h"
#include "editor/SortSheetController.h"

namespace tavrin {

/// How to sort by something in the Freeform Text Area: a name, a word, the postal code, the whole of it.
class SortFreeformSheetController : public SortSheetController
{
    Q_OBJECT

public:
    /// `titles` are what is passed over before and after a name.
    SortFreeformSheetController(const SubsetSortCriteriaData &criteria, const QStringList &titles);

    /// Name, Word, Postal Code, Whole Text; by the code of the kind of sort.
    const QList<CodedItem> &kindItems() const { return g_kindItems; }
    qsizetype kind() const { return g_kind; }
    void handleKindClick(qsizetype index);
    bool isName() const;
    bool isWord() const;

    /// Where the name stands; the code of the first item is 0: the line of that number.
    const QList<CodedItem> &nameLineItems() const { return g_nameLineItems; }
    qsizetype nameLine() const { return g_nameLine; }
    void handleNameLineClick(qsizetype index);
    /// Counted from 1.
    int nameLineNumber() const { return g_nameLineNumber; }
    void setNameLineNumber(int number);

    /// In what the word's line is counted, and from which end.
    const QList<CodedItem> &wordLineOffsetItems() const { return g_wordLineOffsetItems; }
    qsizetype wordLineOffset() const { return g_wordLineOffset; }
    void handleWordLineOffsetClick(qsizetype index);
    int wordLineNumber() const { return g_wordLineNumber; }
    void setWordLineNumber(int number);
    bool isLastWord() const { return g_isLastWord; }
    void setLastWord(bool last);
    int wordNumber() const { return g_wordNumber; }
    void setWordNumber(int number);

    /// The titles, one a line as typed; blank lines do not count.
    QString titlesText() const { return g_titlesText; }
    void setTitlesText(const QString &text);
    QStringList titles() const override;

    /// Why the sheet cannot be accepted; empty when it can.
    QString problem() const;
    bool isAcceptable() const override { return problem().isEmpty(); }

    SubsetSortCriteriaData criteria() const override;

private:
    /// Keeps what was chosen and tells of it.
    template <typename Value>
    void choose(Value &chosen, const Value &value)
    {
        chosen = value;
        tellChanged();
    }

    QList<CodedItem> g_kindItems;
    QList<CodedItem> g_nameLineItems;
    QList<CodedItem> g_wordLineOffsetItems;
    qsizetype g_kind = 0;
    qsizetype g_nameLine = 0;
    int g_nameLineNumber = 1;
    qsizetype g_wordLineOffset = 0;
    int g_wordLineNumber = 1;
    bool g_isLastWord = false;
    int g_wordNumber = 1;
    QString g_titlesText;
};

} // namespace tavrin
