#pragma once

#include "Document.h"
#include "RtfTableLook.h"

#include <cstdint>
#include <map>
#include <string>
#include <string_view>

namespace standin::rtf {

/// Gathers the styles of a file and defines them in the document. A style that the document has gets the
/// file's definition, except that a name never changes from paragraphs to characters or back.
class StyleSheetReader
{
public:
    explicit StyleSheetReader(model::Document& document) : document_(document) {}

    /// False for a word that formats: those are the reader's.
    bool take(std::string_view word, std::int32_t number, const ColorTableReader& colors);
    void character(char16_t c) { entry_.name += c; }
    /// Ends the entry, which looks like that. `plain` is what a file's text looks like by itself.
    void finish(const model::FontProperties& font, const model::ParagraphProperties& paragraph,
                const model::FontProperties& plain);

    /// Null when the sheet has none of that number and type.
    const model::Style* style(std::int32_t number, model::StyleType type) const;
    const model::Style& normal() const { return document_.styles().normal(); }
    bool definesNormal() const { return definesNormal_; }

private:
    /// A style while its entry is being read.
    struct Entry
    {
        std::int32_t number = 0;
        model::StyleType type = model::StyleType::paragraph;
        std::int32_t base = -1;
        std::int32_t next = -1;
        std::u16string name = {};
        TableLookReader table = {};
    };

    void defineParagraphStyle(model::Style& style, const model::FontProperties& font,
                              const model::ParagraphProperties& paragraph);

    model::Document& document_;
    std::map<std::int32_t, model::StylePtr> styles_;
    Entry entry_;
    bool definesNormal_ = false;
};

} // namespace standin::rtf
