#include "tests/license/Drops.h"
#include "tests/license/LicenseFiles.h"
#include "tests/support/Messages.h"
#include "tests/support/Rows.h"

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

    void drop()
    {
        const QString name = "my licences/100% a#b%20c&d+e.dat";
        files.write(name, "one\ntwo\n");
        DropArea frame;

        QVERIFY(dropFiles(frame, {files.url(name)}));

        QCOMPARE(frame.dropped.size(), 1);
        QCOMPARE(frame.dropped.first(), (QList<QVariant>{files.path(name), "one\ntwo\n"}));
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
        data.setUrls({files.url("license.dat")});
        for (const int keys : {int(Qt::NoModifier), int(Qt::ShiftModifier), int(Qt::ControlModifier),
                               int(Qt::ShiftModifier | Qt::ControlModifier)}) {
            frame.dropped.clear();
            QVERIFY(dragOver(frame, data, offered));
            QCOMPARE(::drop(frame, data, offered, Qt::KeyboardModifiers(keys)),
                     taken ? Qt::CopyAction : Qt::IgnoreAction);
            QCOMPARE(frame.dropped.size(), taken ? 1 : 0);
        }
    }

    void firstOfSeveralFiles()
    {
        files.write("b.dat", "first");
        files.write("a.dat", "second");
        DropArea frame;

        QVERIFY(dropFiles(frame, {files.url("b.dat"), files.url("a.dat")}));
        QCOMPARE(frame.dropped.size(), 1);
        QCOMPARE(frame.dropped.first(), (QList<QVariant>{files.path("b.dat"), "first"}));

        // The others do not replace a missing first one.
        QVERIFY(dropFiles(frame, {files.url("missing.dat"), files.url("a.dat")}));
        QCOMPARE(frame.dropped.size(), 1);
    }

    void nothingToRead_data()
    {
        columns<QUrl>("url");

        row("missing", files.url("missing.dat"));
        row("directory", files.url("."));
        row("page of the web", QUrl("http://corvanta.invalid/license.dat"));
        row("file without a path", QUrl("file:"));
    }

    void nothingToRead()
    {
        QFETCH(QUrl, url);
        DropArea frame;

        QVERIFY(dropFiles(frame, {url}));
        QCOMPARE(frame.dropped.size(), 0);

        // The next one is accepted.
        files.write("license.dat", "x");
        QVERIFY(dropFiles(frame, {files.url("license.dat")}));
        QCOMPARE(frame.dropped.size(), 1);
    }

    void urlsThatAreGoneAtTheDrop()
    {
        files.write("license.dat", "x");
        DropArea frame;
        QMimeData data;
        data.setUrls({files.url("license.dat")});
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
        row("CR LF", "one\r\ntwo", "one\ntwo");
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

        QVERIFY(dropFiles(frame, {files.url("license.dat")}));

        QCOMPARE(frame.dropped.size(), 1);
        QTEST(frame.dropped.first().at(1).toString(), "text");
    }

    /// A file that cannot be a licence was dropped by mistake.
    void size()
    {
        const QString name = "image %2.iso";
        QMimeData data;
        data.setUrls({files.url(name)});
        DropArea frame;
        const LogLines log;
        for (const int bytes : {1048576, 1048577}) {
            QVERIFY(log.lines().isEmpty());
            files.write(name, QByteArray(bytes, 'x'));
            QVERIFY(dragOver(frame, data));
            QCOMPARE(::drop(frame, data), bytes == 1048576 ? Qt::CopyAction : Qt::IgnoreAction);
            QCOMPARE(frame.dropped.size(), 1);
        }
        QCOMPARE(log.lines(),
                 QStringList{"dropped file " + files.native(name) +
                             " is not read: it has 1048577 bytes, and a license file at most 1048576"});
    }

private:
    const LicenseFiles files;
};

QTEST_MAIN(InstallLicenseDropFrameTest)
#include "InstallLicenseDropFrameTest.moc"
