#pragma once

#include "Document.h"

namespace standin::model {

/// The page on which a character of the main text stands, as far as that can be known without laying the
/// document out: one more than the page breaks, sections on a new page and paragraphs with a break in front
/// of it. Text that merely runs over the end of a page does not count.
///
/// The document must not change while it is counted.
class PageCounter
{
public:
    explicit PageCounter(const Document& document);
    /// Positions must be asked for in ascending order.
    std::int32_t pageAt(Position position);

private:
    void enterParagraph();
    void endSection();

    const Document& document_;
    const Story& story_;
    Position at_ = 0;
    std::size_t index_ = 0;
    Paragraph paragraph_;
    std::int32_t section_ = 1;
    std::int32_t page_ = 1;
    bool startsPage_ = true;
};

std::int32_t pageNumberAt(const Document& document, Position position);

/// The number of the last page, counted in the same way.
std::int32_t pageCount(const Document& document);

} // namespace standin::model
