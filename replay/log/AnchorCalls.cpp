#include "AnchorCalls.h"

#include "LoggedCall.h"

#include "AnchorMarkup.h"

namespace replay {

namespace {

/// Markup is ASCII: each byte may stand for itself.
std::wstring widened(std::string_view bytes)
{
    std::wstring wide;
    wide.reserve(bytes.size());
    for (const char c : bytes)
        wide += static_cast<wchar_t>(static_cast<unsigned char>(c));
    return wide;
}

std::string narrowed(std::wstring_view wide)
{
    std::string bytes;
    bytes.reserve(wide.size());
    for (const wchar_t c : wide)
        bytes += static_cast<char>(static_cast<unsigned char>(c));
    return bytes;
}

constexpr std::string_view opening = "<a href=";

} // namespace

AnchorCalls::AnchorCalls(std::string_view text) : rest_(text)
{
    lookForAnchor();
}

void AnchorCalls::lookForAnchor()
{
    anchorPos_ = rest_.find(opening);
    next_ = anchorPos_ == rest_.npos ? Next::nothing : Next::front;
}

std::string AnchorCalls::next()
{
    switch (next_) {
    case Next::front: {
        const std::wstring text = widened(rest_);
        const std::optional<AnchorMarkup> anchor = parseAnchor(text, anchorPos_);
        next_ = anchor ? Next::link : Next::nothing;
        if (anchor) {
            // The label and the tail lie in the text at the same places as in the wide one.
            label_ = rest_.substr(static_cast<std::size_t>(anchor->label.data() - text.data()),
                                  anchor->label.size());
            target_ = narrowed(withoutGuidMarks(anchor->target));
            tail_ = rest_.substr(rest_.size() - anchor->tail.size());
        }
        return echoOf({.method = Method::insertText, .texts = {std::string(rest_.substr(0, anchorPos_))}});
    }
    case Next::link:
        next_ = Next::tail;
        return echoOf({.method = Method::insertXref, .texts = {std::string(label_), target_}});
    case Next::tail:
        rest_ = tail_;
        lookForAnchor();
        return echoOf({.method = Method::insertText, .texts = {std::string(rest_)}});
    case Next::nothing:
        break;
    }
    return {};
}

} // namespace replay
