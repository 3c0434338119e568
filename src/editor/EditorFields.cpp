// SPDX-FileCopyrightText: The Tavrin authors
// SPDX-License-Identifier: MIT

// Asking, doing and telling for all commands on what fields hold; and the fields themselves.

#include "editor/EditorFields.h"

#include "base/FilledIn.h"
#include "document/FieldOperations.h"
#include "editor/AlertSheetController.h"
#include "editor/ContentLongWork.h"
#include "editor/ContentLook.h"
#include "editor/EditorChanges.h"
#include "editor/EditorWindowController.h"
#include "editor/FormPreview.h"
#include "editor/ModifyFieldsSheetController.h"

#include <algorithm>
#include <utility>

namespace tavrin {

using namespace Qt::StringLiterals;

namespace {

/// Counting how many records hold something in each field.
class FieldUseWork : public LongWork
{
public:
    explicit FieldUseWork(const DatafileDocument &document) : g_use(document) {}

    QString title() const override { return EditorFields::tr("Looking at the fields…"); }
    void run(Progress &progress) override { g_use.run(progress); }
    const FieldUse &use() const { return g_use; }

private:
    FieldUse g_use;
};

/// Looking for what stands in fields that are to be deleted.
class FieldContentsWork : public LongWork
{
public:
    FieldContentsWork(const DatafileDocument &document, const QStringList &fields, QString title)
        : g_contents(document, fields)
        , g_title(std::move(title))
    {}

