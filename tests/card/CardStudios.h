#pragma once

#include "devenv/VisualStudioVersion.h"
#include "discovery/HalconInstallation.h"
#include "tests/devenv/VisualStudioMachine.h"
#include "tests/support/EchoChild.h"

#include <QFile>
#include <QList>
#include <QListWidget>
#include <QStringList>
#include <QtTest>

/// A machine with three Visual Studio versions: 14.0 Professional builds for both architectures, 12.0
/// Professional for 32-bit only and without an IDE, 11.0 Express for both with an IDE of its own. The IDEs
/// are fakes that record their start. Windows only.
///
/// The program looks for Visual Studio only once: create this before the first card.
class CardStudios {
public:
    CardStudios()
    {
        machine.addEdition(Roots::studio32, "14.0", "Professional", machine.path("Visual Studio 14.0"));
        machine.addEdition(Roots::studio32, "12.0", "Professional", machine.path("Visual Studio 12.0"));
        machine.addExpress(Roots::express32, "11.0", machine.path("Visual Studio 11.0\\VC"));
        machine.addFile("Visual Studio 14.0/VC/bin/amd64/vcvars64.bat");
        machine.addFile("Visual Studio 14.0/VC/bin/vcvars32.bat");
        machine.addFile("Visual Studio 12.0/VC/bin/vcvars32.bat");
        machine.addFile("Visual Studio 11.0/VC/bin/amd64/vcvars64.bat");
        machine.addFile("Visual Studio 11.0/VC/bin/vcvars32.bat");
        installIdes();
    }

    /// Adds the IDEs that are missing.
    void installIdes() const
    {
        for (const QString &ide : {ide14(), ide11()}) {
            if (!QFile::exists(ide)) {
                EchoChild::copyTo(ide);
            }
        }
    }

    QString ide14() const { return machine.slashPath("Visual Studio 14.0/Common7/IDE/devenv.exe"); }
    QString ide11() const { return machine.slashPath("Visual Studio 11.0/Common7/IDE/wdexpress.exe"); }

    /// The records of the rows of a 64-bit card, in their order.
    QList<VisualStudioVersion> records64() const
    {
        return {record14("amd64", "Visual Studio 14.0\\VC\\bin\\amd64\\vcvars64.bat"),
                record11("amd64", "Visual Studio 11.0\\VC\\bin\\amd64\\vcvars64.bat")};
    }

    /// The records of the rows of a 32-bit card, in their order.
    QList<VisualStudioVersion> records32() const
    {
        VisualStudioVersion record12;
        record12.version = "12.0";
        record12.edition = "Professional";
        record12.architecture = "x86";
        record12.vcvarsBat = machine.path("Visual Studio 12.0\\VC\\bin\\vcvars32.bat");
        return {record14("x86", "Visual Studio 14.0\\VC\\bin\\vcvars32.bat"), record12,
                record11("x86", "Visual Studio 11.0\\VC\\bin\\vcvars32.bat")};
    }

private:
    VisualStudioVersion record14(const QString &architecture, const QString &script) const
    {
        VisualStudioVersion record;
        record.version = "14.0";
        record.edition = "Professional";
        record.architecture = architecture;
        record.vcvarsBat = machine.path(script);
        record.ideName = "devenv";
        record.idePath = ide14();
        return record;
    }

    VisualStudioVersion record11(const QString &architecture, const QString &script) const
    {
        VisualStudioVersion record;
        record.version = "11.0";
        record.edition = "Express Edition";
        record.architecture = architecture;
        record.vcvarsBat = machine.path(script);
        record.ideName = "wdexpress";
        record.idePath = ide11();
        return record;
    }

    VisualStudioMachine machine;
};

/// HALCON 20.11.1 Progress for one architecture.
inline HalconInstallation progressInstallation(const QString &arch)
{
    HalconInstallation result(20, 11, 1, 0);
    result.setSuffix("Progress");
    result.arch = arch;
    result.installDir = R"(C:\Program Files\HALCON 20.11)";
    result.setExampleRoot(R"(D:\Examples)");
    return result;
}

inline QListWidget &studioList(const QWidget &card)
{
    return *card.findChild<QListWidget *>("lwVsVersion");
}

/// What the user reads in the list.
inline QStringList rowTexts(const QListWidget &list)
{
    QStringList texts;
    for (int row = 0; row < list.count(); ++row) {
        texts.append(list.item(row)->text());
    }
    return texts;
}

/// Scrolls to @p row and clicks on it.
inline void clickRow(QListWidget &list, int row)
{
    list.scrollToItem(list.item(row));
    QTest::mouseClick(list.viewport(), Qt::LeftButton, Qt::NoModifier,
                      list.visualItemRect(list.item(row)).center());
}

/// Scrolls to @p row and double-clicks on it.
inline void doubleClickRow(QListWidget &list, int row)
{
    clickRow(list, row);
    QTest::mouseDClick(list.viewport(), Qt::LeftButton, Qt::NoModifier,
                       list.visualItemRect(list.item(row)).center());
}
