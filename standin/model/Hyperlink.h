#pragma once

#include "Field.h"

#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace standin::model {

/// What a hyperlink leads to and how it shows. An address, a place inside the target, or both.
struct HyperlinkTarget
{
    std::u16string address;
    std::u16string subAddress; ///< a bookmark's name
    std::u16string screenTip = {};
    std::u16string frame = {};

    bool operator==(const HyperlinkTarget&) const = default;
};

/// A link over a stretch of text: a HYPERLINK field whose result is the text that shows.
class Hyperlink
{
public:
    /// `field` must be a HYPERLINK field.
    explicit Hyperlink(Field field) : field_(std::move(field)) {}

    const Field& field() const { return field_; }
    LiveRange range() const { return field_.range(); } ///< with the field characters

    HyperlinkTarget target() const;
    std::u16string textToDisplay() const;
    void remove(); ///< leaves the text, without the look of a link

private:
    Field field_;
};

/// Makes a link of the range's text; an empty range first gets the address as its text. `text`, when there is
/// one, takes the place of the range's own. Where the range ends beyond a field that it does not wholly hold,
/// the link ends in front of that field's border. The text gets the character style Hyperlink. Raises 4198
/// when both address and sub-address are empty.
Hyperlink addHyperlink(const LiveRange& anchor, const HyperlinkTarget& target,
                       const std::optional<std::u16string>& text = {});

/// The links that start in the range, by position.
std::vector<Hyperlink> hyperlinksIn(const LiveRange& range);

/// Gives a field's result the look of a link.
void styleAsHyperlink(const Field& field);

} // namespace standin::model
