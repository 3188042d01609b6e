#pragma once

#include "Content.h"

#include <cstddef>
#include <functional>
#include <map>
#include <string>
#include <string_view>

namespace compose {

/// Where in blocks that wait each bookmark has its place: at the tag of its number that was put last.
class WaitingTags
{
public:
    /// The number for a new tag; an earlier place of the bookmark is none any more.
    std::size_t place(const std::u16string& bookmark);
    /// The bookmark has no place here any more.
    void remove(std::u16string_view bookmark);
    /// Takes the tags out of the blocks that are no places any more.
    void dropStale(Blocks& blocks);
    /// None waits any more.
    void clear();

private:
    [[nodiscard]] bool isStale(const Item& item) const;

    std::map<std::u16string, std::size_t, std::less<>> numbers_;
    std::size_t last_ = 0;
    bool areSomeStale_ = false;
};

} // namespace compose
