// SPDX-FileCopyrightText: The Tavrin authors
// SPDX-License-Identifier: MIT

#include "ui/Screenshot.h"

#include "app/MainController.h"
#include "document/DatafileDocument.h"
#include "model/Preferences.h"
#include "ui/ApplicationMenus.h"
#include "ui/CommandLine.h"
#include "ui/EditorWindow.h"

#include <QApplication>
#include <QTimer>

#include <cstdio>

namespace tavrin {

namespace {

int fail(const Error &error)
{
    std::fprintf(stderr, "tavrin: %s (%s)\n", qPrintable(error.message), qPrintable(error.detail));
    return 1;
}

/// Makes no windows: a picture is of one window that belongs to nobody.
class NoWindows : public DatafileWindowFactory
{
public:
    std::unique_ptr<DatafileWindow> makeWindow(DatafileDocument & /*document*/,
                                               const QString & /*record*/) override
    {
        return nullptr;
    }
};

} // namespace

int takeScreenshot(const CommandLine &line)
{
    Preferences preferences{QString()};
    preferences.registerDefaults(registeredDefaults());
    const Environment environment = Environment::system();
    auto document = DatafileDocument::open(
        {environment, &preferences}, line.datafiles.front(), SelectionOnOpening::AllSelected);
    if (!document)
        return fail(document.error());
    // A picture changes nothing: neither the file nor a lock beside it.
    (*document)->keepCatalog();
    (*document)->datafileSettings().setNetworkShared(false);
    (*document)->datafileSettings().setReadOnlyWarning(false);

    NoWindows factory;
    WidgetSheetHost sheets([] { return nullptr; });
    WidgetWorkHost work(nullptr);
    MainController controller(preferences, environment, factory, sheets, work);
    ApplicationMenus menus(controller);
    EditorWindow window(**document, preferences, menus, {});
    if (!line.view.isEmpty() && window.controller().mode() != line.view)
        window.controller().setMode(line.view);
    if (line.size)
        window.resize(*line.size);
    window.show();

    // Laid out in the first turn of the event loop, drawn in the next. Then exit(), not quit(), which would
    // ask the window whether it may close.
    constexpr int settledMilliseconds = 400;
    QTimer::singleShot(settledMilliseconds, &window, [&] {
        const bool written = window.grab().save(line.screenshotPath);
        if (!written)
            std::fprintf(stderr, "tavrin: the picture could not be written\n");
        QCoreApplication::exit(written ? 0 : 1);
    });
    return QCoreApplication::exec();
}

} // namespace tavrin