    QString title() const override { return g_title; }
    void run(Progress &progress) override { g_contents.run(progress); }
    FieldContents &contents() { return g_contents; }

private:
    FieldContents g_contents;
    QString g_title;
};

} // namespace

EditorFields::EditorFields(EditorWindowController &window, SheetHost &sheets, WorkHost &work)
    : g_window(window)
    , g_sheets(sheets)
    , g_work(work)
{}

EditorFields::~EditorFields() = default;

QList<CodedItem> EditorFields::fieldItems() const
{
    QList<CodedItem> items;
    for (const FieldDefinition &field : g_window.document().datafileSettings().fields()) {
        // Without an identifier there is nothing under which contents could stand.
        if (!field.identifier().isEmpty())
            items.append({field.name(), 0, field.identifier()});
    }
    return items;
}

QList<CodedItem> EditorFields::contentItems() const
{
    QList<CodedItem> items = fieldItems();
    items.append({g_window.textName(), 0, u"Text"_s});
    return items;
}

// Asking, doing, telling.

void EditorFields::ask(std::unique_ptr<FormSheetController> form,
                       const MakeContentWork &make,
                       const Tell &tell,
                       const Tell &summary)
{
    if (!g_window.leaveEditingToChange())
        return;
    g_preview =
        std::make_unique<FormPreview>(*form, [this, make, summary]() -> std::shared_ptr<FormPreview::Look> {
            return std::make_shared<ContentLook>(make(), g_window.document(), summary);
        });
    const QString title = form->title();
    connect(form.get(), &QVSheetController::finished, this, [this, make, tell, title](int code) {
        g_preview.reset();
        if (code == QVSheetController::FirstButton)
            begin(title, make, tell);
    });
    g_sheets.begin(std::move(form));
}

void EditorFields::begin(const QString &title, const MakeContentWork &make, const Tell &tell)
{
    if (!g_window.leaveEditing())
        return;
    beginContentWork(
        g_window, g_work, title + u'…', make, [this, tell](const ContentWork &work, bool changed) {
            g_window.loadCurrentRecord();
            report(tell(work), work, changed);
        });
}

void EditorFields::report(const QString &told, const ContentWork &work, bool changed)
{
    QStringList skipped;
    if (work.lockedRecords() > 0)
        skipped.append(filledIn(tr("Locked records skipped: %lu."), {QString::number(work.lockedRecords())}));
    if (work.leftRecords() > 0)
        skipped.append(
            filledIn(tr("Records left as they were, because formatting or a picture in their text would have "
                        "been lost: %lu."),
                     {QString::number(work.leftRecords())}));
    if (changed && skipped.isEmpty())
        Q_EMIT g_window.statusMessage(told);
    else
        showAlert(g_sheets, told, skipped.join(u'\n'));
}

bool EditorFields::hasFields()
{
    if (!fieldItems().isEmpty())
        return true;
    showAlert(g_sheets,
              tr("This datafile has no fields."),
              tr("Add one with Modify Fields in the Fields menu first."));
    return false;
}

// The fields themselves.

void EditorFields::modifyFields()
{
    showModifyFields([](ModifyFieldsSheetController &) {});
}

void EditorFields::showModifyFields(const std::function<void(ModifyFieldsSheetController &)> &fill)
{
    if (!g_window.leaveEditingToChange())
        return;
    auto work = std::make_unique<FieldUseWork>(g_window.document());
    connect(work.get(), &LongWork::ended, this, [this, fill, work = work.get()] {
        // Without the numbers nobody would be asked before contents are deleted.
        if (work->use().wasCancelled())
            return;
        const DatafileDocument &document = g_window.document();
        auto sheet =
            std::make_unique<ModifyFieldsSheetController>(document.datafileSettings().fields(),
                                                          g_window.textName(),
                                                          work->use().counts(),
                                                          document.services().environment.identifier);
        fill(*sheet);
        const auto accepted = [this, sheet = sheet.get(), locked = work->use().lockedCounts()](int code) {
            if (code == QVSheetController::FirstButton)
                acceptFields(*sheet, locked);
        };
        connect(sheet.get(), &QVSheetController::finished, this, accepted);
        g_sheets.begin(std::move(sheet));
    });
    g_work.begin(std::move(work));
}

void EditorFields::acceptFields(const ModifyFieldsSheetController &sheet,
                                const QHash<QString, qint64> &locked)
{
    const QList<FieldDefinition> fields = sheet.fields();
    const QString textName = sheet.textName();
    QList<DeletedField> deleted;
    for (const FieldDefinition &field : g_window.document().datafileSettings().fields()) {
        const bool stays = std::ranges::any_of(fields, [&field](const FieldDefinition &other) {
            return other.identifier() == field.identifier();
        });
        if (stays || sheet.use().value(field.identifier()) == 0)
            continue;
        deleted.append(
            {field.name(), sheet.use().value(field.identifier()), locked.value(field.identifier())});
    }
    askToDelete(deleted, [this, fields, textName](bool agreed) {
        if (!agreed) {
            showModifyFields(
                [fields, textName](ModifyFieldsSheetController &again) { again.goOnWith(fields, textName); });
            return;
        }
        const bool areOther = g_window.document().datafileSettings().fields() != fields;
        setFields({fields, textName, tr("Modify Fields"), areOther});
    });
}

void EditorFields::setFields(const NewFields &wanted)
{
    if (!g_window.leaveEditing())
        return;
    const FieldOperations operations(g_window.document());
    auto work = std::make_unique<FieldContentsWork>(
        g_window.document(), operations.removedBy(wanted.fields), wanted.undoName + u'…');
    connect(work.get(), &LongWork::ended, this, [this, wanted, work = work.get()] {
        if (work->contents().wasCancelled() || !g_window.leaveEditing())
            return;
        if (work->contents().isStale())
            setFields(wanted); // With the records as they are now.
        else
            changeFields(wanted, work->contents());
    });
    g_work.begin(std::move(work));
}

void EditorFields::changeFields(const NewFields &wanted, FieldContents &contents)
{
    std::unique_ptr<SteppedChange> change =
        FieldOperations(g_window.document())
            .changeTo(wanted.fields, wanted.textName, contents.takeContents(), wanted.undoName);
    if (!change)
        return;
    g_window.changes().make(std::move(change), [this, concernsPartner = wanted.concernsPartner](bool made) {
        g_window.loadCurrentRecord();
        if (made && concernsPartner)
            tellPartner();
    });
}

void EditorFields::tellPartner()
{
    if (!g_window.document().datafileSettings().syncID().isEmpty())
        showAlert(g_sheets,
                  tr("This datafile is synchronized with another copy."),
                  tr("Change the fields of the other copy in the same way before they are synchronized "
                     "again."));
}

/// One field after the other, until one is to stay.
void EditorFields::askToDelete(QList<DeletedField> fields, const std::function<void(bool agreed)> &answered)
{
    if (fields.isEmpty()) {
        answered(true);
        return;
    }
    const DeletedField field = fields.takeFirst();
    QString consequence =
        filledIn(tr("%lu record(s) have contents in this field. The contents will be deleted as well."),
                 {QString::number(field.records)});
    if (field.locked > 0)
        consequence += u'\n' + filledIn(tr("Locked ones among them: %lu."), {QString::number(field.locked)});
    auto alert =
        std::make_unique<AlertSheetController>(filledIn(tr("Delete the field \"%@\"?"), {field.name}),
                                               consequence,
                                               QStringList{tr("Delete"), tr("Cancel")});
    alert->setDestructiveButton(0);
    connect(alert.get(), &QVSheetController::finished, this, [this, fields, answered](int code) {
        if (code == QVSheetController::FirstButton)
            askToDelete(fields, answered);
        else
            answered(false);
    });
    g_sheets.begin(std::move(alert));
}

void EditorFields::setVisible()
{
    if (!g_window.leaveEditingToChange())
        return;
    auto form = std::make_unique<FormSheetController>(tr("Show Fields as Columns"), tr("&Show"));
    const QList<FieldDefinition> fields = g_window.document().datafileSettings().fields();
    for (const FieldDefinition &field : fields)
        form->addCheck(field.name(), field.show());
    connect(form.get(), &QVSheetController::finished, this, [this, fields, form = form.get()](int code) {
        if (code != QVSheetController::FirstButton)
            return;
        QList<FieldDefinition> changed = fields;
        for (qsizetype i = 0; i < changed.size(); ++i) {
            if (changed[i].show() != form->isOn(i))
                changed[i].setShow(form->isOn(i));
        }
        setFields({changed, {}, tr("Show Fields"), false});
    });
    g_sheets.begin(std::move(form));
}

} // namespace tavrin
