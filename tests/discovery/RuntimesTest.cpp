#include "discovery/Runtimes.h"
#include "tests/support/Messages.h"
#include "tests/support/Rows.h"

#include <QtTest>

class RuntimesTest : public QObject {
    Q_OBJECT

private slots:
    void runtimes_data()
    {
        const auto row =
            columns<QStringList, QStringList, QStringList>("components", "architectures", "logLines");

        row("32-bit", {"RuntimeX86"}, {"x86-win32"}, {"hasX86"});
        row("SSE2", {"RuntimeSSE2"}, {"x86sse2-win32"}, {"hasX86SSE2"});
        row("64-bit", {"RuntimeX64"}, {"x64-win64"}, {"hasX64"});
        row("all three, in a fixed order", {"RuntimeX64", "RuntimeSSE2", "RuntimeX86"},
            {"x86-win32", "x86sse2-win32", "x64-win64"}, {"hasX86", "hasX86SSE2", "hasX64"});
        row("runtime twice", {"RuntimeX64", "RuntimeX64"}, {"x64-win64"}, {"hasX64"});
        row("no components", {}, {}, {});
        row("no runtime", {"Documentation", "HDevelopX64"}, {}, {});
        row("other case", {"runtimex64", "RUNTIMEX86", "RuntimeSse2"}, {}, {});
        row("part of a name", {"RuntimeX64d", "MyRuntimeX86", "Sub/RuntimeSSE2"}, {}, {});
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
        // of each architecture: those of the others, beside the three runtimes, that concern it
        const auto row =
            columns<QString, QString, QString, QString>("others", "of32Bit", "ofSse2", "of64Bit");

        const QString inside = "Documentation X64Tool SSE2Tool X86Tool";
        row("endings count at the end only", inside, inside, inside, inside);
        const QString small = "Toolx64 ToolSse2 Toolx86";
        row("endings of another case are none", small, small, small, small);
        row("one of each ending", "ToolX64 ToolSSE2 ToolX86", "ToolX86", "ToolSSE2", "ToolX64");
        row("endings alone", "SSE2 X64 X86", "X86", "SSE2", "X64");
        row("the last ending decides", "ToolX64X86 ToolX86SSE2 ToolSSE2X64", "ToolX64X86", "ToolX86SSE2",
            "ToolSSE2X64");
        row("nested names", "Sub/Documentation Sub/RuntimeX64", "Sub/Documentation", "Sub/Documentation",
            "Sub/Documentation Sub/RuntimeX64");
    }

    void componentsPerArchitecture()
    {
        QFETCH(QString, others);
        QFETCH(QString, of32Bit);
        QFETCH(QString, ofSse2);
        QFETCH(QString, of64Bit);
        HalconInstallation base(20, 11, -1, -1);
        base.setComponents(QStringList{"RuntimeSSE2", "RuntimeX64", "RuntimeX86"} + others.split(' '));

        QStringList components;
        for (const HalconInstallation &each : installationsPerRuntime(base)) {
            components.append(each.components.join(' '));
        }
        QCOMPARE(components,
                 (QStringList{"RuntimeX86 " + of32Bit, "RuntimeSSE2 " + ofSse2, "RuntimeX64 " + of64Bit}));
    }
};

QTEST_GUILESS_MAIN(RuntimesTest)

#include "RuntimesTest.moc"
