// SPDX-FileCopyrightText: The Tavrin authors
// SPDX-License-Identifier: MIT

#include "ui/FormattedTextBanner.h"

#include <QHBoxLayout>
#include <QLabel>
#include <QPushButton>

namespace tavrin {

FormattedTextBanner::FormattedTextBanner(QWidget *parent) : QFrame(parent)
{
    setFrameShape(QFrame::StyledPanel);
    setBackgroundRole(QPalette::AlternateBase);
    setAutoFillBackground(true);
    auto *layout = new QHBoxLayout(this);
    layout->setContentsMargins(8, 4, 8, 4);
    auto *label = new QLabel(tr("This text has formatting, which is kept but not shown."), this);
    label->setWordWrap(true);
    layout->addWidget(label, 1);
    auto *edit = new QPushButton(tr("Edit as Plain Text…"), this);
    layout->addWidget(edit);
    connect(edit, &QPushButton::clicked, this, &FormattedTextBanner::editAsPlainRequested);
}

} // namespace tavrin
