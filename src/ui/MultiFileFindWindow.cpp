// SPDX-FileCopyrightText: The Tavrin authors
// SPDX-License-Identifier: MIT

#include "ui/MultiFileFindWindow.h"

#include "app/MultiFileFindController.h"
#include "ui/HitDelegate.h"

#include <QAction>
#include <QApplication>
#include <QCheckBox>
#include <QClipboard>
#include <QComboBox>
#include <QFileDialog>
#include <QFileInfo>
#include <QHBoxLayout>
#include <QHeaderView>
#include <QKeyEvent>
#include <QLabel>
#include <QLineEdit>
#include <QPushButton>
#include <QTableView>

#include <algorithm>

namespace tavrin {

using namespace Qt::StringLiterals;
using Controller = MultiFileFindController;

MultiFileFindWindow::MultiFileFindWindow(MultiFileFindController &controller) : g_controller(controller)
{
    setWindowTitle(tr("Multi-File Find") + u" — Tavrin"_s);
    setObjectName(u"multiFileFindWindow"_s);
    resize(820, 520);
    auto *layout = new QVBoxLayout(this);
    layout->addLayout(makeQuery());
    layout->addLayout(makePlaces());
    makeTable();
    layout->addWidget(g_table, 1);
    layout->addLayout(makeFoot());
    auto *close = new QAction(this);
    close->setShortcut(Qt::CTRL | Qt::Key_W);
    connect(close, &QAction::triggered, this, &QWidget::close);
    addAction(close);
    connect(&controller, &Controller::changed, this, &MultiFileFindWindow::updateState);
    connect(&controller, &Controller::beep, this, [] { QApplication::beep(); });
    updateState();
}

void MultiFileFindWindow::bringToFront()
{
    if (isMinimized())
        showNormal();
    show();
    raise();
    activateWindow();
    g_text->setFocus();
    g_text->selectAll();
}

QLayout *MultiFileFindWindow::makeQuery()
{
    auto *row = new QHBoxLayout;
    auto *label = new QLabel(tr("F&ind:"), this);
    g_text = new QLineEdit(this);
    g_text->setClearButtonEnabled(true);
    g_text->setMinimumWidth(fontMetrics().averageCharWidth() * 16);
    label->setBuddy(g_text);
    row->addWidget(label);
    row->addWidget(g_text, 1);
    g_search = new QPushButton(tr("&Search"), this);
    g_search->setDefault(true);
    g_cancel = new QPushButton(tr("Cance&l"), this);
    row->addWidget(g_search);
    row->addWidget(g_cancel);
    connect(g_text, &QLineEdit::textChanged, &g_controller, &Controller::setText);
    connect(g_text, &QLineEdit::returnPressed, &g_controller, &Controller::search);
    connect(g_search, &QPushButton::clicked, &g_controller, &Controller::search);
    connect(g_cancel, &QPushButton::clicked, &g_controller, &Controller::cancel);
    return row;
}

QLayout *MultiFileFindWindow::makePlaces()
{
    auto *places = new QHBoxLayout;
    auto *label = new QLabel(tr("&Where:"), this);
    g_where = new QComboBox(this);
    g_where->addItems({tr("Open datafiles"), tr("Datafiles folder"), tr("Chosen datafiles")});
    label->setBuddy(g_where);
    g_choose = new QPushButton(tr("C&hoose…"), this);
    g_chosen = new QLabel(this);
    g_chosen->setTextFormat(Qt::PlainText);
    auto *what = new QComboBox(this);
    what->addItems({tr("Fields and text"), tr("Text only")});
    what->setAccessibleName(tr("What is searched"));
    places->addWidget(label);
    places->addWidget(g_where);
    places->addWidget(g_choose);
    places->addWidget(g_chosen, 1);
    places->addStretch();
    places->addWidget(what);
    connect(g_where, &QComboBox::activated, &g_controller, [this](int index) {
        g_controller.setWhere(static_cast<Controller::Where>(index));
        if (g_controller.where() == Controller::Where::ChosenDatafiles
            && g_controller.chosenPaths().isEmpty())
            choose();
    });
    connect(g_choose, &QPushButton::clicked, this, &MultiFileFindWindow::choose);
    connect(what, &QComboBox::activated, &g_controller, [this](int index) {
        g_controller.setTextOnly(index == 1);
    });

    auto *options = new QHBoxLayout;
    const auto addBox = [&](const QString &text, void (Controller::*set)(bool)) {
        auto *box = new QCheckBox(text, this);
        connect(box, &QCheckBox::toggled, &g_controller, set);
        options->addWidget(box);
    };
    addBox(tr("&Case sensitive"), &Controller::setCaseSensitive);
    addBox(tr("Whole w&ords only"), &Controller::setWholeWord);
    options->addStretch();
    auto *rows = new QVBoxLayout;
    rows->addLayout(places);
    rows->addLayout(options);
    return rows;
}

void MultiFileFindWindow::makeTable()
{
    g_table = new QTableView(this);
    g_table->setAccessibleName(tr("What was found"));
    g_table->setModel(&g_controller.results());
    g_table->setItemDelegate(new HitDelegate(g_table));
    g_table->setSelectionBehavior(QAbstractItemView::SelectRows);
    g_table->setEditTriggers(QAbstractItemView::NoEditTriggers);
    g_table->setShowGrid(false);
    g_table->setWordWrap(false);
    g_table->setTabKeyNavigation(false);
    g_table->verticalHeader()->hide();
    g_table->verticalHeader()->setDefaultSectionSize(fontMetrics().height() + 8);
    g_table->horizontalHeader()->setStretchLastSection(true);
    g_table->horizontalHeader()->setHighlightSections(false);
    g_table->horizontalHeader()->setDefaultAlignment(Qt::AlignLeft | Qt::AlignVCenter);
    // As they were found, until a column is chosen.
    g_table->horizontalHeader()->setSortIndicator(-1, Qt::AscendingOrder);
    g_table->horizontalHeader()->setSortIndicatorClearable(true);
    g_table->setSortingEnabled(true);
    const int letter = fontMetrics().averageCharWidth();
    for (const auto &[column, letters] : {std::pair{int(MultiFileResults::Datafile), 20},
                                          std::pair{int(MultiFileResults::Record), 9},
                                          std::pair{int(MultiFileResults::Title), 24},
                                          std::pair{int(MultiFileResults::Field), 14}})
        g_table->setColumnWidth(column, letters * letter);
    g_table->installEventFilter(this);
    connect(g_table, &QTableView::doubleClicked, this, &MultiFileFindWindow::openCurrent);
    connect(g_table->selectionModel(),
            &QItemSelectionModel::currentChanged,
            this,
            &MultiFileFindWindow::updateState);
}

QLayout *MultiFileFindWindow::makeFoot()
{
    auto *row = new QHBoxLayout;
    g_summary = new QLabel(this);
    g_open = new QPushButton(tr("Open &Record"), this);
    row->addWidget(g_summary, 1);
    row->addWidget(g_open);
    connect(g_open, &QPushButton::clicked, this, &MultiFileFindWindow::openCurrent);
    return row;
}

void MultiFileFindWindow::choose()
{
    auto *panel = new QFileDialog(this, tr("Choose Datafiles"), g_controller.folderToChooseIn());
    panel->setAttribute(Qt::WA_DeleteOnClose);
    panel->setWindowModality(Qt::WindowModal);
    panel->setFileMode(QFileDialog::ExistingFiles);
    panel->setNameFilter(tr("Datafiles") + u" (*.tv3 *.tvk)"_s);
    connect(panel, &QFileDialog::filesSelected, this, [this](const QStringList &paths) {
        g_controller.setChosenPaths(paths);
        g_controller.setWhere(Controller::Where::ChosenDatafiles);
    });
    panel->open();
}

void MultiFileFindWindow::openCurrent()
{
    if (const QModelIndex index = g_table->currentIndex(); index.isValid())
        g_controller.openRow(index.row());
}

/// The selected rows as lines, with tabs between their columns.
void MultiFileFindWindow::copy()
{
    QModelIndexList rows = g_table->selectionModel()->selectedRows();
    std::ranges::sort(rows, {}, &QModelIndex::row);
    QStringList lines;
    for (const QModelIndex &row : rows) {
        QStringList cells;
        for (int column = 0; column < MultiFileResults::ColumnCount; ++column)
            cells.append(row.siblingAtColumn(column).data().toString());
        lines.append(cells.join(u'\t'));
    }
    if (!lines.isEmpty())
        QApplication::clipboard()->setText(lines.join(u'\n') + u'\n');
}

bool MultiFileFindWindow::eventFilter(QObject *object, QEvent *event)
{
    if (event->type() != QEvent::KeyPress)
        return QWidget::eventFilter(object, event);
    const auto *key = static_cast<QKeyEvent *>(event);
    if (key->matches(QKeySequence::Copy)) {
        copy();
        return true;
    }
    if (key->key() != Qt::Key_Return && key->key() != Qt::Key_Enter)
        return QWidget::eventFilter(object, event);
    openCurrent();
    return true;
}

void MultiFileFindWindow::updateState()
{
    const bool choosing = g_controller.where() == Controller::Where::ChosenDatafiles;
    g_where->setCurrentIndex(static_cast<int>(g_controller.where()));
    g_choose->setVisible(choosing);
    const QStringList paths = g_controller.chosenPaths();
    g_chosen->setVisible(choosing);
    g_chosen->setText(paths.size() == 1 ? QFileInfo(paths.constFirst()).fileName()
                                        : tr("%1 datafiles").arg(QLocale().toString(paths.size())));
    g_search->setEnabled(g_controller.canSearch());
    g_cancel->setEnabled(g_controller.isSearching());
    g_open->setEnabled(g_table->currentIndex().isValid());
    g_summary->setText(g_controller.summary());
}

} // namespace tavrin
