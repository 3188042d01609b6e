#pragma once

#include <cstddef>
#include <map>
#include <string>
#include <vector>

namespace compose {

/// The bookmarks that stand for a client's tags, and where they have been placed.
class TagNames
{
public:
    /// The bookmark of a tag; a new one when the tag was never named before. Names are told apart by case.
    const std::u16string& bookmarkOf(const std::u16string& tag)
    {
        std::u16string& bookmark = bookmarks_[tag];
        if (bookmark.empty()) {
            bookmark = u"b";
            for (const char digit : std::to_string(bookmarks_.size()))
                bookmark += static_cast<char16_t>(digit);
        }
        return bookmark;
    }

    /// The tag that a bookmark stands for; empty for a bookmark of nobody's.
    [[nodiscard]] std::u16string tagOf(const std::u16string& bookmark) const
    {
        for (const auto& [tag, name] : bookmarks_)
            if (name == bookmark)
                return tag;
        return {};
    }

    /// `story`: what tells the places apart that can lose all they hold.
    void place(const std::u16string& bookmark, const void* story) { places_[bookmark] = story; }
    /// The story has lost all it held; returns the bookmarks that were placed there.
    std::vector<std::u16string> forget(const void* story)
    {
        std::vector<std::u16string> lost;
        for (auto place = places_.begin(); place != places_.end();) {
            if (place->second != story) {
                ++place;
                continue;
            }
            lost.push_back(place->first);
            place = places_.erase(place);
        }
        return lost;
    }
    [[nodiscard]] bool isPlaced(const std::u16string& bookmark) const { return places_.contains(bookmark); }

private:
    std::map<std::u16string, std::u16string> bookmarks_;
    std::map<std::u16string, const void*> places_;
};

} // namespace compose
