// SPDX-FileCopyrightText: The Tavrin authors
// SPDX-License-Identifier: MIT

#pragma once

#include "editor/QVSheetController.h"

#include <QList>
#include <QString>

namespace tavrin {

/// Asks for one line of text.
class TextSheetController : public QVSheetController
{
    Q_OBJECT

public:
    TextSheetController(const QString &title, const QString &label, const QString &text)
        : g_title(title)
        , g_label(label)
        , g_text(text)
    {}

    QString title() const { return g_title; }
    QString label() const { return g_label; }
    QString text() const { return g_text; }
    void setText(const QString &text)
    {
        g_text = text;
        Q_EMIT changed();
    }
    void setMayBeEmpty(bool mayBeEmpty) { g_mayBeEmpty = mayBeEmpty; }
    bool isAcceptable() const override { return g_mayBeEmpty || !g_text.trimmed().isEmpty(); }

private:
    QString g_title;
    QString g_label;
    QString g_text;
    bool g_mayBeEmpty = false;
};

/// Asks for a few numbers.
class NumbersSheetController : public QVSheetController
{
    Q_OBJECT

public:
    struct Number
    {
        QString label;
        double value = 0;
        double least = 0;
        double most = 0;
        int decimals = 0;
        QString unit = {};
    };

    NumbersSheetController(const QString &title, const QString &acceptLabel, const QList<Number> &numbers)
        : g_title(title)
        , g_acceptLabel(acceptLabel)
        , g_numbers(numbers)
    {}

    QString title() const { return g_title; }
    QString acceptLabel() const { return g_acceptLabel; }
    const QList<Number> &numbers() const { return g_numbers; }
    double value(qsizetype index) const { return g_numbers.at(index).value; }
    void setValue(qsizetype index, double value) { g_numbers[index].value = value; }

private:
    QString g_title;
    QString g_acceptLabel;
    QList<Number> g_numbers;
};

} // namespace tavrin
