// SPDX-FileCopyrightText: The Tavrin authors
// SPDX-License-Identifier: MIT

#include "app/ImportController.h"

#include "app/AppFixture.h"
#include "app/ImportAssistantSheetController.h"
#include "document/UndoHistory.h"
#include "editor/EditorExporting.h"
#include "editor/FileSheetController.h"
#include "editor/FormSheetController.h"

#include <QMimeData>

using namespace tavrin;

namespace {

/// The fields of the selected records.
QList<QStringList> rowsOf(const DatafileDocument &document)
{
    QList<QStringList> rows;
    for (const QString &identifier : document.datafileCatalog().selectedIdentifiers()) {
        QStringList row;
        for (const FieldDefinition &field : document.datafileSettings().fields())
            row.append(
                document.datafileRecords().view(identifier)->fieldValue(field.identifier()).toString());
        rows.append(row);
    }
    return rows;
}

} // namespace

class ImportControllerTest : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void aFileBecomesANewDatafile()
    {
        AppFixture app;
        chooseFile(app, "a,b\nc,d,e\n");
        app.g_sheets.answerNext<ImportSheetController>([](auto &sheet) {
            QVERIFY(!sheet.canUseCurrent());
            QCOMPARE(sheet.currentDatafileName(), u"<No suitable datafile open>"_s);
            QCOMPARE(sheet.previewNames(), (QStringList{u"0"_s, u"1"_s, u"2"_s}));
            sheet.setNamesInFirstRecord(true);
            QCOMPARE(sheet.previewNames(), (QStringList{u"a"_s, u"b"_s}));
            sheet.accept();
        });
        app.answer(u"OK"_s);

        app.g_controller.imports().importCSV(nullptr);

        QCOMPARE(app.g_sheets.alerts(), QStringList{u"The imported file contained some malformed data."_s});
        QCOMPARE(app.g_controller.openDatafileCount(), qsizetype(1));
        QCOMPARE(app.window(0).g_broughtToFront, 1);
        const DatafileDocument &made = *app.g_controller.documents().first();
        QCOMPARE(rowsOf(made), QList<QStringList>({{u"c"_s, u"d <EXTRA FIELD> e"_s}}));
        QCOMPARE(made.displayName(), u"in"_s);
        QVERIFY(app.g_sheets.allAnswered());
    }

    void aTabDelimitedFileIsSavedAtOnce()
    {
        AppFixture app;
        chooseFile(app, "a\tb\n");
        app.g_sheets.answerNext<ImportSheetController>([](auto &sheet) { sheet.accept(); });
        app.g_sheets.answerNext<FileSheetController>([&](auto &sheet) {
            QCOMPARE(sheet.request().purpose, FileSheetController::Purpose::SaveFile);
            sheet.setPaths({app.path(u"saved.tv3"_s)});
            sheet.accept();
        });

        app.g_controller.imports().importTabDelimited(nullptr);

        QVERIFY(app.g_sheets.allAnswered());
        QTRY_VERIFY(QFile::exists(app.path(u"saved.tv3"_s)));
    }

    void recordsAreAddedToTheWindowsDatafile()
    {
        AppFixture app;
        EditorWindowController &window = opened(app, "x,y\n");
        chooseFile(app, "1,2\nx,y\n");
        app.g_sheets.answerNext<ImportSheetController>([](auto &sheet) {
            QVERIFY(sheet.canUseCurrent());
            sheet.setDestination(ImportDestination::Merge);
            sheet.accept();
        });

        app.g_controller.imports().importCSV(&window);

        const QList<QStringList> merged{{u"x"_s, u"y"_s}, {u"1"_s, u"2"_s}};
        QCOMPARE(rowsOf(window.document()), merged);
        window.undo();
        QCOMPARE(rowsOf(window.document()), merged.first(1));
    }

    void nothingIsMadeOfNothing()
    {
        AppFixture app;
        chooseFile(app, "");
        app.answer(u"OK"_s);
        app.g_controller.imports().importTabDelimited(nullptr);
        QCOMPARE(app.g_sheets.alerts(), QStringList{u"No records were imported."_s});

        chooseFile(app, "a\tb\n");
        app.g_sheets.answerNext<ImportSheetController>([](auto &sheet) { sheet.cancel(); });
        app.g_controller.imports().importTabDelimited(nullptr);
        QCOMPARE(app.g_controller.openDatafileCount(), qsizetype(0));

        // Where the records of an empty array go is not asked.
        EditorWindowController &window = opened(app, "x,y\n");
        chooseFile(app, "[]");
        app.answer(u"OK"_s);
        app.g_controller.imports().importJSON(&window);
        QCOMPARE(app.g_sheets.alerts().size(), qsizetype(2));
        QVERIFY(app.g_sheets.allAnswered());
    }

    void namesAloneMakeADatafileWithAnEmptyRecord()
    {
        AppFixture app;
        chooseFile(app, "a,b\n");
        app.g_sheets.answerNext<ImportSheetController>([](auto &sheet) {
            sheet.setNamesInFirstRecord(true);
            sheet.accept();
        });
        app.answer(u"OK"_s);
        app.g_controller.imports().importCSV(nullptr);
        QCOMPARE(app.g_sheets.alerts(), QStringList{u"No records were imported."_s});
        QCOMPARE(rowsOf(*app.g_controller.documents().first()), QList<QStringList>({{QString(), QString()}}));
    }

    void foldersAskWhereTheirTextsGo()
    {
        AppFixture app;
        EditorWindowController &window = opened(app, "x,y\n");
        QDir(app.path({})).mkpath(u"texts/deep.rtfd"_s);
        for (const char *name : {"texts/1.txt", "texts/deep.rtfd/TXT.rtf"}) {
            QFile file(app.path(QString::fromLatin1(name)));
            QVERIFY(file.open(QIODevice::WriteOnly));
            file.write("{\\rtf1 one#two}");
        }
        app.g_sheets.answerNext<FileSheetController>([&](auto &sheet) {
            sheet.setPaths({app.path(u"texts"_s)});
            sheet.accept();
        });
        app.g_sheets.answerNext<FormSheetController>([](auto &form) {
            form.choose(0, 1);
            form.accept();
        });
        app.g_controller.imports().importFolderOfTextFilesWithFileNames(&window);
        QCOMPARE(rowsOf(window.document()),
                 QList<QStringList>({{u"x"_s, u"y"_s}, {u"1"_s, QString()}, {u"deep"_s, QString()}}));

        // The file in an RTFD document stands for it.
        app.g_sheets.answerNext<FileSheetController>([&](auto &sheet) {
            sheet.setPaths({app.path(u"texts/deep.rtfd/TXT.rtf"_s)});
            sheet.accept();
        });
        app.g_sheets.answerNext<ImportSheetController>([](auto &sheet) {
            sheet.setDelimiterText(u"#"_s);
            sheet.setDestination(ImportDestination::Append);
            QCOMPARE(sheet.previewRows(), QList<QStringList>({{u"one"_s}, {u"two"_s}}));
            sheet.accept();
        });
        app.g_controller.imports().importCustomDelimited(&window);
        QCOMPARE(window.document().datafileRecords().count(), qsizetype(5));
    }

    void theAssistantIsOfferedForWhatTheGrammarReadsBadly()
    {
        AppFixture app;
        chooseFile(app, "name,notes\n" + QByteArray("x,y\n").repeated(1000) + "a,\"one\ntwo\"\n");
        app.g_sheets.answerNext<ImportSheetController>([](auto &sheet) {
            QVERIFY(sheet.offersAssistant());
            sheet.finish(QVSheetController::ThirdButton);
        });
        app.g_sheets.answerNext<ImportAssistantSheetController>([](auto &sheet) {
            QVERIFY(sheet.namesInFirstRecord());
            QCOMPARE(sheet.targetItems(1).first(), u"Field “notes”"_s);
            sheet.setTarget(1, 1); // The text.
            sheet.accept();
        });

        app.g_controller.imports().importCSV(nullptr);

        const DatafileDocument &made = *app.g_controller.documents().first();
        QCOMPARE(rowsOf(made).last(), QStringList{u"a"_s});
        const QString last = made.datafileCatalog().identifierAtIndex(1000);
        QCOMPARE(made.datafileRecords().view(last)->textString().toString(), u"one\ntwo"_s);
    }

    void recordsAreUpdatedByTheirKey()
    {
        AppFixture app;
        EditorWindowController &window = opened(app, "k1,old\nk2,same\nk3,locked\n");
        DatafileDocument &document = window.document();
        document.datafileRecords()
            .recordForIdentifier(document.datafileCatalog().identifierAtIndex(2))
            ->setRecordLocked(true);
        const QList<QStringList> before = rowsOf(document);
        // The second row of k1 counts.
        chooseFile(app, "B;A;Text\nfirst;k1;\nnew;k1;told\nsame;k2;\nfresh;k4;\nother;k3;\n");
        app.g_sheets.answerNext<ImportAssistantSheetController>([](auto &sheet) {
            sheet.setNamesInFirstRecord(true);
            sheet.setDestination(ImportAssistantSheetController::Destination::Update);
            sheet.setKeyColumn(1);
            sheet.setTarget(2, 2);
            QVERIFY2(sheet.isAcceptable(), qPrintable(sheet.note()));
            sheet.accept();
        });
        app.g_sheets.answerNext<ImportDifferencesSheetController>([](auto &sheet) {
            QCOMPARE(sheet.differences().size(), qsizetype(2));
            QCOMPARE(sheet.differences().first().newContent, u"new"_s);
            sheet.accept();
        });

        app.g_controller.imports().importDelimitedText(&window);

        QList<QStringList> after = before;
        after[0][1] = u"new"_s;
        after.append({u"k4"_s, u"fresh"_s});
        QCOMPARE(rowsOf(document), after);
        const RecordData *first =
            document.datafileRecords().recordForIdentifier(document.datafileCatalog().identifierAtIndex(0));
        QCOMPARE(first->textString(), u"told"_s);
        window.undo();
        QCOMPARE(rowsOf(document), before);
        QVERIFY(first->textString().isEmpty());
    }

    void exportsAskAndWrite()
    {
        AppFixture app;
        EditorWindowController &window = opened(app, "\"a\",\"b, c\"\n");
        const QString path = app.path(u"out.csv"_s);
        app.g_sheets.answerNext<ExportSheetController>([](auto &sheet) {
            sheet.setIncludingFieldNames(false);
            sheet.setFieldContentOnly(true);
            sheet.accept();
        });
        app.g_sheets.answerNext<FileSheetController>([&](auto &sheet) {
            QCOMPARE(sheet.request().title, u"Save as CSV File"_s);
            sheet.setPaths({path});
            sheet.accept();
        });
        window.exporting().exportAsCSV();
        QCOMPARE(DatafileFixture::contentOf(path), QByteArray("a,\"b, c\"\n"));

        app.g_sheets.answerNext<FileSheetController>([&](auto &sheet) {
            QCOMPARE(sheet.request().folder, QFileInfo(path).absolutePath());
            sheet.setPaths({app.path(u"missing/out.txt"_s)});
            sheet.accept();
        });
        app.answer(u"OK"_s);
        window.exporting().exportAsTextFile();
        QCOMPARE(app.g_sheets.alerts(), QStringList{u"The records could not be exported."_s});

        const auto dragged = window.exporting().draggedRecords({0, 7});
        QCOMPARE(dragged->text(), u"A,B,Freeform Text Area\na,\"b, c\",\n"_s);
        QCOMPARE(DatafileFixture::contentOf(dragged->urls().first().toLocalFile()), dragged->text().toUtf8());
    }

private:
    /// The next panel chooses a file of that content.
    static void chooseFile(AppFixture &app, const QByteArray &content)
    {
        QFile file(app.path(u"in.csv"_s));
        QVERIFY(file.open(QIODevice::WriteOnly));
        file.write(content);
        app.g_sheets.answerNext<FileSheetController>([path = file.fileName()](auto &sheet) {
            sheet.setPaths({path});
            sheet.accept();
        });
    }

    /// A window on a datafile with the fields A and B and those rows.
    static EditorWindowController &opened(AppFixture &app, const QByteArray &csv)
    {
        chooseFile(app, "A,B\n" + csv);
        app.g_sheets.answerNext<ImportSheetController>([](auto &sheet) {
            sheet.setNamesInFirstRecord(true);
            sheet.accept();
        });
        app.g_controller.imports().importCSV(nullptr);
        EditorWindowController &window = app.window(0).controller();
        window.windowDidBecomeMain();
        window.setCanSaveChanges();
        return window;
    }
};

QTEST_MAIN(ImportControllerTest)
#include "ImportControllerTest.moc"
