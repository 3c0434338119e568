// SPDX-FileCopyrightText: The Tavrin authors
// SPDX-License-Identifier: MIT

#include "ui/SortDialogs.h"

#include "editor/SortFieldsSheetController.h"
#include "editor/SortFreeformSheetController.h"
#include "ui/DialogParts.h"

#include <QCheckBox>
#include <QComboBox>
#include <QDialogButtonBox>
#include <QFormLayout>
#include <QHBoxLayout>
#include <QLabel>
#include <QPlainTextEdit>
#include <QRadioButton>
#include <QSpinBox>
#include <QStackedWidget>

namespace tavrin {

namespace {

constexpr int largestNumber = 9999;

QSpinBox *makeNumberBox(int value, const QString &name, QWidget *parent)
{
    auto *box = new QSpinBox(parent);
    box->setRange(1, largestNumber);
    box->setValue(value);
    box->setAccessibleName(name);
    return box;
}

/// A row of several controls, the label's mnemonic leading to the first.
void addLine(QFormLayout *form, const QString &text, std::initializer_list<QWidget *> controls)
{
    auto *line = new QHBoxLayout;
    for (QWidget *control : controls)
        line->addWidget(control);
    line->addStretch(1);
    QWidget *first = *controls.begin();
    auto *label = new QLabel(text, first->parentWidget());
    label->setBuddy(first);
    form->addRow(label, line);
}

} // namespace

SortDialog::SortDialog(SortSheetController &sheet, const QString &title, QWidget *parent)
    : QDialog(parent)
    , g_sheet(sheet)
    , g_form(new QFormLayout(this))
{
    setWindowTitle(title);
    g_form->setFieldGrowthPolicy(QFormLayout::AllNonFixedFieldsGrow);
}

void SortDialog::addCommonRows()
{
    auto *ascending = new QRadioButton(tr("A&scending"), this);
    auto *descending = new QRadioButton(tr("&Descending"), this);
    (g_sheet.descending() ? descending : ascending)->setChecked(true);
    connect(descending, &QRadioButton::toggled, &g_sheet, &SortSheetController::setDescending);
    addLine(g_form, tr("Order:"), {ascending, descending});

    auto *caseSensitive = new QCheckBox(tr("&Capitals count"), this);
    caseSensitive->setChecked(g_sheet.caseSensitive());
    connect(caseSensitive, &QCheckBox::toggled, &g_sheet, &SortSheetController::setCaseSensitive);
    g_form->addRow(QString(), caseSensitive);

    auto *results = new QLabel(this);
    constexpr int shownLines = 3;
    results->setMinimumHeight(fontMetrics().lineSpacing() * shownLines);
    results->setAlignment(Qt::AlignTop | Qt::AlignLeft);
    results->setTextFormat(Qt::PlainText);
    results->setForegroundRole(QPalette::PlaceholderText);
    results->setAccessibleName(tr("First results"));
    g_form->addRow(tr("First results:"), results);
    const auto showResults = [this, results] {
        QStringList lines;
        for (const QString &line : g_sheet.firstResults())
            lines.append(results->fontMetrics().elidedText(line, Qt::ElideRight, results->width()));
        results->setText(lines.join(u'\n'));
    };
    connect(&g_sheet, &SortSheetController::firstResultsChanged, results, showResults);
    showResults();

    g_form->addRow(makeSheetButtons(g_sheet, tr("S&ort"), this));
    resize(sizeHint().expandedTo(QSize(fontMetrics().averageCharWidth() * 65, 0)));
}

SortFieldsDialog::SortFieldsDialog(SortFieldsSheetController &sheet, QWidget *parent)
    : SortDialog(sheet, tr("Sort by Fields"), parent)
{
    const auto addList = [this, &sheet](const QString &label,
                                        const QList<CodedItem> &items,
                                        qsizetype chosen,
                                        void (SortFieldsSheetController::*choose)(qsizetype)) {
        auto *box = new QComboBox(this);
        setItems(box, items, chosen);
        form().addRow(label, box);
        connect(box, &QComboBox::currentIndexChanged, &sheet, [&sheet, choose](int index) {
            (sheet.*choose)(index);
        });
    };
    using Sheet = SortFieldsSheetController;
    addList(tr("Sort &by:"), sheet.sortByItems(), sheet.sortBy(), &Sheet::handleSortByClick);
    addList(tr("&Treat as:"), sheet.treatAsItems(), sheet.treatAs(), &Sheet::handleTreatAsClick);
    addList(tr("T&hen by:"), sheet.thenByItems(), sheet.thenBy(), &Sheet::handleThenByClick);
    QLabel *note = makeNoteLabel(this);
    form().addRow(QString(), note);
    const auto showNote = [note, &sheet] { setNote(note, sheet.note()); };
    connect(&sheet, &QVSheetController::changed, note, showNote);
    showNote();
    addCommonRows();
}

SortFreeformDialog::SortFreeformDialog(SortFreeformSheetController &sheet, QWidget *parent)
    : SortDialog(sheet, tr("Sort by Freeform Text"), parent)
{
    auto *kind = new QComboBox(this);
    setItems(kind, sheet.kindItems(), sheet.kind());
    form().addRow(tr("Sort &by:"), kind);
    connect(
        kind, &QComboBox::currentIndexChanged, &sheet, [&sheet](int index) { sheet.handleKindClick(index); });

    auto *pages = new QStackedWidget(this);
    QWidget *namePage = makeNamePage(sheet);
    QWidget *wordPage = makeWordPage(sheet);
    auto *noPage = new QWidget(this);
    for (QWidget *page : {namePage, wordPage, noPage})
        pages->addWidget(page);
    form().addRow(pages);
    QLabel *problem = makeNoteLabel(this);
    form().addRow(problem);
    const auto showSheet = [=, &sheet] {
        pages->setCurrentWidget(sheet.isName() ? namePage : sheet.isWord() ? wordPage : noPage);
        setNote(problem, sheet.problem());
    };
    connect(&sheet, &QVSheetController::changed, pages, showSheet);
    showSheet();
    addCommonRows();
}

QWidget *SortFreeformDialog::makeNamePage(SortFreeformSheetController &sheet)
{
    using Sheet = SortFreeformSheetController;
    auto *page = new QWidget(this);
    auto *rows = new QFormLayout(page);
    rows->setContentsMargins(0, 0, 0, 0);
    auto *line = new QComboBox(page);
    line->setAccessibleName(tr("Where the name stands"));
    setItems(line, sheet.nameLineItems(), sheet.nameLine());
    auto *number = makeNumberBox(sheet.nameLineNumber(), tr("Line number"), page);
    number->setEnabled(sheet.nameLine() == 0);
    addLine(rows, tr("&Name stands in:"), {line, number});
    connect(line, &QComboBox::currentIndexChanged, &sheet, [&sheet, number](int index) {
        sheet.handleNameLineClick(index);
        number->setEnabled(index == 0);
    });
    connect(number, &QSpinBox::valueChanged, &sheet, &Sheet::setNameLineNumber);

    auto *titles = new QPlainTextEdit(sheet.titlesText(), page);
    titles->setTabChangesFocus(true);
    titles->setMaximumHeight(titles->fontMetrics().lineSpacing() * 6);
    auto *label = new QLabel(tr("T&itles that do\nnot count:"), page);
    label->setBuddy(titles);
    rows->addRow(label, titles);
    connect(titles, &QPlainTextEdit::textChanged, &sheet, [&sheet, titles] {
        sheet.setTitlesText(titles->toPlainText());
    });
    return page;
}

QWidget *SortFreeformDialog::makeWordPage(SortFreeformSheetController &sheet)
{
    using Sheet = SortFreeformSheetController;
    auto *page = new QWidget(this);
    auto *rows = new QFormLayout(page);
    rows->setContentsMargins(0, 0, 0, 0);
    auto *line = makeNumberBox(sheet.wordLineNumber(), tr("Line number"), page);
    auto *counted = new QComboBox(page);
    counted->setAccessibleName(tr("Where the line is counted"));
    setItems(counted, sheet.wordLineOffsetItems(), sheet.wordLineOffset());
    addLine(rows, tr("&Line:"), {line, counted});
    connect(line, &QSpinBox::valueChanged, &sheet, &Sheet::setWordLineNumber);
    connect(counted, &QComboBox::currentIndexChanged, &sheet, [&sheet](int index) {
        sheet.handleWordLineOffsetClick(index);
    });

    auto *word = makeNumberBox(sheet.wordNumber(), tr("Word number"), page);
    word->setEnabled(!sheet.isLastWord());
    auto *last = new QCheckBox(tr("L&ast word"), page);
    last->setChecked(sheet.isLastWord());
    addLine(rows, tr("&Word:"), {word, last});
    connect(word, &QSpinBox::valueChanged, &sheet, &Sheet::setWordNumber);
    connect(last, &QCheckBox::toggled, &sheet, [&sheet, word](bool on) {
        sheet.setLastWord(on);
        word->setEnabled(!on);
    });
    return page;
}

} // namespace tavrin
