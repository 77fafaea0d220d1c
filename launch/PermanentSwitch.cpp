#include "launch/PermanentSwitch.h"

#include "base/LastWindowsError.h"
#include "base/RegistryReader.h"
#include "launch/ElevatedHelper.h"
#include "launch/EnvironmentBroadcast.h"
#include "launch/HalconVariables.h"

#include <QFileInfo>
#include <QObject>

namespace {

/// Unlike in a tool's own environment, the variables of a missing example root are emptied.
QString newValue(const HalconVariable &variable)
{
    return variable.value.value_or(QString());
}

QString storedValue(const QString &key, const QString &name)
{
    return RegistryReader(key).value(name).toString();
}

/// What changes for @p variable, from its current value for the user.
QString changeLine(const HalconVariable &variable)
{
    const QString user = storedValue(QStringLiteral(R"(HKEY_CURRENT_USER\Environment)"), variable.name);
    const QString system = storedValue(
        QStringLiteral(R"(HKEY_LOCAL_MACHINE\SYSTEM\CurrentControlSet\Control\Session Manager\Environment)"),
        variable.name);
    const bool userCounts = !user.isEmpty() || system.isEmpty();
    return QObject::tr("changing environment variable %1 (scope: %2) from\n %3 to\n %4 (scope: system)")
        .arg(variable.name, userCounts ? QObject::tr("user") : QObject::tr("system"),
             userCounts ? user : system, newValue(variable));
}

/// The arguments for those of the libraries that exist.
QString libraryArguments(const HalconInstallation &installation, const QStringList &fileNames)
{
    QString arguments;
    for (const QString &fileName : fileNames) {
        const QString path = binaryDirectory(installation) + QLatin1Char('\\') + fileName;
        if (QFileInfo::exists(path)) {
            arguments += QStringLiteral(" \"") + path + QLatin1Char('"');
        }
    }
    return arguments;
}

/// What is announced before anything is done: the same for a dry run and a real one.
QStringList plannedLines(const HalconInstallation &installation, const QString &arguments)
{
    QStringList lines;
    for (const HalconVariable &variable : halconVariables(installation)) {
        lines.append(changeLine(variable));
    }
    lines.append(QObject::tr("executing helper process with elevated rights: %1 %2")
                     .arg(helperExecutablePath(), arguments));
    // Said here, before the user agrees to something that cannot be done.
    const QString missing = reasonForMissingHelper();
    if (!missing.isEmpty()) {
        lines.append(missing);
    }
    return lines;
}

} // namespace

QString helperArguments(const HalconInstallation &installation, bool registerHalconCom,
                        bool registerEngineCom)
{
    QString arguments;
    for (const HalconVariable &variable : halconVariables(installation)) {
        arguments += QStringLiteral("--env %1=\"%2\" ").arg(variable.name, newValue(variable));
    }
    if (registerHalconCom || registerEngineCom) {
        arguments += installation.arch.contains(QLatin1String("86"), Qt::CaseInsensitive)
                         ? QStringLiteral("--x86")
                         : QStringLiteral("--x64");
    }
    if (registerHalconCom) {
        arguments +=
            libraryArguments(installation, {QStringLiteral("halconx.dll"), QStringLiteral("halconxxl.dll")});
    }
    if (registerEngineCom) {
        arguments += libraryArguments(
            installation, {QStringLiteral("hdevenginex.dll"), QStringLiteral("hdevenginexxl.dll")});
    }
    return arguments;
}

bool permanentSwitch(const HalconInstallation &installation, bool perform, bool registerHalconCom,
                     bool registerEngineCom, QStringList *lines)
{
    const QString arguments = helperArguments(installation, registerHalconCom, registerEngineCom);
    QStringList report = plannedLines(installation, arguments);
    bool succeeded = true;

    if (perform) {
        const int result = runHelper(arguments, true);
        if (result != 0) {
            report.append(QObject::tr("helper process returned with value %1. "
                                      "This indicates an error in the execution!")
                              .arg(result));
            succeeded = false;
        }
    }
    report.append(QObject::tr("broadcast environment updated message (WM_SETTINGCHANGE)"));
    // Also after the helper failed: it may have done part of its work.
    if (perform && !broadcastEnvironmentChange()) {
        const QString error = lastWindowsErrorText();
        report.append(QObject::tr("Error in broadcasting environment updated message: %1").arg(error));
        succeeded = false;
    }

    if (lines != nullptr) {
        lines->append(report);
    }
    return succeeded;
}
