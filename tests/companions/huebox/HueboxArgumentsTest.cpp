#include "companions/huebox/HueboxArguments.h"

#include <QtTest>

namespace {

HueboxLine read(const QStringList &arguments)
{
    std::vector<std::wstring> list;
    for (const QString &argument : arguments) {
        list.push_back(argument.toStdWString());
    }
    return readHueboxArguments(list);
}

/// The colours of @p line by name, in a fixed order.
QStringList coloursOf(const HueboxLine &line)
{
    QStringList colours;
    const auto add = [&colours](bool flag, const char *name) {
        if (flag) {
            colours.append(name);
        }
    };
    add(line.red, "red");
    add(line.green, "green");
    add(line.blue, "blue");
    add(line.intense, "intense");
    return colours;
}

} // namespace

class HueboxArgumentsTest : public QObject {
    Q_OBJECT

private slots:
    void colours_data();
    void colours();
    void words_data();
    void words();
    void unknownOption_data();
    void unknownOption();
};

void HueboxArgumentsTest::colours_data()
{
    QTest::addColumn<QStringList>("options");
    QTest::addColumn<QStringList>("colours");

    QTest::newRow("none") << QStringList{} << QStringList{};
    QTest::newRow("red") << QStringList{"--fgred"} << QStringList{"red"};
    QTest::newRow("green") << QStringList{"--fggreen"} << QStringList{"green"};
    QTest::newRow("blue") << QStringList{"--fgblue"} << QStringList{"blue"};
    QTest::newRow("intense alone") << QStringList{"--fgint"} << QStringList{"intense"};
    QTest::newRow("intense red") << QStringList{"--fgred", "--fgint"} << QStringList{"red", "intense"};
    QTest::newRow("intense first") << QStringList{"--fgint", "--fgred"} << QStringList{"red", "intense"};
    QTest::newRow("red and green") << QStringList{"--fgred", "--fggreen"} << QStringList{"red", "green"};
    QTest::newRow("green and red") << QStringList{"--fggreen", "--fgred"} << QStringList{"red", "green"};
    QTest::newRow("all") << QStringList{"--fgblue", "--fgint", "--fggreen", "--fgred"}
                         << QStringList{"red", "green", "blue", "intense"};
    QTest::newRow("repeated") << QStringList{"--fgblue", "--fgblue"} << QStringList{"blue"};
    QTest::newRow("repeated with others between")
        << QStringList{"--fgint", "--fgblue", "--fgint", "--fgblue"} << QStringList{"blue", "intense"};
}

void HueboxArgumentsTest::colours()
{
    QFETCH(QStringList, options);

    for (const QStringList &words : {QStringList{}, QStringList{"some", "words"}}) {
        const HueboxLine line = read(options + words);

        QTEST(coloursOf(line), "colours");
        QCOMPARE(line.coloured(), !options.isEmpty());
        QCOMPARE(QString::fromStdWString(line.text), words.join(' '));
        QVERIFY(line.unknownOption.empty());
    }
}

