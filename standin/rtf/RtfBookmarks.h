#pragma once

#include "Document.h"

#include <map>
#include <string>
#include <string_view>
#include <vector>

namespace standin::rtf {

/// Writes the borders of a story's bookmarks between its characters, in one pass from its start.
class BookmarkWriter
{
public:
    explicit BookmarkWriter(const model::Story& story);

    /// What stands in front of the character at `position` and has not been written.
    std::string bordersUpTo(model::Position position);
    /// The next border that has not been written; beyond every story when there is none.
    model::Position next() const;

private:
    struct Border
    {
        model::Position position;
        int rank; ///< At one position: ends (0), bookmarks without text (1), starts (2). Readers mix up
                  ///< nested ones.
        bool isStart;
        std::u16string name;
    };

    std::vector<Border> borders_;
    std::size_t written_ = 0;
};

/// Gathers the borders of bookmarks while a file is read. Bookmarks with names that no bookmark can have, and
/// those that never end, are left out.
class BookmarkReader
{
public:
    void start(const std::u16string& name, const std::shared_ptr<model::Story>& story,
               model::Position position);
    void end(const std::u16string& name, const std::shared_ptr<model::Story>& story,
             model::Position position);
    /// The mark in front of the story's final one takes the place of that: bookmarks keep it inside.
    static void eraseDoubleMark(const std::shared_ptr<model::Story>& story);

private:
    std::map<std::u16string, model::LiveRange> open_;
};

} // namespace standin::rtf
