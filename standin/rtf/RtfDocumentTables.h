#pragma once

#include "Document.h"
#include "RtfTables.h"

#include <cstdint>
#include <map>
#include <string>
#include <vector>

namespace standin::rtf {

/// What stands in front of a document's text: its fonts, colours and styles, and the numbers that the text
/// has for them. Fonts and colours are those that have been asked for by then.
class DocumentTables
{
public:
    /// `document` is borrowed.
    explicit DocumentTables(const model::Document& document);

    /// Of a style of the document.
    std::int32_t number(const model::Style& style) const { return styleNumbers_.at(&style); }
    /// `style`: that of a table; null: none.
    RowNumbers rowNumbers(const model::Style* style);
    /// What RTF says of characters that look like that.
    std::string fontWords(const model::FontProperties& font);

    std::string styleSheet();
    std::string fontTable() const;
    std::string colorTable() const;

private:
    /// Numbers in the order in which things are first asked for.
    template <class Key>
    class Numbering
    {
    public:
        std::int32_t number(const Key& key)
        {
            const auto [place, isNew] = numbers_.try_emplace(key, static_cast<std::int32_t>(keys_.size()));
            if (isNew)
                keys_.push_back(key);
            return place->second;
        }
        const std::vector<Key>& keys() const { return keys_; }

    private:
        std::map<Key, std::int32_t> numbers_;
        std::vector<Key> keys_;
    };

    std::string styleEntry(const model::Style& style);
    std::string tableStyleEntries(const model::Style& style);

    const model::Document& document_;
    Numbering<std::u16string> fonts_;
    Numbering<std::int32_t> colors_;
    std::map<const model::Style*, std::int32_t> styleNumbers_;
};

} // namespace standin::rtf
