// SPDX-FileCopyrightText: The Tavrin authors
// SPDX-License-Identifier: MIT

#include "app/ImportAssistantSheetController.h"
#include "app/ImportSheetController.h"
#include "editor/ExportSheetController.h"
#include "editor/FileSheetController.h"
#include "editor/FreeformSheetController.h"
#include "ui/ColumnMapping.h"
#include "ui/ExportDialogs.h"
#include "ui/FreeformDialog.h"
#include "ui/FreeformTextEdit.h"
#include "ui/ImportAssistantDialog.h"
#include "ui/ImportDialogs.h"
#include "ui/SheetDialogs.h"

#include <QComboBox>
#include <QDir>
#include <QDropEvent>
#include <QFileDialog>
#include <QLabel>
#include <QListWidget>
#include <QMessageBox>
#include <QMimeData>
#include <QRadioButton>
#include <QTableWidget>
#include <QTemporaryDir>
#include <QTest>
#include <QToolButton>

using namespace tavrin;
using namespace Qt::StringLiterals;

/// The sheets of import and export by keyboard.
class ExchangeDialogsTest : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void returnAmongTheFieldsOnlyInserts()
    {
        FreeformSheetController sheet({u"Name"_s, u"City"_s}, richtext::AttributedText(u"To "_s), {});
        FreeformDialog dialog(sheet, nullptr);
        activate(dialog);
        QCOMPARE(dialog.focusWidget(), dialog.findChild<FreeformTextEdit *>());
        QTest::keyClick(dialog.focusWidget(), Qt::Key_B, Qt::ControlModifier);
        QTRY_VERIFY(dialog.findChild<QToolButton *>()->isChecked());
        auto *fields = dialog.findChild<QListWidget *>();
        fields->setCurrentRow(1);
        fields->setFocus();
        QTest::keyClick(fields, Qt::Key_Return);
        const richtext::AttributedText &format = sheet.freeformTextFormat();
        QCOMPARE(format.text(), u"To \uFFFC"_s);
        QVERIFY(!format.characterFormatAt(0).bold && format.characterFormatAt(3).bold);
        QCOMPARE(format.characterFormatAt(3).attachment->name, u"City"_s);
        QVERIFY(!sheet.isFinished());
    }

    void tabLeavesTheFirstRows()
    {
        ImportSheetController sheet(TableKind::Csv, u"in.csv"_s, textContentOf("a,b\nc,d\n"), {});
        ImportDialog dialog(sheet, nullptr);
        activate(dialog);
        const auto *focused = qobject_cast<QRadioButton *>(dialog.focusWidget());
        QVERIFY(focused && focused->isChecked());
        auto *rows = dialog.findChild<QTableWidget *>();
        rows->setFocus();
        QTest::keyClick(rows, Qt::Key_Tab);
        QVERIFY(!rows->hasFocus());
    }

    void columnsAreMappedByDragging()
    {
        const ImportTarget target{u"Mine"_s,
                                  {FieldDefinition(u"A"_s, u"A"_s), FieldDefinition(u"B"_s, u"B"_s)}};
        ImportAssistantSheetController sheet(u"in.csv"_s, textContentOf("x,y\n1,2\n"), target);
        sheet.setDestination(ImportAssistantSheetController::Destination::Append);
        ImportAssistantDialog dialog(sheet, nullptr);
        activate(dialog);
        auto *fields = dialog.findChild<TargetList *>();
        drop(fields, u"column"_s, 1, fields->visualItemRect(fields->item(0)).center());
        QTRY_COMPARE(sheet.columns()[1].target, qsizetype(0));
        QCOMPARE(fields->item(0)->text(), u"A \u2190 y"_s);
        // The one that was there goes nowhere.
        QCOMPARE(sheet.columns()[0].target, qsizetype(3));
        auto *columns = dialog.findChild<ColumnTable *>();
        drop(columns, u"target"_s, 2, columns->visualItemRect(columns->item(1, 0)).center());
        QTRY_COMPARE(sheet.columns()[0].target, qsizetype(2));
        // By the keyboard, from key to key.
        QWidget *first = columns->cellWidget(0, 0);
        first->setFocus();
        QTest::keyClick(dialog.focusWidget(), Qt::Key_Up);
        QTest::keyClick(dialog.focusWidget(), Qt::Key_Up);
        QCOMPARE(sheet.columns()[0].target, qsizetype(0));
        QCOMPARE(dialog.focusWidget(), first);
    }

    void eachControlHasALetterOfItsOwn()
    {
        const ImportTarget target{u"Mine"_s, {FieldDefinition(u"A"_s, u"A"_s)}};
        for (const TableKind kind : {TableKind::Csv, TableKind::Custom}) {
            ImportSheetController sheet(kind, u"in.csv"_s, textContentOf("a\nb\n"), target);
            checkLetters(ImportDialog(sheet, nullptr));
        }
        ImportAssistantSheetController assistant(u"in.csv"_s, textContentOf("x,y\n1,2\n"), target);
        checkLetters(ImportAssistantDialog(assistant, nullptr));
        for (const auto shows :
             {ExportSheetController::Shows::TableOptions, ExportSheetController::Shows::NameField}) {
            ExportSheetController sheet(shows, u"Export"_s, {u"Name"_s});
            checkLetters(ExportDialog(sheet, nullptr));
        }
        FreeformSheetController freeform({u"Name"_s}, {}, {});
        checkLetters(FreeformDialog(freeform, nullptr));
    }

    void richTextIsNotAskedForItsEncoding()
    {
        ImportSheetController sheet(TableKind::Custom, u"in.rtf"_s, textContentOf("a"), {});
        QCOMPARE(ImportDialog(sheet, nullptr).findChildren<QComboBox *>().size(), 1);
        sheet.setHasFormats();
        QVERIFY(ImportDialog(sheet, nullptr).findChildren<QComboBox *>().isEmpty());
    }

    void noPanelBeginsInsideOfADocument()
    {
        const QTemporaryDir folder;
        const QString document = folder.filePath(u"a.rtfd/b.rtfd"_s);
        QVERIFY(QDir().mkpath(document));
        QFile file(document + u"/TXT.rtf"_s);
        QVERIFY(file.open(QIODevice::WriteOnly));
        // Where Qt's next panel begins.
        QFileDialog last(nullptr, {}, document);
        last.selectFile(u"TXT.rtf"_s);
        static_cast<QDialog &>(last).accept();
        QCOMPARE(QFileDialog().directory().absolutePath(), document);
        FileSheetController sheet({});
        const std::unique_ptr<QDialog> panel(makeSheetDialog(sheet, nullptr));
        QCOMPARE(qobject_cast<QFileDialog *>(panel.get())->directory().absolutePath(), folder.path());
    }

    void anExportAsksBeforeItReplacesADocument()
    {
        const QTemporaryDir folder;
        QVERIFY(QDir(folder.path()).mkdir(u"old.rtfd"_s));
        FileSheetController::Request request;
        request.purpose = FileSheetController::Purpose::SaveFile;
        request.folder = folder.path();
        request.requiredExtension = u"rtfd"_s;
        FileSheetController sheet(request);
        const std::unique_ptr<QDialog> panel(makeSheetDialog(sheet, nullptr));
        auto *file = qobject_cast<QFileDialog *>(panel.get());
        file->selectFile(u"old.rtfd"_s);
        for (const auto answer : {QMessageBox::No, QMessageBox::Yes}) {
            QVERIFY(!sheet.isFinished());
            panel->accept();
            QVERIFY(!sheet.isFinished());
            panel->findChildren<QMessageBox *>().last()->button(answer)->click();
        }
        QVERIFY(sheet.isFinished());
        QCOMPARE(sheet.path(), folder.filePath(u"old.rtfd"_s));
    }

