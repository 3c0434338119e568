// SPDX-FileCopyrightText: The Tavrin authors
// SPDX-License-Identifier: MIT

// What a person does in an editor window on a large datafile, with its table on an offscreen screen.

#include "Measure.h"
#include "document/DatafileDocument.h"
#include "editor/AlertSheetController.h"
#include "editor/EditorTableController.h"
#include "editor/EditorWindowController.h"
#include "editor/ListTableModel.h"
#include "editor/LongWork.h"
#include "model/Preferences.h"
#include "ui/RecordTableView.h"

#include <QApplication>

#include <cstdio>

using namespace tavrin;
using bench::Seconds;

namespace {

/// Every question is answered with its first button.
class Agreeing : public SheetHost
{
public:
    void begin(std::unique_ptr<QVSheetController> sheet) override
    {
        sheet->finish(QVSheetController::FirstButton);
        g_sheets.push_back(std::move(sheet));
    }

private:
    std::vector<std::unique_ptr<QVSheetController>> g_sheets;
};

class NoWork : public WorkHost
{
public:
    void begin(std::unique_ptr<LongWork> /*work*/) override {}
};

/// A table and nothing else.
class TableOnly : public EditorView
{
public:
    explicit TableOnly(RecordTableView &table) : g_table(table) {}

    QString freeformText() const override { return {}; }
    richtext::AttributedText formattedFreeformText() const override { return {}; }
    void setFreeformText(const richtext::AttributedText & /*text*/,
                         const richtext::CharacterFormat & /*plain*/) override
    {}
    bool isFreeformTextModified() const override { return false; }
    void clearFreeformTextModified() override {}
    void setFreeformTextEditable(bool /*editable*/) override {}
    bool isTableEditing() const override { return false; }
    void endTableEditing() override {}
    void selectTableRow(int row) override
    {
        const QSignalBlocker blocked(g_table.selectionModel());
        const QModelIndex index = g_table.model()->index(row, 0);
        g_table.setCurrentIndex(index);
        g_table.scrollTo(index);
    }
    void editTableCell(int /*row*/, int /*column*/) override {}
    EditorFocus focus() const override { return EditorFocus::Elsewhere; }
    void setFocus(EditorFocus /*focus*/) override {}
    QString frame() const override { return {}; }
    void setFrame(const QString & /*frame*/) override {}
    double splitHeight() const override { return -1; }
    void setSplitHeight(double /*height*/) override {}

private:
    RecordTableView &g_table;
};

/// Prints the mean, and the slowest, each until the table is drawn.
void measure(const char *name, RecordTableView &table, const std::function<void(int)> &work)
{
    constexpr int operations = 100;
    double sum = 0;
    double slowest = 0;
    for (int operation = 0; operation < operations; ++operation) {
        const Seconds start = Seconds::sinceStart();
        work(operation);
        table.viewport()->repaint();
        const double seconds = (Seconds::sinceStart() - start).processor;
        sum += seconds;
        slowest = std::max(slowest, seconds);
    }
    std::printf("%s %.9f %.9f\n", name, sum / operations, slowest);
}

} // namespace

int main(int argc, char **argv)
{
    QApplication application(argc, argv);
    if (argc != 2) {
        std::fprintf(stderr, "usage: tavrin-bench-window DATAFILE\n");
        return 2;
    }
    Preferences preferences;
    auto document = DatafileDocument::open({Environment::system(), &preferences},
                                           QString::fromLocal8Bit(argv[1]),
                                           SelectionOnOpening::AllSelected);
    if (!document) {
        std::fprintf(stderr, "%s\n", qPrintable(document.error().detail));
        return 1;
    }
    Agreeing sheets;
    NoWork work;
    EditorWindowController window(**document, sheets, work, preferences);
    RecordTableView table;
    table.setModel(&window.tableController().listTableModel());
    table.resize(900, 400);
    TableOnly view(table);
    window.attachView(view);
    window.prepare();
    window.setMode(QStringLiteral("List"));
    table.show();
    QApplication::processEvents();

    constexpr qint64 stride = 7'654'321;
    measure("next", table, [&](int) { window.goToNextRecord(); });
    measure("previous", table, [&](int) { window.goToPreviousRecord(); });
    measure("goto", table, [&](int i) { window.loadRecordAtIndex(i * stride % window.countSelected()); });
    measure("add", table, [&](int i) {
        window.addRecord();
        window.storeFieldValue(*window.currentRecord(),
                               window.document().datafileSettings().fields().constFirst().identifier(),
                               QString::number(i));
    });
    measure("delete", table, [&](int) { window.deleteRecord(); });
    window.windowWillClose();
    return 0;
}
