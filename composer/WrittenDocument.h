#pragma once

#include "Content.h"

#include "Collections.h"
#include "FragmentPen.h"
#include "PageArea.h"
#include "StyleBook.h"
#include "WriterEvents.h"

#include <functional>
#include <optional>
#include <set>
#include <string>

namespace compose {

/// What is known of the document that stories are written into; they share it.
struct WrittenDocument
{
    Word::_DocumentPtr document;
    StyleBook styles;
    Collections collections;
    bool readsFragments = false;        ///< They are wanted, and Word has refused none yet.
    Reading reading = {};               ///< of fragments
    std::set<std::u16string> tags = {}; ///< They have a place in Word, or may have.
    int sections = 1;
    std::optional<PageArea> page = {}; ///< of the section that is being written; nothing: not known
    std::u16string tableStyle = {};    ///< that tables get; empty: none
    /// Whether a link leads anywhere, or is to be plain text.
    std::function<bool(const LinkTarget&)> leadsSomewhere = {};
    WriterEvents* events = nullptr; ///< null: nobody wants to hear
    /// The client's name for a bookmark.
    std::function<std::u16string(const std::u16string&)> tagOf = {};
};

} // namespace compose
