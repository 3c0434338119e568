// SPDX-FileCopyrightText: The Tavrin authors
// SPDX-License-Identifier: MIT

// What leaves a datafile: the commands of the Export menu.

#include "editor/EditorExporting.h"
#include "editor/EditorWindowController.h"
#include "ui/Commands.h"

#include <QClipboard>
#include <QCoreApplication>
#include <QGuiApplication>

#include <array>

namespace tavrin {

namespace {

using Controller = EditorWindowController;

constexpr Command separator{"", "", "", "", nullptr};

constexpr std::array exportMenu{
    Command{"exportAsCSV:",
            QT_TRANSLATE_NOOP("Commands", "&CSV File…"),
            "",
            "",
            [](Controller &window) { window.exporting().exportAsCSV(); }},
    Command{"exportAsTabDelimited:",
            QT_TRANSLATE_NOOP("Commands", "&Tab-Delimited File…"),
            "",
            "",
            [](Controller &window) { window.exporting().exportAsTabDelimited(); }},
    separator,
    Command{"exportAsTextFile:",
            QT_TRANSLATE_NOOP("Commands", "Te&xt File…"),
            "",
            "",
            [](Controller &window) { window.exporting().exportAsTextFile(); }},
    Command{"exportAsRTFD:",
            QT_TRANSLATE_NOOP("Commands", "&RTFD File…"),
            "",
            "",
            [](Controller &window) { window.exporting().exportAsRTFD(); }},
    Command{"exportAsFolderofTextFiles:",
            QT_TRANSLATE_NOOP("Commands", "&Folder of Text Files…"),
            "",
            "",
            [](Controller &window) { window.exporting().exportAsFolderofTextFiles(); }},
    Command{"exportAsFolderofRTFDFiles:",
            QT_TRANSLATE_NOOP("Commands", "F&older of RTFD Files…"),
            "",
            "",
            [](Controller &window) { window.exporting().exportAsFolderofRTFDFiles(); }},
    Command{"exportAsFreeformDatafile:",
            QT_TRANSLATE_NOOP("Commands", "Freeform Text &Datafile…"),
            "",
            "",
            [](Controller &window) { window.exporting().exportAsFreeformDatafile(); }},
    separator,
    Command{"exportAsJSON:",
            QT_TRANSLATE_NOOP("Commands", "&JSON File…"),
            "",
            "",
            [](Controller &window) { window.exporting().exportAsJSON(); }},
    Command{"exportAsHTML:",
            QT_TRANSLATE_NOOP("Commands", "&HTML Page…"),
            "",
            "",
            [](Controller &window) { window.exporting().exportAsHTML(); }},
    Command{"exportAsFolderofHTMLFiles:",
            QT_TRANSLATE_NOOP("Commands", "Fo&lder of HTML Pages…"),
            "",
            "",
            [](Controller &window) { window.exporting().exportAsFolderofHTMLFiles(); }},
    Command{"exportAsMarkdown:",
            QT_TRANSLATE_NOOP("Commands", "&Markdown Folder…"),
            "",
            "",
            [](Controller &window) { window.exporting().exportAsMarkdown(); }},
    separator,
    Command{"copyRecordsAsText:",
            QT_TRANSLATE_NOOP("Commands", "Co&py Selected Records as Tab-Separated Text"),
            "",
            "",
            [](Controller &window) {
                const QByteArray text = window.exporting().tabDelimitedText();
                QGuiApplication::clipboard()->setText(QString::fromUtf8(text));
            }},
};

} // namespace

std::span<const Command> exportCommands()
{
    return exportMenu;
}

} // namespace tavrin
