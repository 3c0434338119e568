// SPDX-FileCopyrightText: The Tavrin authors
// SPDX-License-Identifier: MIT

#pragma once

#include "io/TextFile.h"

#include <QStringList>

#include <functional>

class QComboBox;
class QTableWidget;
class QWidget;

namespace tavrin {

// What the dialogs of the imports have in common.

/// Makes a table one for looking at rows.
void preparePreview(QTableWidget *table, const QString &accessibleName);
void showRows(QTableWidget *table, const QStringList &names, const QList<QStringList> &rows);

/// All encodings, with one chosen. `choose` is told of another choice.
QComboBox *makeEncodingBox(TextEncoding chosen,
                           QWidget *parent,
                           const std::function<void(TextEncoding encoding)> &choose);

} // namespace tavrin
