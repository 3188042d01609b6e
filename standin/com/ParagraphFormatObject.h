#pragma once

#include "LiveRange.h"

#include <StandinBases.h>
#include <functional>
#include <utility>

namespace standin {
/// What a paragraph format object reads and writes: the paragraphs that a range touches, or a style.
struct ParagraphTarget
{
    std::function<model::ParagraphProperties()> read;
    std::function<void(const model::ParagraphProperties&)> write;
    std::function<void()> reset = {}; ///< a style has no direct formatting to take away
    /// The first paragraph's; a style is not asked for one.
    std::function<std::pair<model::DocumentPtr, model::StylePtr>()> style = {};
};

class ParagraphFormatObject : public ParagraphFormatBase
{
public:
    ParagraphFormatObject(std::shared_ptr<Server> server, ParagraphTarget target);

    static ParagraphTarget targetOf(const model::LiveRange& range);
    static ParagraphTarget targetOf(model::DocumentPtr document, model::StylePtr style);

protected:
    void doReset() override;
    _variant_t getStyle() override;
    long getAlignment() override;
    void putAlignment(long value) override;
    float getLeftIndent() override { return points(target_.read().leftIndent); }

private:
    static float points(const std::optional<float>& value);

    ParagraphTarget target_;
};
} // namespace standin
