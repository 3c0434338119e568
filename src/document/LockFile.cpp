// SPDX-FileCopyrightText: The Tavrin authors
// SPDX-License-Identifier: MIT

#include "document/LockFile.h"

#include "model/StringOperations.h"

#include <QCoreApplication>
#include <QFile>
#include <QFileInfo>

#include <utility>

namespace tavrin {

using namespace Qt::StringLiterals;

LockFile::~LockFile()
{
    remove();
}

QString LockFile::pathFor(const QString &datafilePath)
{
    return datafilePath + u".lock"_s;
}

QString LockFile::shownNameFor(const QString &datafilePath)
{
    return lastPathComponentWithoutExtension(datafilePath) + u".lock"_s;
}

bool LockFile::exists(const QString &datafilePath)
{
    const QFileInfo info(pathFor(datafilePath));
    return info.exists() || info.isSymLink();
}

Result<> LockFile::create(const QString &datafilePath, const QString &executablePath)
{
    remove();
    const QString path = pathFor(datafilePath);
    QFile file(path);
    if (!file.open(QIODevice::WriteOnly | QIODevice::NewOnly | QIODevice::Unbuffered)) {
        const QString detail = path + u": "_s + file.errorString();
        if (exists(datafilePath))
            return Error{Error::Kind::Refused,
                         QCoreApplication::translate("LockFile", "This datafile is locked."),
                         detail};
        return Error{Error::Kind::Io,
                     QCoreApplication::translate("LockFile", "The lock file could not be made."),
                     detail};
    }
    const QByteArray content = executablePath.toUtf8();
    const bool written = file.write(content) == content.size();
    const QString failure = file.errorString();
    file.close();
    if (!written) {
        QFile::remove(path);
        return Error{Error::Kind::Io,
                     QCoreApplication::translate("LockFile", "The lock file could not be made."),
                     path + u": "_s + failure};
    }
    g_path = path;
    g_stamp = FileStamp::of(path);
    return {};
}

void LockFile::remove()
{
    const QString path = std::exchange(g_path, {});
    if (!path.isEmpty() && FileStamp::of(path) == g_stamp)
        QFile::remove(path);
}

} // namespace tavrin
