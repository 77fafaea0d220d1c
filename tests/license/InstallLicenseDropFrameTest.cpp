#include "license/InstallLicenseDropFrame.h"
#include "tests/license/Drops.h"
#include "tests/support/Messages.h"

#include <QDir>
#include <QSignalSpy>
#include <QTemporaryDir>
#include <QTextCodec>
#include <QtTest>

class InstallLicenseDropFrameTest : public QObject {
    Q_OBJECT

private slots:
    void init();
    void enter_data();
    void enter();
    void drop_data();
    void drop();
    void answer_data();
    void answer();
    void firstOfSeveralFiles();
    void nothingToRead_data();
    void nothingToRead();
    void urlsThatAreGoneAtTheDrop();
    void readWhenDropped();
    void formatsAreTraced();
    void textOfAFile_data();
    void textOfAFile();
    void bytesOutsideTheCodePage();
    void size_data();
    void size();

private:
    QString path(const QString &name) const { return directory->filePath(name); }
    void write(const QString &name, const QByteArray &contents) const
    {
        QFile file(path(name));
        QVERIFY(QDir().mkpath(QFileInfo(file).path()));
        QVERIFY(file.open(QFile::WriteOnly));
        QCOMPARE(file.write(contents), qint64(contents.size()));
    }

    QScopedPointer<QTemporaryDir> directory;
};

void InstallLicenseDropFrameTest::init()
{
    directory.reset(new QTemporaryDir);
    QVERIFY(directory->isValid());
}

void InstallLicenseDropFrameTest::enter_data()
{
    QTest::addColumn<QByteArray>("format");
    QTest::addColumn<QByteArray>("data");
    QTest::addColumn<bool>("accepted");

    QTest::newRow("a file") << QByteArray("text/uri-list") << QByteArray("file:///C:/license.dat\r\n")
                            << true;
    QTest::newRow("a page of the web")
        << QByteArray("text/uri-list") << QByteArray("http://corvanta.invalid/license.dat\r\n") << true;
    QTest::newRow("text") << QByteArray("text/plain") << QByteArray("C:\\license.dat") << false;
    QTest::newRow("picture") << QByteArray("image/png") << QByteArray("x") << false;
    QTest::newRow("bytes") << QByteArray("application/octet-stream") << QByteArray("x") << false;
}

void InstallLicenseDropFrameTest::enter()
{
    QFETCH(QByteArray, format);
    QFETCH(QByteArray, data);
    QFETCH(bool, accepted);
    InstallLicenseDropFrame frame;
    frame.setAcceptDrops(true);
    QMimeData dragged;
    dragged.setData(format, data);
    for (const Qt::DropAction proposed : {Qt::CopyAction, Qt::MoveAction, Qt::LinkAction}) {
        QDragEnterEvent event(QPoint(), proposed, &dragged, Qt::LeftButton, Qt::NoModifier);
        event.setDropAction(Qt::IgnoreAction);
        event.setAccepted(!accepted);

        QApplication::sendEvent(&frame, &event);

        QCOMPARE(event.isAccepted(), accepted);
        QCOMPARE(event.dropAction(), accepted ? proposed : Qt::IgnoreAction);
    }
}

void InstallLicenseDropFrameTest::drop_data()
{
    QTest::addColumn<QString>("name");

    QTest::newRow("plain") << "license.dat";
    QTest::newRow("another ending") << "license.txt";
    QTest::newRow("spaces") << "my licences/license 1.dat";
    QTest::newRow("signs that a link encodes") << "100%/a#b%20c&d+e.dat";
    QTest::newRow("not ASCII") << "Gr\u00f6\u00dfe/\u691c\u67fb.dat";
}

void InstallLicenseDropFrameTest::drop()
{
    QFETCH(QString, name);
    write(name, "one\ntwo\n");
    InstallLicenseDropFrame frame;
    frame.setAcceptDrops(true);
    const QSignalSpy dropped(&frame, &InstallLicenseDropFrame::file_dropped);

    QVERIFY(dropFiles(frame, {QUrl::fromLocalFile(path(name))}));

    QCOMPARE(dropped.size(), 1);
    QCOMPARE(dropped.first().at(0).toString(), path(name));
    QCOMPARE(dropped.first().at(1).toString(), QString("one\ntwo\n"));
}

void InstallLicenseDropFrameTest::answer_data()
{
    QTest::addColumn<Qt::DropActions>("offered");
    QTest::addColumn<bool>("taken");

    QTest::newRow("a copy") << Qt::DropActions(Qt::CopyAction) << true;
    QTest::newRow("a copy or a move") << copyOrMove << true;
    QTest::newRow("a copy or a link") << (Qt::CopyAction | Qt::LinkAction) << true;
    QTest::newRow("anything") << (Qt::CopyAction | Qt::MoveAction | Qt::LinkAction) << true;
    QTest::newRow("a move") << Qt::DropActions(Qt::MoveAction) << false;
    QTest::newRow("a link") << Qt::DropActions(Qt::LinkAction) << false;
    QTest::newRow("a move or a link") << (Qt::MoveAction | Qt::LinkAction) << false;
    QTest::newRow("nothing") << Qt::DropActions() << false;
}

