#include "discovery/VersionNames.h"
#include "tests/support/Messages.h"

#include <QtTest>

namespace {

/// The result for a name, as one line of text.
QString meaning(const VersionName &version)
{
    if (!version.installation) {
        return version.matches ? "a number too large" : "no version";
    }
    const HalconInstallation &base = *version.installation;
    return QString("%1 | %2 | %3").arg(base.major).arg(base.minor).arg(base.suffix);
}

/// The fields that do not depend on the name.
QStringList otherFields(const HalconInstallation &installation)
{
    return {QString::number(installation.revision),
            QString::number(installation.build),
            installation.installDir,
            installation.exampleRoot,
            installation.components.join(','),
            installation.arch};
}

} // namespace

class VersionNamesTest : public QObject {
    Q_OBJECT

private slots:
    void productKeyName_data();
    void productKeyName();
    void uninstallKeyName_data();
    void uninstallKeyName();
    void matching();
    void restIsUnknown();
    void rejection();
    void runtimes_data();
    void runtimes();
    void componentsPerArchitecture_data();
    void componentsPerArchitecture();
    void otherFieldsAreCopied();
};

void VersionNamesTest::productKeyName_data()
{
    QTest::addColumn<QString>("name");
    QTest::addColumn<QString>("expected");

    QTest::newRow("hyphen and suffix") << "20.11-Progress"
                                       << "20 | 11 | Progress";
    QTest::newRow("numbers only") << "13.0"
                                  << "13 | 0 | ";
    QTest::newRow("suffix without hyphen") << "20.11Progress"
                                           << "20 | 11 | Progress";
    QTest::newRow("hyphen without suffix") << "20.11-"
                                           << "20 | 11 | ";
    QTest::newRow("third number ends the match") << "12.0.1-Steady"
                                                 << "12 | 0 | ";
    QTest::newRow("space ends the match") << "20.11 Progress"
                                          << "20 | 11 | ";
    QTest::newRow("second hyphen ends the match") << "20.11--Progress"
                                                  << "20 | 11 | ";
    QTest::newRow("hyphen ends the suffix") << "20.11-Progress-Beta"
                                            << "20 | 11 | Progress";
    QTest::newRow("space ends the suffix") << "20.11-Progress Beta"
                                           << "20 | 11 | Progress";
    QTest::newRow("underscores in the suffix") << "20.11-_Pro_gress_"
                                               << "20 | 11 | _Pro_gress_";
    QTest::newRow("digits in the suffix") << "20.11-2nd"
                                          << "20 | 11 | 2nd";
    QTest::newRow("non-ASCII letter ends the suffix") << "20.11-Pr\u00f6gress"
                                                      << "20 | 11 | Pr";
    QTest::newRow("suffix of one case") << "20.11-PROGRESS"
                                        << "20 | 11 | PROGRESS";
    QTest::newRow("leading text") << "HALCON 20.11-Progress"
                                  << "20 | 11 | Progress";
    QTest::newRow("leading text with a number") << "HALCON-8-20.11-Steady"
                                                << "20 | 11 | Steady";
    QTest::newRow("leading minus") << "-20.11"
                                   << "20 | 11 | ";
    QTest::newRow("first of two versions") << "7.1 and 20.11-Progress"
                                           << "7 | 1 | ";
    QTest::newRow("leading zeros") << "007.011"
                                   << "7 | 11 | ";
    QTest::newRow("ASCII digits before another digit") << "20.11\u0967"
                                                       << "20 | 11 | ";
    QTest::newRow("largest numbers") << "2147483647.2147483647-X"
                                     << "2147483647 | 2147483647 | X";

    QTest::newRow("word") << "Licenses"
                          << "no version";
    QTest::newRow("empty") << ""
                           << "no version";
    QTest::newRow("one number") << "20"
                                << "no version";
    QTest::newRow("no minor") << "20."
                              << "no version";
    QTest::newRow("no minor before the suffix") << "20.-Progress"
                                                << "no version";
    QTest::newRow("no major") << ".11"
                              << "no version";
    QTest::newRow("comma") << "20,11"
                           << "no version";
    QTest::newRow("space after the dot") << "20. 11"
                                         << "no version";
    QTest::newRow("other digits than ASCII") << "\u0968\u0966.\u0967\u0967"
                                             << "no version";

    QTest::newRow("major beyond 32 bits") << "2147483648.0"
                                          << "a number too large";
    QTest::newRow("minor beyond 32 bits") << "20.2147483648-Progress"
                                          << "a number too large";
    QTest::newRow("major beyond 64 bits") << "99999999999999999999.11-Progress"
                                          << "a number too large";
    QTest::newRow("both too large") << "99999999999.99999999999"
                                    << "a number too large";
}

