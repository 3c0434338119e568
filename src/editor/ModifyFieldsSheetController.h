// SPDX-FileCopyrightText: The Tavrin authors
// SPDX-License-Identifier: MIT

#pragma once

#include "editor/QVSheetController.h"
#include "model/FieldDefinition.h"

#include <QHash>
#include <QStringList>

#include <functional>

namespace tavrin {

/// The fields of a datafile, to be added, renamed, ordered, shown, hidden and deleted. Nothing is stored
/// before it is accepted.
class ModifyFieldsSheetController : public QVSheetController
{
    Q_OBJECT

public:
    using MakeIdentifier = std::function<QString()>;

    /// `use`: how many records hold something in a field, by its identifier.
    ModifyFieldsSheetController(const QList<FieldDefinition> &fields,
                                const QString &textName,
                                const QHash<QString, qint64> &use,
                                MakeIdentifier makeIdentifier);

    const QList<FieldDefinition> &fields() const { return g_fields; }
    QString textName() const { return g_textName; }
    qint64 useOf(qsizetype index) const { return g_use.value(g_fields.at(index).identifier()); }
    const QHash<QString, qint64> &use() const { return g_use; }
    /// Why it cannot be accepted; null when it can.
    QString problem() const;
    /// What the person should know of; null when nothing.
    QString note() const;
    bool isAcceptable() const override { return problem().isNull(); }

    /// The index of the new field, which is the last.
    qsizetype addField(const QString &name = {});
    void deleteField(qsizetype index);
    void renameField(qsizetype index, const QString &name);
    void setShown(qsizetype index, bool shown);
    /// The index counts without the field that moves.
    void moveField(qsizetype from, qsizetype to);
    void setTextName(const QString &name);
    /// Adds the names of another datafile's fields that are not here yet. Why not; null when it was read.
    QString addNamesOf(const QString &path);
    /// Goes on with what was filled in before.
    void goOnWith(const QList<FieldDefinition> &fields, const QString &textName);

private:
    QList<FieldDefinition> g_fields;
    QString g_textName;
    QHash<QString, qint64> g_use;
    MakeIdentifier g_makeIdentifier;
};

} // namespace tavrin
