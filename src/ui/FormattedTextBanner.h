// SPDX-FileCopyrightText: The Tavrin authors
// SPDX-License-Identifier: MIT

#pragma once

#include <QFrame>

namespace tavrin {

/// The bar above a text that is stored with formatting: says that it is shown plain, and offers to edit it
/// so.
class FormattedTextBanner : public QFrame
{
    Q_OBJECT

public:
    explicit FormattedTextBanner(QWidget *parent = nullptr);

Q_SIGNALS:
    void editAsPlainRequested();
};

} // namespace tavrin
