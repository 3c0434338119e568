// SPDX-FileCopyrightText: The Tavrin authors
// SPDX-License-Identifier: MIT

#include "ui/TextMarks.h"

namespace tavrin {

void TextMarks::setMarks(const QString &kind, const QList<QTextEdit::ExtraSelection> &marks)
{
    if (marks.isEmpty() && g_marks.value(kind).isEmpty())
        return;
    g_marks[kind] = marks;
    QList<QTextEdit::ExtraSelection> all;
    for (const auto &ofKind : std::as_const(g_marks))
        all += ofKind;
    g_text.setExtraSelections(all);
}

} // namespace tavrin
