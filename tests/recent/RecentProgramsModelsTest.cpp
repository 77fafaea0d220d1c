#include "recent/RecentProgramsFrame.h"
#include "tests/recent/HDevelopSettings.h"
#include "tests/recent/ShownPrograms.h"
#include "tests/support/Messages.h"
#include "tests/support/Rows.h"

#include <QAbstractItemModelTester>
#include <QtTest>

#include <algorithm>
#include <memory>

namespace {

/// @p count paths: every tenth holds "hdev" twice, the others once.
QStringList manyPaths(int count)
{
    QStringList paths;
    for (int i = 0; i < count; ++i) {
        const QString directory = i % 10 == 0 ? "hdev" : "Programs";
        paths.append(QString("C:/%1/inspection %2.hdev").arg(directory).arg(i));
    }
    return paths;
}

/// Counts a model's signals for each kind of change.
class ModelChanges {
public:
    explicit ModelChanges(const QAbstractItemModel &model)
        : spies{std::make_shared<QSignalSpy>(&model, &QAbstractItemModel::dataChanged),
                std::make_shared<QSignalSpy>(&model, &QAbstractItemModel::layoutChanged),
                std::make_shared<QSignalSpy>(&model, &QAbstractItemModel::rowsInserted),
                std::make_shared<QSignalSpy>(&model, &QAbstractItemModel::rowsRemoved),
                std::make_shared<QSignalSpy>(&model, &QAbstractItemModel::rowsMoved),
                std::make_shared<QSignalSpy>(&model, &QAbstractItemModel::modelReset)}
    {
    }

    /// The changes since the last call: data, layout, rows inserted, removed and moved, resets.
    QList<int> take()
    {
        QList<int> counts;
        for (const auto &spy : spies) {
            counts.append(spy->size());
            spy->clear();
        }
        return counts;
    }

private:
    QList<std::shared_ptr<QSignalSpy>> spies;
};

} // namespace

class RecentProgramsModelsTest : public QObject {
    Q_OBJECT

private slots:
    void initTestCase()
    {
        // So that the signals can be recorded.
        qRegisterMetaType<QList<QPersistentModelIndex>>();
        qRegisterMetaType<QAbstractItemModel::LayoutChangeHint>();
    }

    void init() { messages.reset(new CaughtMessages); }
    void cleanup() { messages.reset(); }

    void consistent()
    {
        using Tester = QAbstractItemModelTester;
        settings.writePrograms({"c.txt", "b.hdev", "hdev.hdev"});
        RecentProgramsFrame frame;
        const Tester shown(shownModel(frame), Tester::FailureReportingMode::QtTest);
        const Tester source(settingsModel(frame), Tester::FailureReportingMode::QtTest);
        frame.show();

        for (const int number : {100, 1, 0, 20}) {
            settings.writePrograms(manyPaths(number));
            frame.update_recent();
            for (const char *search : {"hdev", "", "1"}) {
                searchLine(frame)->setText(search);
            }
        }
        QVERIFY(QFile::remove(settings.file()));
        frame.update_recent();
        searchLine(frame)->setText("2");
        searchLine(frame)->clear();
        settings.writePrograms({"a", "b"});
        frame.update_recent();
        QCOMPARE(shownPaths(frame), (QStringList{"a", "b"}));
    }

    void orderedOncePerKeystroke_data() { numbersOfPrograms(); }

    void orderedOncePerKeystroke()
    {
        QFETCH(int, number);
        settings.writePrograms(manyPaths(number));
        RecentProgramsFrame frame;
        frame.show();
        ModelChanges shown(*shownModel(frame));
        ModelChanges source(*settingsModel(frame));

        for (const char key : {'h', 'd', 'x', '\b', '\b', '\b'}) {
            key == '\b' ? QTest::keyClick(searchLine(frame), Qt::Key_Backspace)
                        : QTest::keyClick(searchLine(frame), key);
            QCOMPARE(shown.take(), (QList<int>{1, 1, 0, 0, 0, 0}));
            QCOMPARE(source.take(), (QList<int>{1, 0, 0, 0, 0, 0}));
        }
        QCOMPARE(searchLine(frame)->text(), QString());
        QVERIFY(!shownModel(frame)->dynamicSortFilter());
    }

    void orderedOncePerUpdate_data() { numbersOfPrograms(); }

    void orderedOncePerUpdate()
    {
        QFETCH(int, number);
        settings.writePrograms(manyPaths(number));
        RecentProgramsFrame frame;
        frame.show();
        searchLine(frame)->setText("hdev");
        ModelChanges shown(*shownModel(frame));
        ModelChanges source(*settingsModel(frame));

        frame.update_recent();

        QCOMPARE(shown.take(), (QList<int>{0, 1, 1, 1, 0, 0}));
        QCOMPARE(source.take(), (QList<int>{0, 0, 1, 1, 0, 0}));
    }

    void manyPrograms()
    {
        const int number = 20000;
        const QStringList paths = manyPaths(number);
        settings.writePrograms(paths);
        RecentProgramsFrame frame;
        frame.show();
        QCOMPARE(shownPaths(frame), paths);

        searchLine(frame)->setText("hdev");
        QStringList expected = paths;
        std::stable_partition(expected.begin(), expected.end(),
                              [](const QString &path) { return path.startsWith("C:/hdev"); });
        QCOMPARE(shownPaths(frame), expected);
        QCOMPARE(shownKeys(frame).constFirst(), QString::number(2 * number));
        QCOMPARE(shownKeys(frame).constLast(), QString("1"));

        searchLine(frame)->clear();
        QCOMPARE(shownPaths(frame), paths);
    }

private:
    static void numbersOfPrograms()
    {
        columns<int>("number");

        row("one", 1);
        row("many", 500);
    }

    HDevelopSettings settings;
    QScopedPointer<CaughtMessages> messages; // otherwise the lists would fill the test's log
};

QTEST_MAIN(RecentProgramsModelsTest)
#include "RecentProgramsModelsTest.moc"
