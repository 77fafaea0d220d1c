#include "card/SingleHalconVersionFrame.h"
#include "tests/support/WidgetTree.h"

#include <QFontMetrics>
#include <QLayout>
#include <QPushButton>
#include <QtTest>

namespace {

HalconInstallation installation()
{
    HalconInstallation result(20, 11, 1, 0);
    result.arch = "x64-win64";
    return result;
}

const QString visualStudioTip =
    "Available Microsoft Visual Studio versions found on your system to be used in the CMD shell. Double "
    "click to "
    "start a CMD shell using this HALCON version together with this Microsoft Visual Studio version.";
const QString permanentTip = "Permanently change the current HALCON version. This can later be changed by "
                             "using this application again. You "
                             "will be asked before any actual changes are being done.";
const QString halconComTip =
    "Register halconx.dll and or halconxxl.dll if your application uses the HALCON/COM "
    "interface. You will be asked for administrative rights.";
const QString engineComTip =
    "Register halconx.dll and or halconxxl.dll if your application uses HDevEngine/COM. You "
    "will be asked for administrative rights.";

} // namespace

/// Compares the whole card, so that nothing in it changes unnoticed.
class CardTreeTest : public QObject {
    Q_OBJECT

private slots:
    void widgets();
    void layouts();
};

void CardTreeTest::widgets()
{
    QWidget parent;
    const SingleHalconVersionFrame card(installation(), &parent);

    const int minimumHeight = QFontMetrics(card.findChild<QPushButton *>("pbMajor")->font()).height() * 3 / 2;
    const QStringList expected{
        QString("SingleHalconVersionFrame frame min 0x%1 max 16777215x163 Expanding/Preferred")
            .arg(minimumHeight),
        "QPushButton pbMajor \"20.11\" Minimum/Preferred in gridLayoutMajor at 0,0 over 3x3",
        "QTextBrowser textBrowser min 300x98 Expanding/Expanding in horizontalLayout at 1",
        "QGroupBox gbHDevelop \"HDevelop\" Preferred/Preferred in horizontalLayout at 2",
        "QPushButton pbHDevelop min 64x52 Fixed/Fixed in gridLayoutHDevelop at 0,0 over 3x3 tip: Launch "
        "HDevelop.",
        "QPushButton pbHDevelopXL min 64x52 Fixed/Fixed in gridLayoutHDevelop at 3,0 over 3x3 "
        "tip: Launch HDevelop XL.",
        "QPushButton  \"XL\" Preferred/Maximum in gridLayoutHDevelop at 5,2 over 1x1 tip: Launch HDevelop "
        "XL.",
        "QGroupBox gbHelp \"Help\" Preferred/Preferred in horizontalLayout at 3",
        "QPushButton pbHelp min 64x52 Fixed/Fixed in horizontalLayoutHelp at 0 "
        "tip: Show manuals and references for this HALCON version",
        "QGroupBox gbShell \"Shell\" Preferred/Preferred in horizontalLayout at 4",
        "QPushButton pbShell min 64x52 Fixed/Fixed in horizontalLayoutShell at 1 "
        "tip: Launch a CMD shell for temporary usage of this HALCON version.",
        "QPushButton pbDevEnv min 64x52 Fixed/Fixed in horizontalLayoutShell at 2 "
        "tip: Launch the Visual Studio IDE.",
        "QListWidget lwVsVersion min 0x50 max 16777215x50 Preferred/Fixed in verticalLayoutShell at 1 tip: " +
            visualStudioTip,
        "QGroupBox gbPerm \"Permanent\" Preferred/Preferred in horizontalLayout at 5",
        "QPushButton pbPerm min 64x52 Fixed/Fixed in horizontalLayoutPerm at 1 tip: " + permanentTip,
        "QFrame frame StyledPanel/Raised Preferred/Preferred in verticalLayoutPerm at 1",
        "QCheckBox cbRegCom Maximum/Maximum in horizontalLayout_4 at 0 tip: " + halconComTip,
        "QPushButton pbUac Minimum/Fixed in horizontalLayout_4 at 1 tip: " + halconComTip,
        "QLabel lRegCom \"Register halconx[xl].dll\" Preferred/Preferred in horizontalLayout_4 at 2 tip: " +
            halconComTip,
        "QFrame frameEngine StyledPanel/Raised Preferred/Preferred in verticalLayoutPerm at 2",
        "QCheckBox cbRegComEngine Maximum/Maximum in horizontalLayout_4Engine at 0 tip: " + engineComTip,
        "QPushButton pbUaCEngine Minimum/Fixed in horizontalLayout_4Engine at 1 tip: " + engineComTip,
        "QLabel lRegComEngine \"Register hdevenginex[xl].dll\" Preferred/Preferred in "
        "horizontalLayout_4Engine at 2 "
        "tip: " +
            engineComTip,
        "QGroupBox gbVelloxa \"Velloxa\" Preferred/Preferred in horizontalLayout at 6",
        "QPushButton pbVelloxa min 64x52 Fixed/Fixed in verticalLayoutVelloxa at 0 "
        "tip: Start Velloxa tool for this HALCON version",
        "QGroupBox gbLicense \"License\" Preferred/Preferred in horizontalLayout at 7",
        "QPushButton pbInstallLicense min 64x52 Fixed/Fixed in verticalLayoutLicense at 0 "
        "tip: Install a license file",
        "QPushButton  \"x64\" Preferred/Maximum in gridLayoutMajor at 2,2 over 1x1",
        "QMenu  Preferred/Preferred",
    };
    const QStringList widgets = describeWidgets(card);
    for (int i = 0; i < qMin(widgets.size(), expected.size()); ++i) {
        QCOMPARE(widgets.at(i), expected.at(i));
    }
    QCOMPARE(widgets.size(), expected.size());
}