/// The source deletes a file that it is told was moved. So the action is a copy, whatever the keys propose.
void InstallLicenseDropFrameTest::answer()
{
    QFETCH(Qt::DropActions, offered);
    QFETCH(bool, taken);
    write("license.dat", "x");
    InstallLicenseDropFrame frame;
    frame.setAcceptDrops(true);
    const QSignalSpy dropped(&frame, &InstallLicenseDropFrame::file_dropped);
    QMimeData data;
    data.setUrls({QUrl::fromLocalFile(path("license.dat"))});
    int takenSoFar = 0;
    const Qt::KeyboardModifiers both = Qt::ShiftModifier | Qt::ControlModifier;
    for (const Qt::KeyboardModifiers keys :
         {Qt::KeyboardModifiers(), Qt::KeyboardModifiers(Qt::ShiftModifier),
          Qt::KeyboardModifiers(Qt::ControlModifier), both}) {
        QVERIFY(dragOver(frame, data, offered));

        QCOMPARE(::drop(frame, data, offered, keys), taken ? Qt::CopyAction : Qt::IgnoreAction);

        takenSoFar += taken ? 1 : 0;
        QCOMPARE(dropped.size(), takenSoFar);
    }
}

void InstallLicenseDropFrameTest::firstOfSeveralFiles()
{
    write("b.dat", "first");
    write("a.dat", "second");
    InstallLicenseDropFrame frame;
    frame.setAcceptDrops(true);
    const QSignalSpy dropped(&frame, &InstallLicenseDropFrame::file_dropped);

    QVERIFY(dropFiles(frame, {QUrl::fromLocalFile(path("b.dat")), QUrl::fromLocalFile(path("a.dat"))}));
    QCOMPARE(dropped.size(), 1);
    QCOMPARE(dropped.first(), (QList<QVariant>{path("b.dat"), "first"}));

    // The others do not replace a missing first one.
    QVERIFY(dropFiles(frame, {QUrl::fromLocalFile(path("missing.dat")), QUrl::fromLocalFile(path("a.dat"))}));
    QCOMPARE(dropped.size(), 1);

    QVERIFY(dropFiles(frame, {QUrl::fromLocalFile(path("a.dat")), QUrl::fromLocalFile(path("b.dat"))}));
    QCOMPARE(dropped.size(), 2);
    QCOMPARE(dropped.last(), (QList<QVariant>{path("a.dat"), "second"}));
}

void InstallLicenseDropFrameTest::nothingToRead_data()
{
    QTest::addColumn<QString>("name"); // in the test's directory
    QTest::addColumn<QUrl>("other");   // instead of it

    QTest::newRow("missing") << "missing.dat" << QUrl();
    QTest::newRow("missing directory") << "missing/license.dat" << QUrl();
    QTest::newRow("directory") << "." << QUrl();
    QTest::newRow("page of the web") << QString() << QUrl("http://corvanta.invalid/license.dat");
    QTest::newRow("resource of the program") << QString() << QUrl("qrc:/corvanta.png");
    QTest::newRow("no file at all") << QString() << QUrl("mailto:someone@corvanta.invalid");
    QTest::newRow("file without a path") << QString() << QUrl("file:");
}

void InstallLicenseDropFrameTest::nothingToRead()
{
    QFETCH(QString, name);
    QFETCH(QUrl, other);
    InstallLicenseDropFrame frame;
    frame.setAcceptDrops(true);
    const QSignalSpy dropped(&frame, &InstallLicenseDropFrame::file_dropped);

    QVERIFY(dropFiles(frame, {name.isNull() ? other : QUrl::fromLocalFile(path(name))}));
    QCOMPARE(dropped.size(), 0);

    // The next one is accepted.
    write("license.dat", "x");
    QVERIFY(dropFiles(frame, {QUrl::fromLocalFile(path("license.dat"))}));
    QCOMPARE(dropped.size(), 1);
}

void InstallLicenseDropFrameTest::urlsThatAreGoneAtTheDrop()
{
    write("license.dat", "x");
    InstallLicenseDropFrame frame;
    frame.setAcceptDrops(true);
    const QSignalSpy dropped(&frame, &InstallLicenseDropFrame::file_dropped);
    QMimeData data;
    data.setUrls({QUrl::fromLocalFile(path("license.dat"))});
    QVERIFY(dragOver(frame, data));
    data.clear();
    data.setText(path("license.dat"));

    QTest::ignoreMessage(QtDebugMsg, "formats: (\"text/plain\")");
    ::drop(frame, data);

    QCOMPARE(dropped.size(), 0);
}

void InstallLicenseDropFrameTest::readWhenDropped()
{
    write("license.dat", "while dragged");
    InstallLicenseDropFrame frame;
    frame.setAcceptDrops(true);
    const QSignalSpy dropped(&frame, &InstallLicenseDropFrame::file_dropped);
    QMimeData data;
    data.setUrls({QUrl::fromLocalFile(path("license.dat"))});
    QVERIFY(dragOver(frame, data));

    write("license.dat", "when dropped");
    ::drop(frame, data);
    write("license.dat", "later");

    QCOMPARE(dropped.size(), 1);
    QCOMPARE(dropped.first().at(1).toString(), QString("when dropped"));
    // The file is not kept open.
    QVERIFY(QFile::remove(path("license.dat")));
}

