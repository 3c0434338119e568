// SPDX-FileCopyrightText: The Tavrin authors
// SPDX-License-Identifier: MIT

#pragma once

#include <QMap>
#include <QObject>
#include <QTextEdit>

namespace tavrin {

/// What is drawn over a text and is no part of it: marks of spelling, of what was found. Each kind has its
/// own name and is replaced whole; kinds that come later in the alphabet are drawn over the others.
class TextMarks : public QObject
{
    Q_OBJECT

public:
    explicit TextMarks(QTextEdit &text) : QObject(&text), g_text(text) {}

    void setMarks(const QString &kind, const QList<QTextEdit::ExtraSelection> &marks);

private:
    QTextEdit &g_text;
    QMap<QString, QList<QTextEdit::ExtraSelection>> g_marks;
};

} // namespace tavrin
