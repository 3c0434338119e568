// SPDX-FileCopyrightText: The Tavrin authors
// SPDX-License-Identifier: MIT

#include "editor/EditorLinks.h"

#include "base/FilledIn.h"
#include "editor/AlertSheetController.h"
#include "editor/BasicTableModel.h"
#include "editor/EditorTableController.h"
#include "editor/EditorWindowController.h"
#include "editor/FileSheetController.h"
#include "editor/TextChanging.h"
#include "editor/TextSheetController.h"
#include "text/UrlScanner.h"

#include <QClipboard>
#include <QDesktopServices>
#include <QFileInfo>
#include <QGuiApplication>
#include <QMimeData>
#include <QRegularExpression>
#include <QTextBlock>
#include <QTextDocument>
#include <QUrl>

#include <array>

namespace tavrin {

using namespace Qt::StringLiterals;
using richtext::CharacterFormat;

namespace {

constexpr auto recordScheme = "uuid://"_L1;
constexpr auto fileScheme = "file://"_L1;
constexpr std::array openedSchemes{"http"_L1, "https"_L1, "ftp"_L1, "mailto"_L1, "tel"_L1, "file"_L1};

/// Without percent-encoding; as it is where that is not UTF-8.
QString decoded(const QString &link)
{
    const QByteArray bytes = QByteArray::fromPercentEncoding(link.toUtf8());
    return bytes.isValidUtf8() ? QString::fromUtf8(bytes) : link;
}

/// All of the link that the caret stands in, if it does.
void selectLink(QTextCursor &cursor)
{
    const QTextBlock block = cursor.block();
    const auto linkAt = [&cursor](int position) { // Of the character there.
        QTextCursor behind(cursor.document());
        behind.setPosition(position + 1);
        return lookOf(behind.charFormat())->link;
    };
    const int last = block.position() + block.length() - 1;
    int start = cursor.position();
    int end = start;
    QString link = end < last ? linkAt(end) : QString();
    if (link.isEmpty() && start > block.position())
        link = linkAt(start - 1);
    if (link.isEmpty())
        return;
    while (start > block.position() && linkAt(start - 1) == link)
        --start;
    while (end < last && linkAt(end) == link)
        ++end;
    cursor.setPosition(start);
    cursor.setPosition(end, QTextCursor::KeepAnchor);
}

bool isProgram(const QFileInfo &file)
{
    static constexpr std::array suffixes{
        "desktop"_L1, "sh"_L1, "exe"_L1, "bat"_L1, "cmd"_L1, "msi"_L1, "jar"_L1, "appimage"_L1, "command"_L1};
    const auto isSuffix = [&file](QLatin1StringView suffix) {
        return file.suffix().compare(suffix, Qt::CaseInsensitive) == 0;
    };
    if (file.isSymLink() && isProgram(QFileInfo(file.canonicalFilePath())))
        return true;
    return file.isFile() && (file.isExecutable() || std::ranges::any_of(suffixes, isSuffix));
}

void addLinksTo(QTextDocument &document)
{
    // One layout for all of them.
    QTextCursor edit(&document);
    edit.beginEditBlock();
    for (QTextBlock block = document.begin(); block.isValid(); block = block.next()) {
        const QString text = block.text();
        for (const text::Link &link : text::linksIn(text)) {
            const auto start = block.position() + static_cast<int>(link.range.location);
            changeLook(document,
                       start,
                       start + static_cast<int>(link.range.length),
                       [&link](CharacterFormat &look) { look.link = link.url; });
        }
    }
    edit.endEditBlock();
}

/// People leave out the beginning of an address.
QString wholeAddress(const QString &entry)
{
    static const QRegularExpression scheme(u"^[A-Za-z][A-Za-z0-9+.-]*:"_s);
    if (entry.isEmpty() || scheme.match(entry).hasMatch())
        return entry;
    return (entry.contains(u'@') ? u"mailto:"_s : u"http://"_s) + entry;
}

} // namespace

EditorLinks::EditorLinks(EditorWindowController &window, SheetHost &sheets)
    : g_window(window)
    , g_sheets(sheets)
    , g_opener([](const QUrl &url) { return QDesktopServices::openUrl(url); })
{}

void EditorLinks::activateFreeformLinks()
{
    g_window.view().decorateFreeformText(addLinksTo);
}

void EditorLinks::activateLinks()
{
    const QTextCursor cursor = g_window.view().freeformCursor();
    if (!g_window.validateAction(u"activateLinks:"_s) || cursor.isNull())
        return;
    addLinksTo(*cursor.document());
}

// Following.

bool EditorLinks::mayFollow(const QString &link) const
{
    const QString scheme = link.section(u':', 0, 0).toLower();
    return link.startsWith(recordScheme) || std::ranges::find(openedSchemes, scheme) != openedSchemes.end();
}

bool EditorLinks::followLink(const QString &link)
{
    if (!mayFollow(link))
        return false;
    if (const QString name = decoded(link); name.startsWith(recordScheme)) {
        loadLinkedRecord(
            g_window.document().datafileRecords().recordForIdentifier(name.sliced(recordScheme.size())));
        return true;
    }
    const QUrl url(link);
    return url.isLocalFile() ? openFile(url, link) : g_opener(url);
}

void EditorLinks::openLink(const QString &link)
{
    if (link.isEmpty() || followLink(link))
        return;
    const QString reason = mayFollow(link) ? tr("Nothing on this computer opens %@")
                                           : tr("Links of this kind are not opened: %@");
    Q_EMIT g_window.statusMessage(filledIn(reason, {link}));
}

bool EditorLinks::openFile(const QUrl &url, const QString &link)
{
    const QFileInfo file(url.toLocalFile());
    if (!file.exists()) {
        linkDidFail(link);
        return true;
    }
    const auto open = [this, url, link] {
        if (!g_opener(url))
            linkDidFail(link);
    };
    if (!isProgram(file)) {
        open();
        return true;
    }
    auto alert = std::make_unique<AlertSheetController>(
        filledIn(tr("“%@” may be a program."), {file.fileName()}),
        tr("Opening it may run it. Do so only if you know what it does."),
        QStringList{tr("Open"), tr("Cancel")});
    alert->setDestructiveButton(0);
    connect(alert.get(), &QVSheetController::finished, this, [open](int returnCode) {
        if (returnCode == QVSheetController::FirstButton)
            open();
    });
    g_sheets.begin(std::move(alert));
    return true;
}

void EditorLinks::linkDidFail(const QString &link)
{
    const QString name = decoded(link);
    const QString path = name.startsWith(fileScheme) ? name.sliced(fileScheme.size()) : name;
    showAlert(g_sheets,
              tr("Could not find the file at:"),
              filledIn(tr("%@\n\nYou should update the link or remove it."), {path}));
}

void EditorLinks::loadLinkedRecord(RecordData *record)
{
    if (!record) {
        showAlert(g_sheets,
                  tr("You have linked to a record that no longer exists."),
                  tr("You should probably remove that link."));
        return;
    }
    const QString identifier = g_window.document().datafileRecords().identifierForRecord(record);
    showSelectedOrAsk(identifier, [this, identifier] {
        g_window.updateCurrentRecord();
        g_window.autoSaveChanges(false);
        g_window.showRecord(identifier);
    });
}

void EditorLinks::showSelectedOrAsk(const QString &identifier, const std::function<void()> &show)
{
    if (g_window.document().datafileCatalog().isSelectedIdentifier(identifier)) {
        show();
        return;
    }
    auto alert = std::make_unique<AlertSheetController>(
        tr("You have linked to a record that is not currently selected."),
        tr("Do you want to select it and show it?"),
        QStringList{tr("OK"), tr("Cancel")});
    connect(alert.get(), &QVSheetController::finished, this, [this, show](int returnCode) {
        if (returnCode == QVSheetController::FirstButton && g_window.leaveEditing())
            show();
    });
    g_sheets.begin(std::move(alert));
}

QString EditorLinks::linkAtCaret() const
{
    if (g_window.view().focus() == EditorFocus::Table)
        return g_window.view().linkInCell();
    const QTextCursor cursor = g_window.view().freeformCursor();
    if (cursor.isNull() || g_window.view().focus() != EditorFocus::FreeformText)
        return {};
    // The caret stands between two characters: the link may begin behind it.
    if (const QString link = lookOf(cursor.charFormat())->link; !link.isEmpty() || cursor.atBlockEnd())
        return link;
    QTextCursor next(cursor.document());
    next.setPosition(cursor.selectionStart() + 1);
    return lookOf(next.charFormat())->link;
}

// Making and removing.

void EditorLinks::insertFileLink()
{
    if (!g_window.validateAction(u"insertFileLink:"_s))
        return;
    FileSheetController::Request request;
    request.title = tr("Insert File Link");
    request.purpose = FileSheetController::Purpose::OpenFileOrFolder;
    request.acceptLabel = tr("Select");
    const EditorFocus focus = g_window.view().focus();
    const int field = g_window.tableController().currentField();
    const int row = g_window.isBasicView() ? field : static_cast<int>(g_window.indexOfCurrentRecord());
    const int column = g_window.isBasicView() ? BasicTableModel::ValueColumn : field;
    auto sheet = std::make_unique<FileSheetController>(request);
    connect(sheet.get(), &QVSheetController::finished, this, [=, this, sheet = sheet.get()](int returnCode) {
        if (returnCode == QVSheetController::FirstButton)
            linkFile(sheet->path(), focus, row, column);
    });
    g_sheets.begin(std::move(sheet));
}

void EditorLinks::linkFile(const QString &path, EditorFocus focus, int row, int column)
{
    const QFileInfo file(path);
    const QString target =
        file.canonicalFilePath().isEmpty() ? file.absoluteFilePath() : file.canonicalFilePath();
    const QString url = QString::fromLatin1(QUrl::fromLocalFile(target).toEncoded());
    if (g_window.currentRecordLocked() || g_window.isClone())
        return; // Meanwhile.
    if (focus == EditorFocus::Table) {
        g_window.view().resumeTableCell(row, column);
        g_window.view().insertIntoCell(url);
        return;
    }
    const QString name = QFileInfo(target).fileName();
    insertLinkedText(name.isEmpty() ? target : name, url);
    if (std::as_const(g_window).document().datafileSettings().automaticallyEnableLinks())
        activateLinks();
}

void EditorLinks::insertLinkedText(const QString &text, const QString &link)
{
    QTextCursor cursor = g_window.view().freeformCursor();
    if (cursor.isNull())
        return;
    const Look around = lookOf(cursor.charFormat());
    CharacterFormat look = *around;
    look.attachment.reset();
    look.link.clear();
    const Look plain(look);
    look.link = link;
    cursor.insertText(text, charFormatFor(Look(look)));
    // What is typed behind it is no part of it.
    cursor.setCharFormat(charFormatFor(plain));
    g_window.view().setFreeformCursor(cursor);
}

void EditorLinks::removeLink()
{
    QTextCursor cursor = g_window.view().freeformCursor();
    if (!g_window.validateAction(u"removeLink:"_s) || !cursor.hasSelection())
        return;
    changeLook(cursor, [](CharacterFormat &look) { look.link.clear(); });
    g_window.view().setFreeformCursor(cursor);
}

void EditorLinks::deactivateFieldLink()
{
    if (g_window.validateAction(u"deactivateFieldLink:"_s))
        g_window.view().deactivateCellLinks();
}

void EditorLinks::editLink()
{
    if (!g_window.validateAction(u"orderFrontLinkPanel:"_s))
        return;
    auto sheet = std::make_unique<TextSheetController>(tr("Link"), tr("Address:"), linkAtCaret());
    sheet->setMayBeEmpty(true);
    connect(sheet.get(), &QVSheetController::finished, this, [this, sheet = sheet.get()](int returnCode) {
        QTextCursor cursor = g_window.view().freeformCursor();
        if (returnCode != QVSheetController::FirstButton || !g_window.isFreeformTextEditable())
            return;
        const QString entry = sheet->text().trimmed();
        const QString link = wholeAddress(entry);
        if (!cursor.hasSelection())
            selectLink(cursor);
        if (!cursor.hasSelection() && !link.isEmpty()) {
            insertLinkedText(entry, link);
            return;
        }
        changeLook(cursor, [&link](CharacterFormat &look) { look.link = link; });
        g_window.view().setFreeformCursor(cursor);
    });
    g_sheets.begin(std::move(sheet));
}

void EditorLinks::copyRecordLink()
{
    const RecordData *record = g_window.currentRecord();
    if (!record)
        return;
    g_window.updateCurrentRecord();
    const QString link = recordScheme + g_window.document().datafileRecords().identifierForRecord(record);
    QString name = record->textString().section(u'\n', 0, 0).trimmed();
    if (name.isEmpty() && !std::as_const(g_window).document().datafileSettings().fields().isEmpty())
        name = record->fieldValue(
            std::as_const(g_window).document().datafileSettings().fields().constFirst().identifier());
    auto *data = new QMimeData;
    data->setText(link);
    data->setHtml(
        u"<a href=\"%1\">%2</a>"_s.arg(link.toHtmlEscaped(), (name.isEmpty() ? link : name).toHtmlEscaped()));
    QGuiApplication::clipboard()->setMimeData(data);
}

} // namespace tavrin
