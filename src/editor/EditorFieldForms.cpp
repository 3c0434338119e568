// SPDX-FileCopyrightText: The Tavrin authors
// SPDX-License-Identifier: MIT

// What each command on the contents of fields asks for.

#include "base/FilledIn.h"
#include "document/FieldCommands.h"
#include "document/FieldOperations.h"
#include "document/FieldTotals.h"
#include "document/TextMoving.h"
#include "editor/AlertSheetController.h"
#include "editor/ContentLook.h"
#include "editor/EditorFields.h"
#include "editor/EditorWindowController.h"
#include "editor/FormPreview.h"

#include <QDate>
#include <QLocale>

#include <algorithm>

namespace tavrin {

using namespace Qt::StringLiterals;

namespace {

std::unique_ptr<FormSheetController> makeForm(const QString &title, const QString &acceptLabel)
{
    return std::make_unique<FormSheetController>(title, acceptLabel, true);
}

QString contentsChanged(const ContentWork &work)
{
    if (work.changedContents() == 0)
        return EditorFields::tr("No contents were changed.");
    return filledIn(EditorFields::tr("Contents changed: %lu, in this many records: %lu."),
                    {QString::number(work.changedContents()), QString::number(work.changedRecords())});
}

QList<CodedItem> filledTargetItems()
{
    return {{EditorFields::tr("Skip the record"), codeOf(FilledTarget::Skip)},
            {EditorFields::tr("Replace what is there"), codeOf(FilledTarget::Replace)},
            {EditorFields::tr("Append to it"), codeOf(FilledTarget::Append)}};
}

constexpr qsizetype appendItem = 2;

class TotalsWork : public LongWork
{
public:
    TotalsWork(const DatafileDocument &document, const QStringList &fields) : g_totals(document, fields) {}

