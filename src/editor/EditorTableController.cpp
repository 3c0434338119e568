// SPDX-FileCopyrightText: The Tavrin authors
// SPDX-License-Identifier: MIT

#include "editor/EditorTableController.h"

#include "document/ContentChange.h"
#include "editor/BasicTableModel.h"
#include "editor/EditorWindowController.h"
#include "editor/ListTableModel.h"
#include "model/FieldText.h"

#include <QFontInfo>
#include <QFontMetricsF>

#include <algorithm>
#include <cmath>

namespace tavrin {

EditorTableController::EditorTableController(EditorWindowController &window)
    : g_window(window)
    , g_basicTableModel(std::make_unique<BasicTableModel>(window))
    , g_listTableModel(std::make_unique<ListTableModel>(window))
{}

EditorTableController::~EditorTableController() = default;

void EditorTableController::setupTables()
{
    g_fieldsFont = g_window.fieldsFont();
    g_fieldsFont.setPointSizeF(g_fieldsFont.pointSizeF() * g_window.textScale());
    g_basicTableModel->reset();
    g_listTableModel->reset();
    reload();
}

void EditorTableController::reload()
{
    if (g_window.isBasicView()) {
        g_basicTableModel->reload();
        return;
    }
    g_listTableModel->reload();
    if (g_window.currentRecord())
        g_window.showCurrentRow();
}

bool EditorTableController::mayEdit() const
{
    return mayEditRecord(g_window.currentRecord());
}

bool EditorTableController::mayEditRecord(const RecordData *record) const
{
    return record && !record->recordLocked() && !g_window.nowSyncing() && !g_window.isClone();
}

QString EditorTableController::cleanedFieldValue(const QString &value)
{
    return singleLineFieldText(value);
}

/// A change of one content, which is to be put in or, behind a change, back in.
std::unique_ptr<ContentChange> EditorTableController::contentOf(const RecordData *record,
                                                                const QString &fieldIdentifier,
                                                                const QString &content,
                                                                const QString &name) const
{
    const DatafileRecordsData &records = g_window.document().datafileRecords();
    std::vector<ContentChange::Record> changes;
    changes.push_back({records.identifiers().number(records.identifierForRecord(record)),
                       {{fieldIdentifier, content}},
                       {}});
    return std::make_unique<ContentChange>(name, std::move(changes));
}

bool EditorTableController::editFieldValue(const RecordData *record,
                                           const QString &fieldIdentifier,
                                           const QString &value)
{
    if (!mayEditRecord(record))
        return false;
    const QString cleaned = cleanedFieldValue(value);
    const QString before = record->fieldValue(fieldIdentifier);
    if (cleaned == before)
        return true;
    g_window.storeFieldValue(*record, fieldIdentifier, cleaned);
    g_window.document().undoHistory().push(contentOf(record, fieldIdentifier, before, tr("Change Field")));
    return true;
}

void EditorTableController::listRowSelected(int row)
{
    const RecordData *record = g_window.recordAtIndex(row);
    // The selection also follows the record: then there is nothing to do.
    if (!record || record == g_window.currentRecord() || g_window.nowSyncing())
        return;
    g_window.autoSaveChanges(false);
    g_window.loadRecordAtIndex(row);
    if (g_window.document().datafileSettings().fields().isEmpty())
        g_window.focusFreeformText();
}

int EditorTableController::fieldAfter(int field, bool forward) const
{
    const int count = g_basicTableModel->rowCount();
    if (count == 0)
        return 0;
    return (qBound(0, field, count - 1) + (forward ? 1 : count - 1)) % count;
}

int EditorTableController::listColumnForField(int field) const
{
    const QList<int> &shown = g_listTableModel->shownFields();
    const auto shownUpToField = std::ranges::upper_bound(shown, field) - shown.begin();
    return static_cast<int>(qMax<qsizetype>(0, shownUpToField - 1));
}

int EditorTableController::fieldForListColumn(int column) const
{
    const QList<int> &shown = g_listTableModel->shownFields();
    const int lastField = qMax(0, g_basicTableModel->rowCount() - 1);
    return column < shown.size() ? shown.at(qMax(0, column)) : lastField;
}

double EditorTableController::columnWidth(int column) const
{
    constexpr double widthWithoutFields = 3000;
    const DatafileSettingsData &settings = g_window.document().datafileSettings();
    const double scale = g_window.textScale();
    if (!g_listTableModel->isTextColumn(column))
        return settings.fields().at(g_listTableModel->shownFields().at(column)).width() * scale;
    return settings.fields().isEmpty() ? widthWithoutFields
                                       : static_cast<double>(settings.textColumnWidth()) * scale;
}

void EditorTableController::columnDidResize(int column, double shownWidth)
{
    if (g_window.isClone())
        return;
    const double width = shownWidth / g_window.textScale();
    DatafileSettingsData &settings = g_window.document().datafileSettings();
    if (g_listTableModel->isTextColumn(column)) {
        settings.setTextColumnWidth(static_cast<float>(width));
    } else {
        QList<FieldDefinition> fields = settings.fields();
        fields[g_listTableModel->shownFields().at(column)].setWidth(width);
        settings.setFields(fields);
    }
    g_window.viewSettingsDidChange();
}

void EditorTableController::headerClicked(int column, HeaderClick click)
{
    if (ColumnSizing(g_window).click(column, click))
        Q_EMIT columnWidthsChanged();
}

QTextOption::WrapMode EditorTableController::wrapMode() const
{
    constexpr qint64 betweenCharacters = 1;
    const DatafileSettingsData &settings = g_window.document().datafileSettings();
    if (!settings.fieldWrapping())
        return QTextOption::NoWrap;
    // A word that is longer than a line is broken either way.
    return settings.fieldWrappingCriterion() == betweenCharacters ? QTextOption::WrapAnywhere
                                                                  : QTextOption::WrapAtWordBoundaryOrAnywhere;
}

double EditorTableController::wrappedHeight(const QString &value, double width) const
{
    const QFontMetricsF metrics(g_fieldsFont);
    const QRectF room(0, 0, qMax(1.0, width), 1e6);
    const int flags = wrapMode() == QTextOption::WrapAnywhere ? Qt::TextWrapAnywhere
                                                              : Qt::TextWordWrap | Qt::TextWrapAnywhere;
    const double height = metrics.boundingRect(room, flags, value).height();
    return qMax(metrics.height(), height);
}

bool EditorTableController::dropText(const RecordData *record,
                                     const QString &fieldIdentifier,
                                     const QString &text)
{
    if (!mayEditRecord(record))
        return false;
    DatafileDocument &document = g_window.document();
    auto change = contentOf(record, fieldIdentifier, cleanedFieldValue(text), tr("Drop Text"));
    change->exchange(document);
    document.undoHistory().push(std::move(change));
    g_window.setDatafileChanged();
    return true;
}

double EditorTableController::listViewRowHeight() const
{
    const QFontMetricsF metrics(g_fieldsFont);
    const double size = QFontInfo(g_fieldsFont).pixelSize();
    const double roomy = std::trunc(size * 0.25 + metrics.ascent() + metrics.descent() + 0.5);
    return qMax(metrics.height(), roomy);
}

} // namespace tavrin
