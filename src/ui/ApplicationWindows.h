// SPDX-FileCopyrightText: The Tavrin authors
// SPDX-License-Identifier: MIT

#pragma once

#include "app/DatafileWindow.h"
#include "editor/RecordInfoPaletteController.h"
#include "editor/Spelling.h"
#include "ui/WidgetSheetHost.h"
#include "ui/WidgetWorkHost.h"

#include <QObject>
#include <QPointer>
#include <QWidget>

#include <memory>

namespace tavrin {

class ApplicationMenus;
struct CopiedStyles;
class FindAndReplaceController;
class FindAndReplacePanel;
class MainController;
class MultiFileFindController;
class MultiFileFindWindow;
class Preferences;
class RecordInfoPalette;
class StartWindow;

/// Makes the editor windows, and keeps the start window on screen while there are none.
class ApplicationWindows : public QObject, public DatafileWindowFactory
{
    Q_OBJECT

public:
    explicit ApplicationWindows(Preferences &preferences);
    ~ApplicationWindows() override;

    /// The controller was made with this factory; called once, before it starts.
    void setController(MainController &controller);

    /// Where questions go that belong to no datafile.
    SheetHost &sheets() { return g_sheets; }
    /// Where work is done that belongs to no window.
    WorkHost &work() { return g_work; }

    std::unique_ptr<DatafileWindow> makeWindow(DatafileDocument &document,
                                               const QString &firstRecord) override;

    /// Shows the start window when no datafile is open or on its way, and hides it when one is open.
    void updateStartWindow();

    /// Brings what is on screen to the front: another start asked for attention.
    void bringToFront();

private:
    void openFindAndReplaceDialog();
    void openMultiFileFind();

    Preferences &g_preferences;
    MainController *g_controller = nullptr;
    WidgetSheetHost g_sheets;
    WidgetWorkHost g_work{nullptr};
    std::unique_ptr<ApplicationMenus> g_menus;
    RecordInfoPaletteController g_recordInfo;
    Spelling g_spelling;
    std::shared_ptr<CopiedStyles> g_copiedStyles;
    std::unique_ptr<RecordInfoPalette> g_recordInfoPalette;
    std::unique_ptr<StartWindow> g_startWindow;
    std::unique_ptr<FindAndReplaceController> g_findAndReplace;
    QPointer<QWidget> g_searchedWindow; ///< By the panel: the one that was active last.
    // Windows that are null until they were asked for.
    std::unique_ptr<FindAndReplacePanel> g_findAndReplacePanel;
    std::unique_ptr<MultiFileFindController> g_multiFileFind;
    std::unique_ptr<MultiFileFindWindow> g_multiFileFindWindow;
};

} // namespace tavrin
