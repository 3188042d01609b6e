#pragma once

#include <cstddef>
#include <string>
#include <string_view>
#include <vector>

namespace compose {

/// A fragment as a document with the tests' styles receives it: what text states and the fragment's style
/// sheet does not is direct formatting, all else is the document's.
struct FragmentReading
{
    std::vector<std::string> tokens; ///< as `tokensOf` gives them
    std::size_t links = 0;
    std::size_t idleProperties = 0; ///< direct formatting that says what the style says
};

/// Throws std::runtime_error where the RTF is not well-formed.
FragmentReading readFragment(std::string_view rtf);

} // namespace compose
