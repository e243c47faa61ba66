#pragma once

#include "runtime/errors.h"

/// The number of the error that an action raises, 0 if it raises none.
template <class Action>
int errorOf(Action action) {
    try {
        action();
    } catch (const runtime::NumberedError& error) {
        return error.number;
    }
    return 0;
}
