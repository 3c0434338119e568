// SPDX-FileCopyrightText: The Tavrin authors
// SPDX-License-Identifier: MIT

#include "editor/SortFreeformSheetController.h"

#include "sorting/SortKind.h"

#include <utility>

namespace tavrin {

namespace {

/// A stored number as the sheet counts; codes of special places become 1.
int counted(qint64 number)
{
    constexpr qint64 largest = 9999;
    return static_cast<int>(qBound(qint64(1), number, largest));
}

} // namespace

SortFreeformSheetController::SortFreeformSheetController(const SubsetSortCriteriaData &criteria,
                                                         const QStringList &titles)
    : SortSheetController(criteria)
    , g_kindItems{{tr("Name"), codeOf(SortKind::FreeformName)},
                  {tr("Word"), codeOf(SortKind::FreeformWord)},
                  {tr("Postal Code"), codeOf(SortKind::PostalCode)},
                  {tr("Whole Text"), codeOf(SortKind::FreeformText)}}
    , g_nameLineItems{{tr("Line"), 0},
                      {tr("Last Line of the Text"), SortPlace::lastLineOfText},
                      {tr("Last Line of the Address Block"), SortPlace::lastLineOfAddress}}
    , g_wordLineOffsetItems{{tr("From the Start of the Text"), SortPlace::fromStartOfText},
                            {tr("From the End of the Text"), SortPlace::fromEndOfText},
                            {tr("From the Start of the Address Block"), SortPlace::fromStartOfAddress},
                            {tr("From the End of the Address Block"), SortPlace::fromEndOfAddress}}
    , g_kind(indexOfCode(g_kindItems, criteria.compareSelector()))
    , g_nameLine(indexOfCode(g_nameLineItems, criteria.nameLineNumber()))
    , g_nameLineNumber(counted(criteria.nameLineNumber()))
    , g_wordLineOffset(indexOfCode(g_wordLineOffsetItems, criteria.wordLineOffset()))
    , g_wordLineNumber(counted(criteria.wordLineNumber()))
    , g_isLastWord(criteria.wordNumber() == SortPlace::lastWord)
    , g_wordNumber(counted(criteria.wordNumber()))
    , g_titlesText(titles.join(u'\n'))
{}

bool SortFreeformSheetController::isName() const
{
    return g_kindItems.at(g_kind).code == codeOf(SortKind::FreeformName);
}

bool SortFreeformSheetController::isWord() const
{
    return g_kindItems.at(g_kind).code == codeOf(SortKind::FreeformWord);
}

void SortFreeformSheetController::handleKindClick(qsizetype index)
{
    choose(g_kind, index);
}

void SortFreeformSheetController::handleNameLineClick(qsizetype index)
{
    choose(g_nameLine, index);
}

void SortFreeformSheetController::setNameLineNumber(int number)
{
    choose(g_nameLineNumber, number);
}

void SortFreeformSheetController::handleWordLineOffsetClick(qsizetype index)
{
    choose(g_wordLineOffset, index);
}

void SortFreeformSheetController::setWordLineNumber(int number)
{
    choose(g_wordLineNumber, number);
}

void SortFreeformSheetController::setLastWord(bool last)
{
    choose(g_isLastWord, last);
}

void SortFreeformSheetController::setWordNumber(int number)
{
    choose(g_wordNumber, number);
}

void SortFreeformSheetController::setTitlesText(const QString &text)
{
    choose(g_titlesText, text);
}

QStringList SortFreeformSheetController::titles() const
{
    QStringList titles;
    for (const QString &line : g_titlesText.split(u'\n')) {
        if (const QString title = line.trimmed(); !title.isEmpty())
            titles.append(title);
    }
    return titles;
}

QString SortFreeformSheetController::problem() const
{
    return isName() && titles().isEmpty() ? tr("The title list cannot be empty.") : QString();
}

SubsetSortCriteriaData SortFreeformSheetController::criteria() const
{
    SubsetSortCriteriaData chosen = SortSheetController::criteria();
    chosen.setCompareSelector(g_kindItems.at(g_kind).code);
    const qint64 specialLine = g_nameLineItems.at(g_nameLine).code;
    chosen.setNameLineNumber(specialLine == 0 ? g_nameLineNumber : specialLine);
    chosen.setWordLineOffset(g_wordLineOffsetItems.at(g_wordLineOffset).code);
    chosen.setWordLineNumber(g_wordLineNumber);
    chosen.setWordNumber(g_isLastWord ? SortPlace::lastWord : g_wordNumber);
    return chosen;
}

} // namespace tavrin
