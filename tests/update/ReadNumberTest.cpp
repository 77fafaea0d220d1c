#include "update/ReadNumber.h"

#include "tests/support/Rows.h"

#include <QtTest>

class ReadNumberTest : public QObject {
    Q_OBJECT

private slots:
    void numbers_data()
    {
        // number: empty when it is not a number
        columns<QString, QString>("text", "number");

        row("minus", "-1", "-1");
        row("plus", "+2", "2");
        row("leading zeros", "0010", "10");
        row("spaces around", " 2 ", "2");
        row("empty", "", "");
        row("beyond 32 bits", "2147483648", "");
        row("below 32 bits", "-2147483649", "");
        row("point", "2.0", "");
        row("hexadecimal", "0x10", "");
        row("digit of another script", "\u0662", "");
    }

    void numbers()
    {
        QFETCH(QString, text);
        QFETCH(QString, number);

        const std::optional<int> read = readNumber(text);

        QCOMPARE(read ? QString::number(*read) : QString(), number);
    }
};

QTEST_GUILESS_MAIN(ReadNumberTest)
#include "ReadNumberTest.moc"
