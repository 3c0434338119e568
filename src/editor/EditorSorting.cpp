// SPDX-FileCopyrightText: The Tavrin authors
// SPDX-License-Identifier: MIT

#include "editor/EditorSorting.h"

#include "base/FilledIn.h"
#include "document/RecordSorting.h"
#include "document/UndoHistory.h"
#include "editor/AlertSheetController.h"
#include "editor/EditorTableController.h"
#include "editor/EditorWindowController.h"
#include "editor/ListTableModel.h"
#include "editor/LongWork.h"
#include "editor/SortDescription.h"
#include "editor/SortFieldsSheetController.h"
#include "editor/SortFreeformSheetController.h"
#include "editor/SortPreview.h"
#include "editor/SortTaskNameSheetController.h"
#include "editor/SortTasksSheetController.h"
#include "model/Preferences.h"
#include "sorting/SortKind.h"

#include <utility>

namespace tavrin {

using namespace Qt::StringLiterals;

namespace {

/// Finding the new order.
class SortingWork : public LongWork
{
public:
    SortingWork(const DatafileDocument &document, const SortCriteriaData &criteria)
        : g_sorting(document, criteria)
    {}

    QString title() const override { return EditorSorting::tr("Sorting records…"); }
    void run(Progress &progress) override { g_sorting.run(progress); }
    const RecordSorting &sorting() const { return g_sorting; }

private:
    RecordSorting g_sorting;
};

} // namespace

EditorSorting::EditorSorting(EditorWindowController &window,
                             SheetHost &sheets,
                             WorkHost &work,
                             Preferences &preferences)
    : g_window(window)
    , g_sheets(sheets)
    , g_work(work)
    , g_preferences(preferences)
{}

EditorSorting::~EditorSorting() = default;

SubsetSortCriteriaData EditorSorting::storedCriteria() const
{
    return g_window.document().datafileSettings().criteria<SubsetSortCriteriaData>();
}

// Asking how.

void EditorSorting::sortByFields()
{
    const DatafileSettingsData &settings = g_window.document().datafileSettings();
    ask(std::make_unique<SortFieldsSheetController>(
        storedCriteria(), settings.fields(), settings.textName()));
}

void EditorSorting::sortByFreeformText()
{
    ask(std::make_unique<SortFreeformSheetController>(storedCriteria(), sortTitleList(&g_preferences)));
}

void EditorSorting::ask(std::unique_ptr<SortSheetController> sheet)
{
    if (!g_window.leaveEditing())
        return;
    g_preview = std::make_unique<SortPreview>(g_window.document(), *sheet);
    connect(sheet.get(), &QVSheetController::finished, this, [this, sheet = sheet.get()](int code) {
        g_preview.reset();
        if (code != QVSheetController::FirstButton)
            return;
        sortUnlessCustom(sheet->criteria(), sheet->titles());
    });
    g_sheets.begin(std::move(sheet));
}

void EditorSorting::sortByKind(SortKind kind)
{
    // The rest stays as it was chosen last, for the sheets.
    SubsetSortCriteriaData criteria = storedCriteria();
    criteria.setCompareSelector(codeOf(kind));
    criteria.setDescending(false);
    sortUnlessCustom(criteria);
}

void EditorSorting::sortDatafileByWholeRecord()
{
    sortByKind(SortKind::AllFields);
}

void EditorSorting::sortByCreatedDate()
{
    sortByKind(SortKind::CreatedDate);
}

void EditorSorting::sortByModifiedDate()
{
    sortByKind(SortKind::ModifiedDate);
}

void EditorSorting::sortByColumn(int column, bool descending)
{
    const ListTableModel &list = g_window.tableController().listTableModel();
    SubsetSortCriteriaData criteria = storedCriteria();
    criteria.setCompareSelector(codeOf(SortKind::Text));
    criteria.setPrimaryFieldIdentifier(u"Text"_s);
    criteria.setSecondaryFieldIdentifier({});
    if (!list.isTextColumn(column)) {
        const QList<FieldDefinition> &fields = g_window.document().datafileSettings().fields();
        criteria.setPrimaryFieldIdentifier(fields.at(list.shownFields().at(column)).identifier());
    }
    criteria.setDescending(descending);
    sortUnlessCustom(criteria);
}

// Sorting.

void EditorSorting::sortUnlessCustom(const SubsetSortCriteriaData &criteria, const QStringList &titles)
{
    const auto begin = [this, criteria, titles] {
        if (!titles.isEmpty())
            setSortTitleList(titles, g_preferences);
        sort(criteria);
    };
    if (!g_window.document().datafileSettings().customSorting()) {
        begin();
        return;
    }
    askFirst(tr("This datafile uses custom sorting."),
             tr("Sorting replaces the order you have made. Continue?"),
             tr("Sort"),
             begin);
}

void EditorSorting::sort(const SubsetSortCriteriaData &criteria)
{
    if (!g_window.leaveEditing())
        return;
    auto work = std::make_unique<SortingWork>(g_window.document(), criteria.sortCriteria());
    connect(work.get(), &LongWork::ended, this, [this, work = work.get(), criteria] {
        // What was typed since the work began is stored before the record is shown anew.
        g_window.leaveEditing();
        auto sorted = work->sorting().apply(g_window.document());
        if (sorted) {
            g_window.document().undoHistory().push(*std::move(sorted));
            g_window.loadCurrentRecord();
        } else if (sorted.error().error.kind == Error::Kind::Refused) {
            sort(criteria); // The records as they are now.
        } else if (sorted.error().error.kind != Error::Kind::Cancelled) {
            tellUnreadableDate(sorted.error());
        }
    });
    g_work.begin(std::move(work));
}

void EditorSorting::tellUnreadableDate(const SortRefusal &refusal)
{
    askFirst(refusal.error.message,
             refusal.informativeText,
             tr("Show Record"),
             [this, identifier = refusal.identifier] { g_window.showRecord(identifier); });
}

// Sort tasks.

QStringList EditorSorting::sortTaskNames() const
{
    return g_window.document().datafileSettings().sortTasksList().keys();
}

bool EditorSorting::hasSorted() const
{
    return storedCriteria().settingExistsForKey(u"SortCompareSelector"_s);
}

void EditorSorting::runSortTask(const QString &name)
{
    const DatafileSettingsData &settings = g_window.document().datafileSettings();
    const plist::Value task = settings.sortTasksList().value(name);
    const auto criteria =
        task.dictionary() ? SubsetSortCriteriaData::criteriaWithDictionary(*task.dictionary()) : std::nullopt;
    if (!criteria) {
        showAlert(g_sheets,
                  tr("This sort task cannot be read."),
                  tr("A newer version may have made it. Edit the task or delete it."));
        return;
    }
    if (sortsByLostField(*criteria, settings)) {
        showAlert(g_sheets,
                  tr("This sort task uses a field that no longer exists."),
                  tr("Edit the task or delete it."));
        return;
    }
    sortUnlessCustom(*criteria);
}

void EditorSorting::saveSortTask()
{
    const SortCriteriaData criteria = storedCriteria().sortCriteria();
    const QString description = sortDescription(criteria, g_window.document().datafileSettings());
    auto sheet = std::make_unique<SortTaskNameSheetController>(description, description);
    connect(sheet.get(), &QVSheetController::finished, this, [this, criteria, sheet = sheet.get()](int code) {
        if (code != QVSheetController::FirstButton)
            return;
        const QString name = sheet->name();
        if (!sortTaskNames().contains(name)) {
            storeSortTask(name, criteria);
            return;
        }
        askFirst(
            filledIn(tr("Replace the sort task \"%@\"?"), {name}),
            {},
            tr("Replace"),
            [this, name, criteria] { storeSortTask(name, criteria); },
            Loses::Something);
    });
    g_sheets.begin(std::move(sheet));
}

void EditorSorting::storeSortTask(const QString &name, SortCriteriaData criteria)
{
    plist::Dictionary tasks = g_window.document().datafileSettings().sortTasksList();
    tasks.insert(name, criteria.dictionary());
    storeSortTasks(tasks);
}

void EditorSorting::storeSortTasks(const plist::Dictionary &tasks)
{
    DatafileSettingsData &settings = g_window.document().datafileSettings();
    if (settings.sortTasksList() == tasks && settings.sortTasksList().keys() == tasks.keys())
        return;
    settings.setSortTasksList(tasks);
    settings.setDatafileSettingsDidChange(true);
    g_window.setDatafileChanged();
    Q_EMIT g_window.operationsChanged();
}

void EditorSorting::editSortTasks()
{
    const DatafileSettingsData &settings = g_window.document().datafileSettings();
    auto sheet = std::make_unique<SortTasksSheetController>(
        settings.sortTasksList(),
        storedCriteria().sortCriteria().dictionary(),
        [this](const plist::Dictionary &task) {
            const auto criteria = SortCriteriaData::criteriaWithDictionary(task);
            return criteria ? sortDescription(*criteria, g_window.document().datafileSettings()) : QString();
        });
    connect(sheet.get(), &QVSheetController::finished, this, [this, sheet = sheet.get()](int code) {
        if (code == QVSheetController::FirstButton)
            storeSortTasks(sheet->tasks());
    });
    g_sheets.begin(std::move(sheet));
}

void EditorSorting::askFirst(const QString &message,
                             const QString &informativeText,
                             const QString &button,
                             const std::function<void()> &agreed,
                             Loses loses)
{
    auto alert =
        std::make_unique<AlertSheetController>(message, informativeText, QStringList{button, tr("Cancel")});
    if (loses == Loses::Something)
        alert->setDestructiveButton(0);
    connect(alert.get(), &QVSheetController::finished, this, [agreed](int code) {
        if (code == QVSheetController::FirstButton)
            agreed();
    });
    g_sheets.begin(std::move(alert));
}

} // namespace tavrin
