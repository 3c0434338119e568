// SPDX-FileCopyrightText: The Tavrin authors
// SPDX-License-Identifier: MIT

#pragma once

#include "editor/ContentLongWork.h"
#include "editor/EditorWindowController.h"
#include "editor/FormSheetController.h"
#include "editor/LongWork.h"

#include <QObject>

#include <functional>
#include <memory>

namespace tavrin {

class FieldContents;
class FormPreview;
class ModifyFieldsSheetController;

/// The commands on fields and on what they hold, as an editor window offers them: the forms with their
/// previews, the work, and what is said afterwards.
///
/// What is being typed is stored first. Nothing happens while the datafile is synchronized; in one that is
/// read-only nothing is changed, and that is said.
class EditorFields : public QObject
{
    Q_OBJECT

public:
    EditorFields(EditorWindowController &window, SheetHost &sheets, WorkHost &work);
    ~EditorFields() override;

    void modifyFields();
    /// Which fields are columns of List View.
    void setVisible();
    void addFieldWithContent();

    void fillEmptyFields();
    void replaceFieldContents();
    void totalFieldContents();
    void transferFieldContents();

    void moveCurrentFreeformTextIntoFields() { moveTextIntoFields(true); }
    void moveAllFreeformTextIntoFields() { moveTextIntoFields(false); }
    void moveTextElements();

private:
    /// What is said when it is done: how many contents and records were changed.
    using Tell = std::function<QString(const ContentWork &work)>;

    QList<CodedItem> fieldItems() const;
    /// With the text as the last.
    QList<CodedItem> contentItems() const;
    void moveTextIntoFields(bool onlyCurrent);

    /// What the fields are to be, and what Undo calls it.
    struct NewFields
    {
        QList<FieldDefinition> fields;
        QString textName; ///< Empty: it keeps its name.
        QString undoName;
        bool concernsPartner; ///< Another copy, with which the datafile is synchronized, has to be changed
                              ///< too.
    };

    /// A field that goes, and how many records hold something in it.
    struct DeletedField
    {
        QString name;
        qint64 records;
        qint64 locked;
    };

    void showModifyFields(const std::function<void(ModifyFieldsSheetController &)> &fill);
    void acceptFields(const ModifyFieldsSheetController &sheet, const QHash<QString, qint64> &locked);
    void setFields(const NewFields &wanted);
    void changeFields(const NewFields &wanted, FieldContents &contents);
    void tellPartner();
    void askToDelete(QList<DeletedField> fields, const std::function<void(bool agreed)> &answered);

    /// Asks with a form whose work is previewed, and then does it.
    void ask(std::unique_ptr<FormSheetController> form,
             const MakeContentWork &make,
             const Tell &tell,
             const Tell &summary = {});
    /// The same for a kind of work that is made from what `read` finds in the form. What is read is kept with
    /// every change: the form goes before the work is made the last time.
    template <typename Work, typename Read>
    void askWith(std::unique_ptr<FormSheetController> form,
                 const Read &read,
                 const Tell &tell,
                 const Tell &summary = {});
    void recordTotals(const QStringList &fields, const QString &olderRecord);
    void begin(const QString &title, const MakeContentWork &make, const Tell &tell);
    void report(const QString &told, const ContentWork &work, bool changed);
    /// Some fields to choose from; otherwise says that there are none.
    bool hasFields();

    EditorWindowController &g_window;
    SheetHost &g_sheets;
    WorkHost &g_work;
    std::unique_ptr<FormPreview> g_preview;
};

template <typename Work, typename Read>
void EditorFields::askWith(std::unique_ptr<FormSheetController> form,
                           const Read &read,
                           const Tell &tell,
                           const Tell &summary)
{
    const auto kept = std::make_shared<decltype(read())>(read());
    connect(form.get(), &FormSheetController::changed, form.get(), [kept, read] { *kept = read(); });
    ask(
        std::move(form),
        [this, kept] { return std::make_shared<Work>(g_window.document(), *kept); },
        tell,
        summary);
}

} // namespace tavrin
