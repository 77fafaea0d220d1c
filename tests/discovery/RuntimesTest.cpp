#include "discovery/Runtimes.h"
#include "tests/discovery/InstallationLines.h"
#include "tests/support/Messages.h"
#include "tests/support/Rows.h"

#include <QtTest>

class RuntimesTest : public QObject {
    Q_OBJECT

private slots:
    void runtimes_data()
    {
        columns<QStringList, QStringList, QStringList>("components", "architectures", "logLines");

        using List = QStringList;
        row("32-bit", List{"RuntimeX86"}, List{"x86-win32"}, List{"hasX86"});
        row("SSE2", List{"RuntimeSSE2"}, List{"x86sse2-win32"}, List{"hasX86SSE2"});
        row("64-bit", List{"RuntimeX64"}, List{"x64-win64"}, List{"hasX64"});
        row("all three, in a fixed order", List{"RuntimeX64", "RuntimeSSE2", "RuntimeX86"},
            List{"x86-win32", "x86sse2-win32", "x64-win64"}, List{"hasX86", "hasX86SSE2", "hasX64"});
        row("runtime twice", List{"RuntimeX64", "RuntimeX64"}, List{"x64-win64"}, List{"hasX64"});
        row("no components", List(), List(), List());
        row("no runtime", List{"Documentation", "HDevelopX64"}, List(), List());
        row("other case", List{"runtimex64", "RUNTIMEX86", "RuntimeSse2"}, List(), List());
        row("part of a name", List{"RuntimeX64d", "MyRuntimeX86", "Sub/RuntimeSSE2"}, List(), List());
    }

    void runtimes()
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

    void componentsPerArchitecture_data()
    {
        // others: beside the three runtimes
        columns<QStringList, QStringList, QStringList, QStringList>("others", "of32Bit", "ofSse2", "of64Bit");

        using List = QStringList;
        const List inside{"Documentation", "X64Tool", "SSE2Tool", "X86Tool"};
        row("endings count at the end only", inside, inside, inside, inside);
        const List small{"Toolx64", "ToolSse2", "Toolx86"};
        row("endings of another case are none", small, small, small, small);
        row("one of each ending", List{"ToolX64", "ToolSSE2", "ToolX86"}, List{"ToolX86"}, List{"ToolSSE2"},
            List{"ToolX64"});
        row("endings alone", List{"SSE2", "X64", "X86"}, List{"X86"}, List{"SSE2"}, List{"X64"});
        row("the last ending decides", List{"ToolX64X86", "ToolX86SSE2", "ToolSSE2X64"}, List{"ToolX64X86"},
            List{"ToolX86SSE2"}, List{"ToolSSE2X64"});
        row("nested names", List{"Sub/Documentation", "Sub/RuntimeX64"}, List{"Sub/Documentation"},
            List{"Sub/Documentation"}, List{"Sub/Documentation", "Sub/RuntimeX64"});
    }

    void componentsPerArchitecture()
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

    void otherFieldsAreCopied()
    {
        HalconInstallation base(20, 11, 2, 3);
        base.setSuffix("Progress");
        base.installDir = "C:\\H";
        base.setExampleRoot("D:\\E");
        base.setComponents({"RuntimeX64", "RuntimeX86"});

        QCOMPARE(recordLines(installationsPerRuntime(base)),
                 (QStringList{"20.11.2.3 'Progress' x86-win32 | C:\\H | D:\\E | RuntimeX86",
                              "20.11.2.3 'Progress' x64-win64 | C:\\H | D:\\E | RuntimeX64"}));
    }
};

QTEST_GUILESS_MAIN(RuntimesTest)

#include "RuntimesTest.moc"
