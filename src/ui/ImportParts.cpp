// SPDX-FileCopyrightText: The Tavrin authors
// SPDX-License-Identifier: MIT

#include "ui/ImportParts.h"

#include <QComboBox>
#include <QHeaderView>
#include <QTableWidget>

#include <algorithm>

namespace tavrin {

void preparePreview(QTableWidget *table, const QString &accessibleName)
{
    table->setAccessibleName(accessibleName);
    table->setTabKeyNavigation(false);
    table->verticalHeader()->hide();
}

void showRows(QTableWidget *table, const QStringList &names, const QList<QStringList> &rows)
{
    qsizetype width = names.size();
    for (const QStringList &row : rows)
        width = std::max(width, row.size());
    table->setColumnCount(static_cast<int>(width));
    table->setRowCount(static_cast<int>(rows.size()));
    QStringList headers = names;
    while (headers.size() < width)
        headers.append(QString());
    table->setHorizontalHeaderLabels(headers);
    for (int row = 0; row < rows.size(); ++row) {
        for (int column = 0; column < width; ++column) {
            auto *item = new QTableWidgetItem(rows[row].value(column));
            item->setFlags(Qt::ItemIsSelectable | Qt::ItemIsEnabled | Qt::ItemIsDragEnabled);
            table->setItem(row, column, item);
        }
    }
    table->horizontalHeader()->setStretchLastSection(true);
    table->resizeColumnsToContents();
    constexpr int widestInCharacters = 40;
    const int widest = table->fontMetrics().averageCharWidth() * widestInCharacters;
    for (int column = 0; column < width; ++column)
        table->setColumnWidth(column, std::min(table->columnWidth(column), widest));
}

QComboBox *makeEncodingBox(TextEncoding chosen,
                           QWidget *parent,
                           const std::function<void(TextEncoding encoding)> &choose)
{
    auto *box = new QComboBox(parent);
    const QList<TextEncodingName> encodings = textEncodings();
    for (const TextEncodingName &item : encodings)
        box->addItem(item.name);
    const auto place = std::ranges::find(encodings, chosen, &TextEncodingName::encoding);
    box->setCurrentIndex(static_cast<int>(place - encodings.begin()));
    QObject::connect(box, &QComboBox::currentIndexChanged, parent, [encodings, choose](int index) {
        choose(encodings[index].encoding);
    });
    return box;
}

} // namespace tavrin
