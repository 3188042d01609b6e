#include "StyleBook.h"

#include "WideText.h"
#include "WordConstants.h"

namespace compose {

namespace {

constexpr std::u16string_view headingPrefix = u"Heading ";

/// Word's answers for a style that a document does not hold: there is no such member, and no such item.
constexpr auto noSuchMember = static_cast<HRESULT>(0x800A1735);
constexpr auto noSuchItem = static_cast<HRESULT>(0x800A16CA);

void read(const Word::_FontPtr& source, FontProperty property, Font& font)
{
    switch (property) {
    case FontProperty::name:
        font.name = portable(source->GetName());
        break;
    case FontProperty::size:
        font.size = source->GetSize();
        break;
    case FontProperty::bold:
        font.isBold = source->GetBold() != 0;
        break;
    case FontProperty::italic:
        font.isItalic = source->GetItalic() != 0;
        break;
    case FontProperty::underline:
        font.isUnderlined = source->GetUnderline() != Word::wdUnderlineNone;
        break;
    case FontProperty::strike:
        font.isStruck = source->GetStrikeThrough() != 0;
        break;
    }
}

/// Every document has these, used or not.
bool isBuiltIn(const std::u16string& style)
{
    return StyleBook::argumentOf(style).vt != VT_BSTR;
}

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

void StyleBook::find(const std::u16string& style, Page& page)
{
    if (page.style || page.isMissing)
        return;
    if (!styles_)
        styles_ = document_->GetStyles();
    page.style = styles_->Item(argumentOf(style));
}

bool StyleBook::holds(const std::u16string& style)
{
    if (isBuiltIn(style))
        return true;
    Page& page = pages_[style];
    try {
        find(style, page);
    } catch (const _com_error& error) {
        if (error.Error() != noSuchMember && error.Error() != noSuchItem)
            throw;
        page.isMissing = true;
    }
    return page.style != nullptr;
}

bool StyleBook::holdsTableStyle(const std::u16string& style)
{
    return holds(style) && !isBuiltIn(style) && pages_[style].style->GetType() == Word::wdStyleTypeTable;
}

/// To no effect, when Word does not tell the second time.
template <class Read>
void StyleBook::tryTo(Page& page, const Read& read)
{
    constexpr int tries = 2;
    try {
        read();
    } catch (const _com_error&) {
        if (++page.failures < tries)
            throw;
    }
}

const Font& StyleBook::fontOf(const std::u16string& style, FontProperty property)
{
    Page& page = pages_[style];
    const unsigned bit = 1U << static_cast<unsigned>(property);
    if ((page.known & bit) != 0)
        return page.font;
    tryTo(page, [&] {
        find(style, page);
        if (!page.fontInWord)
            page.fontInWord = page.style->GetFont();
        read(page.fontInWord, property, page.font);
    });
    page.known |= bit;
    return page.font;
}

int StyleBook::alignmentOf(const std::u16string& style)
{
    constexpr int noAlignment = -1;
    Page& page = pages_[style];
    if (!page.alignment) {
        int found = noAlignment;
        tryTo(page, [&] {
            find(style, page);
            found = page.style->GetParagraphFormat()->GetAlignment();
        });
        page.alignment = found;
    }
    return *page.alignment;
}

} // namespace compose
