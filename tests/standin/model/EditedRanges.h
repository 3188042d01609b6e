#pragma once

#include "Fuzzing.h"

#include "Document.h"
#include "Invariants.h"
#include "LiveRange.h"

#include <algorithm>
#include <cstddef>
#include <memory>
#include <string>
#include <vector>

/// A range by its two ends, for the plain models that the fuzzers compare with.
struct NaiveRange
{
    standin::model::Position start;
    standin::model::Position end;
};

/// Sets a range to any place in a story whose last paragraph mark is at `last`; answers where.
inline NaiveRange moveAnywhere(FuzzerInput& input, standin::model::LiveRange& range,
                               standin::model::Position last)
{
    const standin::model::Position start = input.below(last + 1);
    const standin::model::Position end = std::max(start, input.below(last + 2));
    range.setRange(start, end);
    return {start, end};
}

/// \name Formatting, which changes no text and moves no range
/// @{
inline void putAnyFont(FuzzerInput& input, standin::model::LiveRange& range)
{
    range.setFont({.size = static_cast<float>(input.next() % 3 + 10), .bold = input.next() % 2 == 0});
}
inline void putAnyStyle(FuzzerInput& input, standin::model::LiveRange& range)
{
    range.setStyle(-1 - input.next() % 90);
}
inline void putAnyAlignment(FuzzerInput& input, standin::model::LiveRange& range)
{
    range.setParagraphFormat({.alignment = static_cast<standin::model::Alignment>(input.next() % 4)});
}
/// @}

/// Edits a document by four ranges as long as there is input. After each edit `Naive`, a plain model with
/// `text` and `ranges` that has been edited alike, must agree: the ranges here, the rest by
/// `compare(document, naive)`.
template <class Naive, class Edit, class Compare>
void compareEdits(FuzzerInput input, Edit edit, Compare compare)
{
    using namespace standin::model;
    const DocumentPtr document = Document::make(u"Document1");
    Naive naive;
    std::vector<std::unique_ptr<LiveRange>> ranges;
    for (int i = 0; i < 4; ++i) {
        ranges.push_back(std::make_unique<LiveRange>(document->mainStory(), 0, i % 2));
        naive.ranges.push_back({0, i % 2});
    }
    while (!input.isEmpty() && naive.text.size() < 5000) {
        const std::size_t number = input.next() % ranges.size();
        edit(input, *ranges[number], naive, number);
        compare(*document, naive);
        for (std::size_t i = 0; i < ranges.size(); ++i)
            if (ranges[i]->start() != naive.ranges[i].start || ranges[i]->end() != naive.ranges[i].end)
                fail("range " + std::to_string(i) + " differs");
        if (const std::string wrong = checkInvariants(*document); !wrong.empty())
            fail(wrong);
    }
}
