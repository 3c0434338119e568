// SPDX-FileCopyrightText: The Tavrin authors
// SPDX-License-Identifier: MIT

#include "app/ImportSheetController.h"
#include "editor/ExportSheetController.h"
#include "ui/ExportDialogs.h"
#include "ui/ImportDialogs.h"

#include <QListWidget>
#include <QPlainTextEdit>
#include <QRadioButton>
#include <QTableWidget>
#include <QTest>

using namespace tavrin;
using namespace Qt::StringLiterals;

/// The sheets of import and export by keyboard.
class ExchangeDialogsTest : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void returnAmongTheFieldsOnlyInserts()
    {
        FreeformSheetController sheet({u"Name"_s, u"City"_s}, u"To "_s);
        FreeformDialog dialog(sheet, nullptr);
        activate(dialog);
        QCOMPARE(dialog.focusWidget(), dialog.findChild<QPlainTextEdit *>());
        auto *fields = dialog.findChild<QListWidget *>();
        fields->setCurrentRow(1);
        fields->setFocus();
        QTest::keyClick(fields, Qt::Key_Return);
        QCOMPARE(sheet.freeformTextFormat(), u"To «City»"_s);
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

private:
    static void activate(QDialog &dialog)
    {
        dialog.show();
        dialog.activateWindow();
        QVERIFY(QTest::qWaitForWindowActive(&dialog));
    }
};

QTEST_MAIN(ExchangeDialogsTest)
#include "ExchangeDialogsTest.moc"