    QString title() const override { return EditorFields::tr("Adding up…"); }
    void run(Progress &progress) override { g_totals.run(progress); }
    const FieldTotals &totals() const { return g_totals; }

private:
    FieldTotals g_totals;
};

} // namespace

void EditorFields::fillEmptyFields()
{
    if (!hasFields())
        return;
    enum class With { Text, Number, Date };
    auto owned = makeForm(tr("Fill Empty Fields"), tr("Fi&ll"));
    FormSheetController &form = *owned;
    QList<CodedItem> fields = fieldItems();
    fields.append({tr("All Fields"), 0, {}});
    const auto field = form.addChoice(tr("&Field:"), fields);
    const auto with = form.addChoice(tr("Fill &with:"),
                                     {{tr("A text"), codeOf(With::Text)},
                                      {tr("Running numbers"), codeOf(With::Number)},
                                      {tr("Today's date"), codeOf(With::Date)}});
    const auto text = form.addText(tr("&Text:"));
    const auto start = form.addText(tr("Fi&rst number:"), u"1"_s);
    form.setJudge([=](FormSheetController &sheet) {
        const bool isNumber = sheet.choice(with).code == codeOf(With::Number);
        const bool isText = sheet.choice(with).code == codeOf(With::Text);
        sheet.setEnabled(text, isText || isNumber);
        sheet.setEnabled(start, isNumber);
        bool isReadable = true;
        (void)sheet.text(start).toLongLong(&isReadable);
        if (isNumber && !isReadable)
            return tr("The first number has to be a whole number.");
        return isText && sheet.text(text).isEmpty() ? tr("Type the text to fill in.") : QString();
    });
    const auto make = [this, &form, field, with, text, start, fields]() -> FillEmptyFields::Filling {
        FillEmptyFields::Filling filling{{form.choice(field).identifier}, form.text(text), {}};
        if (filling.fields.first().isNull()) {
            filling.fields.clear();
            for (const CodedItem &item : fieldItems())
                filling.fields.append(item.identifier);
        }
        if (form.choice(with).code == codeOf(With::Number))
            filling.number = FillEmptyFields::Running{form.text(start).toLongLong(), 1};
        if (form.choice(with).code == codeOf(With::Date))
            filling.text = QLocale().toString(QDate::currentDate(), QLocale::ShortFormat);
        return filling;
    };
    askWith<FillEmptyFields>(std::move(owned), make, [](const ContentWork &work) {
        return work.changedContents() == 0 ? tr("No empty fields were found.")
                                           : filledIn(tr("%lu empty field(s) were filled."),
                                                      {QString::number(work.changedContents())});
    });
}

void EditorFields::replaceFieldContents()
{
    if (!hasFields())
        return;
    using Where = ReplaceFieldContents::Where;
    auto owned = makeForm(tr("Replace Field Contents"), tr("&Replace"));
    FormSheetController &form = *owned;
    const auto field = form.addChoice(tr("&Field:"), fieldItems());
    const auto where = form.addChoice(tr("&Where:"),
                                      {{tr("Everywhere"), codeOf(Where::Everywhere)},
                                       {tr("The content contains"), codeOf(Where::Containing)},
                                       {tr("The content is"), codeOf(Where::Equal)}});
    const auto which = form.addText(tr("T&his:"));
    const auto caseSensitive = form.addCheck(tr("Tell &capital from small letters"));
    const auto text = form.addText(tr("&New content:"));
    // Return alone may not empty the fields of all records.
    const auto empties = form.addCheck(tr("&Empty the field instead"));
    form.setJudge([=](FormSheetController &sheet) {
        const qint64 code = sheet.choice(where).code;
        const bool isSome = code != codeOf(Where::Everywhere);
        sheet.setEnabled(which, isSome);
        sheet.setEnabled(caseSensitive, isSome);
        sheet.setEnabled(text, !sheet.isOn(empties));
        if (code == codeOf(Where::Containing) && sheet.text(which).isEmpty())
            return tr("Type what the content contains.");
        return sheet.text(text).isEmpty() && !sheet.isOn(empties) ? tr("Type the new content.") : QString();
    });
    const auto make = [&form, field, where, which, caseSensitive, text, empties] {
        return ReplaceFieldContents::Replacement{form.choice(field).identifier,
                                                 form.isOn(empties) ? u""_s : form.text(text),
                                                 static_cast<Where>(form.choice(where).code),
                                                 form.text(which),
                                                 form.isOn(caseSensitive)};
    };
    askWith<ReplaceFieldContents>(
        std::move(owned), make, contentsChanged, [&form, field](const ContentWork &work) {
            return filledIn(tr("Replace the contents of \"%@\" in %lu selected record(s)?"),
                            {form.choice(field).text, QString::number(work.changedRecords())});
        });
}

void EditorFields::transferFieldContents()
{
    if (!hasFields())
        return;
    auto owned = makeForm(tr("Transfer Field Contents"), tr("&Transfer"));
    FormSheetController &form = *owned;
    const QList<CodedItem> items = contentItems();
    const auto from = form.addChoice(tr("&From:"), items);
    const auto to = form.addChoice(tr("T&o:"), items, 1);
    const auto moves = form.addCheck(tr("&Empty the field it comes from"));
    const auto filled = form.addChoice(tr("If something is there &already:"), filledTargetItems());
    const auto separator = form.addText(tr("&Separator:"), u" "_s);
    form.setJudge([=](FormSheetController &sheet) {
        sheet.setEnabled(separator, sheet.choice(filled).code == codeOf(FilledTarget::Append));
        return sheet.choice(from).identifier == sheet.choice(to).identifier
                   ? tr("Choose two different fields.")
                   : QString();
    });
    const auto make = [&form, from, to, moves, filled, separator] {
        return TransferFieldContents::Transfer{form.choice(from).identifier,
                                               form.choice(to).identifier,
                                               form.isOn(moves),
                                               static_cast<FilledTarget>(form.choice(filled).code),
                                               form.text(separator)};
    };
    askWith<TransferFieldContents>(std::move(owned), make, contentsChanged);
}

void EditorFields::moveTextIntoFields(bool onlyCurrent)
{
    using Lines = MoveTextIntoFields::Lines;
    auto owned = makeForm(onlyCurrent ? tr("Move Text of This Record into Fields")
                                      : tr("Move Text of All Selected Records into Fields"),
                          tr("&Move"));
    FormSheetController &form = *owned;
    const auto lines =
        form.addChoice(tr("&Lines:"),
                       {{tr("The first line into the first field, and so on"), codeOf(Lines::InOrder)},
                        {tr("\"Name: value\" into the field of that name"), codeOf(Lines::ByName)}});
    const std::optional<quint32> record =
        onlyCurrent ? std::optional(
            g_window.document().datafileRecords().identifiers().number(g_window.currentIdentifier()))
                    : std::nullopt;
    const auto chosen = std::make_shared<Lines>(Lines::InOrder);
    form.setJudge([chosen, lines](FormSheetController &sheet) {
        *chosen = static_cast<Lines>(sheet.choice(lines).code);
        return QString();
    });
    ask(
        std::move(owned),
        [this, chosen, record] {
            auto work = std::make_shared<MoveTextIntoFields>(g_window.document(), *chosen);
            if (record)
                work->restrictTo(*record);
            return work;
        },
        contentsChanged);
}

void EditorFields::moveTextElements()
{
    if (g_window.isClone()) {
        showAlert(g_sheets,
                  tr("A clone window only shows its records."),
                  tr("Move text elements in the main window."));
        return;
    }
    if (!hasFields())
        return;
    using Element = MoveTextElements::Element;
    auto owned = makeForm(tr("Move Text Elements"), tr("&Move"));
    FormSheetController &form = *owned;
    const auto element = form.addChoice(tr("&What:"),
                                        {{tr("E-mail addresses"), codeOf(Element::Email)},
                                         {tr("Web addresses"), codeOf(Element::WebAddress)},
                                         {tr("Telephone numbers"), codeOf(Element::PhoneNumber)}});
    const auto to = form.addChoice(tr("&To:"), fieldItems());
    const auto all = form.addCheck(tr("&All of each text, not only the first"));
    const auto filled =
        form.addChoice(tr("If something is there al&ready:"), filledTargetItems(), appendItem);
    const auto separator = form.addText(tr("&Separator:"), u", "_s);
    const QStringList templates = phoneNumberTemplates(g_window.document().services().preferences);
    const auto make = [&form, element, to, all, filled, separator, templates] {
        return MoveTextElements::Move{static_cast<Element>(form.choice(element).code),
                                      form.choice(to).identifier,
                                      form.isOn(all),
                                      static_cast<FilledTarget>(form.choice(filled).code),
                                      form.text(separator),
                                      templates};
    };
    askWith<MoveTextElements>(std::move(owned), make, contentsChanged);
}

void EditorFields::addFieldWithContent()
{
    auto owned = makeForm(tr("Add Field with Content"), tr("&Add"));
    FormSheetController &form = *owned;
    const auto name = form.addText(tr("Field &name:"));
    const auto content = form.addText(tr("&Content:"));
    const auto filledIn = std::make_shared<std::pair<QString, QString>>();
    form.setJudge([=](FormSheetController &sheet) {
        *filledIn = {sheet.text(name).trimmed(), sheet.text(content)};
        return filledIn->first.isEmpty() ? tr("A field must have a name.") : QString();
    });
    ask(
        std::move(owned),
        [this, filledIn] {
            return std::make_shared<AddFieldWithContent>(
                g_window.document(), filledIn->first, filledIn->second);
        },
        [filledIn](const ContentWork &work) {
            return tavrin::filledIn(tr("The field \"%@\" was added. Records with contents in it: %lu."),
                                    {filledIn->first, QString::number(work.changedRecords())});
        });
}

void EditorFields::totalFieldContents()
{
    if (!hasFields() || !g_window.leaveEditing())
        return;
    const QString older = FieldTotals::totalRecordIn(g_window.document());
    auto form = makeForm(tr("Total Field Contents"), tr("&Add Total Record"));
    const auto field = form->addChoice(tr("&Field:"), fieldItems());
    const auto all = form->addCheck(tr("Put the totals of a&ll fields into the record"));
    const auto updates = form->addCheck(tr("&Update the total record that is there"), !older.isEmpty());
    form->setEnabled(updates, !older.isEmpty());
    g_preview = std::make_unique<FormPreview>(
        *form, [this, field, form = form.get()]() -> std::shared_ptr<FormPreview::Look> {
            return std::make_shared<TotalLook>(g_window.document(), form->choice(field).identifier);
        });
    connect(form.get(), &QVSheetController::finished, this, [=, this, form = form.get()](int code) {
        g_preview.reset();
        if (code != QVSheetController::FirstButton)
            return;
        QStringList fields{form->choice(field).identifier};
        if (form->isOn(all)) {
            fields.clear();
            for (const CodedItem &item : fieldItems())
                fields.append(item.identifier);
        }
        recordTotals(fields, form->isOn(updates) ? older : QString());
    });
    g_sheets.begin(std::move(form));
}

void EditorFields::recordTotals(const QStringList &fields, const QString &olderRecord)
{
    if (!g_window.leaveEditingToChange())
        return;
    auto work = std::make_unique<TotalsWork>(g_window.document(), fields);
    connect(work.get(), &LongWork::ended, this, [this, olderRecord, work = work.get()] {
        g_window.leaveEditing();
        if (work->totals().wasCancelled())
            return;
        DatafileDocument &document = g_window.document();
        const std::vector<FieldTotal> &totals = work->totals().totals();
        if (std::ranges::all_of(totals, [](const FieldTotal &total) { return total.count == 0; })) {
            const FieldDefinition *field =
                document.datafileSettings().fieldWithIdentifier(totals.front().field);
            showAlert(g_sheets,
                      filledIn(tr("There are no numbers in \"%@\"."), {field ? field->name() : QString()}),
                      {});
        } else if (olderRecord.isEmpty()) {
            g_window.showRecord(work->totals().addTotalRecord(document));
        } else if (const Result<> updated = work->totals().updateTotalRecord(document, olderRecord);
                   !updated) {
            showAlert(g_sheets, updated.error().message, {});
        } else {
            g_window.showRecord(olderRecord);
        }
    });
    g_work.begin(std::move(work));
}

} // namespace tavrin
