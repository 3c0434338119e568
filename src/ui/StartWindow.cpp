// SPDX-FileCopyrightText: The Tavrin authors
// SPDX-License-Identifier: MIT

#include "ui/StartWindow.h"

#include "app/MainController.h"
#include "ui/ApplicationMenus.h"
#include "ui/DatafileDrop.h"
#include "ui/Icons.h"

#include <QApplication>
#include <QCloseEvent>
#include <QDir>
#include <QFileInfo>
#include <QHBoxLayout>
#include <QLabel>
#include <QListWidget>
#include <QMenuBar>
#include <QPushButton>
#include <QVBoxLayout>

using namespace Qt::StringLiterals;

namespace tavrin {

namespace {

constexpr int pathRole = Qt::UserRole;

void addHeading(QListWidget &list, const QString &text)
{
    auto *item = new QListWidgetItem(text, &list);
    QFont font = list.font();
    font.setBold(true);
    item->setFont(font);
    item->setFlags(Qt::NoItemFlags);
    item->setForeground(list.palette().brush(QPalette::Active, QPalette::Text));
}

void addDatafile(QListWidget &list, const QString &title, const QString &path)
{
    auto *item = new QListWidgetItem(imageNamed(u"datafile"_s), title, &list);
    item->setData(pathRole, path);
    item->setToolTip(path);
}

/// The folder's datafiles and those of its folders, each named with the folders above it.
void addDatafiles(QListWidget &list, const QList<DatafilesMenuItem> &items, const QString &above)
{
    for (const DatafilesMenuItem &item : items) {
        if (item.path.isEmpty())
            addDatafiles(list, item.children, above + item.title + u" / "_s);
        else
            addDatafile(list, above + item.title, item.path);
    }
}

/// The datafile's name, with its folder where another in the list is called the same.
QString recentTitle(const QString &path, const QStringList &all)
{
    const QString name = QFileInfo(path).completeBaseName();
    const auto sameName = [&name](const QString &other) {
        return QFileInfo(other).completeBaseName() == name;
    };
    if (std::ranges::count_if(all, sameName) < 2)
        return name;
    return u"%1 (%2)"_s.arg(name, QFileInfo(path).dir().dirName());
}

} // namespace

StartWindow::StartWindow(MainController &controller, ApplicationMenus &menus) : g_controller(controller)
{
    setWindowTitle(tr("Tavrin"));
    setAcceptDrops(true);
    QMenu *file = menuBar()->addMenu(tr("&File"));
    menus.addOpeningItems(*file);
    file->addSeparator();
    menus.addImportMenu(*file, nullptr);
    file->addSeparator();
    menus.addQuitItem(*file);
    menus.addMultiFileFindItem(*menuBar()->addMenu(tr("F&ind")));
    menus.addDatafilesMenu(*menuBar());
    menus.addHelpMenu(*menuBar());

    auto *content = new QWidget(this);
    auto *layout = new QHBoxLayout(content);
    layout->setContentsMargins(24, 24, 24, 24);
    layout->setSpacing(24);
    layout->addWidget(makeWelcome());
    layout->addWidget(makeLists(), 1);
    setCentralWidget(content);
    resize(720, 420);

    connect(&controller, &MainController::datafilesMenuChanged, this, &StartWindow::fillLists);
    connect(&controller, &MainController::recentDatafilesChanged, this, &StartWindow::fillLists);
    fillLists();
}

QWidget *StartWindow::makeWelcome()
{
    auto *area = new QWidget(this);
    auto *layout = new QVBoxLayout(area);
    layout->setContentsMargins(0, 0, 0, 0);
    auto *image = new QLabel(area);
    image->setPixmap(QApplication::windowIcon().pixmap(72));
    layout->addWidget(image);
    auto *title = new QLabel(tr("Tavrin"), area);
    QFont large = title->font();
    large.setPointSizeF(large.pointSizeF() * 1.8);
    large.setBold(true);
    title->setFont(large);
    layout->addWidget(title);
    auto *subtitle = new QLabel(tr("Your records, in files of your own."), area);
    subtitle->setForegroundRole(QPalette::PlaceholderText);
    layout->addWidget(subtitle);
    layout->addSpacing(16);

    const auto add = [&](const QString &text, const QString &icon, void (MainController::*run)()) {
        auto *button = new QPushButton(imageNamed(icon), text, area);
        button->setIconSize(QSize(20, 20));
        button->setMinimumWidth(200);
        connect(button, &QPushButton::clicked, &g_controller, run);
        layout->addWidget(button);
        return button;
    };
    add(tr("&New Datafile…"), u"TB_C_newRecord"_s, &MainController::newDatafile)->setDefault(true);
    add(tr("&Open Datafile…"), u"open"_s, &MainController::openDocument);
    add(tr("Open &Sample"), u"sample"_s, &MainController::openSample)->setVisible(g_controller.hasSample());
    layout->addStretch(1);
    return area;
}

QWidget *StartWindow::makeLists()
{
    auto *area = new QWidget(this);
    auto *layout = new QVBoxLayout(area);
    layout->setContentsMargins(0, 0, 0, 0);
    g_datafiles = new QListWidget(area);
    g_datafiles->setAccessibleName(tr("Datafiles"));
    g_datafiles->setAlternatingRowColors(false);
    layout->addWidget(g_datafiles);
    g_empty =
        new QLabel(tr("Datafiles that you open, and those in your datafiles folder, are listed here."), area);
    g_empty->setWordWrap(true);
    g_empty->setAlignment(Qt::AlignCenter);
    g_empty->setForegroundRole(QPalette::PlaceholderText);
    layout->addWidget(g_empty, 1);
    connect(g_datafiles, &QListWidget::itemActivated, this, &StartWindow::openItem);
    return area;
}

void StartWindow::fillLists()
{
    g_datafiles->clear();
    const QStringList recent = g_controller.recentDatafiles();
    QStringList present;
    std::ranges::copy_if(
        recent, std::back_inserter(present), [](const QString &path) { return QFileInfo::exists(path); });
    if (!present.isEmpty()) {
        addHeading(*g_datafiles, tr("Recent"));
        for (const QString &path : std::as_const(present))
            addDatafile(*g_datafiles, recentTitle(path, present), path);
    }
    if (!g_controller.datafilesMenu().isEmpty()) {
        addHeading(*g_datafiles, tr("Datafiles folder"));
        addDatafiles(*g_datafiles, g_controller.datafilesMenu(), {});
    }
    const bool empty = g_datafiles->count() == 0;
    g_datafiles->setVisible(!empty);
    g_empty->setVisible(empty);
}

void StartWindow::openItem(const QListWidgetItem *item)
{
    const QString path = item->data(pathRole).toString();
    if (!path.isEmpty())
        g_controller.openDatafile(path);
}

void StartWindow::closeEvent(QCloseEvent *event)
{
    // The last window there is: closing it means leaving.
    event->ignore();
    g_controller.applicationShouldTerminate();
}

void StartWindow::dragEnterEvent(QDragEnterEvent *event)
{
    if (!droppedDatafiles(*event->mimeData()).isEmpty())
        event->acceptProposedAction();
}

void StartWindow::dropEvent(QDropEvent *event)
{
    g_controller.openDatafiles(droppedDatafiles(*event->mimeData()));
}

} // namespace tavrin
