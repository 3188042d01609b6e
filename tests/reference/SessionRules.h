#pragma once

#include "ClientCall.h"

#include <map>
#include <optional>
#include <set>
#include <string>
#include <utility>

namespace reference {

/// Which calls a session may go on with so that its meaning is beyond doubt:
///  - page breaks only in the body;
///  - no insertTOC inside an entry, whose text its heading would be;
///  - no header or footer emptied that holds a tag.
/// Everything else may come in any order.
class SessionRules
{
public:
    /// Takes the call as the next one, unless it must not come now.
    bool accept(const ClientCall& call);

private:
    enum class Part
    {
        header,
        footer
    };
    using Header = std::pair<Part, int>; ///< of the section with that number

    bool start(Part part);
    void end(Part part);

    std::optional<Header> current_; ///< nothing: the body
    std::map<Part, int> open_;      ///< the section whose header or footer is being written
    std::set<std::optional<Header>> collecting_;
    std::map<std::u16string, std::optional<Header>> tags_;
    bool isBreakPending_ = false;
    int section_ = 1;
};

/// Whether the rules accept all its calls.
bool isValid(const Session& session);

} // namespace reference
