// SPDX-FileCopyrightText: The Tavrin authors
// SPDX-License-Identifier: MIT

// Setting the window up, what it shows, and its end.

#include "editor/EditorWindowController.h"

#include "base/FilledIn.h"
#include "base/Log.h"
#include "editor/EditorChanges.h"
#include "editor/EditorExporting.h"
#include "editor/EditorFields.h"
#include "editor/EditorFormatting.h"
#include "editor/EditorFreeformText.h"
#include "editor/EditorLinks.h"
#include "editor/EditorPermission.h"
#include "editor/EditorRecords.h"
#include "editor/EditorSaving.h"
#include "editor/EditorSearchController.h"
#include "editor/EditorSelecting.h"
#include "editor/EditorSorting.h"
#include "editor/EditorTableController.h"
#include "editor/EditorTextCommands.h"
#include "model/Preferences.h"

#include <QFontDatabase>
#include <QLocale>

#include <utility>

namespace tavrin {

using namespace Qt::StringLiterals;

namespace {

QFont displayFont(const FontDescription &description)
{
    // The stored name stays in the settings; only what is shown falls back.
    QFont font = QFontDatabase::hasFamily(description.family)
                     ? QFont(description.family)
                     : QFontDatabase::systemFont(QFontDatabase::GeneralFont);
    constexpr qint64 largest = 1000;
    font.setPointSize(static_cast<int>(qBound(qint64(1), description.size, largest)));
    return font;
}

QString shortDate(Date date)
{
    return QLocale().toString(date.toDateTime().toLocalTime().date(), QLocale::ShortFormat);
}

QString sizeForPeople(quint64 size)
{
    // Two is the least width, not the number of decimals: there are six.
    if (size <= 1000)
        return filledIn(EditorWindowController::tr("%lu Bytes"), {QString::number(size)});
    const bool isKilo = size <= 1000000;
    const double shown = static_cast<double>(size) / (isKilo ? 1000.0 : 1000000.0);
    return QString::asprintf("%2f", shown) + (isKilo ? u" KB"_s : u" MB"_s);
}

} // namespace

EditorWindowController::EditorWindowController(DatafileDocument &document,
                                               SheetHost &sheets,
                                               WorkHost &work,
                                               Preferences &preferences)
    : g_document(document)
    , g_sheets(sheets)
    , g_preferences(preferences)
{
    setUpCollaborators(work);
}

EditorWindowController::EditorWindowController(EditorWindowController &mainWindow,
                                               SheetHost &sheets,
                                               WorkHost &work)
    : g_document(mainWindow.g_document)
    , g_sheets(sheets)
    , g_preferences(mainWindow.g_preferences)
    , g_mainWindow(&mainWindow)
{
    setUpCollaborators(work);
    mainWindow.g_cloneWindow = this;
}

void EditorWindowController::setUpCollaborators(WorkHost &work)
{
    g_mode = isClone() ? g_mainWindow->g_mode : settings().mode();
    g_tableController = std::make_unique<EditorTableController>(*this);
    g_permission = std::make_unique<EditorPermission>(g_document, g_sheets);
    g_saving = std::make_unique<EditorSaving>(*this, g_sheets, work);
    g_changes = std::make_unique<EditorChanges>(*this, work);
    g_records = std::make_unique<EditorRecords>(*this, g_sheets, work);
    g_fields = std::make_unique<EditorFields>(*this, g_sheets, work);
    g_text = std::make_unique<EditorFreeformText>(*this);
    g_formatting = std::make_unique<EditorFormatting>(*this, g_sheets);
    g_links = std::make_unique<EditorLinks>(*this, g_sheets);
    g_selecting = std::make_unique<EditorSelecting>(*this, g_sheets, work);
    g_sorting = std::make_unique<EditorSorting>(*this, g_sheets, work, g_preferences);
    g_exporting = std::make_unique<EditorExporting>(*this, g_sheets, work);
    g_search = std::make_unique<EditorSearchController>(*this, g_sheets, work, g_preferences);
    g_textCommands = std::make_unique<EditorTextCommands>(*this, g_sheets, work);
    connect(g_permission.get(), &EditorPermission::changed, this, &EditorWindowController::operationsChanged);
    connect(g_changes.get(), &EditorChanges::isChangingChanged, this, [this] {
        updateFreeformTextEditability();
        Q_EMIT operationsChanged();
    });
    connect(g_search.get(),
            &EditorSearchController::modesChanged,
            this,
            &EditorWindowController::operationsChanged);
    // Not at every key: the clone follows as soon as the person takes breath.
    constexpr int breathMilliseconds = 250;
    g_cloneTimer.setSingleShot(true);
    g_cloneTimer.setInterval(breathMilliseconds);
    connect(&g_cloneTimer, &QTimer::timeout, this, &EditorWindowController::storeForClone);
}

EditorWindowController::~EditorWindowController()
{
    if (isClone()) {
        g_mainWindow->g_cloneWindow = nullptr;
        Q_EMIT g_mainWindow->operationsChanged();
    } else {
        g_document.setEditing(nullptr);
    }
}

void EditorWindowController::prepare(const QString &firstRecord)
{
    // What was not saved before (a new datafile) still is not; only loading a record is no edit.
    const bool wasModified = g_document.isModified();
    if (!isClone())
        g_document.setEditing(this);
    if (constexpr qint64 expanded = 7; !settings().settingExistsForKey(u"ToolbarLocation"_s))
        settings().setToolbarLocation(expanded);
    g_movingInViewedRecordList = true;
    g_tableController->setupTables();
    Q_EMIT modeChanged();
    setUpViewForMode();
    followDocument();

    qint64 index = recordToOpen();
    if (const qint64 wanted = g_document.datafileCatalog().indexOfSelectedIdentifier(firstRecord);
        !firstRecord.isEmpty() && wanted != NotFound)
        index = wanted;
    loadRecordAtIndex(index);
    g_movingInViewedRecordList = false;
    loadRecordAtIndex(index);
    // The first record enters the history once, and the position then is its place there.
    g_viewedRecordList.resetPosition();

    if (settings().fields().isEmpty() && isBasicView())
        switchView();
    if (isClone()) {
        freshenWindowContentSettings();
        Q_EMIT titleChanged();
        Q_EMIT operationsChanged();
        Q_EMIT g_mainWindow->operationsChanged();
        return;
    }
    g_permission->setUpReadOnlyAndLock();
    g_document.updateChangeCount(DatafileDocument::ChangeCount::Cleared);
    if (wasModified)
        g_document.updateChangeCount(DatafileDocument::ChangeCount::Done);
    settings().setDatafileSettingsDidChange(false);
    g_permission->warnWhenTooLarge();
    freshenWindowContentSettings();
    Q_EMIT titleChanged();
    Q_EMIT operationsChanged();
}

qint64 EditorWindowController::recordToOpen()
{
    constexpr qint64 openToMostRecent = 3;
    constexpr qint64 openToLast = 4;
    const SubsetSortedData &catalog = g_document.datafileCatalog();
    const qint64 lastIndex = catalog.countSelected() - 1;
    if (!settings().settingExistsForKey(u"OpenToRecord"_s)) {
        const bool toLast = settings().openToLastRecord();
        settings().setOpenToRecord(toLast ? openToLast : openToMostRecent);
        return toLast ? lastIndex : 0;
    }
    g_firstOpenedRecordID = settings().mostRecentRecord();
    if (settings().openToFirstRecord())
        return 0;
    if (settings().openToLastRecord())
        return lastIndex;
    return g_firstOpenedRecordID.isEmpty() ? 0 : catalog.indexOfSelectedIdentifier(g_firstOpenedRecordID);
}

QString EditorWindowController::windowTitle() const
{
    return isClone() ? g_document.displayName() + u"-CLONE"_s : g_document.displayName();
}

QString EditorWindowController::recordNumberText() const
{
    return filledIn(tr("#%lu"), {QString::number(indexOfCurrentRecord() + 1)});
}

QString EditorWindowController::selectionText() const
{
    return filledIn(
        tr("%lu of %lu selected"),
        {QString::number(countSelected()), QString::number(g_document.datafileCatalog().count())});
}

QString EditorWindowController::textName() const
{
    return settings().textName();
}

QFont EditorWindowController::fieldsFont() const
{
    return displayFont(settings().fieldsFont());
}

QFont EditorWindowController::textFont() const
{
    return displayFont(settings().textFont());
}

QColor EditorWindowController::freeformBackgroundColor() const
{
    const Color color = settings().backgroundFTAcolor();
    const auto component = [](double value) { return static_cast<float>(qBound(0.0, value, 1.0)); };
    return QColor::fromRgbF(
        component(color.red), component(color.green), component(color.blue), component(color.alpha));
}

bool EditorWindowController::currentRecordLocked() const
{
    return g_currentRecord && g_currentRecord->recordLocked();
}

bool EditorWindowController::isFreeformTextEditable() const
{
    return g_tableController->mayEdit() && g_text->isReadable();
}

QStringList EditorWindowController::recordInfo() const
{
    if (!g_currentRecord)
        return QStringList(7);
    const RecordData &record = *g_currentRecord;
    return {shortDate(record.modifiedDate()),
            shortDate(record.viewedDate()),
            shortDate(record.createdDate()),
            record.modifiedBy(),
            record.viewedBy(),
            record.createdBy(),
            sizeForPeople(recordSize(record))};
}

quint64 EditorWindowController::recordSize(const RecordData &record)
{
    quint64 size = static_cast<quint64>(record.textRTFD().size() + record.textString().size());
    record.fields().forEach([&](const QString &identifier, const plist::Value &) {
        size += static_cast<quint64>(record.fieldValue(identifier).size());
    });
    return size;
}

bool EditorWindowController::canSaveChanges() const
{
    return g_permission->canSaveChanges();
}

void EditorWindowController::windowDidBecomeMain()
{
    updateFreeformTextEditability();
    if (g_preferences.boolForKey(u"GeneralHighlightFindField"_s))
        g_search->finding().view().selectFindText();
    if (isClone())
        reloadClone();
    else
        g_permission->windowDidBecomeMain();
}

void EditorWindowController::setCanSaveChanges()
{
    if (!isClone())
        g_permission->decide();
}

bool EditorWindowController::isAskingPassword() const
{
    return g_permission->isAskingPassword();
}

bool EditorWindowController::nowSyncing() const
{
    return g_nowSyncing || g_changes->isChanging();
}

void EditorWindowController::autoSaveChanges(bool force)
{
    const bool hasChanges = force || g_document.isModified() || g_currentRecordDirty;
    if (!isClone() && settings().autoSaveChanges() && canSaveChanges() && hasChanges && !nowSyncing())
        g_saving->autoSave();
}

void EditorWindowController::saveDocument()
{
    g_saving->saveDocument();
}

void EditorWindowController::saveDocumentAs()
{
    g_saving->saveDocumentAs();
}

void EditorWindowController::saveCopyAs()
{
    g_saving->saveCopyAs();
}

void EditorWindowController::revertDocumentToSaved()
{
    g_saving->revertDocumentToSaved();
}

void EditorWindowController::requestClose()
{
    if (isClone()) {
        Q_EMIT closeAllowed();
        return;
    }
    // What is half done is not to be closed; whoever wants that cancels it first.
    if (g_changes->isChanging()) {
        Q_EMIT closeRefused();
        return;
    }
    if (g_cloneWindow)
        Q_EMIT cloneWindowMustClose();
    g_saving->requestClose();
}

void EditorWindowController::rememberRecordToOpen()
{
    const QString current = identifierOf(g_currentRecord);
    if (!settings().openToFirstRecord() && !settings().openToLastRecord() && !current.isEmpty()
        && settings().mostRecentRecord() != current) {
        settings().setMostRecentRecord(current);
        settings().setDatafileSettingsDidChange(true);
    }
}

bool EditorWindowController::beginWritingClosingSettings()
{
    rememberRecordToOpen();
    return !g_permission->isLockedBySomebodyElse()
           && g_document.beginUpdatingSettingsOnly() == SaveOutcome::Begun;
}

void EditorWindowController::windowWillClose()
{
    if (isClone()) {
        g_document.disconnect(this);
        return;
    }
    if (g_cloneWindow)
        Q_EMIT cloneWindowMustClose();
    rememberRecordToOpen();
    // The lock goes last: nobody else may open the datafile for writing while its settings are written. And a
    // datafile that somebody else has locked is not ours to write, not even its settings.
    if (!g_permission->isLockedBySomebodyElse()) {
        if (const Result<> updated = g_document.updateSettingsOnly(); !updated)
            qCWarning(log) << "The settings were not written:" << updated.error().detail;
    }
    g_permission->releaseLock();
    g_document.setEditing(nullptr);
    g_document.disconnect(this);
}

} // namespace tavrin
