// SPDX-FileCopyrightText: The Tavrin authors
// SPDX-License-Identifier: MIT

#include "app/MainController.h"

#include "app/ImportController.h"
#include "app/NewDatafileSheetController.h"
#include "document/DatafileBackups.h"
#include "editor/AlertSheetController.h"
#include "editor/DatafileReading.h"
#include "editor/EditorRecords.h"
#include "editor/EditorWindowController.h"
#include "editor/FileSheetController.h"
#include "model/StringOperations.h"

#include <QCoreApplication>
#include <QDir>
#include <QFileInfo>

#include <algorithm>

namespace tavrin {

using namespace Qt::StringLiterals;

namespace {

constexpr std::chrono::milliseconds menuDelay{100};

/// The one path of a file, whatever links led to it: so it is opened once, under one lock.
QString canonicalPath(const QString &path)
{
    const QFileInfo info(path);
    const QString canonical = info.canonicalFilePath();
    return canonical.isEmpty() ? info.absoluteFilePath() : canonical;
}

} // namespace

MainController::MainController(Preferences &preferences,
                               Environment environment,
                               DatafileWindowFactory &windows,
                               SheetHost &sheets,
                               WorkHost &work)
    : g_preferences(preferences)
    , g_environment(std::move(environment))
    , g_windows(windows)
    , g_sheets(sheets)
    , g_work(work)
    , g_recentDatafiles(preferences)
    , g_datafilesFolder(std::make_unique<DatafilesFolder>(preferences))
    , g_imports(std::make_unique<ImportController>(*this, sheets, work))
{
    g_menuTimer.setSingleShot(true);
    g_menuTimer.setInterval(menuDelay);
    connect(&g_menuTimer, &QTimer::timeout, this, &MainController::setupDatafilesMenu);
    connect(&g_preferences, &Preferences::changed, this, [this](const QString &key) {
        if (key == RecentDatafiles::key())
            Q_EMIT recentDatafilesChanged();
        else if (key == "DatafilesFolderURL"_L1 || key == "DatafilesFolderPath"_L1)
            g_menuTimer.start();
    });
}

MainController::~MainController()
{
    for (const OpenDatafile &open : g_open) {
        open.document->disconnect(this);
        open.window->controller().disconnect(this);
    }
}

// Start-up.

void MainController::finishLaunchingStuff()
{
    g_preferences.registerDefaults(registeredDefaults());
    g_preferences.remove(u"DatafilesFolderBookmark"_s);
    g_lastDatafileClosing = false;
    g_quitting = false;
    if (g_preferences.boolForKey(u"RestorePreviousSession"_s))
        restorePreviousSession();
    autoOpenDatafiles();
    setupDatafilesMenu();
    g_fullyStarted = true;
}

void MainController::restorePreviousSession()
{
    openThoseThatExist(sessionFromList(g_preferences.arrayForKey(u"PreviousSessionList"_s)));
}

void MainController::autoOpenDatafiles()
{
    const bool alreadyOpen = !g_open.empty() || !g_waiting.empty() || isOpening();
    if (alreadyOpen && !g_preferences.boolForKey(u"RestorePreviousSession"_s))
        return;
    QList<SessionEntry> datafiles;
    const plist::Array paths = g_preferences.arrayForKey(u"AutoOpenDatafilePaths"_s);
    for (const plist::Value &value : paths) {
        if (const QString *path = value.string(); path && !path->isEmpty())
            datafiles.append({stringByExpandingTildeInPath(*path, QDir::homePath()), {}});
    }
    openThoseThatExist(datafiles);
}

/// Tells of all missing datafiles in one alert: they may be many, on a disk that is not there today.
void MainController::openThoseThatExist(const QList<SessionEntry> &datafiles)
{
    QStringList missing;
    for (const SessionEntry &datafile : datafiles) {
        if (QFileInfo::exists(datafile.path))
            openDatafile(datafile.path, datafile.recordIdentifier);
        else
            missing.append(QDir::toNativeSeparators(datafile.path));
    }
    if (missing.size() == 1)
        tell(tr("The document “%1” could not be opened.").arg(lastPathComponent(missing.front())),
             tr("There is no such file:\n\n%1").arg(missing.front()));
    else if (!missing.isEmpty())
        tell(tr("%1 documents could not be opened.").arg(missing.size()),
             tr("There are no such files:\n\n%1").arg(missing.join(u'\n')));
}

void MainController::saveCurrentSession()
{
    g_preferences.remove(u"PreviousSessionList"_s);
    QList<SessionEntry> session;
    for (const OpenDatafile &open : g_open) {
        if (open.document->filePath().isEmpty())
            continue;
        const RecordData *record = open.window->controller().currentRecord();
        session.append({open.document->filePath(), record ? record->identifier() : QString()});
    }
    // Whoever quits while a session is still coming back does not want to lose the rest of it.
    session += g_opening;
    if (!session.isEmpty())
        g_preferences.setObject(listFromSession(session), u"PreviousSessionList"_s);
}

// Opening.

void MainController::openDatafiles(const QStringList &paths)
{
    for (const QString &path : paths)
        openDatafile(path);
}

void MainController::openDatafile(const QString &path, const QString &firstRecord)
{
    const QString canonical = canonicalPath(path);
    for (const OpenDatafile &open : g_open) {
        if (canonicalPath(open.document->filePath()) == canonical) {
            open.window->bringToFront();
            remember(*open.document);
            return;
        }
    }
    if (isBeingOpened(canonical))
        return;
    g_opening.append({canonical, firstRecord});
    auto reading = std::make_unique<DatafileReading>(canonical, tr("Opening “%1”…"));
    connect(reading.get(), &LongWork::ended, this, [this, canonical, reading = reading.get()] {
        didReadDatafile(canonical, reading->takeContents());
    });
    g_work.begin(std::move(reading));
}

/// It is being read, or the person has not yet answered whether to correct it.
bool MainController::isBeingOpened(const QString &canonical) const
{
    return std::ranges::any_of(g_opening, [&](const auto &opening) { return opening.path == canonical; })
           || std::ranges::any_of(g_waiting, [&](const auto &waiting) {
                  return canonicalPath(waiting.document->filePath()) == canonical;
              });
}

void MainController::didReadDatafile(const QString &canonical, Result<DatafileContents> contents)
{
    const auto found = std::ranges::find(g_opening, canonical, &SessionEntry::path);
    const QString firstRecord = found->recordIdentifier;
    g_opening.erase(found);
    std::unique_ptr<DatafileDocument> document;
    if (contents)
        document =
            DatafileDocument::openContents(services(), *std::move(contents), SelectionOnOpening::AllSelected);
    if (document && !document->catalogMismatch()) {
        showDocument(std::move(document), firstRecord);
        return;
    }
    // Before there is anything to ask or to tell, so that it has a window to stand on.
    Q_EMIT openDatafilesChanged();
    if (document)
        askToCorrectCatalog(std::move(document), firstRecord);
    else if (contents.error().kind != Error::Kind::Cancelled)
        tellNotOpened(canonical, contents.error());
}

void MainController::askToCorrectCatalog(std::unique_ptr<DatafileDocument> document,
                                         const QString &firstRecord)
{
    auto sheet = std::make_unique<AlertSheetController>(
        document->catalogMismatchMessage(),
        tr("Tavrin can correct this, but the record order will be changed in the process.\n\nDo you want to "
           "correct the problem?"),
        QStringList{tr("Correct the Problem"), tr("Don't Correct")});
    const DatafileDocument *asked = document.get();
    g_waiting.push_back({std::move(document), firstRecord});
    connect(sheet.get(), &QVSheetController::finished, this, [this, asked](int returnCode) {
        const auto found = std::find_if(g_waiting.begin(), g_waiting.end(), [&](const auto &waiting) {
            return waiting.document.get() == asked;
        });
        WaitingDatafile answered = std::move(*found);
        g_waiting.erase(found);
        if (returnCode == QVSheetController::FirstButton)
            answered.document->correctCatalog();
        else
            answered.document->keepCatalog();
        showDocument(std::move(answered.document), answered.firstRecord);
    });
    ask(std::move(sheet));
}

void MainController::showDocument(std::unique_ptr<DatafileDocument> document, const QString &firstRecord)
{
    DatafileDocument &shown = *document;
    std::unique_ptr<DatafileWindow> window = g_windows.makeWindow(shown, firstRecord);
    EditorWindowController &controller = window->controller();
    g_open.push_back({std::move(document), std::move(window), shown.correctedCatalog()});
    g_lastDatafileClosing = false;

    if (DatafileBackups(shown).isOfBackup())
        shown.setOpenedReadOnly(true);
    followDocument(shown);
    followWindow(shown, controller);
    saveCorrectedCatalog(shown);
    shown.datafileSettings().setDatafileSettingsDidChange(false);
    remember(shown);
    Q_EMIT openDatafilesChanged();
}

/// A backup was only looked at.
void MainController::remember(DatafileDocument &document)
{
    if (!document.filePath().isEmpty() && !DatafileBackups(document).isOfBackup())
        g_recentDatafiles.remember(canonicalPath(document.filePath()));
}

void MainController::followDocument(DatafileDocument &document)
{
    connect(&document, &DatafileDocument::fileWritten, &g_menuTimer, qOverload<>(&QTimer::start));
    connect(&document, &DatafileDocument::fileChanged, this, [this, &document] {
        remember(document);
        Q_EMIT openDatafilesChanged();
    });
}

/// The window's signals come from inside a controller that must outlive them, so what removes it is queued.
void MainController::followWindow(DatafileDocument &document, EditorWindowController &controller)
{
    const QPointer<DatafileDocument> followed(&document);
    connect(
        &controller,
        &EditorWindowController::closeAllowed,
        this,
        [this, followed] {
            if (followed)
                documentWindowClosed(*followed);
        },
        Qt::QueuedConnection);
    connect(
        &controller,
        &EditorWindowController::openInPlace,
        this,
        [this, followed](const QString &path) {
            if (followed)
                openInPlaceOf(*followed, path);
        },
        Qt::QueuedConnection);
    connect(
        &controller,
        &EditorWindowController::openDatafile,
        this,
        [this](const QString &path) { openDatafile(path); },
        Qt::QueuedConnection);
    controller.records().setOpenFiles([this] {
        QStringList paths;
        for (const OpenDatafile &open : g_open)
            paths.append(open.document->filePath());
        for (const WaitingDatafile &waiting : g_waiting)
            paths.append(waiting.document->filePath());
        return paths;
    });
    connect(&controller, &EditorWindowController::closeRefused, this, [this, &document] {
        closeWasRefused(document);
    });
    connect(&controller, &EditorWindowController::operationsChanged, this, [this, &document] {
        saveCorrectedCatalog(document);
    });
}

/// At once where the window permits it, else as soon as it does.
void MainController::saveCorrectedCatalog(const DatafileDocument &document)
{
    OpenDatafile *open = find(document);
    if (!open || !open->hasUnsavedCorrection || !document.correctedCatalog() || document.openedReadOnly()
        || !open->window->controller().canSaveChanges())
        return;
    open->hasUnsavedCorrection = false;
    const auto ended = [this, name = document.displayName()](const Result<> &saved) {
        if (!saved)
            tell(tr("The document “%1” could not be saved.").arg(name), saved.error().message);
    };
    if (const Result<> begun = open->document->beginForceSave(); !begun)
        ended(begun);
    else
        connect(
            open->document.get(), &DatafileDocument::savingFinished, this, ended, Qt::SingleShotConnection);
}

void MainController::openDocument()
{
    FileSheetController::Request request;
    request.purpose = FileSheetController::Purpose::OpenFiles;
    request.title = tr("Open");
    request.folder = validatedDirectoryPath(g_datafilesFolder->path());
    request.nameFilters = {tr("Datafiles (*.tv3 *.tvk)"), tr("All files (*)")};
    auto sheet = std::make_unique<FileSheetController>(request);
    connect(sheet.get(), &QVSheetController::finished, this, [this, sheet = sheet.get()](int returnCode) {
        if (returnCode == QVSheetController::FirstButton)
            openDatafiles(sheet->paths());
    });
    ask(std::move(sheet));
}

void MainController::newDatafile()
{
    auto sheet = std::make_unique<NewDatafileSheetController>();
    connect(sheet.get(), &QVSheetController::finished, this, [this, sheet = sheet.get()](int returnCode) {
        if (returnCode != QVSheetController::FirstButton)
            return;
        showDocument(DatafileDocument::newDatafile(
                         services(), sheet->kind(), sheet->fieldNames(), sheet->textName().trimmed()),
                     {});
    });
    ask(std::move(sheet));
}

QString MainController::samplePath() const
{
    // Beside the program, in the repository above a build tree, and where packages install it.
    static constexpr const char *folders[] = {"../samples", "../../../samples", "../share/tavrin/samples"};
    for (const char *folder : folders) {
        const QString path = QCoreApplication::applicationDirPath() + u'/' + QLatin1StringView(folder)
                             + u"/Address Book.tv3"_s;
        if (QFileInfo(path).isFile())
            return QDir::cleanPath(path);
    }
    return {};
}

void MainController::openSample()
{
    const QString path = samplePath();
    if (path.isEmpty())
        return;
    auto document = DatafileDocument::open(services(), path, SelectionOnOpening::AllSelected);
    if (!document) {
        tellNotOpened(path, document.error());
        return;
    }
    (*document)->makeUntitled(lastPathComponentWithoutExtension(path));
    showDocument(std::move(*document), {});
}

// Questions.

void MainController::ask(std::unique_ptr<QVSheetController> sheet)
{
    ++g_openQuestions;
    connect(sheet.get(), &QVSheetController::closed, this, [this] { --g_openQuestions; });
    g_sheets.begin(std::move(sheet));
}

void MainController::tell(const QString &messageText, const QString &informativeText)
{
    ask(std::make_unique<AlertSheetController>(messageText, informativeText));
}

void MainController::tellNotOpened(const QString &path, const Error &error)
{
    const QString name = lastPathComponent(path);
    if (error.kind == Error::Kind::TooNew)
        tell(DatafileDocument::tooNewMessage(name), DatafileDocument::tooNewInformativeText());
    else
        tell(tr("The document “%1” could not be opened.").arg(name), error.message);
}

} // namespace tavrin