void CardTreeTest::layouts()
{
    QWidget parent;
    SingleHalconVersionFrame card(installation(), &parent);

    // Defaults of the style differ between machines, so those layouts get fixed values.
    card.layout()->setSpacing(0);
    card.layout()->setContentsMargins(0, 0, 0, 0);
    const auto clear = [&](const char *name) { card.findChild<QLayout *>(name)->setSpacing(0); };
    clear("horizontalLayout");
    clear("gridLayoutHDevelop");
    clear("horizontalLayoutPerm");

    const QStringList expected{
        "QVBoxLayout verticalLayout spacing 0 margins 0,0,0,0: horizontalLayout",
        "QHBoxLayout horizontalLayout spacing 0 margins 0,0,0,0: verticalLayout_3 | textBrowser | gbHDevelop "
        "| "
        "gbHelp | gbShell | gbPerm | gbVelloxa | gbLicense",
        "QVBoxLayout verticalLayout_3 spacing 0 margins 0,0,0,0: gridLayoutMajor",
        "QGridLayout gridLayoutMajor spacing 0 margins 0,0,0,0: pbMajor | x64",
        "QVBoxLayout verticalLayoutHDevelop spacing 6 margins 9,9,9,9: gridLayoutHDevelop | "
        "spacer 20x40 Minimum/Expanding",
        "QGridLayout gridLayoutHDevelop spacing 0 margins 0,0,0,0: pbHDevelop | pbHDevelopXL | XL",
        "QVBoxLayout verticalLayoutHelp spacing 6 margins 9,9,9,9: horizontalLayoutHelp | "
        "spacer 20x40 Minimum/Expanding",
        "QHBoxLayout horizontalLayoutHelp spacing 0 margins 0,0,0,0: pbHelp",
        "QVBoxLayout verticalLayoutShell spacing 6 margins 9,9,9,9: horizontalLayoutShell | lwVsVersion",
        "QHBoxLayout horizontalLayoutShell spacing 0 margins 0,0,0,0: spacer 40x20 Expanding/Minimum | "
        "pbShell | "
        "pbDevEnv | spacer 40x20 Expanding/Minimum",
        "QVBoxLayout verticalLayoutPerm spacing 6 margins 9,9,9,9: horizontalLayoutPerm | frame | "
        "frameEngine | "
        "spacer 20x40 Minimum/Expanding",
        "QHBoxLayout horizontalLayoutPerm spacing 0 margins 0,0,0,0: spacer 40x20 Expanding/Minimum | pbPerm "
        "| "
        "spacer 40x20 Expanding/Minimum",
        "QHBoxLayout horizontalLayout_4 spacing 0 margins 0,0,0,0: cbRegCom | pbUac | lRegCom",
        "QHBoxLayout horizontalLayout_4Engine spacing 0 margins 0,0,0,0: cbRegComEngine | pbUaCEngine | "
        "lRegComEngine",
        "QVBoxLayout verticalLayoutVelloxa spacing 6 margins 9,9,9,9: pbVelloxa",
        "QVBoxLayout verticalLayoutLicense spacing 6 margins 9,9,9,9: pbInstallLicense",
    };
    const QStringList layouts = describeLayouts(*card.layout());
    for (int i = 0; i < qMin(layouts.size(), expected.size()); ++i) {
        QCOMPARE(layouts.at(i), expected.at(i));
    }
    QCOMPARE(layouts.size(), expected.size());
}

QTEST_MAIN(CardTreeTest)

#include "CardTreeTest.moc"
