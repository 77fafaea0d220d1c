#pragma once

#include "companions/helper/HelperLine.h"
#include "tests/support/WideText.h"

#include <QStringList>

/// How the helper reads the arguments after its name.
inline HelperReading readByHelper(const QString &arguments)
{
    return readHelperArguments(
        argumentsOf(L"\"C:\\Program Files\\C & Co\\qz_com_helper.exe\" " + toWide(arguments)));
}

/// Each variable as "NAME=value".
inline QStringList assignmentsOf(const HelperRequest &request)
{
    QStringList assignments;
    for (const EnvironmentAssignment &each : request.environment) {
        assignments.append(fromWide(each.name) + '=' + fromWide(each.value));
    }
    return assignments;
}

inline QStringList librariesOf(const HelperRequest &request)
{
    QStringList libraries;
    for (const std::wstring &library : request.libraries) {
        libraries.append(fromWide(library));
    }
    return libraries;
}
