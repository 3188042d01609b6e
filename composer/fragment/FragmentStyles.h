#pragma once

#include "Content.h"
#include "FontChange.h"
#include "RtfBuilder.h"
#include "StyleSheet.h"

#include <cstdint>
#include <map>
#include <optional>
#include <string>
#include <utility>
#include <vector>

namespace compose {

/// The styles and fonts of a fragment, and what its paragraphs and runs say of their formatting.
///
/// A reader takes what a text states, compares it with what the fragment's style sheet states, and makes the
/// difference direct formatting; the document's own definition of the style wins over the sheet's. So the
/// sheet and text that has its style's look state the same, and no more than a font (`fragmentFont`). The
/// exception: a text that wants what RTF has by default ("not bold" in a bold heading) would differ in
/// nothing. Then the sheet, and the rest of the text in that style, state the property as the document's
/// style has it.
class FragmentStyles
{
public:
    explicit FragmentStyles(StyleSheet& styles);

    /// \name Taking stock, before anything is written
    /// @{
    void note(const Paragraph& paragraph);
    void noteLink() { hasLinks_ = true; }
    /// @}

    void writeTables(rtf::RtfBuilder& rtf) const;
    void writeParagraphStart(rtf::RtfBuilder& rtf, const Paragraph& paragraph, bool isInTable);
    /// Of an item of a noted paragraph.
    const FontChange& changeOf(const Item& item, const Paragraph& paragraph);
    void writeChange(rtf::RtfBuilder& rtf, const FontChange& change) const;
    void writeLinkStyle(rtf::RtfBuilder& rtf) const;

private:
    struct Style
    {
        std::int32_t number = 0;
        std::u16string name;                                ///< RTF's
        FontChange stated = {};                             ///< of the style's own properties
        std::optional<int> alignment = {};                  ///< the same; Word's number
        std::map<const FontWish*, FontChange> changes = {}; ///< of what was asked for in it
    };

    Style& style(const std::u16string& name);
    void stateWhatIsDefault(Style& style, const std::u16string& name, const FontChange& change);
    void noteFont(const std::optional<std::u16string>& name);
    [[nodiscard]] std::int32_t linkStyleNumber() const { return static_cast<std::int32_t>(inOrder_.size()); }

    StyleSheet& sheet_;
    std::map<std::u16string, Style> styles_; ///< by RTF's names
    std::map<std::u16string, Style*> byName_;
    std::vector<const Style*> inOrder_;
    std::map<std::u16string, std::int32_t> fonts_; ///< the default and those that are named
    std::vector<const std::u16string*> fontsInOrder_;
    bool hasLinks_ = false;
};

} // namespace compose
