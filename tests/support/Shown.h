#pragma once

#include "tests/support/Patience.h"

#include <utility>

/// A widget that is on the screen.
template <typename Widget>
class Shown : public Widget {
public:
    template <typename... Arguments>
    explicit Shown(Arguments &&...arguments) : Widget(std::forward<Arguments>(arguments)...)
    {
        this->show();
        if (!eventuallyExposed(this)) {
            qFatal("the window does not appear");
        }
    }
};