void VersionNamesTest::productKeyName()
{
    QFETCH(QString, name);
    QTEST(meaning(parseProductKeyName(name)), "expected");
}

void VersionNamesTest::uninstallKeyName_data()
{
    QTest::addColumn<QString>("name");
    QTest::addColumn<QString>("expected");

    QTest::newRow("space and suffix") << "MVTec HALCON 20.11 Progress"
                                      << "20 | 11 | Progress";
    QTest::newRow("hyphen and suffix") << "MVTec HALCON 20.11-Progress"
                                       << "20 | 11 | Progress";
    QTest::newRow("space without suffix") << "MVTec HALCON 13.0 "
                                          << "13 | 0 | ";
    QTest::newRow("hyphen without suffix") << "MVTec HALCON 13.0-"
                                           << "13 | 0 | ";
    QTest::newRow("space and hyphen") << "MVTec HALCON 20.11 -Progress"
                                      << "20 | 11 | ";
    QTest::newRow("further word") << "MVTec HALCON 20.11 Progress Update"
                                  << "20 | 11 | Progress";
    QTest::newRow("underscores in the suffix") << "MVTec HALCON 20.11 _Pro_2"
                                               << "20 | 11 | _Pro_2";
    QTest::newRow("parenthesis after the space") << "MVTec HALCON 20.11 (x64)"
                                                 << "20 | 11 | ";
    QTest::newRow("leading text") << "The MVTec HALCON 20.11 Progress"
                                  << "20 | 11 | Progress";
    QTest::newRow("largest numbers") << "MVTec HALCON 2147483647.2147483647 X"
                                     << "2147483647 | 2147483647 | X";

    QTest::newRow("nothing after the minor") << "MVTec HALCON 20.11"
                                             << "no version";
    QTest::newRow("suffix directly after the minor") << "MVTec HALCON 20.11Progress"
                                                     << "no version";
    QTest::newRow("third number") << "MVTec HALCON 12.0.1 Steady"
                                  << "no version";
    QTest::newRow("tab after the minor") << "MVTec HALCON 20.11\tProgress"
                                         << "no version";
    QTest::newRow("other case") << "MVTEC Halcon 20.11 Progress"
                                << "no version";
    QTest::newRow("no vendor") << "HALCON 20.11 Progress"
                               << "no version";
    QTest::newRow("two spaces") << "MVTec HALCON  20.11 Progress"
                                << "no version";
    QTest::newRow("word before the numbers") << "MVTec HALCON Runtime 20.11 Progress"
                                             << "no version";
    QTest::newRow("name of a product key") << "20.11-Progress"
                                           << "no version";
    QTest::newRow("another product") << "{90160000-008C-0000-1000-0000000FF1CE}"
                                     << "no version";
    QTest::newRow("empty") << ""
                           << "no version";
    QTest::newRow("other digits than ASCII") << "MVTec HALCON \u0968\u0966.\u0967\u0967 Progress"
                                             << "no version";

    QTest::newRow("major beyond 32 bits") << "MVTec HALCON 2147483648.0 X"
                                          << "a number too large";
    QTest::newRow("minor beyond 32 bits") << "MVTec HALCON 20.2147483648-X"
                                          << "a number too large";
}

