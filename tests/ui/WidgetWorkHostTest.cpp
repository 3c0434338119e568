// SPDX-FileCopyrightText: The Tavrin authors
// SPDX-License-Identifier: MIT

#include "ui/WidgetWorkHost.h"

#include "ui/WorkPanel.h"

#include <QApplication>
#include <QLabel>
#include <QProgressBar>
#include <QSemaphore>
#include <QTest>
#include <QThread>

using namespace tavrin;
using namespace Qt::StringLiterals;

namespace {

/// Work that lasts until it is cancelled, or until the test lets it end.
class Waiting : public LongWork
{
public:
    Waiting(QSemaphore &gate, QStringList &log, const QString &name) : g_gate(gate), g_log(log), g_name(name)
    {
        connect(this, &LongWork::ended, this, [this] { g_log.append(g_name + g_outcome); });
    }

    QString title() const override { return g_name; }
    void run(Progress &progress) override
    {
        progress.setDone(1, 4);
        while (!progress.isCancelled() && !g_gate.tryAcquire(1, 5)) {
        }
        g_outcome = progress.isCancelled() ? u" cancelled"_s : u" done"_s;
        if (QThread::currentThread() == thread())
            g_outcome += u" in the way"_s;
    }

private:
    QSemaphore &g_gate;
    QStringList &g_log;
    QString g_name;
    QString g_outcome;
};

WorkPanel *panel()
{
    for (QWidget *widget : QApplication::topLevelWidgets()) {
        auto *found = qobject_cast<WorkPanel *>(widget);
        if (found && found->isVisible())
            return found;
    }
    return nullptr;
}

} // namespace

class WidgetWorkHostTest : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void shortWorkShowsNothingAndComesInOrder()
    {
        QSemaphore gate(2);
        QStringList log;
        WidgetWorkHost host(nullptr);
        host.begin(std::make_unique<Waiting>(gate, log, u"first"_s));
        host.begin(std::make_unique<Waiting>(gate, log, u"second"_s));
        QVERIFY(log.isEmpty());
        while (log.size() < 2) {
            QVERIFY(!panel());
            QCoreApplication::processEvents(QEventLoop::AllEvents, 10);
        }
        QCOMPARE(log, QStringList({u"first done"_s, u"second done"_s}));
    }

    void longWorkShowsHowFarItIsAndCanBeCancelled()
    {
        QSemaphore gate;
        QStringList log;
        QWidget window;
        window.show();
        WidgetWorkHost host(&window);
        host.begin(std::make_unique<Waiting>(gate, log, u"first"_s));
        host.begin(std::make_unique<Waiting>(gate, log, u"second"_s));
        QTRY_VERIFY(panel());
        QVERIFY(panel()->windowModality() == Qt::WindowModal && panel()->parentWidget() == &window);
        QCOMPARE(panel()->findChild<QProgressBar *>()->value(), 250);
        const QList<QLabel *> lines = panel()->findChildren<QLabel *>();
        QVERIFY(std::ranges::any_of(lines, [](const QLabel *line) { return line->text() == u"1 of 4"; }));
        QTest::keyClick(panel(), Qt::Key_Escape);
        QVERIFY(!panel());
        QTRY_COMPARE(log, QStringList{u"first cancelled"_s});

        gate.release();
        QTRY_COMPARE(log, QStringList({u"first cancelled"_s, u"second done"_s}));
        QTest::qWait(400);
        QVERIFY(!panel());
    }

    void aHostThatGoesCancelsAndTellsNobody()
    {
        QSemaphore gate;
        QStringList log;
        {
            WidgetWorkHost host(nullptr);
            host.begin(std::make_unique<Waiting>(gate, log, u"first"_s));
            host.begin(std::make_unique<Waiting>(gate, log, u"second"_s));
        }
        QCoreApplication::processEvents();
        QCOMPARE(log, QStringList());
    }
};

QTEST_MAIN(WidgetWorkHostTest)
#include "WidgetWorkHostTest.moc"
