#pragma once

#include "Document.h"
#include "Invariants.h"
#include "LiveRange.h"
#include "WordErrorOf.h"

#include <gtest/gtest.h>

namespace standin::model {

/// A new document, whose parts must fit together when the test ends.
class ModelTest : public testing::Test
{
protected:
    void TearDown() override
    {
        EXPECT_EQ(document->isClosed() ? std::string() : checkInvariants(*document), "");
    }

    /// Begins anew, in a Word that behaves so.
    void readAs(const Switches& switches) { document = Document::make(u"Document1", switches); }
    LiveRange range(Position start, Position end) { return {document->mainStory(), start, end}; }
    LiveRange content() { return range(0, document->mainStory()->length()); }
    std::u16string text() const { return document->mainStory()->text(0, document->mainStory()->length()); }
    void write(std::u16string_view text) { content().insertAfter(text); }
    /// The text with its marks as letters: C cell, R row, P paragraph.
    std::u16string shape() const
    {
        std::u16string result;
        const Story& story = *document->mainStory();
        for (std::size_t i = 0; i < story.paragraphCount(); ++i) {
            const Paragraph paragraph = story.paragraph(i);
            result += story.text(paragraph.start, paragraph.end - 1);
            const ParagraphEnd end = paragraph.format->end;
            result += end == ParagraphEnd::cell ? u'C' : (end == ParagraphEnd::row ? u'R' : u'P');
        }
        return result;
    }

    DocumentPtr document = Document::make(u"Document1");
};

inline void expectAt(const LiveRange& range, Position start, Position end)
{
    EXPECT_EQ(range.start(), start);
    EXPECT_EQ(range.end(), end);
}

} // namespace standin::model
