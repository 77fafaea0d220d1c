#pragma once

#include "companions/helper/HelperLine.h"
#include "tests/companions/helper/PrintedRequest.h"
#include "tests/support/WideText.h"

/// How the helper reads the arguments after its name.
inline HelperReading readByHelper(const QString &arguments)
{
    return readHelperArguments(
        argumentsOf(L"\"C:\\Program Files\\C & Co\\qz_com_helper.exe\" " + toWide(arguments)));
}

/// The arguments that ask for what the helper has read.
inline QString printed(const HelperReading &reading)
{
    return reading.request ? fromWide(printedRequest(*reading.request))
                           : "refused: " + fromWide(reading.refusal);
}
