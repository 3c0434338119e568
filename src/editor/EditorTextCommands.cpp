// SPDX-FileCopyrightText: The Tavrin authors
// SPDX-License-Identifier: MIT

#include "editor/EditorTextCommands.h"

#include "editor/AlertSheetController.h"
#include "editor/ContentLongWork.h"
#include "editor/DefaultFontWork.h"
#include "editor/EditorFreeformText.h"
#include "editor/EditorWindowController.h"
#include "editor/TextChanging.h"
#include "model/Preferences.h"
#include "plist/KeyedArchive.h"

#include <QClipboard>
#include <QGuiApplication>
#include <QRegularExpression>
#include <QTextBlock>
#include <QTextTable>

namespace tavrin {

using namespace Qt::StringLiterals;

namespace {

/// The locale's long form without the day of the week, and for the medium one with the month's short name.
QString dateFormat(StampFormat format, const QLocale &locale)
{
    if (format == StampFormat::Iso)
        return u"yyyy-MM-dd"_s;
    if (format == StampFormat::Short)
        return locale.dateFormat(QLocale::ShortFormat);
    QString written = locale.dateFormat(QLocale::LongFormat);
    if (format == StampFormat::Full)
        return written;
    static const QRegularExpression weekday(u"^dddd?[,.]?\\s*|[,.]?\\s*dddd?$"_s);
    written.remove(weekday);
    return format == StampFormat::Medium ? written.replace("MMMM"_L1, "MMM"_L1) : written;
}

QString timeFormat(StampFormat format, StampTime time, const QLocale &locale)
{
    QString written = format == StampFormat::Iso ? u"HH:mm"_s : locale.timeFormat(QLocale::ShortFormat);
    return time == StampTime::Seconds ? written.replace("mm"_L1, "mm:ss"_L1) : written;
}

bool isBlank(const QTextBlock &line)
{
    return QStringView(line.text()).trimmed().isEmpty();
}

/// Removes the line with its end; of the last line the end before it.
void removeLine(QTextCursor &cursor, const QTextBlock &line)
{
    const bool isLast = !line.next().isValid();
    cursor.setPosition(isLast ? qMax(0, line.position() - 1) : line.position());
    cursor.setPosition(isLast ? line.position() + line.length() - 1 : line.next().position(),
                       QTextCursor::KeepAnchor);
    cursor.removeSelectedText();
}

bool isInTable(const QTextBlock &line)
{
    return line.isValid() && QTextCursor(line).currentTable();
}

/// Whether the line's end is its own. Beside a table it is the table's, which would go with it.
bool mayRemoveLine(const QTextBlock &line)
{
    return !isInTable(line) && !isInTable(line.next())
           && (line.next().isValid() || !isInTable(line.previous()));
}

} // namespace

QString dateTimeStamp(const QDateTime &instant, StampFormat format, StampTime time, const QLocale &locale)
{
    const QString date = locale.toString(instant.date(), dateFormat(format, locale));
    if (time == StampTime::None)
        return date;
    return date + u' ' + locale.toString(instant.time(), timeFormat(format, time, locale));
}

EditorTextCommands::EditorTextCommands(EditorWindowController &window, SheetHost &sheets, WorkHost &work)
    : g_window(window)
    , g_sheets(sheets)
    , g_work(work)
{}

void EditorTextCommands::insertDateTime()
{
    const Preferences &preferences = g_window.preferences();
    StampTime time = StampTime::None;
    if (preferences.boolForKey(u"GeneralTimeInDateStamp"_s))
        time = preferences.boolForKey(u"GeneralShowSecondsInTimeStamp"_s) ? StampTime::Seconds
                                                                          : StampTime::Minutes;
    const auto format = static_cast<StampFormat>(
        qBound(qint64(0), preferences.integerForKey(u"GeneralDateTimeFormat"_s), qint64(4)));
    const QDateTime now = g_window.document().services().environment.now().toDateTime().toLocalTime();
    g_window.view().insertTyped(dateTimeStamp(now, format, time, QLocale()));
}

void EditorTextCommands::pasteAsPlainText()
{
    EditorView &view = g_window.view();
    const QString text = QGuiApplication::clipboard()->text();
    if (view.focus() == EditorFocus::FreeformText)
        view.pasteIntoFreeformText(true);
    else if (!text.isEmpty())
        view.insertTyped(text);
}

void EditorTextCommands::removeBlankLines()
{
    QTextCursor cursor = g_window.view().freeformCursor();
    if (cursor.isNull() || !g_window.isFreeformTextEditable())
        return;
    const QTextDocument &text = *cursor.document();
    const bool selected = cursor.hasSelection();
    const QTextBlock first = selected ? text.findBlock(cursor.selectionStart()) : text.firstBlock();
    QTextBlock line = selected ? text.findBlock(cursor.selectionEnd()) : text.lastBlock();
    const int end = first.blockNumber();
    cursor.beginEditBlock();
    for (int number = line.blockNumber(); number >= end; --number) {
        line = text.findBlockByNumber(number);
        if (isBlank(line) && mayRemoveLine(line) && text.blockCount() > 1)
            removeLine(cursor, line);
    }
    cursor.endEditBlock();
}

QColor EditorTextCommands::highlighterColor() const
{
    const plist::Value stored = g_window.preferences().objectForKey(u"GeneralHighlighterColor"_s);
    const auto color = stored.isData() ? plist::unarchiveColor(*stored.data()) : std::nullopt;
    if (!color)
        return {255, 241, 118};
    const auto part = [](double value) { return static_cast<float>(qBound(0.0, value, 1.0)); };
    return QColor::fromRgbF(part(color->red), part(color->green), part(color->blue), part(color->alpha));
}

void EditorTextCommands::toggleHighlighter()
{
    QTextCursor cursor = g_window.view().freeformCursor();
    if (cursor.isNull() || !g_window.isFreeformTextEditable() || !g_window.text().mayHaveFormats())
        return;
    if (!cursor.hasSelection())
        cursor.select(QTextCursor::WordUnderCursor);
    if (!cursor.hasSelection())
        return;
    const bool isMarked = isWholly(cursor, [](const auto &look) { return look.background.has_value(); });
    const richtext::Color color = toColor(highlighterColor());
    changeLook(cursor, [&](richtext::CharacterFormat &look) {
        look.background = isMarked ? std::nullopt : std::optional(color);
    });
}

void EditorTextCommands::changeCurrentRecordToDefaultFont()
{
    const RecordData *record = g_window.currentRecord();
    if (!record || !g_window.leaveEditing())
        return;
    const DatafileRecordsData &records = g_window.document().datafileRecords();
    changeToDefaultFont(records.identifiers().number(records.identifierForRecord(record)));
}

void EditorTextCommands::changeAllToDefaultFont()
{
    auto alert =
        std::make_unique<AlertSheetController>(tr("Change all selected records to the default font?"),
                                               QString(),
                                               QStringList{tr("Change"), tr("Cancel")});
    connect(alert.get(), &QVSheetController::finished, this, [this](int returnCode) {
        if (returnCode == QVSheetController::FirstButton && g_window.leaveEditing())
            changeToDefaultFont({});
    });
    g_sheets.begin(std::move(alert));
}

void EditorTextCommands::changeToDefaultFont(std::optional<quint32> onlyRecord)
{
    const auto make = [this, onlyRecord] {
        auto work = std::make_shared<DefaultFontWork>(g_window.document());
        if (onlyRecord)
            work->restrictTo(*onlyRecord);
        return work;
    };
    const auto ended = [this](const ContentWork &work, bool changed) {
        if (changed)
            g_window.loadCurrentRecord();
        if (work.lockedRecords() > 0)
            Q_EMIT g_window.statusMessage(tr("Locked records skipped: %1.").arg(work.lockedRecords()));
    };
    beginContentWork(g_window, g_work, tr("Changing to the default font…"), make, ended);
}

} // namespace tavrin
