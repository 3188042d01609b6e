#pragma once

#include <cstdint>
#include <optional>
#include <string>

namespace diagnostics {

enum class Severity
{
    info,    ///< what was done
    warning, ///< The document may be other than the client thinks.
    error    ///< The client was told of a failure, or would have been.
};

/// Something that happened to one object. Texts are UTF-8 and may hold anything.
struct Event
{
    Severity severity = Severity::info;
    std::string what = {};
    std::optional<std::uint32_t> code = {}; ///< a failed call's
    std::string description = {};           ///< Word's own
    std::string source = {};                ///< Word's own
    std::string remedy = {};                ///< What to do about it; empty: what is known about the code.
};

} // namespace diagnostics
