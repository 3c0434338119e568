// SPDX-FileCopyrightText: The Tavrin authors
// SPDX-License-Identifier: MIT

#include "editor/EditorToolbarController.h"

#include "model/Preferences.h"

#include <QCoreApplication>

#include <algorithm>
#include <array>

namespace tavrin {

using namespace Qt::StringLiterals;

namespace {

constexpr auto itemsKey = "EditorToolbarItems"_L1;
constexpr auto displayKey = "EditorToolbarDisplay"_L1;
constexpr auto hiddenKey = "EditorToolbarHidden"_L1;
constexpr auto formatKey = "GeneralToolbarFormat"_L1;

// The stored forms of the images.
constexpr qint64 coloredFormat = 5;
constexpr qint64 monochromeFormat = 6;

#define LABEL(text) QT_TRANSLATE_NOOP("ToolbarItems", text)
constexpr std::array toolbarItems{
    ToolbarItem{"NewRecord", "addRecord:", "newRecord", LABEL("New")},
    ToolbarItem{"DuplicateRecord", "duplicateCurrentRecord:", "duplicateRecord", LABEL("Duplicate")},
    ToolbarItem{"DeleteRecord", "deleteRecord:", "deleteRecord", LABEL("Delete")},
    ToolbarItem{"FirstRecord", "goToFirstRecord:", "first", LABEL("First")},
    ToolbarItem{"PreviousRecord", "goToPreviousRecord:", "previous", LABEL("Previous")},
    ToolbarItem{"NextRecord", "goToNextRecord:", "next", LABEL("Next")},
    ToolbarItem{"LastRecord", "goToLastRecord:", "last", LABEL("Last")},
    ToolbarItem{"Back", "goBackOneRecord:", "back", LABEL("Back")},
    ToolbarItem{"Forward", "goForwardOneRecord:", "forward", LABEL("Forward")},
    ToolbarItem{"SwitchView", "switchView:", "listView", LABEL("View")},
    ToolbarItem{"Select", "selectRecords:", "select", LABEL("Select")},
    ToolbarItem{"SelectAll", "selectAllRecords:", "selectAll", LABEL("Select All")},
    ToolbarItem{"Omitted", "switchToOmitted:", "omitted", LABEL("Omitted")},
    ToolbarItem{"Sort", "sortByFields:", "sort", LABEL("Sort")},
    ToolbarItem{"SortTasks", "editSortTasks:", "sortTasks", LABEL("Sort Tasks")},
    ToolbarItem{"Lock", "toggleRecordLocked:", "recordlocked", LABEL("Lock")},
    ToolbarItem{"Info", "showRecordInfo:", "recordInfo", LABEL("Info")},
    ToolbarItem{"Bold", "addFontTrait:bold", "bold", LABEL("Bold")},
    ToolbarItem{"Italic", "addFontTrait:italic", "italic", LABEL("Italic")},
    ToolbarItem{"Underline", "underline:", "underline", LABEL("Underline")},
    ToolbarItem{"Font", "orderFrontFontPanel:", "font", LABEL("Font")},
    ToolbarItem{"Color", "orderFrontColorPanel:", "color", LABEL("Color")},
    ToolbarItem{"Highlighter", "toggleHighlighter:", "highlighter", LABEL("Highlight")},
    ToolbarItem{"DateStamp", "insertDateTime:", "dateStamp", LABEL("Date")},
    ToolbarItem{"InsertLink", "orderFrontLinkPanel:", "insertLink", LABEL("Link")},
    ToolbarItem{"Print", "printDocument:;print:", "print", LABEL("Print")},
    ToolbarItem{"Sync", "synchronizeDatafiles:", "sync", LABEL("Synchronize")},
    ToolbarItem{EditorToolbarController::FindBox, "activateFindBox:", "findBox", LABEL("Find")},
    ToolbarItem{EditorToolbarController::Separator, "", "", LABEL("Line")},
    ToolbarItem{EditorToolbarController::Space, "", "", LABEL("Space")},
    ToolbarItem{EditorToolbarController::FlexibleSpace, "", "", LABEL("Flexible Space")},
};
#undef LABEL

constexpr std::array usualItems{
    "NewRecord",      "DuplicateRecord", "DeleteRecord", "Separator",  "FirstRecord",
    "PreviousRecord", "NextRecord",      "LastRecord",   "Separator",  "Back",
    "Forward",        "Separator",       "Select",       "SelectAll",  "Omitted",
    "Sort",           "Separator",       "Lock",         "SwitchView", "FindBox",
};

} // namespace

EditorToolbarController::EditorToolbarController(Preferences &preferences,
                                                 std::function<bool(const QString &)> hasCommand)
    : g_preferences(preferences)
    , g_hasCommand(std::move(hasCommand))
{
    connect(&g_preferences, &Preferences::changed, this, [this](const QString &key) {
        if (key == itemsKey)
            Q_EMIT itemsChanged();
        else if (key == displayKey || key == hiddenKey || key == formatKey)
            Q_EMIT toolbarStyleChanged();
    });
}

const ToolbarItem *EditorToolbarController::item(const QString &identifier)
{
    const auto found = std::ranges::find_if(toolbarItems, [&identifier](const ToolbarItem &item) {
        return identifier == QLatin1StringView(item.identifier);
    });
    return found == toolbarItems.end() ? nullptr : &*found;
}

QString EditorToolbarController::label(const ToolbarItem &item)
{
    return QCoreApplication::translate("ToolbarItems", item.label);
}

bool EditorToolbarController::mayRepeat(const QString &identifier)
{
    return identifier == QLatin1StringView(Separator) || identifier == QLatin1StringView(Space)
           || identifier == QLatin1StringView(FlexibleSpace);
}

QString EditorToolbarController::selectorOf(const ToolbarItem &item) const
{
    const QStringList selectors = QString::fromLatin1(item.selector).split(u';');
    const auto found = std::ranges::find_if(selectors, g_hasCommand);
    return found == selectors.end() ? QString() : *found;
}

bool EditorToolbarController::isAvailable(const ToolbarItem &item) const
{
    return !*item.selector || !selectorOf(item).isNull();
}

QStringList EditorToolbarController::availableItems() const
{
    QStringList available;
    for (const ToolbarItem &item : toolbarItems) {
        if (isAvailable(item))
            available.append(QString::fromLatin1(item.identifier));
    }
    return available;
}

QStringList EditorToolbarController::items() const
{
    QStringList wanted;
    if (g_preferences.isSet(itemsKey)) {
        for (const plist::Value &stored : g_preferences.arrayForKey(itemsKey))
            wanted.append(stored.toText());
    } else {
        for (const char *identifier : usualItems)
            wanted.append(QString::fromLatin1(identifier));
    }
    QStringList items;
    for (const QString &identifier : wanted) {
        const ToolbarItem *known = item(identifier);
        if (known && isAvailable(*known) && (mayRepeat(identifier) || !items.contains(identifier)))
            items.append(identifier);
    }
    return items;
}

void EditorToolbarController::setItems(const QStringList &items)
{
    plist::Array stored;
    for (const QString &identifier : items)
        stored.append(identifier);
    g_preferences.setObject(stored, itemsKey);
}

void EditorToolbarController::resetItems()
{
    g_preferences.remove(itemsKey);
}

QString EditorToolbarController::imageName(const QString &image) const
{
    return (isColored() ? "TB_C_"_L1 : "TB_M_"_L1) + image;
}

EditorToolbarController::Display EditorToolbarController::display() const
{
    return static_cast<Display>(qBound(qint64(0), g_preferences.integerForKey(displayKey), qint64(2)));
}

void EditorToolbarController::setDisplay(Display display)
{
    g_preferences.setObject(static_cast<int>(display), displayKey);
}

bool EditorToolbarController::isShown() const
{
    return !g_preferences.boolForKey(hiddenKey);
}

void EditorToolbarController::setShown(bool shown)
{
    g_preferences.setObject(!shown, hiddenKey);
}

bool EditorToolbarController::isColored() const
{
    return g_preferences.integerForKey(formatKey) != monochromeFormat;
}

void EditorToolbarController::toggleToolbarStyle()
{
    g_preferences.setObject(isColored() ? monochromeFormat : coloredFormat, formatKey);
}

} // namespace tavrin