void VersionNamesTest::uninstallKeyName()
{
    QFETCH(QString, name);
    QTEST(meaning(parseUninstallKeyName(name)), "expected");
}

void VersionNamesTest::matching()
{
    QVERIFY(parseProductKeyName("20.11-Progress").matches);
    QVERIFY(parseUninstallKeyName("MVTec HALCON 20.11 Progress").matches);
}

void VersionNamesTest::restIsUnknown()
{
    const QStringList unknown{"-1", "-1", "", "", "", ""};
    QCOMPARE(otherFields(parseProductKeyName("20.11-Progress").installation.value()), unknown);
    QCOMPARE(otherFields(parseUninstallKeyName("MVTec HALCON 20.11 Progress").installation.value()), unknown);
}

void VersionNamesTest::rejection()
{
    QCOMPARE(invalidVersionText("Licenses"),
             QString("Licensesis not a valid HALCON version containing major.minor(-optionalstring)"));
    QCOMPARE(invalidVersionText(""),
             QString("is not a valid HALCON version containing major.minor(-optionalstring)"));
}

void VersionNamesTest::runtimes_data()
{
    QTest::addColumn<QStringList>("components");
    QTest::addColumn<QStringList>("architectures");
    QTest::addColumn<QStringList>("logLines");

    const QStringList none;
    QTest::newRow("32-bit") << QStringList{"RuntimeX86"} << QStringList{"x86-win32"} << QStringList{"hasX86"};
    QTest::newRow("SSE2") << QStringList{"RuntimeSSE2"} << QStringList{"x86sse2-win32"}
                          << QStringList{"hasX86SSE2"};
    QTest::newRow("64-bit") << QStringList{"RuntimeX64"} << QStringList{"x64-win64"} << QStringList{"hasX64"};
    QTest::newRow("all three, in a fixed order") << QStringList{"RuntimeX64", "RuntimeSSE2", "RuntimeX86"}
                                                 << QStringList{"x86-win32", "x86sse2-win32", "x64-win64"}
                                                 << QStringList{"hasX86", "hasX86SSE2", "hasX64"};
    QTest::newRow("two of three") << QStringList{"RuntimeX64", "RuntimeX86"}
                                  << QStringList{"x86-win32", "x64-win64"} << QStringList{"hasX86", "hasX64"};
    QTest::newRow("runtime twice") << QStringList{"RuntimeX64", "RuntimeX64"} << QStringList{"x64-win64"}
                                   << QStringList{"hasX64"};
    QTest::newRow("no components") << none << none << none;
    QTest::newRow("no runtime") << QStringList{"Documentation", "HDevelopX64"} << none << none;
    QTest::newRow("other case") << QStringList{"runtimex64", "RUNTIMEX86", "RuntimeSse2"} << none << none;
    QTest::newRow("runtime as a part of a name")
        << QStringList{"RuntimeX64d", "MyRuntimeX86", "Sub/RuntimeSSE2"} << none << none;
}

void VersionNamesTest::runtimes()
{
    QFETCH(QStringList, components);
    HalconInstallation base(20, 11, -1, -1);
    base.setComponents(components);

    const LogLines log;
    QStringList architectures;
    for (const HalconInstallation &each : installationsPerRuntime(base)) {
        architectures.append(each.arch);
    }
    QTEST(architectures, "architectures");
    QTEST(log.lines(), "logLines");
}

