// SPDX-FileCopyrightText: The Tavrin authors
// SPDX-License-Identifier: MIT

#include "app/FindAndReplaceController.h"

#include "editor/EditorSearchController.h"
#include "editor/EditorWindowController.h"
#include "model/Preferences.h"

#include <algorithm>

namespace tavrin {

using namespace Qt::StringLiterals;

FindAndReplaceController::~FindAndReplaceController() = default;

void FindAndReplaceController::setDatafileWindowController(EditorWindowController *window)
{
    if (g_window == window)
        return;
    if (g_window)
        g_window->disconnect(this);
    g_window = window;
    if (window) {
        connect(window, &QObject::destroyed, this, &FindAndReplaceController::letGo);
        connect(window, &EditorWindowController::titleChanged, this, &FindAndReplaceController::updateFields);
    }
    updateFields();
}

void FindAndReplaceController::letGo()
{
    g_window.clear();
    updateFields();
}

/// A field that the datafile does not have is nowhere to search.
void FindAndReplaceController::updateFields()
{
    const QList<CodedItem> items = fieldsList();
    if (!items.isEmpty() && std::ranges::find(items, g_fieldsToSearchIn, &CodedItem::code) == items.end())
        g_fieldsToSearchIn = items.first().code;
    Q_EMIT targetChanged();
    Q_EMIT changed();
}

QString FindAndReplaceController::datafileName() const
{
    return g_window ? g_window->windowTitle() : QString();
}

void FindAndReplaceController::setFindWhat(const QString &text)
{
    g_findWhat = text;
    Q_EMIT changed();
}

QList<CodedItem> FindAndReplaceController::fieldsList() const
{
    if (!g_window)
        return {};
    const QList<FieldDefinition> fields = g_window->document().datafileSettings().fields();
    if (fields.isEmpty())
        return {{tr("Whole Record"), FieldsToSearchIn::freeformText}};
    QList<CodedItem> items{{tr("All Fields"), FieldsToSearchIn::everything}};
    for (qint64 field = 0; field < fields.size(); ++field)
        items.append({fields[field].name(), field});
    items.append({g_window->textName(), FieldsToSearchIn::freeformText});
    return items;
}

/// Heard if the person wants it.
bool FindAndReplaceController::isRefused()
{
    if (canFind() && !g_window->nowSyncing())
        return false;
    if (g_preferences.boolForKey(u"GeneralBeepWhenFindFails"_s))
        Q_EMIT beep();
    return true;
}

void FindAndReplaceController::find(bool backwards)
{
    if (isRefused())
        return;
    FindRequest request;
    request.keys = {g_findWhat};
    request.options = {.caseSensitive = g_caseSensitiveIsOn, .wholeWord = g_wholeWordIsOn};
    request.fieldsToSearchIn = g_fieldsToSearchIn;
    request.backwards = backwards;
    request.activateSearchField = false;
    g_window->search().finding().find(request);
}

void FindAndReplaceController::replace()
{
    const Replacement replacement{g_findWhat, g_replaceWith, {.caseSensitive = g_caseSensitiveIsOn}};
    if (!canFind() || !g_window->search().finding().replaceString(replacement))
        Q_EMIT beep();
}

void FindAndReplaceController::replaceThenFind()
{
    replace();
    findNext();
}

void FindAndReplaceController::replaceAll()
{
    if (isRefused())
        return;
    updateFields();
    const KeyOptions options{.caseSensitive = g_caseSensitiveIsOn, .wholeWord = g_wholeWordIsOn};
    g_window->search().finding().replaceAll(
        {g_findWhat, g_replaceWith, options}, g_fieldsToSearchIn, g_limitToCurrentRecord);
}

} // namespace tavrin
