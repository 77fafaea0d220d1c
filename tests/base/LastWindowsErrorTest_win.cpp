#include "base/LastWindowsError.h"
#include "tests/support/MarkingTranslator.h"
#include "tests/support/SystemErrors.h"

#include <QtTest>

#include <windows.h>

class LastWindowsErrorTest : public QObject {
    Q_OBJECT

private slots:
    void systemText_data()
    {
        QTest::addColumn<quint32>("code");

        QTest::newRow("success") << quint32(ERROR_SUCCESS);
        QTest::newRow("file not found") << WindowsError::fileNotFound;
        QTest::newRow("access denied") << WindowsError::accessDenied;
        QTest::newRow("message with a placeholder") << WindowsError::badExeFormat;
    }

    void systemText()
    {
        QFETCH(quint32, code);
        const QString raw = rawSystemErrorText(code);
        QVERIFY2(!raw.trimmed().isEmpty() && raw.endsWith('\n'), "the system's texts end in a line break");

        SetLastError(code);

        QCOMPARE(lastWindowsErrorText(), raw.trimmed());
    }

    void codeWithoutText()
    {
        QCOMPARE(rawSystemErrorText(WindowsError::withoutText), QString());

        SetLastError(WindowsError::withoutText);

        QCOMPARE(lastWindowsErrorText(), "Unknown Error 12345");

        const MarkingTranslator translator;
        SetLastError(WindowsError::withoutText);
        QCOMPARE(lastWindowsErrorText(), "[Unknown Error 12345]");
    }
};

QTEST_GUILESS_MAIN(LastWindowsErrorTest)

#include "LastWindowsErrorTest_win.moc"
