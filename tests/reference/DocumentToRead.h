#pragma once

#include "Document.h"
#include "LiveRange.h"

#include <gtest/gtest.h>

#include <string_view>

namespace reference {

/// A document of the Word stand-in's model, which a test fills.
class DocumentToRead : public testing::Test
{
protected:
    [[nodiscard]] standin::model::LiveRange range(standin::model::Position start,
                                                  standin::model::Position end) const
    {
        return {document->mainStory(), start, end};
    }
    void write(std::u16string_view text) const
    {
        const standin::model::Position last = document->mainStory()->length() - 1;
        range(last, last).insertAfter(text);
    }

    standin::model::DocumentPtr document = standin::model::Document::make(u"Document1");
};

} // namespace reference
