#include "launch/VelloxaLaunch.h"
#include "tests/fakes/ProcessStartFake.h"
#include "tests/support/CurrentDirectory.h"
#include "tests/support/Installations.h"
#include "tests/support/Rows.h"

#include <QFile>
#include <QTemporaryDir>
#include <QtTest>

namespace {

const QString name64 = "velloxa.exe";
const QString name32 = "velloxa32.exe";

} // namespace

class VelloxaTest : public QObject {
    Q_OBJECT

private slots:
    void init()
    {
        directory.reset(new QTemporaryDir);
        registered = directory->filePath("Velloxa");
        ProcessStartFake::reset();
    }

    void buildThatFits_data()
    {
        // program: empty: none is started
        columns<QStringList, QString, QString>("installed", "arch", "program");

        using List = QStringList;
        row("64-bit", List{name64, name32}, "x64-win64", name64);
        row("SSE2", List{name64, name32}, "x86sse2-win32", name32);
        row("32-bit", List{name64, name32}, "x86-win32", name32);
        row("another case, 64-bit", List{name64, name32}, "X64-other", name64);
        row("another case, 32-bit", List{name64, name32}, "other-X86", name32);
        row("both", List{name64, name32}, "x86-on-x64", name64);
        row("neither", List{name64, name32}, "arm64-win64", "");
        row("no architecture", List{name64, name32}, "", "");
        row("64-bit build alone", List{name64}, "x64-win64", name64);
        row("64-bit build alone for 32-bit", List{name64}, "x86-win32", "");
        row("32-bit build alone", List{name32}, "x86sse2-win32", name32);
        row("32-bit build alone for 64-bit", List{name32}, "x64-win64", "");
        row("no build", List(), "x64-win64", "");
    }

    void buildThatFits()
    {
        QFETCH(QStringList, installed);
        QFETCH(QString, arch);
        QFETCH(QString, program);
        for (const QString &name : installed) {
            install(name);
        }
        Velloxa velloxa([this] { return registered; });
        QStringList errors;

        QCOMPARE(startVelloxa(velloxa, installationIn("C:\\H", arch), &errors), !program.isEmpty());

        QCOMPARE(errors, QStringList());
        QCOMPARE(ProcessStartFake::starts().size(), program.isEmpty() ? 0 : 1);
        for (const ProcessStartFake::Start &start : ProcessStartFake::starts()) {
            QCOMPARE(start.executable, path(program));
            QCOMPARE(start.arguments, "--halconversion=20.11");
            QCOMPARE(start.installation.installDir, "C:\\H");
        }
        QCOMPARE(velloxa.installDir(), registered);
        QCOMPARE(velloxa.executable64(), installed.contains(name64) ? path(name64) : "");
        QCOMPARE(velloxa.executable32(), installed.contains(name32) ? path(name32) : "");
    }

    void failure()
    {
        install(name64);
        Velloxa velloxa([this] { return registered; });
        ProcessStartFake::failWith("CreateProcess failed: no such file");
        QStringList errors{"earlier line"};

        QVERIFY(!startVelloxa(velloxa, installationIn("C:\\H"), &errors));

        QCOMPARE(errors, (QStringList{"earlier line", "CreateProcess failed: no such file"}));
        QVERIFY(!startVelloxa(velloxa, installationIn("C:\\H"), nullptr));
    }

    void noDirectory()
    {
        // Where the programs would be if their directory were an empty string.
        const CurrentDirectory current(directory->path());
        for (const QString &name : {name64, name32}) {
            QVERIFY(QFile('\\' + name).open(QFile::WriteOnly));
        }
        Velloxa velloxa([] { return QString(); });
        QCOMPARE(velloxa.installDir(), "");
        QCOMPARE(velloxa.executable64(), "");
        QCOMPARE(velloxa.executable32(), "");
    }

    void programAppearsLaterAndIsKept()
    {
        Velloxa velloxa([this] { return registered; });
        QCOMPARE(velloxa.executableFor("x64-win64"), "");
        install(name64);
        QCOMPARE(velloxa.executableFor("x64-win64"), path(name64));
        QVERIFY(QFile::remove(path(name64)));
        QCOMPARE(velloxa.executableFor("x64-win64"), path(name64));
    }

    void directoryIsLookedUpOnceForEachBuild()
    {
        install(name64);
        install(name32);
        registered.clear();
        Velloxa velloxa([this] { return registered; });
        QCOMPARE(velloxa.executable64(), "");

        registered = directory->filePath("Velloxa");
        QCOMPARE(velloxa.executable64(), "");
        QCOMPARE(velloxa.executable32(), path(name32));

        registered = "C:\\elsewhere";
        QVERIFY(QFile::remove(path(name32)));
        QCOMPARE(velloxa.installDir(), "");
        QCOMPARE(velloxa.executable32(), path(name32));
    }

private:
    /// The path of one of the programs. Its backslash is part of the file's name here.
    QString path(const QString &name) const { return directory->filePath("Velloxa\\" + name); }
    void install(const QString &name) const { QVERIFY(QFile(path(name)).open(QFile::WriteOnly)); }

    QScopedPointer<QTemporaryDir> directory;
    QString registered;
};

QTEST_GUILESS_MAIN(VelloxaTest)

#include "VelloxaTest.moc"
