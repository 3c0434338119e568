// SPDX-FileCopyrightText: The Tavrin authors
// SPDX-License-Identifier: MIT

#pragma once

#include "app/MainController.h"
#include "document/DatafileFixture.h"
#include "editor/EditorWindowController.h"
#include "support/FakeEditorView.h"
#include "support/ScriptedSheetHost.h"
#include "support/TestEnvironment.h"
#include "support/WorkDouble.h"

#include <QSignalSpy>

namespace tavrin {

/// An editor window without widgets.
class FakeWindow : public DatafileWindow
{
public:
    FakeWindow(DatafileDocument &document, SheetHost &sheets, Preferences &preferences)
        : g_controller(document, sheets, g_work, preferences)
    {
        g_controller.attachView(g_view);
    }

    EditorWindowController &controller() override { return g_controller; }
    void bringToFront() override { ++g_broughtToFront; }

    FakeEditorView g_view;
    WorkDouble g_work;
    EditorWindowController g_controller;
    int g_broughtToFront = 0;
};

class FakeWindows : public DatafileWindowFactory
{
public:
    FakeWindows(SheetHost &sheets, Preferences &preferences) : g_sheets(sheets), g_preferences(preferences) {}

    std::unique_ptr<DatafileWindow> makeWindow(DatafileDocument &document,
                                               const QString &firstRecord) override
    {
        auto window = std::make_unique<FakeWindow>(document, g_sheets, g_preferences);
        window->g_controller.prepare(firstRecord);
        return window;
    }

private:
    SheetHost &g_sheets;
    Preferences &g_preferences;
};

/// The application's controller with its surroundings, and datafiles "a.tv3", "b.tv3" and "c.tv3" to open.
class AppFixture
{
public:
    AppFixture()
    {
        for (const QString &name : {u"a.tv3"_s, u"b.tv3"_s, u"c.tv3"_s})
            g_files.make(name, DatafileFixture::root(3));
        g_preferences.setObject(g_files.path(u"none"_s), u"DatafilesFolderPath"_s);
    }

    QString path(const QString &name) const { return g_files.path(name); }
    QString url(const QString &name) const { return QUrl::fromLocalFile(path(name)).toString(); }

    /// The names of the open datafiles.
    QStringList open() const
    {
        QStringList names;
        for (const DatafileDocument *document : g_controller.documents())
            names.append(document->displayName());
        return names;
    }

    FakeWindow &window(qsizetype index) const
    {
        return dynamic_cast<FakeWindow &>(*g_controller.windowOf(*g_controller.documents().at(index)));
    }

    QString shownRecord(qsizetype index) const
    {
        const RecordData *record = window(index).g_controller.currentRecord();
        return record ? record->identifier() : QString();
    }

    /// Answers the next alert with a button, by its title.
    void answer(const QString &button)
    {
        g_sheets.answerNext<AlertSheetController>([button](AlertSheetController &alert) {
            const qsizetype index = alert.buttons().indexOf(button);
            QVERIFY2(index >= 0, qPrintable(alert.buttons().join(u'|')));
            alert.finish(QVSheetController::FirstButton + static_cast<int>(index));
        });
    }

    DatafileFixture g_files;
    TestEnvironment g_environment;
    Preferences g_preferences;
    ScriptedSheetHost g_sheets;
    FakeWindows g_windows{g_sheets, g_preferences};
    WorkDouble g_work;
    MainController g_controller{g_preferences, g_environment, g_windows, g_sheets, g_work};
};

} // namespace tavrin
