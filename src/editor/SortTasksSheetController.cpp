// SPDX-FileCopyrightText: The Tavrin authors
// SPDX-License-Identifier: MIT

#include "editor/SortTasksSheetController.h"

#include <algorithm>

namespace tavrin {

SortTasksSheetController::SortTasksSheetController(const plist::Dictionary &tasks,
                                                   plist::Dictionary lastSort,
                                                   Describe describe)
    : g_lastSort(std::move(lastSort))
    , g_describe(std::move(describe))
{
    tasks.forEach([this](const QString &name, const plist::Value &criteria) {
        g_tasks.append({name, criteria});
    });
}

QString SortTasksSheetController::descriptionAt(qsizetype index) const
{
    const plist::Dictionary *criteria = g_tasks.at(index).criteria.dictionary();
    return criteria ? g_describe(*criteria) : QString();
}

QString SortTasksSheetController::renameProblem(qsizetype index, const QString &name) const
{
    const QString wanted = name.trimmed();
    if (wanted.isEmpty())
        return tr("A sort task must have a name.");
    return wanted != nameAt(index) && hasName(wanted) ? tr("There is another sort task of that name.")
                                                      : QString();
}

void SortTasksSheetController::useLastSort(qsizetype index)
{
    g_tasks[index].criteria = g_lastSort;
    Q_EMIT changed();
}

bool SortTasksSheetController::renameTask(qsizetype index, const QString &name)
{
    const QString wanted = name.trimmed();
    if (!renameProblem(index, name).isEmpty())
        return false;
    g_tasks[index].name = wanted;
    Q_EMIT changed();
    return true;
}

qsizetype SortTasksSheetController::duplicateTask(qsizetype index)
{
    Task copy = g_tasks.at(index);
    const QString original = copy.name;
    copy.name = tr("%1 copy").arg(original);
    for (int number = 2; hasName(copy.name); ++number)
        copy.name = tr("%1 copy %2").arg(original).arg(number);
    g_tasks.insert(index + 1, copy);
    Q_EMIT changed();
    return index + 1;
}

void SortTasksSheetController::deleteTask(qsizetype index)
{
    g_tasks.removeAt(index);
    Q_EMIT changed();
}

plist::Dictionary SortTasksSheetController::tasks() const
{
    plist::Dictionary tasks;
    for (const Task &task : g_tasks)
        tasks.insert(task.name, task.criteria);
    return tasks;
}

bool SortTasksSheetController::hasName(const QString &name) const
{
    return std::ranges::any_of(g_tasks, [&name](const Task &task) { return task.name == name; });
}

} // namespace tavrin
