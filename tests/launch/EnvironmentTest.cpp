#include "launch/Environment.h"
#include "tests/launch/EnvironmentBlock.h"
#include "tests/support/Rows.h"

#include <QtTest>

class EnvironmentTest : public QObject {
    Q_OBJECT

private slots:
    void entries_data()
    {
        columns<QStringList, QStringList>("given", "ordered");

        using List = QStringList;
        row("by name, whatever its case", List{"zz=1", "AAB=2", "Path=3", "aaa=4"},
            List{"aaa=4", "AAB=2", "Path=3", "zz=1"});
        row("by name, not by value", List{"A_B=1", "A=2"}, List{"A=2", "A_B=1"});
        row("name with an equals sign", List{"A=1", "=C:=C:\\Windows", "=::=::\\"},
            List{"=::=::\\", "=C:=C:\\Windows", "A=1"});
        row("later value, first spelling", List{"Path=1", "A=", "PATH=2"}, List{"A=", "Path=2"});
        row("equals signs in a value", List{"A==a=b=="}, List{"A==a=b=="});
        row("neither name nor equals sign", List{"A", "", "=", "=A", "B=1"}, List{"B=1"});
        row("not ASCII", List{"Maß=寸法 😀", "GRÖSSE=1", "größe=2", "Größe=3"},
            List{"GRÖSSE=1", "größe=3", "Maß=寸法 😀"});
        row("long", List{"A=" + QString(40000, 'x')}, List{"A=" + QString(40000, 'x')});
    }

    void entries()
    {
        QFETCH(QStringList, given);
        QTEST(blockEntries(Environment(given).block().get()), "ordered");
    }

    void set_data()
    {
        columns<QString, QString, QStringList>("name", "value", "afterwards");

        using List = QStringList;
        row("new", "A", "1", List{"=C:=C:\\", "A=1", "Path=C:\\W"});
        row("new and empty", "Z", "", List{"=C:=C:\\", "Path=C:\\W", "Z="});
        row("replaced, spelled as before", "PATH", "D:\\=%PATH%", List{"=C:=C:\\", "Path=D:\\=%PATH%"});
        row("emptied", "path", "", List{"=C:=C:\\", "Path="});
        row("name with an equals sign", "=c:", "C:\\W", List{"=C:=C:\\W", "Path=C:\\W"});
    }

    void set()
    {
        QFETCH(QString, name);
        QFETCH(QString, value);
        const Environment before({"Path=C:\\W", "=C:=C:\\"});
        Environment environment = before;

        environment.set(name, value);

        QTEST(blockEntries(environment.block().get()), "afterwards");
        QCOMPARE(environment.value(name), value);
        QCOMPARE(blockEntries(before.block().get()), (QStringList{"=C:=C:\\", "Path=C:\\W"}));
    }

    void value()
    {
        const Environment environment({"Path=C:\\W;=", "=C:=C:\\", "Empty="});
        QCOMPARE(environment.value("PATH"), "C:\\W;=");
        QCOMPARE(environment.value("=c:"), "C:\\");
        QCOMPARE(environment.value("Empty"), "");
        QCOMPARE(environment.value("Pat"), "");
    }

    /// Windows expects a second 0 although there is no entry that the first one terminates.
    void emptyBlock()
    {
        const std::shared_ptr<char16_t[]> block = Environment({}).block();
        QCOMPARE(int(block[0]), 0);
        QCOMPARE(int(block[1]), 0);
    }
};

QTEST_GUILESS_MAIN(EnvironmentTest)

#include "EnvironmentTest.moc"