void VersionNamesTest::componentsPerArchitecture_data()
{
    QTest::addColumn<QStringList>("others"); // beside the three runtimes
    QTest::addColumn<QStringList>("of32Bit");
    QTest::addColumn<QStringList>("ofSse2");
    QTest::addColumn<QStringList>("of64Bit");

    const QStringList none;
    QTest::newRow("runtimes only") << none << none << none << none;
    QTest::newRow("no ending is kept for all")
        << QStringList{"Documentation", "Examples"} << QStringList{"Documentation", "Examples"}
        << QStringList{"Documentation", "Examples"} << QStringList{"Documentation", "Examples"};
    QTest::newRow("one of each ending")
        << QStringList{"ToolX64", "ToolSSE2", "ToolX86"} << QStringList{"ToolX86"} << QStringList{"ToolSSE2"}
        << QStringList{"ToolX64"};
    QTest::newRow("endings of another case are none")
        << QStringList{"ToolX86", "Toolx64", "ToolSse2", "Toolx86"}
        << QStringList{"ToolX86", "Toolx64", "ToolSse2", "Toolx86"}
        << QStringList{"Toolx64", "ToolSse2", "Toolx86"} << QStringList{"Toolx64", "ToolSse2", "Toolx86"};
    QTest::newRow("endings count at the end only")
        << QStringList{"X64Tool", "SSE2Tool", "X86Tool"} << QStringList{"X64Tool", "SSE2Tool", "X86Tool"}
        << QStringList{"X64Tool", "SSE2Tool", "X86Tool"} << QStringList{"X64Tool", "SSE2Tool", "X86Tool"};
    QTest::newRow("ending alone is a name with that ending")
        << QStringList{"SSE2", "X64", "X86"} << QStringList{"X86"} << QStringList{"SSE2"}
        << QStringList{"X64"};
    QTest::newRow("the last ending decides")
        << QStringList{"ToolX64X86", "ToolX86SSE2", "ToolSSE2X64"} << QStringList{"ToolX64X86"}
        << QStringList{"ToolX86SSE2"} << QStringList{"ToolSSE2X64"};
    QTest::newRow("nested names") << QStringList{"Sub/Documentation", "Sub/RuntimeX64"}
                                  << QStringList{"Sub/Documentation"} << QStringList{"Sub/Documentation"}
                                  << QStringList{"Sub/Documentation", "Sub/RuntimeX64"};
}

void VersionNamesTest::componentsPerArchitecture()
{
    QFETCH(QStringList, others);
    QFETCH(QStringList, of32Bit);
    QFETCH(QStringList, ofSse2);
    QFETCH(QStringList, of64Bit);

    HalconInstallation base(20, 11, -1, -1);
    base.setComponents(QStringList{"RuntimeSSE2", "RuntimeX64", "RuntimeX86"} + others);

    const QList<HalconInstallation> installations = installationsPerRuntime(base);
    QCOMPARE(installations.size(), 3);
    QCOMPARE(installations.at(0).components, QStringList{"RuntimeX86"} + of32Bit);
    QCOMPARE(installations.at(1).components, QStringList{"RuntimeSSE2"} + ofSse2);
    QCOMPARE(installations.at(2).components, QStringList{"RuntimeX64"} + of64Bit);
}

void VersionNamesTest::otherFieldsAreCopied()
{
    HalconInstallation base(20, 11, 2, 3);
    base.setSuffix("Progress");
    base.installDir = "C:\\HALCON";
    base.setExampleRoot("D:\\examples");
    base.setComponents({"RuntimeX64", "RuntimeX86"});

    const QList<HalconInstallation> installations = installationsPerRuntime(base);
    QCOMPARE(installations.size(), 2);
    for (const HalconInstallation &each : installations) {
        QCOMPARE(each.major, 20);
        QCOMPARE(each.minor, 11);
        QCOMPARE(each.revision, 2);
        QCOMPARE(each.build, 3);
        QCOMPARE(each.suffix, QString("Progress"));
        QCOMPARE(each.installDir, QString("C:\\HALCON"));
        QCOMPARE(each.exampleRoot, QString("D:\\examples"));
    }
}

QTEST_GUILESS_MAIN(VersionNamesTest)

#include "VersionNamesTest.moc"
