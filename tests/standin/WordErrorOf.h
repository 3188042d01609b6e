#pragma once

#include "WordError.h"

#include <cstdint>

namespace standin::model {

/// The number of the WordError that `action` raises, 0 when it raises none.
template <typename Action>
std::int32_t errorOf(Action action)
{
    try {
        action();
    } catch (const WordError& error) {
        return static_cast<std::int32_t>(error.number());
    }
    return 0;
}

} // namespace standin::model
