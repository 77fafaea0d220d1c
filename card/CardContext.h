#pragma once

#include <QCoreApplication>

/// Translates in the card's context what is said in its name.
struct CardContext {
    Q_DECLARE_TR_FUNCTIONS(SingleHalconVersionFrame)
};
