#pragma once

#include "devenv/VisualStudioVersion.h"
#include "tests/devenv/VisualStudioMachine.h"
#include "tests/support/EchoChild.h"
#include "tests/support/Installations.h"

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
        return {record("14.0", "Professional", "amd64", "amd64\\vcvars64.bat", "devenv", ide14()),
                record("11.0", "Express Edition", "amd64", "amd64\\vcvars64.bat", "wdexpress", ide11())};
    }

    /// The records of the rows of a 32-bit card, in their order.
    QList<VisualStudioVersion> records32() const
    {
        return {record("14.0", "Professional", "x86", "vcvars32.bat", "devenv", ide14()),
                record("12.0", "Professional", "x86", "vcvars32.bat", {}, {}),
                record("11.0", "Express Edition", "x86", "vcvars32.bat", "wdexpress", ide11())};
    }

private:
    VisualStudioVersion record(const QString &version, const QString &edition, const QString &architecture,
                               const QString &script, const QString &ideName, const QString &idePath) const
    {
        VisualStudioVersion result;
        result.version = version;
        result.edition = edition;
        result.architecture = architecture;
        result.vcvarsBat = machine.path("Visual Studio " + version + "\\VC\\bin\\" + script);
        result.ideName = ideName;
        result.idePath = idePath;
        return result;
    }

    VisualStudioMachine machine;
};

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
