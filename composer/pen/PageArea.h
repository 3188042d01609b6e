#pragma once

#include "Collections.h"

#include "Word.h"

#include <optional>

namespace compose {

/// The room for text on the pages of a section, in points; each length is asked for once.
///
/// Errors: a failed Word call raises `_com_error`; asking again asks Word again.
class PageArea
{
public:
    PageArea(const Word::_DocumentPtr& document, Collections& collections, int section)
        : document_(document), collections_(collections), section_(section)
    {
    }

    float width();
    float height();

private:
    float ask(float (*lengthOf)(const Word::PageSetupPtr&));

    Word::_DocumentPtr document_;
    Collections& collections_;
    int section_;
    Word::PageSetupPtr everySections_;
    Word::PageSetupPtr own_;
    std::optional<float> width_;
    std::optional<float> height_;
};

} // namespace compose
