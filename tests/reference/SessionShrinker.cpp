#include "SessionShrinker.h"

#include "SessionRules.h"

#include <algorithm>
#include <cstddef>

namespace reference {

Session shrink(Session session, const std::function<bool(const Session&)>& differs)
{
    for (std::size_t length = session.size() / 2 + 1; length > 0; length /= 2) {
        for (std::size_t start = 0; start < session.size();) {
            Session shorter = session;
            const auto from = shorter.begin() + static_cast<std::ptrdiff_t>(start);
            shorter.erase(from, from + static_cast<std::ptrdiff_t>(std::min(length, session.size() - start)));
            if (isValid(shorter) && differs(shorter))
                session = std::move(shorter);
            else
                start += length;
        }
    }
    return session;
}

} // namespace reference
