// SPDX-FileCopyrightText: The Tavrin authors
// SPDX-License-Identifier: MIT

#pragma once

#include "plist/Value.h"

#include <QCoreApplication>
#include <QSet>
#include <QString>

#include <functional>

namespace tavrin {

/// One fault of a datafile: a stable code for programs, a message for people.
struct DatafileFault
{
    QString code;
    QString message;
};

/// Looks through a datafile's file for all that is wrong with it, also where it cannot be opened.
///
/// It reads the property list itself, because opening refuses or mends what it is to report. Each fault is
/// handed on as it is found: there may be as many as records.
class DatafileCheck
{
    Q_DECLARE_TR_FUNCTIONS(DatafileCheck)

public:
    using Receiver = std::function<void(const DatafileFault &)>;

    explicit DatafileCheck(Receiver receiver) : g_receiver(std::move(receiver)) {}

    /// Once for each object.
    void check(const QString &path);

    qint64 faultCount() const { return g_faultCount; }
    /// How many of the faults go away when the catalog is made anew from the records.
    qint64 catalogFaultCount() const { return g_catalogFaultCount; }

private:
    void report(const QString &code, const QString &message);
    void reportCatalog(const QString &code, const QString &message);
    void checkRoot(const plist::Dictionary &root, const QString &fileName);
    bool checkSettings(const plist::Dictionary &root, const QString &fileName);
    void checkDefinitions(const plist::Dictionary &settings);
    const plist::Dictionary *recordsIn(const plist::Dictionary &root);
    void checkRecord(const QString &identifier, const plist::Value &stored);
    void checkContents(const QString &identifier, const plist::Dictionary &record);
    void checkCatalog(const plist::Value *catalog, const plist::Dictionary &records, const QString &fileName);
    void checkEntries(const plist::Array &entries, const plist::Dictionary &records);

    Receiver g_receiver;
    QSet<QString> g_fieldIdentifiers;
    qint64 g_faultCount = 0;
    qint64 g_catalogFaultCount = 0;
};

} // namespace tavrin
