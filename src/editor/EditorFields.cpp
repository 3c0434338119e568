// SPDX-FileCopyrightText: The Tavrin authors
// SPDX-License-Identifier: MIT

// Asking, doing and telling for all commands on what fields hold; and the fields themselves.

#include "editor/EditorFields.h"

#include "base/FilledIn.h"
#include "document/FieldOperations.h"
#include "editor/AlertSheetController.h"
#include "editor/ContentLongWork.h"
#include "editor/ContentLook.h"
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
    const QHash<QString, qint64> &counts() const { return g_use.counts(); }

private:
    FieldUse g_use;
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
                       const MakeWork &make,
                       const Tell &tell,
                       const Tell &summary)
{
    if (!g_window.leaveEditing())
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

void EditorFields::begin(const QString &title, const MakeWork &make, const Tell &tell)
{
    if (!g_window.leaveEditing())
        return;
    auto work = std::make_unique<ContentLongWork>(title + u'…', make());
    connect(work.get(), &LongWork::ended, this, [this, title, make, tell, work = work.get()] {
        finish(title, work->content(), make, tell);
    });
    g_work.begin(std::move(work));
}

void EditorFields::finish(const QString &title, ContentWork &work, const MakeWork &make, const Tell &tell)
{
    // What was typed since the work began is stored before the record is shown anew.
    g_window.leaveEditing();
    const QString told = tell(work);
    const Result<bool> done = work.apply(g_window.document());
    if (!done && done.error().kind == Error::Kind::Refused) {
        begin(title, make, tell); // With the records as they are now.
        return;
    }
    if (!done)
        return;
    g_window.loadCurrentRecord();
    QStringList skipped;
    if (work.lockedRecords() > 0)
        skipped.append(filledIn(tr("Locked records skipped: %lu."), {QString::number(work.lockedRecords())}));
    if (work.leftRecords() > 0)
        skipped.append(
            filledIn(tr("Records left as they were, because formatting or a picture in their text would have "
                        "been lost: %lu."),
                     {QString::number(work.leftRecords())}));
    if (*done && skipped.isEmpty())
        Q_EMIT g_window.statusMessage(told);
    else
        showAlert(g_sheets, told, skipped.join(u'\n'));
}

// The fields themselves.

void EditorFields::modifyFields()
{
    showModifyFields([](ModifyFieldsSheetController &) {});
}

void EditorFields::showModifyFields(const std::function<void(ModifyFieldsSheetController &)> &fill)
{
    if (!g_window.leaveEditing())
        return;
    auto work = std::make_unique<FieldUseWork>(g_window.document());
    connect(work.get(), &LongWork::ended, this, [this, fill, work = work.get()] {
        const DatafileDocument &document = g_window.document();
        auto sheet =
            std::make_unique<ModifyFieldsSheetController>(document.datafileSettings().fields(),
                                                          g_window.textName(),
                                                          work->counts(),
                                                          document.services().environment.identifier);
        fill(*sheet);
        connect(sheet.get(), &QVSheetController::finished, this, [this, sheet = sheet.get()](int code) {
            if (code == QVSheetController::FirstButton)
                acceptFields(*sheet);
        });
        g_sheets.begin(std::move(sheet));
    });
    g_work.begin(std::move(work));
}

void EditorFields::acceptFields(const ModifyFieldsSheetController &sheet)
{
    const QList<FieldDefinition> fields = sheet.fields();
    const QString textName = sheet.textName();
    QStringList names;
    QList<qint64> uses;
    for (const FieldDefinition &field : g_window.document().datafileSettings().fields()) {
        const bool stays = std::ranges::any_of(fields, [&field](const FieldDefinition &other) {
            return other.identifier() == field.identifier();
        });
        if (stays || sheet.use().value(field.identifier()) == 0)
            continue;
        names.append(field.name());
        uses.append(sheet.use().value(field.identifier()));
    }
    askToDelete(names, uses, [this, fields, textName](bool agreed) {
        if (!agreed) {
            showModifyFields(
                [fields, textName](ModifyFieldsSheetController &again) { again.goOnWith(fields, textName); });
            return;
        }
        if (!g_window.leaveEditing())
            return;
        DatafileDocument &document = g_window.document();
        const bool hadOtherFields = document.datafileSettings().fields() != fields;
        if (const Result<> set = FieldOperations(document).setFields(fields, textName, tr("Modify Fields"));
            !set)
            showAlert(g_sheets, set.error().message, {});
        g_window.loadCurrentRecord();
        if (hadOtherFields && !document.datafileSettings().syncID().isEmpty())
            showAlert(g_sheets,
                      tr("This datafile is synchronized with another copy."),
                      tr("Change the fields of the other copy in the same way before they are synchronized "
                         "again."));
    });
}

/// One field after the other, until one is to stay.
void EditorFields::askToDelete(QStringList names,
                               QList<qint64> uses,
                               const std::function<void(bool agreed)> &answered)
{
    if (names.isEmpty()) {
        answered(true);
        return;
    }
    auto alert = std::make_unique<AlertSheetController>(
        filledIn(tr("Delete the field \"%@\"?"), {names.takeFirst()}),
        filledIn(tr("%lu record(s) have contents in this field. The contents will be deleted as well."),
                 {QString::number(uses.takeFirst())}),
        QStringList{tr("Delete"), tr("Cancel")});
    alert->setDestructiveButton(0);
    connect(alert.get(), &QVSheetController::finished, this, [this, names, uses, answered](int code) {
        if (code == QVSheetController::FirstButton)
            askToDelete(names, uses, answered);
        else
            answered(false);
    });
    g_sheets.begin(std::move(alert));
}

void EditorFields::setVisible()
{
    if (!g_window.leaveEditing())
        return;
    auto form = std::make_unique<FormSheetController>(tr("Show Fields as Columns"), tr("&Show"));
    const QList<FieldDefinition> fields = g_window.document().datafileSettings().fields();
    for (const FieldDefinition &field : fields)
        form->addCheck(field.name(), field.show());
    connect(form.get(), &QVSheetController::finished, this, [this, fields, form = form.get()](int code) {
        if (code != QVSheetController::FirstButton || !g_window.leaveEditing())
            return;
        QList<FieldDefinition> changed = fields;
        for (qsizetype i = 0; i < changed.size(); ++i) {
            if (changed[i].show() != form->isOn(i))
                changed[i].setShow(form->isOn(i));
        }
        // Nothing of it can be refused: the names stay.
        (void)FieldOperations(g_window.document()).setFields(changed, {}, tr("Show Fields"));
        g_window.loadCurrentRecord();
    });
    g_sheets.begin(std::move(form));
}

} // namespace tavrin
