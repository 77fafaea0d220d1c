#include "tests/license/Drops.h"
#include "tests/license/LicenseFiles.h"
#include "tests/support/Messages.h"
#include "tests/support/Rows.h"

#include <QDir>
#include <QtTest>

class InstallLicenseDropFrameTest : public QObject {
    Q_OBJECT

private slots:
    void enter_data()
    {
        const auto row = columns<QByteArray, QByteArray, bool>("format", "data", "accepted");

        row("a file", "text/uri-list", "file:///C:/license.dat\r\n", true);
        row("a page of the web", "text/uri-list", "http://corvanta.invalid/license.dat\r\n", true);
        row("text", "text/plain", "C:\\license.dat", false);
    }

    void enter()
    {
        QFETCH(QByteArray, format);
        QFETCH(QByteArray, data);
        QFETCH(bool, accepted);
        DropArea frame;
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

    void drop_data()
    {
        columns<QString>("name");

        row("spaces", "my licences/license 1.dat");
        row("signs that a link encodes", "100%/a#b%20c&d+e.dat");
    }

    void drop()
    {
        QFETCH(QString, name);
        files.write(name, "one\ntwo\n");
        DropArea frame;

        QVERIFY(dropFiles(frame, {QUrl::fromLocalFile(files.path(name))}));

        QCOMPARE(frame.dropped.size(), 1);
        QCOMPARE(frame.dropped.first().at(0).toString(), files.path(name));
        QCOMPARE(frame.dropped.first().at(1).toString(), QString("one\ntwo\n"));
    }

    void answer_data()
    {
        columns<Qt::DropActions, bool>("offered", "taken");

        row("a copy", Qt::DropActions(Qt::CopyAction), true);
        row("a copy or a move", copyOrMove, true);
        row("a move", Qt::DropActions(Qt::MoveAction), false);
        row("nothing", Qt::DropActions(), false);
    }

    /// The source deletes a file that it is told was moved. So the action is a copy, whatever the
    /// keys propose.
    void answer()
    {
        QFETCH(Qt::DropActions, offered);
        QFETCH(bool, taken);
        files.write("license.dat", "x");
        DropArea frame;
        QMimeData data;
        data.setUrls({QUrl::fromLocalFile(files.path("license.dat"))});
        int takenSoFar = 0;
        const Qt::KeyboardModifiers both = Qt::ShiftModifier | Qt::ControlModifier;
        for (const Qt::KeyboardModifiers keys :
             {Qt::KeyboardModifiers(), Qt::KeyboardModifiers(Qt::ShiftModifier),
              Qt::KeyboardModifiers(Qt::ControlModifier), both}) {
            QVERIFY(dragOver(frame, data, offered));

            QCOMPARE(::drop(frame, data, offered, keys), taken ? Qt::CopyAction : Qt::IgnoreAction);

            takenSoFar += taken ? 1 : 0;
            QCOMPARE(frame.dropped.size(), takenSoFar);
        }
    }

    void firstOfSeveralFiles()
    {
        files.write("b.dat", "first");
        files.write("a.dat", "second");
        DropArea frame;

        QVERIFY(dropFiles(
            frame, {QUrl::fromLocalFile(files.path("b.dat")), QUrl::fromLocalFile(files.path("a.dat"))}));
        QCOMPARE(frame.dropped.size(), 1);
        QCOMPARE(frame.dropped.first(), (QList<QVariant>{files.path("b.dat"), "first"}));

        // The others do not replace a missing first one.
        QVERIFY(dropFiles(frame, {QUrl::fromLocalFile(files.path("missing.dat")),
                                  QUrl::fromLocalFile(files.path("a.dat"))}));
        QCOMPARE(frame.dropped.size(), 1);

        QVERIFY(dropFiles(
            frame, {QUrl::fromLocalFile(files.path("a.dat")), QUrl::fromLocalFile(files.path("b.dat"))}));
        QCOMPARE(frame.dropped.size(), 2);
        QCOMPARE(frame.dropped.last(), (QList<QVariant>{files.path("a.dat"), "second"}));
    }

    void nothingToRead_data()
    {
        // name: in the test's directory
        // other: instead of it
        const auto row = columns<QString, QUrl>("name", "other");

        row("missing", "missing.dat", QUrl());
        row("directory", ".", QUrl());
        row("page of the web", {}, QUrl("http://corvanta.invalid/license.dat"));
        row("file without a path", {}, QUrl("file:"));
    }

    void nothingToRead()
    {
        QFETCH(QString, name);
        QFETCH(QUrl, other);
        DropArea frame;

        QVERIFY(dropFiles(frame, {name.isNull() ? other : QUrl::fromLocalFile(files.path(name))}));
        QCOMPARE(frame.dropped.size(), 0);

        // The next one is accepted.
        files.write("license.dat", "x");
        QVERIFY(dropFiles(frame, {QUrl::fromLocalFile(files.path("license.dat"))}));
        QCOMPARE(frame.dropped.size(), 1);
    }

    void urlsThatAreGoneAtTheDrop()
    {
        files.write("license.dat", "x");
        DropArea frame;
        QMimeData data;
        data.setUrls({QUrl::fromLocalFile(files.path("license.dat"))});
        QVERIFY(dragOver(frame, data));
        data.clear();
        data.setText(files.path("license.dat"));

        QTest::ignoreMessage(QtDebugMsg, "formats: (\"text/plain\")");
        ::drop(frame, data);

        QCOMPARE(frame.dropped.size(), 0);
    }

    void textOfAFile_data()
    {
        const auto row = columns<QByteArray, QString>("bytes", "text");

        row("empty", {}, {});
        row("CR LF", "one\r\ntwo\r\n", "one\ntwo\n");
        row("no line break at the end", "one\r\ntwo", "one\ntwo");
        row("lone CR", "one\rtwo\r", "onetwo");
        row("UTF-16",
            QByteArray("\xff\xfe"
                       "a\0\r\0\n\0b\0",
                       10),
            "a\nb");
    }

    void textOfAFile()
    {
        QFETCH(QByteArray, bytes);
        files.write("license.dat", bytes);
        DropArea frame;

        QVERIFY(dropFiles(frame, {QUrl::fromLocalFile(files.path("license.dat"))}));

        QCOMPARE(frame.dropped.size(), 1);
        QTEST(frame.dropped.first().at(1).toString(), "text");
    }

    void size_data()
    {
        columns<qint64, bool>("bytes", "taken");

        row("largest", qint64(1048576), true);
        row("too large", qint64(1048577), false);
    }

    /// A file that cannot be a licence was dropped by mistake.
    void size()
    {
        QFETCH(qint64, bytes);
        QFETCH(bool, taken);
        QFile file(files.path("image %2.iso"));
        QVERIFY(file.open(QFile::WriteOnly));
        QVERIFY(file.resize(bytes));
        file.close();
        DropArea frame;
        const LogLines log;
        QMimeData data;
        data.setUrls({QUrl::fromLocalFile(files.path("image %2.iso"))});
        QVERIFY(dragOver(frame, data));

        QCOMPARE(::drop(frame, data), taken ? Qt::CopyAction : Qt::IgnoreAction);

        QCOMPARE(frame.dropped.size(), taken ? 1 : 0);
        const QString line = "dropped file " + QDir::toNativeSeparators(files.path("image %2.iso")) +
                             " is not read: it has " + QString::number(bytes) +
                             " bytes, and a license file at most 1048576";
        QCOMPARE(log.lines(), taken ? QStringList() : QStringList{line});
    }

private:
    const LicenseFiles files;
};

QTEST_MAIN(InstallLicenseDropFrameTest)

#include "InstallLicenseDropFrameTest.moc"
