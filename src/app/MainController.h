// SPDX-FileCopyrightText: The Tavrin authors
// SPDX-License-Identifier: MIT

#pragma once

#include "app/DatafilesFolder.h"
#include "app/OpenDatafile.h"
#include "app/RecentDatafiles.h"
#include "app/SessionList.h"
#include "editor/LongWork.h"
#include "editor/SheetHost.h"
#include "model/Preferences.h"

#include <QObject>
#include <QPointer>
#include <QTimer>

#include <functional>
#include <memory>
#include <vector>

namespace tavrin {

struct DatafileContents;
class ImportController;

/// The application's controller: which datafiles are open, the session, the Datafiles menu, new datafiles and
/// quitting.
///
/// It owns the open documents and their windows. `sheets` is where questions go that belong to no datafile
/// window, and `work` reads the datafiles; they, the factory and the preferences outlive the controller.
class MainController : public QObject
{
    Q_OBJECT

public:
    MainController(Preferences &preferences,
                   Environment environment,
                   DatafileWindowFactory &windows,
                   SheetHost &sheets,
                   WorkHost &work);
    ~MainController() override;

    /// Start-up: registered defaults, the previous session, automatic datafiles, in that order.
    void finishLaunchingStuff();
    bool isFullyStarted() const { return g_fullyStarted; }

    /// Opens a datafile, or brings the window to the front in which it is open already. It is read while the
    /// program goes on; several are opened one after the other, in order. What goes wrong is told in an
    /// alert.
    void openDatafile(const QString &path, const QString &firstRecord = {});
    void openDatafiles(const QStringList &paths);

    /// Asks which datafiles to open.
    void openDocument();
    /// Asks for the fields of a new datafile.
    void newDatafile();
    /// Opens a fresh copy of the sample address book as an untitled datafile, so that the sample stays as it
    /// is.
    void openSample();
    bool hasSample() const { return !samplePath().isEmpty(); }

    void restorePreviousSession();
    void autoOpenDatafiles();
    void saveCurrentSession();

    // The datafiles folder and its menu.
    DatafilesFolder &datafilesFolder() { return *g_datafilesFolder; }
    /// The folder's datafiles and folders, as last scanned.
    const QList<DatafilesMenuItem> &datafilesMenu() const { return g_datafilesMenu; }
    void setupDatafilesMenu();
    void resetDatafilesFolder();

    /// Newest first, at most 10.
    QStringList recentDatafiles() const;
    void clearRecentDatafiles();

    qsizetype openDatafileCount() const { return static_cast<qsizetype>(g_open.size()); }
    /// Datafiles are being read, or wait for their turn.
    bool isOpening() const { return !g_opening.empty(); }
    QList<DatafileDocument *> documents() const;
    DatafileWindow *windowOf(const DatafileDocument &document) const;

    void closeAllOpenDatafiles();
    void closeAllReadOnlyDatafiles();

    // Quitting.
    bool applicationShouldTerminateAfterLastWindowClosed() const;
    /// Asks where preferences or unsaved changes demand it; `terminate` follows when nothing speaks against
    /// it.
    void applicationShouldTerminate();

    Preferences &preferences() { return g_preferences; }
    DocumentServices services() const { return {g_environment, &g_preferences}; }
    ImportController &imports() { return *g_imports; }
    /// Shows a datafile that was just made, in a window of its own.
    void showNewDatafile(std::unique_ptr<DatafileDocument> document)
    {
        showDocument(std::move(document), {});
    }

Q_SIGNALS:
    /// Also when there is one less to be opened.
    void openDatafilesChanged();
    void datafilesMenuChanged();
    void recentDatafilesChanged();
    void terminate();

private:
    using DatafileTest = std::function<bool(const DatafileDocument &)>;

    QString samplePath() const;

    // Questions.
    void ask(std::unique_ptr<QVSheetController> sheet);
    void tell(const QString &messageText, const QString &informativeText);
    void tellNotOpened(const QString &path, const Error &error);
    void chooseDatafilesFolder();

    // Opening.
    void openThoseThatExist(const QList<SessionEntry> &datafiles);
    bool isBeingOpened(const QString &canonical) const;
    void didReadDatafile(const QString &canonical, Result<DatafileContents> contents);
    void askToCorrectCatalog(std::unique_ptr<DatafileDocument> document, const QString &firstRecord);
    void showDocument(std::unique_ptr<DatafileDocument> document, const QString &firstRecord);
    void followDocument(DatafileDocument &document);
    void remember(DatafileDocument &document);
    void followWindow(DatafileDocument &document, EditorWindowController &controller);
    void saveCorrectedCatalog(const DatafileDocument &document);

    // Closing and quitting.
    OpenDatafile *find(const DatafileDocument &document);
    void removeDatafile(DatafileDocument &document);
    void documentWindowClosed(DatafileDocument &document);
    void openInPlaceOf(DatafileDocument &document, const QString &path);
    void closeAllThat(DatafileTest test);
    void closeNext();
    void closeWasRefused(const DatafileDocument &document);
    void confirmQuit();
    void quit();
    void finishQuittingStuff();

    Preferences &g_preferences;
    Environment g_environment;
    DatafileWindowFactory &g_windows;
    SheetHost &g_sheets;
    WorkHost &g_work;
    RecentDatafiles g_recentDatafiles;
    std::unique_ptr<DatafilesFolder> g_datafilesFolder;
    std::unique_ptr<ImportController> g_imports;
    QList<DatafilesMenuItem> g_datafilesMenu;
    std::vector<OpenDatafile> g_open;
    QList<SessionEntry> g_opening; ///< By canonical path.
    std::vector<WaitingDatafile> g_waiting;
    QTimer g_menuTimer;
    DatafileTest g_closing;                  ///< Which datafiles are being closed, one after the other.
    QPointer<DatafileDocument> g_askedClose; ///< The one of them whose answer is awaited.
    int g_openQuestions = 0;
    bool g_fullyStarted = false;
    bool g_quitting = false;
    bool g_lastDatafileClosing = false;
};

} // namespace tavrin
