// SPDX-FileCopyrightText: The Tavrin authors
// SPDX-License-Identifier: MIT

#include <QDir>
#include <QProcess>
#include <QStandardPaths>
#include <QTemporaryDir>
#include <QTest>

using namespace Qt::StringLiterals;

/// The program itself, and its files as an independent reader sees them.
class ProgramTest : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void resultAndMessagesAreKeptApart();
    void samplesSurviveBothForms();

private:
    struct Outcome
    {
        int status = -1;
        QByteArray result;
        QByteArray messages;
    };

    static Outcome run(const QString &program, const QStringList &arguments)
    {
        QProcess process;
        process.start(program, arguments);
        if (!process.waitForFinished(60'000))
            return {};
        return {process.exitCode(), process.readAllStandardOutput(), process.readAllStandardError()};
    }
};

void ProgramTest::resultAndMessagesAreKeptApart()
{
    const Outcome version = run(QStringLiteral(TAVRIN_CLI), {u"--version"_s});
    const Outcome failure = run(QStringLiteral(TAVRIN_CLI), {u"info"_s, u"/nonexistent/größe.tv3"_s});

    QCOMPARE(version.status, 0);
    QVERIFY(version.result.startsWith("tavrin-cli "));
    QCOMPARE(version.messages, QByteArray());
    QCOMPARE(failure.status, 1);
    QCOMPARE(failure.result, QByteArray());
    QVERIFY(failure.messages.startsWith("tavrin-cli: ") && failure.messages.contains("größe"));
}

void ProgramTest::samplesSurviveBothForms()
{
    const QString python = QStandardPaths::findExecutable(u"python3"_s);
    if (python.isEmpty())
        QFAIL("python3 is not installed");
    const QTemporaryDir folder;
    QStringList pairs;
    const QDir samples(QStringLiteral(TAVRIN_SAMPLES));
    for (const QString &name : samples.entryList({u"*.tv3"_s, u"*.tvk"_s}, QDir::Files)) {
        const QString sample = samples.filePath(name);
        const QString binary = folder.filePath(u"binary "_s + name);
        const QString xml = folder.filePath(u"xml "_s + name);
        QCOMPARE(run(QStringLiteral(TAVRIN_CLI), {u"save"_s, sample, u"-o"_s, binary, u"--format=binary"_s})
                     .status,
                 0);
        QCOMPARE(run(QStringLiteral(TAVRIN_CLI), {u"save"_s, binary, u"-o"_s, xml, u"--format=xml"_s}).status,
                 0);
        pairs << sample << binary << sample << xml;
    }
    QVERIFY(!pairs.isEmpty());

    const QString script = uR"(
import plistlib, sys
def load(path):
    with open(path, "rb") as file:
        return plistlib.load(file)
paths = sys.argv[1:]
for one, other in zip(paths[::2], paths[1::2]):
    if load(one) != load(other):
        sys.exit(one + " differs from " + other)
    if ("binary " in other) != open(other, "rb").read(6).startswith(b"bplist"):
        sys.exit(other + " is of the wrong form")
)"_s;
    const Outcome compared = run(python, QStringList{u"-c"_s, script} + pairs);

    QVERIFY2(compared.status == 0, compared.messages.constData());
}

QTEST_GUILESS_MAIN(ProgramTest)
#include "ProgramTest.moc"
