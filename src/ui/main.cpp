// SPDX-FileCopyrightText: The Tavrin authors
// SPDX-License-Identifier: MIT

#include "app/MainController.h"
#include "app/SingleInstance.h"
#include "model/Preferences.h"
#include "ui/Appearance.h"
#include "ui/ApplicationWindows.h"
#include "ui/CommandLine.h"
#include "ui/Icons.h"
#include "ui/Screenshot.h"

#include <QApplication>
#include <QIcon>
#include <QStandardPaths>

using namespace Qt::StringLiterals;
using namespace tavrin;

namespace {

int run(const CommandLine &line)
{
    SingleInstance instance(SingleInstance::defaultName());
    if (instance.handOver(line.datafiles))
        return 0;

    // QStandardPaths names the folder of this program's settings on each platform.
    Preferences preferences(QStandardPaths::writableLocation(QStandardPaths::AppConfigLocation)
                            + u"/preferences.plist"_s);
    ApplicationWindows windows(preferences);
    MainController controller(preferences, Environment::system(), windows, windows.sheets(), windows.work());
    windows.setController(controller);
    // exit(), not quit(), which would ask the windows once more whether they may close.
    QObject::connect(&controller, &MainController::terminate, qApp, [] { QCoreApplication::exit(0); });
    QObject::connect(&instance, &SingleInstance::openRequested, &controller, [&](const QStringList &paths) {
        controller.openDatafiles(paths);
        if (paths.isEmpty())
            windows.bringToFront();
    });

    controller.finishLaunchingStuff();
    controller.openDatafiles(line.datafiles);
    windows.updateStartWindow();
    return QCoreApplication::exec();
}

} // namespace

int main(int argc, char **argv)
{
    QApplication application(argc, argv);
    QApplication::setApplicationName(u"Tavrin"_s);
    QApplication::setApplicationVersion(QStringLiteral(TAVRIN_VERSION));
    QApplication::setDesktopFileName(u"tavrin"_s);
    QApplication::setWindowIcon(QIcon(u":/icons/tavrin.svg"_s));
    // The start window comes back when the last datafile closes; the controller says when to end.
    QApplication::setQuitOnLastWindowClosed(false);

    const CommandLine line = CommandLine::parse(application);
    setUpAppearance(line.appearance);
    return line.screenshotPath.isEmpty() ? run(line) : takeScreenshot(line);
}
