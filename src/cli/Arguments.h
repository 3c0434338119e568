// SPDX-FileCopyrightText: The Tavrin authors
// SPDX-License-Identifier: MIT

#pragma once

#include "base/Result.h"

#include <QStringList>

#include <functional>

namespace tavrin {

/// An option that a command takes.
struct Option
{
    QString name;           ///< With its hyphens.
    QString valueName = {}; ///< Empty: the option stands alone.
    QString help = {};
    bool repeatable = false;
    /// How many values it takes of the words that follow it; one when this is empty.
    std::function<qsizetype(const QStringList &following)> valueCount = {};
};

/// What stands behind the command's name, taken apart: options and operands.
///
/// An option's value follows it, or stands behind "=" in the same word. "--" ends the options.
class Arguments
{
public:
    struct Given
    {
        QString option;
        QStringList values;
    };

    /// Refused for an option that is not known, lacks its value or comes too often.
    static Result<Arguments> parse(const QStringList &words, const QList<Option> &options);

    const QStringList &operands() const { return g_operands; }
    QString operand(qsizetype index) const { return g_operands.value(index); }
    bool has(const QString &option) const;
    /// Null when the option was not given.
    QString value(const QString &option) const;
    /// In the order given.
    QStringList values(const QString &option) const;
    /// All options in the order given.
    const QList<Given> &given() const { return g_given; }

private:
    Result<> addOption(const QString &word, QStringList &rest, const QList<Option> &options);

    QList<Given> g_given;
    QStringList g_operands;
};

} // namespace tavrin
