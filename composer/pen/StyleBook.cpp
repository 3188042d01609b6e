#include "StyleBook.h"

#include "WideText.h"
#include "WordConstants.h"

namespace compose {

namespace {

constexpr std::u16string_view headingPrefix = u"Heading ";

/// Word's answers for a style that a document does not hold: there is no such member, and no such item.
constexpr HRESULT noSuchMember = 0x800A1735;
constexpr HRESULT noSuchItem = 0x800A16CA;

} // namespace

StyleBook::StyleBook(const Word::_DocumentPtr& document) : document_(document) {}

_variant_t StyleBook::argumentOf(const std::u16string& style)
{
    if (style == u"Normal")
        return Word::integer(Word::wdStyleNormal);
    if (style == u"Header")
        return Word::integer(Word::wdStyleHeader);
    if (style == u"Footer")
        return Word::integer(Word::wdStyleFooter);
    if (style.size() == headingPrefix.size() + 1 && style.starts_with(headingPrefix)) {
        const char16_t digit = style.back();
        if (digit >= u'1' && digit <= u'9')
            return Word::integer(Word::wdStyleHeading1 - (digit - u'1'));
    }
    return Word::text(wide(style).c_str());
}

StyleBook::Page& StyleBook::pageOf(const std::u16string& style)
{
    const auto known = pages_.find(style);
    if (known != pages_.end())
        return known->second;
    if (!styles_)
        styles_ = document_->GetStyles();
    Page page{styles_->Item(argumentOf(style))};
    return pages_.emplace(style, std::move(page)).first->second;
}

bool StyleBook::holds(const std::u16string& style)
{
    try {
        return pageOf(style).style != nullptr;
    } catch (const _com_error& error) {
        if (error.Error() != noSuchMember && error.Error() != noSuchItem)
            throw;
        pages_[style];
        return false;
    }
}

template <class Property, class Read>
const Property& StyleBook::known(Page& page, std::optional<Property>& property, const Property& unknown,
                                 const Read& read)
{
    constexpr int tries = 2;
    if (property)
        return *property;
    try {
        property = read(page.style);
    } catch (const _com_error&) {
        if (++page.failures < tries)
            throw;
        property = unknown;
    }
    return *property;
}

const Font& StyleBook::fontOf(const std::u16string& style)
{
    Page& page = pageOf(style);
    return known(page, page.font, Font(), [](const Word::StylePtr& each) {
        const Word::_FontPtr source = each->GetFont();
        return Font{
            .name = portable(source->GetName()),
            .size = source->GetSize(),
            .isBold = source->GetBold() != 0,
            .isItalic = source->GetItalic() != 0,
            .isUnderlined = source->GetUnderline() != Word::wdUnderlineNone,
            .isStruck = source->GetStrikeThrough() != 0,
        };
    });
}

int StyleBook::alignmentOf(const std::u16string& style)
{
    constexpr int noAlignment = -1;
    Page& page = pageOf(style);
    return known(page, page.alignment, noAlignment, [](const Word::StylePtr& each) {
        return static_cast<int>(each->GetParagraphFormat()->GetAlignment());
    });
}

} // namespace compose
