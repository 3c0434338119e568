// SPDX-FileCopyrightText: The Tavrin authors
// SPDX-License-Identifier: MIT

#include "editor/FormSheetController.h"

namespace tavrin {

FormSheetController::FormSheetController(const QString &title, const QString &acceptLabel, bool hasPreview)
    : g_title(title)
    , g_acceptLabel(acceptLabel)
    , g_hasPreview(hasPreview)
{}

qsizetype
FormSheetController::addChoice(const QString &label, const QList<CodedItem> &items, qsizetype chosen)
{
    g_rows.append({.kind = Row::Kind::Choice, .label = label, .items = items, .chosen = chosen});
    return g_rows.size() - 1;
}

qsizetype FormSheetController::addText(const QString &label, const QString &text)
{
    g_rows.append({.kind = Row::Kind::Text, .label = label, .text = text});
    return g_rows.size() - 1;
}

qsizetype FormSheetController::addCheck(const QString &label, bool isOn)
{
    g_rows.append({.kind = Row::Kind::Check, .label = label, .isOn = isOn});
    return g_rows.size() - 1;
}

void FormSheetController::setJudge(const Judge &judge)
{
    g_judge = judge;
    g_problem = g_judge(*this);
}

void FormSheetController::choose(qsizetype row, qsizetype index)
{
    g_rows[row].chosen = qBound<qsizetype>(0, index, g_rows[row].items.size() - 1);
    tell();
}

void FormSheetController::setText(qsizetype row, const QString &text)
{
    g_rows[row].text = text;
    tell();
}

void FormSheetController::setOn(qsizetype row, bool isOn)
{
    g_rows[row].isOn = isOn;
    tell();
}

void FormSheetController::tell()
{
    if (g_judge)
        g_problem = g_judge(*this);
    Q_EMIT changed();
    Q_EMIT edited();
}

void FormSheetController::setPreview(const Preview &preview)
{
    g_preview = preview;
    Q_EMIT previewChanged();
}

} // namespace tavrin
