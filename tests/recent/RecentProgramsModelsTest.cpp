#include "recent/HtmlDelegate.h"
#include "recent/RecentProgramsFrame.h"
#include "tests/recent/HDevelopSettings.h"
#include "tests/recent/ShownPrograms.h"
#include "tests/support/Messages.h"
#include "tests/support/Patience.h"

#include <QAbstractItemModelTester>
#include <QtTest>

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
        : dataChanges(&model, &QAbstractItemModel::dataChanged),
          layoutChanges(&model, &QAbstractItemModel::layoutChanged),
          insertions(&model, &QAbstractItemModel::rowsInserted),
          removals(&model, &QAbstractItemModel::rowsRemoved),
          moves(&model, &QAbstractItemModel::rowsMoved),
          resets(&model, &QAbstractItemModel::modelReset)
    {
    }

    /// The changes since the last call.
    QString take()
    {
        QString text = QString("%1 data, %2 layout, %3 inserted, %4 removed, %5 moved, %6 reset")
                           .arg(dataChanges.size())
                           .arg(layoutChanges.size())
                           .arg(insertions.size())
                           .arg(removals.size())
                           .arg(moves.size())
                           .arg(resets.size());
        for (QSignalSpy *spy : {&dataChanges, &layoutChanges, &insertions, &removals, &moves, &resets}) {
            spy->clear();
        }
        return text;
    }

private:
    QSignalSpy dataChanges;
    QSignalSpy layoutChanges;
    QSignalSpy insertions;
    QSignalSpy removals;
    QSignalSpy moves;
    QSignalSpy resets;
};

/// Counts the calls from the list.
class CountingDelegate : public HtmlDelegate {
public:
    using HtmlDelegate::HtmlDelegate;

    void paint(QPainter *painter, const QStyleOptionViewItem &option, const QModelIndex &index) const override
    {
        ++paints;
        HtmlDelegate::paint(painter, option, index);
    }

    QSize sizeHint(const QStyleOptionViewItem &option, const QModelIndex &index) const override
    {
        ++sizeHints;
        return HtmlDelegate::sizeHint(option, index);
    }

    mutable int paints = 0;
    mutable int sizeHints = 0;
};

/// Lets the list draw what has changed.
void letDraw()
{
    QCoreApplication::processEvents();
    QCoreApplication::sendPostedEvents();
    QCoreApplication::processEvents();
}

} // namespace

class RecentProgramsModelsTest : public QObject {
    Q_OBJECT

private slots:
    void initTestCase();
    void init() { messages.reset(new CaughtMessages); }
    void cleanup() { messages.reset(); }
    void consistent();
    void orderedOncePerKeystroke_data() { numbersOfPrograms(); }
    void orderedOncePerKeystroke();
    void orderedOncePerUpdate_data() { numbersOfPrograms(); }
    void orderedOncePerUpdate();
    void manyPrograms();
    void drawnAlikeHoweverMany();

private:
    static void numbersOfPrograms();

    HDevelopSettings settings;
    QScopedPointer<CaughtMessages> messages; // otherwise the lists would fill the test's log
};

void RecentProgramsModelsTest::initTestCase()
{
    // So that the signals can be recorded.
    qRegisterMetaType<QList<QPersistentModelIndex>>();
    qRegisterMetaType<QAbstractItemModel::LayoutChangeHint>();
}

void RecentProgramsModelsTest::numbersOfPrograms()
{
    QTest::addColumn<int>("number");

    QTest::newRow("one") << 1;
    QTest::newRow("two") << 2;
    QTest::newRow("many") << 500;
}

