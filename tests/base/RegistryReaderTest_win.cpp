#include "base/RegistryReader.h"
#include "tests/support/Messages.h"
#include "tests/support/Registry.h"

#include <QtTest>

/// Each row runs below both hives.
class RegistryReaderTest : public QObject {
    Q_OBJECT

private slots:
    void init()
    {
        QFETCH(QString, hive);
        top = hive + R"(\Software\Corvanta tests)";
        QVERIFY(!Registry::exists(top));
    }

    void cleanup() { Registry::removeTree(top); }

    void missingKey_data() { hives(); }

    void missingKey()
    {
        const CaughtMessages messages;
        const RegistryReader missing(top + R"(\A\B)");
        for (const char *group : {"", "C", "C/D"}) {
            const RegistryReader key = missing.below(group);
            QCOMPARE(key.childGroups(), QStringList());
            QCOMPARE(key.allKeys(), QStringList());
            QVERIFY(!key.contains("name"));
            QVERIFY(!key.value("name").isValid());
        }
        QCOMPARE(messages.warnings(), QStringList());
        QVERIFY(!Registry::exists(top));
    }

    void emptyKey_data() { hives(); }

    void emptyKey()
    {
        Registry::createKey(top + R"(\A)");
        const RegistryReader key(top + R"(\A)");
        QCOMPARE(key.childGroups(), QStringList());
        QCOMPARE(key.allKeys(), QStringList());
        QVERIFY(!key.contains("name"));
    }

    void unreadableKey_data() { hives(); }

    /// As if it were missing; what is beside it is read.
    void unreadableKey()
    {
        Registry::setString(top + R"(\A)", "name", "secret");
        Registry::setString(top + R"(\A\B)", "name", "below");
        Registry::setString(top + R"(\C)", "name", "beside");
        const Registry::Lock lock(top + R"(\A)", Registry::Lock::Allows::nothing);
        const CaughtMessages messages;

        const RegistryReader key(top);
        QCOMPARE(key.childGroups(), (QStringList{"A", "C"}));
        QVERIFY(!key.contains("A/name"));
        QVERIFY(!key.value("A/name").isValid());
        QCOMPARE(key.below("A").childGroups(), QStringList());
        QCOMPARE(key.below("A").allKeys(), QStringList());
        QCOMPARE(key.value("C/name"), QVariant("beside"));
        QCOMPARE(messages.warnings(), QStringList());
    }

    void groupsAndValues_data() { hives(); }

    void groupsAndValues()
    {
        Registry::setString(top + R"(\A)", "text", "C:\\H");
        Registry::setDword(top + R"(\A\B)", "number", 7);
        Registry::setString(top + R"(\A\B\C d)", "deep", "1");
        Registry::createKey(top + R"(\A\E)");
        Registry::setString(top + R"(\Other)", "other", "1");

        const RegistryReader key(top + R"(\A)");
        QCOMPARE(key.childGroups(), (QStringList{"B", "E"}));
        QCOMPARE(key.allKeys(), (QStringList{"B/C d/deep", "B/number", "text"}));
        QCOMPARE(key.value("text"), QVariant("C:\\H"));
        QCOMPARE(key.value("B/number"), QVariant(7));
        QVERIFY(key.contains("text"));
        QVERIFY(!key.contains("number"));
        // A key does not count as a value.
        QVERIFY(!key.contains("B"));

        const RegistryReader below = key.below("B");
        QCOMPARE(below.childGroups(), QStringList{"C d"});
        QCOMPARE(below.allKeys(), (QStringList{"C d/deep", "number"}));
        QCOMPARE(below.value("number"), QVariant(7));
        QCOMPARE(below.below("C d").value("deep"), QVariant("1"));
    }

    void slashInAKeysName_data() { hives(); }

    void slashInAKeysName()
    {
        Registry::setString(top + R"(\1/2\B)", "name", "slash");
        Registry::setString(top + R"(\1\2\B)", "name", "two keys");

        const RegistryReader key(top);
        QCOMPARE(key.childGroups(), (QStringList{"1", R"(1\2)"}));
        QCOMPARE(key.below(R"(1\2/B)").value("name"), QVariant("slash"));
        QCOMPARE(key.below("1/2/B").value("name"), QVariant("two keys"));
        QCOMPARE(RegistryReader(top + R"(\1/2\B)").value("name"), QVariant("slash"));
        QCOMPARE(RegistryReader(top + R"(\1\2\B)").value("name"), QVariant("two keys"));
    }

private:
    static void hives()
    {
        QTest::addColumn<QString>("hive");

        QTest::newRow("machine") << "HKEY_LOCAL_MACHINE";
        QTest::newRow("user") << "HKEY_CURRENT_USER";
    }

    QString top; ///< above all keys of a test
};

QTEST_GUILESS_MAIN(RegistryReaderTest)

#include "RegistryReaderTest_win.moc"
