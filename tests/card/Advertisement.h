#pragma once

#include "card/VelloxaAdvertisementDialog.h"

#include <QApplication>

/// The open Velloxa advertisement; null when there is none.
inline VelloxaAdvertisementDialog *advertisement()
{
    for (QWidget *widget : QApplication::topLevelWidgets()) {
        if (auto *dialog = qobject_cast<VelloxaAdvertisementDialog *>(widget)) {
            return dialog;
        }
    }
    return nullptr;
}
