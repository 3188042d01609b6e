#pragma once

#include "Document.h"

#include <cstdint>
#include <string>
#include <string_view>

namespace standin::rtf {

/// Takes what a file says of its pages.
class PageReader
{
public:
    explicit PageReader(model::Document& document) : document_(document) {}

    /// Formats the document's last section. Other words pass.
    void take(std::string_view word, std::int32_t number);
    /// Some writers turn a page by its size alone.
    void findLandscapes();

private:
    model::Document& document_;
    model::PageSetup defaults_;
};

/// What a file says of its pages in front of the text.
std::string documentPageWords(const model::PageSetup& setup);
/// What it says of a section's.
std::string sectionPageWords(const model::PageSetup& setup, bool isFirst);

} // namespace standin::rtf
