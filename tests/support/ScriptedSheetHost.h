// SPDX-FileCopyrightText: The Tavrin authors
// SPDX-License-Identifier: MIT

#pragma once

#include "editor/AlertSheetController.h"
#include "editor/SheetHost.h"

#include <QTest>

#include <deque>
#include <functional>
#include <vector>

namespace tavrin {

/// A host that answers its sheets by a script, in order. A sheet that nobody expected, or of another class
/// than expected, fails the test; so does a script that was not used up: ask allAnswered() at the end.
class ScriptedSheetHost : public SheetHost
{
public:
    /// The next sheet is of this class; `answer` fills it in and ends it, or leaves it open.
    template <typename Sheet>
    void answerNext(const std::function<void(Sheet &)> &answer)
    {
        g_script.push_back([answer](QVSheetController &sheet) {
            auto *expected = qobject_cast<Sheet *>(&sheet);
            if (expected)
                answer(*expected);
            return expected != nullptr;
        });
    }

    /// The next sheet is an alert, answered with that button.
    void answerAlert(int returnCode)
    {
        answerNext<AlertSheetController>([returnCode](auto &alert) { alert.finish(returnCode); });
    }

    bool allAnswered() const { return g_script.empty(); }
    /// The texts of the alerts shown, in order.
    const QStringList &alerts() const { return g_alerts; }
    QStringList lastButtons() const { return g_lastButtons; }

    void begin(std::unique_ptr<QVSheetController> sheet) override
    {
        if (const auto *alert = qobject_cast<AlertSheetController *>(sheet.get())) {
            g_alerts.append(alert->messageText());
            g_lastButtons = alert->buttons();
        }
        QVSheetController &begun = *sheet;
        g_sheets.push_back(std::move(sheet));
        if (g_script.empty()) {
            QFAIL(qPrintable(QStringLiteral("unexpected sheet: ") + describe(begun)));
            return;
        }
        const auto answer = std::move(g_script.front());
        g_script.pop_front();
        QVERIFY2(answer(begun), qPrintable(QStringLiteral("another sheet was expected: ") + describe(begun)));
    }

private:
    static QString describe(const QVSheetController &sheet)
    {
        const auto *alert = qobject_cast<const AlertSheetController *>(&sheet);
        return alert ? alert->messageText() : QString::fromLatin1(sheet.metaObject()->className());
    }

    std::deque<std::function<bool(QVSheetController &)>> g_script;
    std::vector<std::unique_ptr<QVSheetController>> g_sheets; ///< Kept: a handler may still be running.
    QStringList g_alerts;
    QStringList g_lastButtons;
};

} // namespace tavrin
