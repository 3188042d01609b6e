#pragma once

#include "Content.h"

#include <optional>
#include <string>
#include <string_view>

namespace compose {

/// The text of an entry of the table of contents, gathered from what is written meanwhile.
class CollectedEntry
{
public:
    [[nodiscard]] bool isOpen() const { return isOpen_; }
    /// What was gathered so far goes.
    void begin();
    /// Written text; CR is a paragraph's end. Nothing where no entry is open.
    void add(std::u16string_view text);
    /// The entry, of the level that `style` has: n for "Heading n", else 1. Nothing when nothing was written.
    std::optional<Entry> end(std::u16string_view style);

private:
    bool isOpen_ = false;
    std::u16string text_;
};

} // namespace compose
