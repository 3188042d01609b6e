#pragma once

#include <string>
#include <string_view>

namespace replay {

/// The lines that an `insertText` with an anchor in its text leaves behind its own one: the object makes
/// those calls itself. One after the other, so that a log that breaks off costs no more than what it holds.
class AnchorCalls
{
public:
    /// `text` stays the caller's.
    explicit AnchorCalls(std::string_view text);

    /// The next line, its end included; empty when there is none any more.
    std::string next();

private:
    enum class Next
    {
        front, ///< what stands in front of the anchor
        link,
        tail,
        nothing
    };

    void lookForAnchor();

    std::string_view rest_;
    std::string_view label_;
    std::string target_;
    std::string_view tail_;
    std::size_t anchorPos_ = 0;
    Next next_ = Next::nothing;
};

} // namespace replay
