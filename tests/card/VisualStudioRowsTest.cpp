#include "card/VisualStudioRows.h"
#include "tests/support/Rows.h"

namespace {

VisualStudioVersion version(const QString &edition, const QString &architecture,
                            const QString &idePath = QString())
{
    VisualStudioVersion result;
    result.version = "14.0";
    result.edition = edition;
    result.architecture = architecture;
    result.idePath = idePath;
    return result;
}

} // namespace

class VisualStudioRowsTest : public QObject {
    Q_OBJECT

private slots:
    void ofAnArchitecture_data()
    {
        columns<QString, QString>("arch", "editions");

        row("64-bit", "x64-win64", "bd");
        row("32-bit", "x86-win32", "ae");
        row("SSE2", "x86sse2-win32", "ae");
    }

    void ofAnArchitecture()
    {
        QFETCH(QString, arch);
        QString editions;
        for (const VisualStudioVersion &kept :
             versionsForArchitecture({version("a", "x86"), version("b", "amd64"), version("c", ""),
                                      version("d", "AMD64"), version("e", "x86")},
                                     arch)) {
            editions += kept.edition;
        }
        QTEST(editions, "editions");
    }

    void rows()
    {
        const QStringList rows = visualStudioRows({
            version("a", "", "C:/a"),
            version("b", "", "C:/a"),
            version("c", "amd64", "C:/a"),
            version("d", "", "C:/d"),
            version("e", "", ""),
            version("f", "", ""),
        });
        QCOMPARE(rows, (QStringList{"Visual Studio 14.0 (a)", "Visual Studio 14.0 (c) (amd64)",
                                    "Visual Studio 14.0 (d)", "Visual Studio 14.0 (e)"}));
    }
};

QTEST_GUILESS_MAIN(VisualStudioRowsTest)
#include "VisualStudioRowsTest.moc"
