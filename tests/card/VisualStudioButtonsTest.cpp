#include "card/VisualStudioButtons.h"
#include "devenv/VisualStudioVersion.h"
#include "tests/card/CardButtons.h"
#include "tests/support/Rows.h"

#include <QTemporaryDir>

class VisualStudioButtonsTest : public QObject {
    Q_OBJECT

private slots:
    void shown_data()
    {
        columns<QString, QString, bool, bool>("architecture", "ide", "shellIsShown", "ideIsShown");

        row("both", "amd64", "devenv.exe", true, true);
        row("no build environment", "", "devenv.exe", false, true);
        row("no IDE", "x86", "", true, false);
        row("removed IDE", "x86", "missing.exe", true, false);
    }

    void shown()
    {
        const QTemporaryDir directory;
        QFile program(directory.filePath("devenv.exe"));
        QVERIFY(program.open(QFile::WriteOnly));
        QFETCH(QString, architecture);
        QFETCH(QString, ide);
        VisualStudioVersion version;
        version.architecture = architecture;
        version.idePath = ide.isEmpty() ? QString() : directory.filePath(ide);
        QWidget card;
        QPushButton shellButton(&card);
        QPushButton ideButton(&card);
        ideButton.setIconSize(QSize(64, 52));

        showVisualStudioButtons(&version, shellButton, ideButton);

        QTEST(!shellButton.isHidden(), "shellIsShown");
        QTEST(!ideButton.isHidden(), "ideIsShown");
        QCOMPARE(shownIcon(ideButton),
                 ideButton.isHidden() ? QImage() : fileIcon(version.idePath, ideButton.iconSize()));
    }

    void noVersion()
    {
        QWidget card;
        QPushButton shellButton(&card);
        QPushButton ideButton(&card);
        showVisualStudioButtons(nullptr, shellButton, ideButton);
        QVERIFY(!shellButton.isHidden());
        QVERIFY(ideButton.isHidden());
    }
};

QTEST_MAIN(VisualStudioButtonsTest)
#include "VisualStudioButtonsTest.moc"
