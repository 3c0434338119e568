// SPDX-FileCopyrightText: The Tavrin authors
// SPDX-License-Identifier: MIT

#include "ui/WidgetSheetHost.h"

#include "app/NewDatafileSheetController.h"
#include "editor/AlertSheetController.h"
#include "editor/EnterPasswordSheetController.h"
#include "editor/FileSheetController.h"
#include "editor/GotoRecordSheetController.h"

#include <QApplication>
#include <QDialog>
#include <QLineEdit>
#include <QMessageBox>
#include <QPlainTextEdit>
#include <QPushButton>
#include <QTest>

using namespace tavrin;
using namespace Qt::StringLiterals;

class WidgetSheetHostTest : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void theButtonThatWasHitGivesTheCode_data();
    void theButtonThatWasHitGivesTheCode();
    void escapeAndTheClosedFrameCancel();
    void sheetsComeOneAfterTheOther();
    void aSheetThatGoesWithItsWindowMakesWay();
    void returnDoesNotDestroy();
    void theEntryDecidesWhetherOkayIsEnabled();
    void everySheetHasADialog();

private:
    template <typename Widget>
    static Widget *shown()
    {
        for (QWidget *widget : QApplication::topLevelWidgets()) {
            auto *found = qobject_cast<Widget *>(widget);
            if (found && found->isVisible())
                return found;
        }
        return nullptr;
    }

    template <typename Sheet>
    static QList<int> &begin(WidgetSheetHost &host, std::unique_ptr<Sheet> sheet, QList<int> &codes)
    {
        QObject::connect(
            sheet.get(), &QVSheetController::finished, &host, [&codes](int code) { codes.append(code); });
        host.begin(std::move(sheet));
        return codes;
    }
};

void WidgetSheetHostTest::theButtonThatWasHitGivesTheCode_data()
{
    QTest::addColumn<int>("button");
    QTest::addColumn<int>("code");
    QTest::addRow("first") << 0 << 1000;
    QTest::addRow("second") << 1 << 1001;
    QTest::addRow("third") << 2 << 1002;
}

void WidgetSheetHostTest::theButtonThatWasHitGivesTheCode()
{
    QFETCH(int, button);
    QWidget window;
    WidgetSheetHost host([&window] { return &window; });
    QList<int> codes;
    const QStringList buttons{u"Save"_s, u"Cancel"_s, u"Close"_s};
    const QStringList labels{u"&Save"_s, u"&Cancel"_s, u"C&lose"_s}; // A letter of its own for each.
    auto alert = std::make_unique<AlertSheetController>(u"Save?"_s, QString(), buttons);
    alert->setCancelButton(1);
    begin(host, std::move(alert), codes);

    const auto *box = shown<QMessageBox>();
    QVERIFY(box);
    QCOMPARE(box->windowModality(), Qt::WindowModal);
    for (QPushButton *candidate : box->findChildren<QPushButton *>()) {
        if (candidate->text() == labels.at(button))
            candidate->click();
    }

    QCOMPARE(codes.size(), 1);
    QTEST(codes.first(), "code");
    QCoreApplication::processEvents();
    QVERIFY(!host.isShowing());
}

void WidgetSheetHostTest::escapeAndTheClosedFrameCancel()
{
    QWidget window;
    WidgetSheetHost host([&window] { return &window; });
    QList<int> codes;
    begin(host, std::make_unique<GotoRecordSheetController>(5), codes);
    QTest::keyClick(shown<QDialog>(), Qt::Key_Escape);
    QCOMPARE(codes, QList<int>{QVSheetController::SecondButton});

    begin(host, std::make_unique<GotoRecordSheetController>(5), codes);
    QTRY_VERIFY(shown<QDialog>());
    shown<QDialog>()->close();
    QCOMPARE(codes.size(), 2);
}

void WidgetSheetHostTest::sheetsComeOneAfterTheOther()
{
    QWidget window;
    WidgetSheetHost host([&window] { return &window; });
    QList<int> codes;
    begin(host, std::make_unique<AlertSheetController>(u"one"_s, QString()), codes);
    begin(host, std::make_unique<AlertSheetController>(u"two"_s, QString()), codes);

    QCOMPARE(shown<QMessageBox>()->text(), u"one"_s);
    shown<QMessageBox>()->buttons().constFirst()->click();
    QTRY_VERIFY(shown<QMessageBox>() && shown<QMessageBox>()->text() == u"two"_s);
    QCOMPARE(codes.size(), 1);
    shown<QMessageBox>()->buttons().constFirst()->click();
    QCOMPARE(codes.size(), 2);
}

void WidgetSheetHostTest::aSheetThatGoesWithItsWindowMakesWay()
{
    auto window = std::make_unique<QWidget>();
    WidgetSheetHost host([&window] { return window.get(); });
    QList<int> codes;
    begin(host, std::make_unique<GotoRecordSheetController>(5), codes);
    begin(host, std::make_unique<AlertSheetController>(u"two"_s, QString()), codes);

    window.reset();

    QTRY_VERIFY(shown<QMessageBox>());
    QCOMPARE(codes, QList<int>{QVSheetController::SecondButton});
}

void WidgetSheetHostTest::returnDoesNotDestroy()
{
    QWidget window;
    WidgetSheetHost host([&window] { return &window; });
    QList<int> codes;
    auto alert =
        std::make_unique<AlertSheetController>(u"Delete?"_s, QString(), QStringList{u"OK"_s, u"Cancel"_s});
    alert->setDestructiveButton(0);
    begin(host, std::move(alert), codes);

    QTest::keyClick(shown<QMessageBox>(), Qt::Key_Return);

    QCOMPARE(codes, QList<int>{QVSheetController::SecondButton});
}

void WidgetSheetHostTest::theEntryDecidesWhetherOkayIsEnabled()
{
    QWidget window;
    WidgetSheetHost host([&window] { return &window; });
    QList<int> codes;
    begin(host, std::make_unique<GotoRecordSheetController>(5), codes);
    auto *dialog = shown<QDialog>();
    auto *entry = dialog->findChild<QLineEdit *>();

    entry->setText(u"6"_s);
    QTest::keyClick(entry, Qt::Key_Return);
    QVERIFY(codes.isEmpty());
    entry->setText(u"5"_s);
    QTest::keyClick(entry, Qt::Key_Return);
    QCOMPARE(codes, QList<int>{QVSheetController::FirstButton});
}

void WidgetSheetHostTest::everySheetHasADialog()
{
    QWidget window;
    WidgetSheetHost host([&window] { return &window; });
    QList<int> codes;
    const auto showAndCancel = [&](auto sheet) {
        QVSheetController *shownSheet = sheet.get();
        begin(host, std::move(sheet), codes);
        QTRY_VERIFY(host.isShowing());
        shownSheet->cancel();
        QCoreApplication::processEvents();
    };
    showAndCancel(std::make_unique<EnterPasswordSheetController>(u"secret"_s));
    showAndCancel(std::make_unique<NewDatafileSheetController>());
    showAndCancel(std::make_unique<FileSheetController>(FileSheetController::Request{}));
    QCOMPARE(codes.size(), 3);
}

QTEST_MAIN(WidgetSheetHostTest)
#include "WidgetSheetHostTest.moc"
