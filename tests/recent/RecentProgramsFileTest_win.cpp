#include "companions/common/WindowsHandle.h"
#include "recent/RecentPrograms.h"
#include "tests/recent/HDevelopSettings.h"
#include "tests/support/Messages.h"
#include "tests/support/Rows.h"
#include "tests/support/WideText.h"

#include <QtTest>

#include <cstdlib>
#include <windows.h>

namespace {

/// @p text in the system's code page, or nothing when that lacks one of its characters.
QByteArray inCodePage(const QString &text)
{
    const bool everything = GetACP() == CP_UTF8; // which lacks none, and cannot report it
    BOOL replaced = FALSE;
    QByteArray bytes(4 * text.size(), '\0');
    const int size =
        WideCharToMultiByte(CP_ACP, everything ? 0 : WC_NO_BEST_FIT_CHARS, wide(text), text.size(),
                            bytes.data(), bytes.size(), nullptr, everything ? nullptr : &replaced);
    return replaced != FALSE ? QByteArray() : bytes.left(size);
}

} // namespace

/// The parts of HDevelop's settings that exist only on Windows.
class RecentProgramsFileTest : public QObject {
    Q_OBJECT

private slots:
    void codePage_data()
    {
        columns<QString>("path");

        row("umlauts", "C:\\Gr\u00f6\u00dfe\\\u00dcbung.hdev");
        row("Euro sign", "C:\\100 \u20ac.hdev");
        row("Japanese", "C:\\\u691c\u67fb.hdev");
    }

    void codePage()
    {
        QFETCH(QString, path);
        const QByteArray bytes = inCodePage(path);
        if (bytes.isEmpty()) {
            QSKIP(qPrintable(QString("Code page %1 lacks such characters.").arg(GetACP())));
        }
        const HDevelopSettings settings;
        settings.write("RecentPrograms=" + bytes + ", \"" + bytes + ", 2\"\r\n");
        QCOMPARE(readRecentPrograms(), (QStringList{path, path + ", 2"}));
    }

    void westernCodePage()
    {
        if (GetACP() != 1252) {
            QSKIP(qPrintable(QString("The code page is %1.").arg(GetACP())));
        }
        const HDevelopSettings settings;
        settings.write("RecentPrograms=C:\\Gr\xf6\xdf"
                       "e\\\xdc"
                       "bung \x80.hdev\r\n");
        QCOMPARE(readRecentPrograms(), QStringList{"C:\\Gr\u00f6\u00dfe\\\u00dcbung \u20ac.hdev"});
        // A file in another encoding is misread.
        settings.write("RecentPrograms=\xc3\xbc.hdev\r\n");
        QCOMPARE(readRecentPrograms(), QStringList{"\u00c3\u00bc.hdev"});
    }

    void fileThatNobodyElseMayRead()
    {
        const HDevelopSettings settings;
        settings.writePrograms({"a", "b"});
        const LogLines log;
        {
            const WindowsHandle locked(CreateFileW(wide(QDir::toNativeSeparators(settings.file())),
                                                   GENERIC_READ, 0, nullptr, OPEN_EXISTING,
                                                   FILE_ATTRIBUTE_NORMAL, nullptr));
            QVERIFY(locked);
            QCOMPARE(readRecentPrograms(), QStringList{""});
        }
        QCOMPARE(readRecentPrograms(), (QStringList{"a", "b"}));
        QCOMPARE(log.lines(), QStringList());
    }

    void fileThatOthersReadAndWrite()
    {
        const HDevelopSettings settings;
        settings.writePrograms({"a", "b"});
        const WindowsHandle open(CreateFileW(wide(QDir::toNativeSeparators(settings.file())),
                                             GENERIC_READ | GENERIC_WRITE, FILE_SHARE_READ | FILE_SHARE_WRITE,
                                             nullptr, OPEN_EXISTING, FILE_ATTRIBUTE_NORMAL, nullptr));
        QVERIFY(open);
        QCOMPARE(readRecentPrograms(), (QStringList{"a", "b"}));
    }

    void directoryBeyondTheCodePage()
    {
        HDevelopSettings settings;
        const QString directory = settings.path("\u691c\u67fb & Gr\u00f6\u00dfe");
        settings.moveTo(directory);
        settings.writePrograms({"a", "b"});
        // Not every name can be written in the code page.
        QCOMPARE(_wputenv_s(L"APPDATA", wide(QDir::toNativeSeparators(directory))), 0);
        QCOMPARE(readRecentPrograms(), (QStringList{"a", "b"}));
    }
};

QTEST_MAIN(RecentProgramsFileTest)
#include "RecentProgramsFileTest_win.moc"
