#include "ChangedStyleFonts.h"

namespace reference {

namespace {

namespace model = standin::model;

model::FontProperties changed(model::FontProperties font)
{
    constexpr float more = 100;
    font.name = *font.name + u" changed";
    font.size = *font.size + more;
    font.bold = !*font.bold;
    font.italic = !*font.italic;
    font.strikeThrough = !*font.strikeThrough;
    font.underline = *font.underline == 0 ? 1 : 0;
    return font;
}

} // namespace

ChangedStyleFonts::ChangedStyleFonts(const model::Document& document)
{
    std::vector<model::FontProperties> fonts;
    for (const model::StylePtr& style : document.styles().all()) {
        if (style->type() != model::StyleType::paragraph)
            continue;
        kept_.emplace_back(style, style->font);
        fonts.push_back(changed(style->resolvedFont()));
    }
    for (std::size_t i = 0; i < kept_.size(); ++i)
        kept_[i].first->font = fonts[i];
}

ChangedStyleFonts::~ChangedStyleFonts()
{
    for (auto& [style, font] : kept_)
        style->font = font;
}

} // namespace reference
