// SPDX-FileCopyrightText: The Tavrin authors
// SPDX-License-Identifier: MIT

#pragma once

#include "editor/CodedItem.h"

namespace tavrin {

/// One condition of the Select Records sheet. What it treats as what, and how it compares, follows from what
/// it is based on: every choice rebuilds the lists below it and keeps the item of the same name where the new
/// list has one.
class SelectionCondition
{
public:
    /// Indices into the lists; the first item of each when nothing was chosen yet.
    explicit SelectionCondition(QList<CodedItem> basedOnItems);

    /// Takes over stored codes; what no list offers becomes the first item.
    void
    setCodes(qint64 basedOn, const QString &identifier, qint64 treatAs, qint64 where, const QString &value);

    const QList<CodedItem> &basedOnItems() const { return g_basedOnItems; }
    const QList<CodedItem> &treatAsItems() const { return g_treatAsItems; }
    const QList<CodedItem> &whereItems() const { return g_whereItems; }

    qsizetype basedOn() const { return g_basedOn; }
    qsizetype treatAs() const { return g_treatAs; }
    qsizetype where() const { return g_where; }
    const CodedItem &basedOnItem() const { return g_basedOnItems.at(g_basedOn); }
    const CodedItem &treatAsItem() const { return g_treatAsItems.at(g_treatAs); }
    const CodedItem &whereItem() const { return g_whereItems.at(g_where); }
    /// As typed.
    const QString &value() const { return g_value; }

    void chooseBasedOn(qsizetype index);
    void chooseTreatAs(qsizetype index);
    /// "Is Empty" and "Is Not Empty" clear the value.
    void chooseWhere(qsizetype index);
    void setValue(const QString &value) { g_value = value; }

    /// The operator compares with a value.
    bool takesValue() const;
    bool isComplete() const { return !takesValue() || !g_value.isEmpty(); }

private:
    void rebuildTreatAs();
    void rebuildWhere();

    QList<CodedItem> g_basedOnItems;
    QList<CodedItem> g_treatAsItems;
    QList<CodedItem> g_whereItems;
    qsizetype g_basedOn = 0;
    qsizetype g_treatAs = 0;
    qsizetype g_where = 0;
    QString g_value;
};

} // namespace tavrin
