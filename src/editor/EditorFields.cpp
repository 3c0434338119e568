// SPDX-FileCopyrightText: The Tavrin authors
// SPDX-License-Identifier: MIT

// Asking, doing and telling for all commands on what fields hold; and the fields themselves.

#include "editor/EditorFields.h"

#include "base/FilledIn.h"
#include "document/FieldOperations.h"
#include "editor/AlertSheetController.h"
#include "editor/ContentLook.h"
#include "editor/EditorWindowController.h"
#include "editor/FormPreview.h"
#include "editor/ModifyFieldsSheetController.h"

#include <algorithm>
#include <utility>

namespace tavrin {

using namespace Qt::StringLiterals;

namespace {

class ContentLongWork : public LongWork
{
public:
    ContentLongWork(QString title, std::shared_ptr<ContentWork> work)
        : g_title(std::move(title))
        , g_content(std::move(work))
    {}

    QString title() const override { return g_title; }
    void run(Progress &progress) override { g_content->run(progress); }
    ContentWork &content() { return *g_content; }

private:
    QString g_title;
    std::shared_ptr<ContentWork> g_content;
};

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
