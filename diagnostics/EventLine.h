#pragma once

#include "Event.h"

#include <cstddef>
#include <string>
#include <string_view>

namespace diagnostics {

/// `text` in one line: control characters become spaces, line ends too, and those at its end go.
[[nodiscard]] std::string inOneLine(std::string_view text);

/// The beginning of a UTF-8 text, with "..." in place of the rest; no character is cut in two.
[[nodiscard]] std::string shortened(std::string_view text, std::size_t most);

/// Who an event happened to.
struct Subject
{
    unsigned object = 0;
    std::string_view document; ///< empty: none
    std::string_view method;   ///< empty: none
};

/// What follows time, process, thread and severity: object, document, method, what happened, code, Word's
/// description, Word's source, remedy. The fields are separated by tabs; one that holds nothing is "-".
[[nodiscard]] std::string eventLine(const Subject& subject, const Event& event);

} // namespace diagnostics
