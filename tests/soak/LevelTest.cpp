#include "tests/soak/Level.h"

#include "tests/support/Rows.h"

#include <QTest>

using Values = QVector<qint64>;

class LevelTest : public QObject {
    Q_OBJECT

private slots:
    void tellsWhatRises_data()
    {
        QTest::addColumn<Values>("values");
        QTest::addColumn<QString>("fault");
        const auto risen = [](const char *by) {
            return QStringLiteral("windows rises steadily, by %1; 5 would be all right")
                .arg(QLatin1String(by));
        };
        const QString tooFew = QStringLiteral("windows: too few values to tell whether it rises");
        row<Values, QString>("nothing measured", {}, tooFew);
        row<Values, QString>("measured three times", {1, 1, 1}, tooFew);
        row<Values, QString>("the same", {7, 7, 7, 7}, {});
        row<Values, QString>("as much more as is all right", {7, 8, 9, 10, 11, 12}, {});
        row<Values, QString>("a little more than that", {7, 8, 9, 10, 11, 12, 13}, risen("6 to 13"));
        row<Values, QString>("falling", {90, 80, 70, 60, 50, 40}, {});
        row<Values, QString>("one high value", {7, 7, 7, 7, 99, 7, 7}, {});
        row<Values, QString>("the last is high", {7, 7, 7, 7, 7, 7, 99}, {});
        row<Values, QString>("a step early", {7, 99, 99, 99, 99, 99, 99}, {});
        row<Values, QString>("a step late", {7, 7, 7, 7, 7, 99, 99}, {});
        row<Values, QString>("rising unevenly", {7, 7, 12, 9, 15, 15, 19}, risen("12 to 19"));
    }

    void tellsWhatRises()
    {
        QFETCH(Values, values);
        QFETCH(QString, fault);
        QCOMPARE(riseOf(QStringLiteral("windows"), values, 5), fault);
    }
};

QTEST_GUILESS_MAIN(LevelTest)
#include "LevelTest.moc"
