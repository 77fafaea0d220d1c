#pragma once

#include "discovery/HalconInstallation.h"

class QWidget;

/// Makes @p installation the machine's default after the user has agreed to what will be done, and says what
/// became of it. The boxes belong to @p card. Returns when the user has answered the last of them.
void switchAfterConsent(const HalconInstallation &installation, bool registerHalconCom,
                        bool registerEngineCom, QWidget *card);