void RecentProgramsModelsTest::consistent()
{
    using Tester = QAbstractItemModelTester;
    settings.writePrograms({"c.txt", "b.hdev", "hdev.hdev"});
    RecentProgramsFrame frame;
    const Tester shown(shownModel(frame), Tester::FailureReportingMode::QtTest);
    const Tester source(settingsModel(frame), Tester::FailureReportingMode::QtTest);
    frame.show();

    for (const char *search : {"hdev", "HDEV", "txt", "", "&", "c"}) {
        searchLine(frame)->setText(search);
    }
    for (const int number : {100, 1, 0, 20}) {
        settings.writePrograms(manyPaths(number));
        frame.update_recent();
        searchLine(frame)->setText("hdev");
        searchLine(frame)->clear();
        searchLine(frame)->setText("1");
    }
    QVERIFY(QFile::remove(settings.file()));
    frame.update_recent();
    searchLine(frame)->setText("2");
    settings.write("RecentPrograms=\"\r\n");
    frame.update_recent();
    searchLine(frame)->clear();
    QCOMPARE(shownModel(frame)->rowCount(), 0);
    settings.writePrograms({"a", "b"});
    frame.update_recent();
    QCOMPARE(shownPaths(frame), (QStringList{"a", "b"}));
}

void RecentProgramsModelsTest::orderedOncePerKeystroke()
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
        QCOMPARE(shown.take(), QString("1 data, 1 layout, 0 inserted, 0 removed, 0 moved, 0 reset"));
        QCOMPARE(source.take(), QString("1 data, 0 layout, 0 inserted, 0 removed, 0 moved, 0 reset"));
    }
    QCOMPARE(searchLine(frame)->text(), QString());
    QVERIFY(!shownModel(frame)->dynamicSortFilter());
}

void RecentProgramsModelsTest::orderedOncePerUpdate()
{
    QFETCH(int, number);
    settings.writePrograms(manyPaths(number));
    RecentProgramsFrame frame;
    frame.show();
    searchLine(frame)->setText("hdev");
    ModelChanges shown(*shownModel(frame));
    ModelChanges source(*settingsModel(frame));

    frame.update_recent();

    QCOMPARE(shown.take(), QString("0 data, 1 layout, 1 inserted, 1 removed, 0 moved, 0 reset"));
    QCOMPARE(source.take(), QString("0 data, 0 layout, 1 inserted, 1 removed, 0 moved, 0 reset"));
}

void RecentProgramsModelsTest::manyPrograms()
{
    const int number = 20000;
    const QStringList paths = manyPaths(number);
    settings.writePrograms(paths);
    RecentProgramsFrame frame;
    frame.show();
    QCOMPARE(shownPaths(frame), paths);

    searchLine(frame)->setText("hdev");
    QStringList expected;
    for (int i = 0; i < number; i += 10) {
        expected.append(paths.at(i));
    }
    for (int i = 0; i < number; ++i) {
        if (i % 10 != 0) {
            expected.append(paths.at(i));
        }
    }
    QCOMPARE(shownPaths(frame), expected);
    QCOMPARE(shownKeys(frame).constFirst(), QString::number(2 * number));
    QCOMPARE(shownKeys(frame).constLast(), QString::number(number - (number - 1)));

    searchLine(frame)->clear();
    QCOMPARE(shownPaths(frame), paths);
}

void RecentProgramsModelsTest::drawnAlikeHoweverMany()
{
    QList<int> sizes;
    for (const int number : {2000, 20000}) {
        settings.writePrograms(manyPaths(number));
        RecentProgramsFrame frame;
        CountingDelegate delegate;
        list(frame)->setItemDelegate(&delegate);
        frame.show();
        QVERIFY(eventuallyExposed(&frame));
        letDraw();
        delegate.paints = 0;
        delegate.sizeHints = 0;

        searchLine(frame)->setText("hdev");
        letDraw();

        EVENTUALLY_VERIFY(delegate.paints > 0);
        sizes.append(delegate.sizeHints);
    }
    QCOMPARE(sizes.at(0), sizes.at(1));
}

QTEST_MAIN(RecentProgramsModelsTest)

#include "RecentProgramsModelsTest.moc"
