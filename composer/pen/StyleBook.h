#pragma once

#include "StyleSheet.h"

#include "Word.h"

#include <map>
#include <optional>
#include <string>
#include <string_view>

namespace compose {

/// The paragraph styles of one document, each property asked for once. That a document has Word's own ones
/// is known without a question.
///
/// Errors: a failed Word call raises `_com_error`; asking again asks Word again. A style of which
/// Word does not tell a property the second time either counts as one that nothing said equals.
class StyleBook : public StyleSheet
{
public:
    explicit StyleBook(const Word::_DocumentPtr& document);

    /// Whether the document has a paragraph style of that name.
    bool holds(const std::u16string& style);
    /// Whether it has a table style of that name.
    bool holdsTableStyle(const std::u16string& style);

    // StyleSheet
    const Font& fontOf(const std::u16string& style, FontProperty property) override;
    int alignmentOf(const std::u16string& style) override;

    /// How Word is told of a style: built-in ones by number, since their names are those of Word's language.
    static _variant_t argumentOf(const std::u16string& style);

private:
    struct Page
    {
        Word::StylePtr style = {}; ///< null: not asked for, or missing
        bool isMissing = false;
        Word::_FontPtr fontInWord = {};
        Font font = {};
        unsigned known = 0; ///< of the font's properties; a bit for each
        std::optional<int> alignment = {};
        int failures = 0;
    };
    template <class Read>
    static void tryTo(Page& page, const Read& read);
    void find(const std::u16string& style, Page& page);

    Word::_DocumentPtr document_;
    Word::StylesPtr styles_;
    std::map<std::u16string, Page> pages_;
};

} // namespace compose