private:
    static void checkLetters(const QDialog &dialog)
    {
        // The letter of Cancel is the desktop's choice, and is C in most of them.
        QSet<QString> taken = {u"Alt+C"_s};
        for (const QWidget *widget : dialog.findChildren<QWidget *>()) {
            const auto *label = qobject_cast<const QLabel *>(widget);
            const auto *button = qobject_cast<const QAbstractButton *>(widget);
            const bool isCaption = label && label->buddy() && label->buddy()->focusPolicy() != Qt::NoFocus
                                   && !qobject_cast<QRadioButton *>(label->buddy());
            const bool isButton = button && !qobject_cast<const QToolButton *>(widget)
                                  && !button->text().isEmpty() && !button->text().endsWith(u"Cancel"_s);
            if (!isCaption && !isButton)
                continue;
            const QString text = label ? label->text() : button->text();
            const QString letter = QKeySequence::mnemonic(text).toString();
            QVERIFY2(!letter.isEmpty() && !taken.contains(letter),
                     qPrintable(dialog.windowTitle() + u": "_s + text));
            taken.insert(letter);
        }
    }

    static void drop(QAbstractItemView *on, const QString &what, int number, QPoint place)
    {
        QMimeData data;
        data.setData(u"application/x-tavrin-import-"_s + what, QByteArray::number(number));
        // Qt sends a drop to what took the drag before it.
        QDragEnterEvent enter(place, Qt::LinkAction, &data, Qt::LeftButton, Qt::NoModifier);
        QCoreApplication::sendEvent(on->viewport(), &enter);
        QDropEvent event(place, Qt::LinkAction, &data, Qt::LeftButton, Qt::NoModifier);
        QCoreApplication::sendEvent(on->viewport(), &event);
        QVERIFY(event.isAccepted());
    }

    static void activate(QDialog &dialog)
    {
        dialog.show();
        dialog.activateWindow();
        QVERIFY(QTest::qWaitForWindowActive(&dialog));
    }
};

QTEST_MAIN(ExchangeDialogsTest)
#include "ExchangeDialogsTest.moc"