void InstallLicenseDropFrameTest::formatsAreTraced()
{
    InstallLicenseDropFrame frame;
    frame.setAcceptDrops(true);
    QMimeData data;
    data.setUrls({QUrl::fromLocalFile(path("missing.dat"))});
    data.setText("text");
    QVERIFY(dragOver(frame, data));

    QTest::ignoreMessage(QtDebugMsg, "formats: (\"text/uri-list\", \"text/plain\")");
    ::drop(frame, data);
}

void InstallLicenseDropFrameTest::textOfAFile_data()
{
    QTest::addColumn<QByteArray>("bytes");
    QTest::addColumn<QString>("text");

    QTest::newRow("empty") << QByteArray() << QString();
    QTest::newRow("LF") << QByteArray("one\ntwo\n") << "one\ntwo\n";
    QTest::newRow("CR LF") << QByteArray("one\r\ntwo\r\n") << "one\ntwo\n";
    QTest::newRow("no line break at the end") << QByteArray("one\r\ntwo") << "one\ntwo";
    QTest::newRow("lone CR") << QByteArray("one\rtwo\r") << "onetwo";
    QTest::newRow("CR CR LF") << QByteArray("one\r\r\ntwo") << "one\ntwo";
    QTest::newRow("spaces and tabs") << QByteArray(" one \ttwo  ") << " one \ttwo  ";
    QTest::newRow("UTF-16") << QByteArray("\xff\xfe"
                                          "a\0\r\0\n\0b\0",
                                          10)
                            << "a\nb";
    QTest::newRow("long") << QByteArray("0123456789\r\n").repeated(80000)
                          << QString("0123456789\n").repeated(80000);
}

void InstallLicenseDropFrameTest::textOfAFile()
{
    QFETCH(QByteArray, bytes);
    write("license.dat", bytes);
    InstallLicenseDropFrame frame;
    frame.setAcceptDrops(true);
    const QSignalSpy dropped(&frame, &InstallLicenseDropFrame::file_dropped);

    QVERIFY(dropFiles(frame, {QUrl::fromLocalFile(path("license.dat"))}));

    QCOMPARE(dropped.size(), 1);
    QTEST(dropped.first().at(1).toString(), "text");
}

/// A machine whose code page is UTF-8, as an example of one that has not a character for every byte.
void InstallLicenseDropFrameTest::bytesOutsideTheCodePage()
{
    write("license.dat", "a\xf6"
                         "b \xc3\xb6\n");
    InstallLicenseDropFrame frame;
    frame.setAcceptDrops(true);
    const QSignalSpy dropped(&frame, &InstallLicenseDropFrame::file_dropped);
    QTextCodec *before = QTextCodec::codecForLocale();
    QTextCodec::setCodecForLocale(QTextCodec::codecForName("UTF-8"));

    const bool taken = dropFiles(frame, {QUrl::fromLocalFile(path("license.dat"))});

    QTextCodec::setCodecForLocale(before);
    QVERIFY(taken);
    QCOMPARE(dropped.size(), 1);
    QCOMPARE(dropped.first().at(1).toString(), QString("a\ufffd"
                                                       "b \u00f6\n"));
}

void InstallLicenseDropFrameTest::size_data()
{
    QTest::addColumn<qint64>("bytes");
    QTest::addColumn<bool>("taken");

    QTest::newRow("largest") << qint64(1048576) << true;
    QTest::newRow("too large") << qint64(1048577) << false;
}

/// A file that cannot be a licence was dropped by mistake.
void InstallLicenseDropFrameTest::size()
{
    QFETCH(qint64, bytes);
    QFETCH(bool, taken);
    QFile file(path("image %2.iso"));
    QVERIFY(file.open(QFile::WriteOnly));
    QVERIFY(file.resize(bytes));
    file.close();
    InstallLicenseDropFrame frame;
    frame.setAcceptDrops(true);
    const QSignalSpy dropped(&frame, &InstallLicenseDropFrame::file_dropped);
    const LogLines log;
    QMimeData data;
    data.setUrls({QUrl::fromLocalFile(path("image %2.iso"))});
    QVERIFY(dragOver(frame, data));

    QCOMPARE(::drop(frame, data), taken ? Qt::CopyAction : Qt::IgnoreAction);

    QCOMPARE(dropped.size(), taken ? 1 : 0);
    const QString line = "dropped file " + QDir::toNativeSeparators(path("image %2.iso")) +
                         " is not read: it has " + QString::number(bytes) +
                         " bytes, and a license file at most 1048576";
    QCOMPARE(log.lines(), taken ? QStringList() : QStringList{line});
}

QTEST_MAIN(InstallLicenseDropFrameTest)

#include "InstallLicenseDropFrameTest.moc"
