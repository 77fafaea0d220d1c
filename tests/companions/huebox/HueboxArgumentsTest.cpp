#include "companions/huebox/HueboxArguments.h"

#include "tests/support/Rows.h"

#include <QtTest>

namespace {

/// What the arguments mean, as a text: the unknown option, or the colours in a fixed order and the text.
QString meaning(const QStringList &arguments)
{
    std::vector<std::wstring> list;
    for (const QString &argument : arguments) {
        list.push_back(argument.toStdWString());
    }
    const HueboxLine line = readHueboxArguments(list);
    const QString text = QString::fromStdWString(line.text);
    if (!line.unknownOption.empty()) {
        return "unknown " + QString::fromStdWString(line.unknownOption) + text;
    }
    const QString colours = QString(line.red ? "red " : "") + (line.green ? "green " : "") +
                            (line.blue ? "blue " : "") + (line.intense ? "intense " : "");
    return line.coloured() == colours.isEmpty() ? "contradiction" : colours + '"' + text + '"';
}

} // namespace

class HueboxArgumentsTest : public QObject {
    Q_OBJECT

private slots:
    void arguments_data()
    {
        const auto row = columns<QStringList, QString>("arguments", "expected");

        row("none", {}, R"("")");
        row("red", {"--fgred"}, R"(red "")");
        row("green", {"--fggreen", "a"}, R"(green "a")");
        row("blue", {"--fgblue", "a"}, R"(blue "a")");
        row("intense alone", {"--fgint", "a"}, R"(intense "a")");
        row("intense red", {"--fgred", "--fgint", "a"}, R"(red intense "a")");
        row("all", {"--fgblue", "--fgint", "--fggreen", "--fgred", "a"}, R"(red green blue intense "a")");
        row("repeated", {"--fgblue", "--fgblue", "a"}, R"(blue "a")");

        row("several words", {"type", "'devenv'", "to", "launch"}, R"("type 'devenv' to launch")");
        row("spaces in a word stay", {"a  b", " c "}, R"("a  b  c ")");
        row("empty word between", {"a", "", "b"}, R"("a  b")");
        row("option after a word", {"--fgred", "a", "--fggreen"}, R"(red "a --fggreen")");
        row("option between words", {"a", "--fgint", "b"}, R"("a --fgint b")");
        row("one dash and a letter", {"-x", "--fggreen"}, R"("-x --fggreen")");
        row("not ASCII", {"--fgred", "Größe", "寸法", "Размер", "😀"}, R"(red "Größe 寸法 Размер 😀")");

        row("unknown option alone", {"--foo"}, "unknown --foo");
        row("second option unknown", {"--fgred", "--foo", "a"}, "unknown --foo");
        row("two dashes before words", {"--", "a"}, "unknown --");
        row("three dashes and a colour", {"---fgred"}, "unknown ---fgred");
        row("upper case", {"--FGRED", "a"}, "unknown --FGRED");
        row("longer", {"--fgreddish", "a"}, "unknown --fgreddish");
        row("with a value", {"--fgred=1", "a"}, "unknown --fgred=1");
        row("unknown option that is not ASCII", {"--größe 寸法😀", "a"}, "unknown --größe 寸法😀");
    }

    void arguments()
    {
        QFETCH(QStringList, arguments);
        QTEST(meaning(arguments), "expected");
    }
};

QTEST_APPLESS_MAIN(HueboxArgumentsTest)

#include "HueboxArgumentsTest.moc"
