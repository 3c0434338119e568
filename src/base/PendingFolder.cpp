// SPDX-FileCopyrightText: The Tavrin authors
// SPDX-License-Identifier: MIT

#include "base/PendingFolder.h"

#include "base/SystemFile.h"

#include <QDir>
#include <QFile>
#include <QFileInfo>
#include <QTemporaryDir>

#include <cstdio>

namespace tavrin {

using namespace Qt::StringLiterals;

namespace {

bool renamed(const QString &from, const QString &to)
{
    return std::rename(QFile::encodeName(from).constData(), QFile::encodeName(to).constData()) == 0;
}

} // namespace

PendingFolder::PendingFolder(const QString &place, std::unique_ptr<QTemporaryDir> holder)
    : g_place(place)
    , g_holder(std::move(holder))
{}

PendingFolder::PendingFolder(PendingFolder &&) noexcept = default;
PendingFolder &PendingFolder::operator=(PendingFolder &&) noexcept = default;
PendingFolder::~PendingFolder() = default;

Result<PendingFolder> PendingFolder::beside(const QString &place)
{
    const QString clean = QDir::cleanPath(QFileInfo(place).absoluteFilePath());
    // The holder is for nobody else. What is made in it is a folder like any other.
    auto holder = std::make_unique<QTemporaryDir>(QFileInfo(clean).path() + u"/.unfinished-XXXXXX"_s);
    PendingFolder folder(clean, std::move(holder));
    if (!folder.g_holder->isValid() || !QDir().mkdir(folder.path()))
        return systemError(folder.place());
    return folder;
}

QString PendingFolder::path() const
{
    return g_holder->filePath(u"new"_s);
}

Result<> PendingFolder::takePlace()
{
    const QFileInfo found(g_place);
    const bool hasOld = found.exists() || found.isSymLink();
    const QString old = g_holder->filePath(u"old"_s);
    if (hasOld && !renamed(g_place, old))
        return systemError(g_place);
    if (!renamed(path(), g_place)) {
        const Error error = systemError(g_place);
        if (hasOld && !renamed(old, g_place))
            g_holder->setAutoRemove(false);
        return error;
    }
    return {};
}

} // namespace tavrin
