#include "companions/huebox/HueboxArguments.h"

#include "tests/support/Rows.h"

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
    void colours_data()
    {
        const auto row = columns<QStringList, QStringList>("options", "colours");

        row("none", {}, {});
        row("red", {"--fgred"}, {"red"});
        row("green", {"--fggreen"}, {"green"});
        row("blue", {"--fgblue"}, {"blue"});
        row("intense alone", {"--fgint"}, {"intense"});
        row("intense red", {"--fgred", "--fgint"}, {"red", "intense"});
        row("all", {"--fgblue", "--fgint", "--fggreen", "--fgred"}, {"red", "green", "blue", "intense"});
        row("repeated", {"--fgblue", "--fgblue"}, {"blue"});
    }

    void colours()
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

    void words_data()
    {
        const auto row = columns<QStringList, QString>("words", "text");

        row("none", {}, "");
        row("several", {"type", "'devenv'", "to", "launch"}, "type 'devenv' to launch");
        row("spaces in a word stay", {"a  b", " c "}, "a  b  c ");
        row("empty word between", {"a", "", "b"}, "a  b");
        row("option after a word", {"a", "--fggreen"}, "a --fggreen");
        row("option between words", {"a", "--fgint", "b"}, "a --fgint b");
        row("one dash and a letter", {"-x", "--fggreen"}, "-x --fggreen");
        row("not ASCII", {"Größe", "寸法", "Размер", "😀"}, "Größe 寸法 Размер 😀");
    }

    /// The same with and without options in front.
    void words()
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

    void unknownOption_data()
    {
        const auto row = columns<QStringList, QString>("arguments", "option");

        row("alone", {"--foo"}, "--foo");
        row("second", {"--fgred", "--foo", "a"}, "--foo");
        row("two dashes before words", {"--", "a"}, "--");
        row("three dashes and a colour", {"---fgred"}, "---fgred");
        row("upper case", {"--FGRED", "a"}, "--FGRED");
        row("longer", {"--fgreddish", "a"}, "--fgreddish");
        row("with a value", {"--fgred=1", "a"}, "--fgred=1");
        row("not ASCII", {"--größe 寸法😀", "a"}, "--größe 寸法😀");
    }

    void unknownOption()
    {
        QFETCH(QStringList, arguments);

        const HueboxLine line = read(arguments);

        QTEST(QString::fromStdWString(line.unknownOption), "option");
        QCOMPARE(QString::fromStdWString(line.text), "");
    }
};

QTEST_APPLESS_MAIN(HueboxArgumentsTest)

#include "HueboxArgumentsTest.moc"
