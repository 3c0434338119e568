// SPDX-FileCopyrightText: The Tavrin authors
// SPDX-License-Identifier: MIT

#pragma once

#include "editor/QVSheetController.h"
#include "plist/Value.h"

#include <QStringList>

#include <functional>

namespace tavrin {

/// The sort tasks of a datafile, to be renamed, duplicated and deleted. Nothing is stored before it is
/// accepted.
class SortTasksSheetController : public QVSheetController
{
    Q_OBJECT

public:
    /// Says in words what a task's stored criteria mean.
    using Describe = std::function<QString(const plist::Dictionary &criteria)>;

    /// `lastSort`: the criteria that a task can be given in place of its own.
    SortTasksSheetController(const plist::Dictionary &tasks, plist::Dictionary lastSort, Describe describe);

    qsizetype count() const { return g_tasks.size(); }
    QString nameAt(qsizetype index) const { return g_tasks.at(index).name; }
    QString descriptionAt(qsizetype index) const;

    /// Why a task cannot have the name; empty when it can.
    QString renameProblem(qsizetype index, const QString &name) const;
    /// False, and nothing changes, when there is a problem.
    bool renameTask(qsizetype index, const QString &name);
    void useLastSort(qsizetype index);
    /// The index of the copy, which stands behind its original under a name of its own.
    qsizetype duplicateTask(qsizetype index);
    void deleteTask(qsizetype index);

    /// What is to be stored.
    plist::Dictionary tasks() const;

private:
    struct Task
    {
        QString name;
        plist::Value criteria;
    };

    bool hasName(const QString &name) const;

    QList<Task> g_tasks;
    plist::Dictionary g_lastSort;
    Describe g_describe;
};

} // namespace tavrin