void HueboxArgumentsTest::words_data()
{
    QTest::addColumn<QStringList>("words");
    QTest::addColumn<QString>("text");

    QTest::newRow("none") << QStringList{} << "";
    QTest::newRow("one") << QStringList{"HALCON"} << "HALCON";
    QTest::newRow("several") << QStringList{"type", "'devenv'", "to", "launch"} << "type 'devenv' to launch";
    QTest::newRow("spaces in a word stay") << QStringList{"a  b", " c "} << "a  b  c ";
    QTest::newRow("one empty word") << QStringList{""} << "";
    QTest::newRow("empty word first") << QStringList{"", "a"} << " a";
    QTest::newRow("empty word between") << QStringList{"a", "", "b"} << "a  b";
    QTest::newRow("empty word last") << QStringList{"a", ""} << "a ";
    QTest::newRow("only empty words") << QStringList{"", "", ""} << "  ";
    QTest::newRow("option after a word") << QStringList{"a", "--fggreen"} << "a --fggreen";
    QTest::newRow("option after an empty word") << QStringList{"", "--fggreen"} << " --fggreen";
    QTest::newRow("option between words") << QStringList{"a", "--fgint", "b"} << "a --fgint b";
    QTest::newRow("unknown option after a word") << QStringList{"a", "--foo", "--"} << "a --foo --";
    QTest::newRow("one dash") << QStringList{"-"} << "-";
    QTest::newRow("one dash and a letter") << QStringList{"-x", "--fggreen"} << "-x --fggreen";
    QTest::newRow("option with one dash") << QStringList{"-fggreen"} << "-fggreen";
    QTest::newRow("dashes further on in the word") << QStringList{"a--fggreen"} << "a--fggreen";
    QTest::newRow("space before the dashes") << QStringList{" --fggreen"} << " --fggreen";
    QTest::newRow("slash") << QStringList{"/?"} << "/?";
    QTest::newRow("wildcards") << QStringList{"*.*", "?"} << "*.* ?";
    QTest::newRow("quotes") << QStringList{"\"a\"", "'b'"} << "\"a\" 'b'";
    QTest::newRow("not ASCII") << QStringList{"Größe", "寸法", "Размер", "😀"} << "Größe 寸法 Размер 😀";
}

/// The same with and without options in front.
void HueboxArgumentsTest::words()
{
    QFETCH(QStringList, words);

    const HueboxLine plain = read(words);
    QTEST(QString::fromStdWString(plain.text), "text");
    QCOMPARE(coloursOf(plain), QStringList());
    QVERIFY(!plain.coloured());
    QVERIFY(plain.unknownOption.empty());

    const HueboxLine coloured = read(QStringList{"--fgred", "--fgint"} + words);
    QTEST(QString::fromStdWString(coloured.text), "text");
    QCOMPARE(coloursOf(coloured), (QStringList{"red", "intense"}));
    QVERIFY(coloured.unknownOption.empty());
}

void HueboxArgumentsTest::unknownOption_data()
{
    QTest::addColumn<QStringList>("arguments");
    QTest::addColumn<QString>("option");

    QTest::newRow("alone") << QStringList{"--foo"} << "--foo";
    QTest::newRow("first") << QStringList{"--foo", "--fgred", "a"} << "--foo";
    QTest::newRow("second") << QStringList{"--fgred", "--foo", "a"} << "--foo";
    QTest::newRow("the first of two") << QStringList{"--foo", "--bar", "a"} << "--foo";
    QTest::newRow("two dashes") << QStringList{"--"} << "--";
    QTest::newRow("two dashes before words") << QStringList{"--", "a"} << "--";
    QTest::newRow("three dashes") << QStringList{"---x"} << "---x";
    QTest::newRow("three dashes and a colour") << QStringList{"---fgred"} << "---fgred";
    QTest::newRow("upper case") << QStringList{"--FGRED", "a"} << "--FGRED";
    QTest::newRow("mixed case") << QStringList{"--fgRed", "a"} << "--fgRed";
    QTest::newRow("cut short") << QStringList{"--fg", "a"} << "--fg";
    QTest::newRow("longer") << QStringList{"--fgreddish", "a"} << "--fgreddish";
    QTest::newRow("with a value") << QStringList{"--fgred=1", "a"} << "--fgred=1";
    QTest::newRow("trailing space") << QStringList{"--fgred ", "a"} << "--fgred ";
    QTest::newRow("background") << QStringList{"--bgred", "a"} << "--bgred";
    QTest::newRow("help") << QStringList{"--help"} << "--help";
    QTest::newRow("not ASCII") << QStringList{"--größe 寸法😀", "a"} << "--größe 寸法😀";
}

void HueboxArgumentsTest::unknownOption()
{
    QFETCH(QStringList, arguments);

    const HueboxLine line = read(arguments);

    QTEST(QString::fromStdWString(line.unknownOption), "option");
    QCOMPARE(QString::fromStdWString(line.text), "");
}

QTEST_APPLESS_MAIN(HueboxArgumentsTest)

#include "HueboxArgumentsTest.moc"
