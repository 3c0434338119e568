// SPDX-FileCopyrightText: The Tavrin authors
// SPDX-License-Identifier: MIT

#include "ui/ColumnMapping.h"

#include <QApplication>
#include <QDrag>
#include <QDragMoveEvent>
#include <QHeaderView>
#include <QMimeData>
#include <QMouseEvent>

namespace tavrin {

using namespace Qt::StringLiterals;

namespace {

const QString columnFormat = u"application/x-tavrin-import-column"_s;
const QString targetFormat = u"application/x-tavrin-import-target"_s;

void drag(QWidget *from, const QString &format, int number)
{
    if (number < 0)
        return;
    auto *data = new QMimeData;
    data->setData(format, QByteArray::number(number));
    auto *dragged = new QDrag(from);
    dragged->setMimeData(data);
    dragged->exec(Qt::LinkAction);
}

/// What is dragged, when it has the format; -1.
int draggedNumber(const QDropEvent &event, const QString &format)
{
    return event.mimeData()->hasFormat(format) ? event.mimeData()->data(format).toInt() : -1;
}

void accept(QDropEvent &event, bool isTaken)
{
    event.setDropAction(Qt::LinkAction);
    event.setAccepted(isTaken);
}

} // namespace

ColumnTable::ColumnTable(QWidget *parent) : QTableWidget(parent)
{
    setDragEnabled(true);
    setAcceptDrops(true);
    setSelectionMode(QAbstractItemView::SingleSelection);
    horizontalHeader()->viewport()->installEventFilter(this);
}

bool ColumnTable::eventFilter(QObject *watched, QEvent *event)
{
    QHeaderView *header = horizontalHeader();
    const auto *mouse = dynamic_cast<QMouseEvent *>(event);
    if (watched != header->viewport() || !mouse)
        return QTableWidget::eventFilter(watched, event);
    if (event->type() == QEvent::MouseButtonPress) {
        // On the line between two columns it changes their widths.
        const bool resizes = header->viewport()->cursor().shape() == Qt::SplitHCursor;
        g_pressedAt = mouse->position().toPoint();
        g_pressedColumn = resizes ? -1 : header->logicalIndexAt(g_pressedAt);
    } else if (event->type() == QEvent::MouseMove && mouse->buttons() == Qt::LeftButton
               && g_pressedColumn >= 0) {
        const QPoint way = mouse->position().toPoint() - g_pressedAt;
        if (way.manhattanLength() >= QApplication::startDragDistance())
            dragColumn(std::exchange(g_pressedColumn, -1));
        return true;
    }
    return QTableWidget::eventFilter(watched, event);
}

void ColumnTable::dragColumn(int column)
{
    drag(this, columnFormat, column);
}

void ColumnTable::startDrag(Qt::DropActions /*actions*/)
{
    dragColumn(currentColumn());
}

void ColumnTable::dragEnterEvent(QDragEnterEvent *event)
{
    accept(*event, draggedNumber(*event, targetFormat) >= 0);
}

void ColumnTable::dragMoveEvent(QDragMoveEvent *event)
{
    accept(*event,
           draggedNumber(*event, targetFormat) >= 0 && columnAt(event->position().toPoint().x()) >= 0);
}

void ColumnTable::dropEvent(QDropEvent *event)
{
    const int target = draggedNumber(*event, targetFormat);
    const int column = columnAt(event->position().toPoint().x());
    accept(*event, target >= 0 && column >= 0);
    if (event->isAccepted())
        Q_EMIT targetDropped(column, target);
}

TargetList::TargetList(QWidget *parent) : QListWidget(parent)
{
    setDragEnabled(true);
    setAcceptDrops(true);
}

void TargetList::startDrag(Qt::DropActions /*actions*/)
{
    drag(this, targetFormat, currentRow());
}

void TargetList::dragEnterEvent(QDragEnterEvent *event)
{
    accept(*event, draggedNumber(*event, columnFormat) >= 0);
}

void TargetList::dragMoveEvent(QDragMoveEvent *event)
{
    accept(*event, draggedNumber(*event, columnFormat) >= 0 && itemAt(event->position().toPoint()));
}

void TargetList::dropEvent(QDropEvent *event)
{
    const int column = draggedNumber(*event, columnFormat);
    const QListWidgetItem *item = itemAt(event->position().toPoint());
    accept(*event, column >= 0 && item);
    if (event->isAccepted())
        Q_EMIT columnDropped(column, row(item));
}

} // namespace tavrin
