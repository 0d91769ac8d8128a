#pragma once

#include "engine/RunTimeError.h"

namespace quillon {

/// The number of the run-time error that an action ends in, ErrorNumber{} where
/// it ends without one.
template <class Action>
ErrorNumber errorOf(const Action& action) {
    try {
        action();
    } catch (const RunTimeError& error) {
        return error.number();
    }
    return ErrorNumber{};
}

}  // namespace quillon
