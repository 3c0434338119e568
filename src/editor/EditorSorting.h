// SPDX-FileCopyrightText: The Tavrin authors
// SPDX-License-Identifier: MIT

#pragma once

#include "sorting/SubsetSortCriteriaData.h"

#include <QObject>
#include <QStringList>

#include <functional>
#include <memory>

namespace tavrin {

class EditorWindowController;
class Preferences;
class SheetHost;
class SortPreview;
class SortSheetController;
class WorkHost;
enum class SortKind : qint64;
struct SortRefusal;

/// Sorting as an editor window offers it: the questions, the sort tasks, and the sort itself, which is done
/// on another thread, can be cancelled and can be undone.
///
/// All records are sorted, omitted ones too, and the current record stays current.
class EditorSorting : public QObject
{
    Q_OBJECT

public:
    EditorSorting(EditorWindowController &window,
                  SheetHost &sheets,
                  WorkHost &work,
                  Preferences &preferences);
    ~EditorSorting() override;

    // Asking how.
    void sortByFields();
    void sortByFreeformText();

    // At once, ascending.
    void sortDatafileByWholeRecord();
    void sortByCreatedDate();
    void sortByModifiedDate();
    /// By the content of a List View column, as text.
    void sortByColumn(int column, bool descending);

    // Sort tasks.
    QStringList sortTaskNames() const;
    void runSortTask(const QString &name);
    /// There is a sort that was done last.
    bool hasSorted() const;
    /// Keeps the sort that was done last under a name.
    void saveSortTask();
    void editSortTasks();

private:
    /// Whether agreeing throws something away.
    enum class Loses { Nothing, Something };

    SubsetSortCriteriaData storedCriteria() const;
    void ask(std::unique_ptr<SortSheetController> sheet);
    void sortByKind(SortKind kind);
    void sortUnlessCustom(const SubsetSortCriteriaData &criteria, const QStringList &titles = {});
    void sort(const SubsetSortCriteriaData &criteria);
    void tellUnreadableDate(const SortRefusal &refusal);
    void storeSortTask(const QString &name, SortCriteriaData criteria);
    void storeSortTasks(const plist::Dictionary &tasks);
    /// Asks with that button and Cancel.
    void askFirst(const QString &message,
                  const QString &informativeText,
                  const QString &button,
                  const std::function<void()> &agreed,
                  Loses loses = Loses::Nothing);

    EditorWindowController &g_window;
    SheetHost &g_sheets;
    WorkHost &g_work;
    Preferences &g_preferences;
    std::unique_ptr<SortPreview> g_preview;
};

} // namespace tavrin
