#pragma once

#include "StyleSheet.h"

#include "Word.h"

#include <map>
#include <optional>
#include <string>
#include <string_view>

namespace compose {

/// The paragraph styles of one document, each asked for once.
///
/// Errors: a failed Word call raises `_com_error`; asking again asks Word again. A style whose font or
/// alignment Word does not tell the second time either counts as one that nothing said equals.
class StyleBook : public StyleSheet
{
public:
    explicit StyleBook(const Word::_DocumentPtr& document);

    /// Whether the document has a paragraph style of that name.
    bool holds(const std::u16string& style);

    // StyleSheet
    const Font& fontOf(const std::u16string& style) override;
    int alignmentOf(const std::u16string& style) override;

    /// How Word is told of a style: built-in ones by number, since their names are those of Word's language.
    static _variant_t argumentOf(const std::u16string& style);

private:
    struct Page
    {
        Word::StylePtr style; ///< null: there is none
        std::optional<Font> font = {};
        std::optional<int> alignment = {};
        int failures = 0;
    };
    template <class Property, class Read>
    static const Property& known(Page& page, std::optional<Property>& property, const Property& unknown,
                                 const Read& read);
    Page& pageOf(const std::u16string& style);

    Word::_DocumentPtr document_;
    Word::StylesPtr styles_;
    std::map<std::u16string, Page> pages_;
};

} // namespace compose
