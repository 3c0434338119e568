// SPDX-FileCopyrightText: The Tavrin authors
// SPDX-License-Identifier: MIT

#pragma once

#include "editor/QVSheetController.h"

#include <QString>

namespace tavrin {

/// Under which name to keep a way of sorting.
class SortTaskNameSheetController : public QVSheetController
{
    Q_OBJECT

public:
    /// `description` says in words what is kept.
    SortTaskNameSheetController(QString description, QString name)
        : g_description(std::move(description))
        , g_name(std::move(name))
    {}

    QString description() const { return g_description; }

    /// As typed.
    QString entry() const { return g_name; }
    void setEntry(const QString &entry)
    {
        g_name = entry;
        Q_EMIT changed();
    }
    QString name() const { return g_name.trimmed(); }
    bool isAcceptable() const override { return !name().isEmpty(); }

private:
    QString g_description;
    QString g_name;
};

} // namespace tavrin
