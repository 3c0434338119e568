// SPDX-FileCopyrightText: The Tavrin authors
// SPDX-License-Identifier: MIT

#include "ui/RecordInfoPalette.h"

#include "editor/RecordInfoPaletteController.h"

#include <QApplication>
#include <QFormLayout>
#include <QKeyEvent>
#include <QLabel>
#include <QScreen>

namespace tavrin {

RecordInfoPalette::RecordInfoPalette(RecordInfoPaletteController &controller, QWidget *parent)
    : QWidget(parent, Qt::Tool)
    , g_controller(controller)
{
    setWindowTitle(tr("Record Information"));
    setAttribute(Qt::WA_ShowWithoutActivating);
    auto *layout = new QFormLayout(this);
    layout->setLabelAlignment(Qt::AlignRight);
    layout->setFieldGrowthPolicy(QFormLayout::AllNonFixedFieldsGrow);
    g_title = new QLabel(this);
    QFont bold = g_title->font();
    bold.setBold(true);
    g_title->setFont(bold);
    layout->addRow(g_title);
    g_modified = addRow(tr("Modified:"));
    g_viewed = addRow(tr("Viewed:"));
    g_created = addRow(tr("Created:"));
    g_size = addRow(tr("Size:"));
    setMinimumWidth(fontMetrics().averageCharWidth() * 44);
    connect(&controller, &RecordInfoPaletteController::changed, this, &RecordInfoPalette::update);
    connect(&controller, &RecordInfoPaletteController::shownChanged, this, &RecordInfoPalette::updateShown);
    update();
}

/// The first time it comes where it hides nothing of the window in use, if there is room.
void RecordInfoPalette::updateShown()
{
    const QWidget *window = QApplication::activeWindow();
    if (g_controller.isShown() && !g_placed && window) {
        constexpr int gap = 12;
        const QRect frame = window->frameGeometry();
        const QRect room = window->screen()->availableGeometry();
        adjustSize();
        const int left = qMin(frame.right() + gap, room.right() - width() - gap);
        move(left, qBound(room.top(), frame.top(), room.bottom() - height()));
        g_placed = true;
    }
    setVisible(g_controller.isShown());
}

QLabel *RecordInfoPalette::addRow(const QString &name)
{
    auto *value = new QLabel(this);
    value->setTextInteractionFlags(Qt::TextSelectableByMouse | Qt::TextSelectableByKeyboard);
    auto *label = new QLabel(name, this);
    label->setForegroundRole(QPalette::PlaceholderText);
    static_cast<QFormLayout *>(layout())->addRow(label, value);
    return value;
}

void RecordInfoPalette::update()
{
    const auto *form = static_cast<const QFormLayout *>(layout());
    const auto show = [form](QLabel *value, const QString &text) {
        value->setText(text.isEmpty() ? QStringLiteral("–") : text);
        const auto *name = qobject_cast<const QLabel *>(form->labelForField(value));
        value->setAccessibleName(name->text() + u' ' + value->text());
    };
    g_title->setText(g_controller.title());
    show(g_modified, g_controller.modified());
    show(g_viewed, g_controller.viewed());
    show(g_created, g_controller.created());
    show(g_size, g_controller.size());
}

void RecordInfoPalette::closeEvent(QCloseEvent *event)
{
    g_controller.setShown(false);
    QWidget::closeEvent(event);
}

void RecordInfoPalette::keyPressEvent(QKeyEvent *event)
{
    if (event->key() == Qt::Key_Escape)
        g_controller.setShown(false);
    else
        QWidget::keyPressEvent(event);
}

} // namespace tavrin
