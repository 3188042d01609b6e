#pragma once

#include "Document.h"
#include "Invariants.h"
#include "LiveRange.h"
#include "RtfReader.h"
#include "RtfWriter.h"
#include "WordErrorOf.h"

#include <gtest/gtest.h>

namespace standin::rtf {

class RtfTest : public testing::Test
{
protected:
    void TearDown() override { EXPECT_EQ(checkInvariants(*document), ""); }

    static model::LiveRange rangeOf(const std::shared_ptr<model::Story>& story)
    {
        return {story, 0, story->length()};
    }
    model::LiveRange range(model::Position start, model::Position end)
    {
        return {document->mainStory(), start, end};
    }
    void write(std::u16string_view text) { rangeOf(document->mainStory()).insertAfter(text); }
    std::string rtf() const { return writeRtf(*document); }
    /// Has the document read back from what is written of it.
    void rewrite()
    {
        const std::string written = rtf();
        document = model::Document::make(u"Document2", document->switches());
        readRtf(written, *document);
    }
    static std::u16string textOf(const std::shared_ptr<model::Story>& story) { return rangeOf(story).text(); }
    std::u16string text() const { return textOf(document->mainStory()); }

    model::DocumentPtr document = model::Document::make(u"Document1");
};

} // namespace standin::rtf
