#pragma once

#include "LiveRange.h"

#include <StandinBases.h>
#include <functional>

namespace standin {
/// What a paragraph format object reads and writes: the paragraphs that a range touches, or a style.
struct ParagraphTarget
{
    std::function<model::ParagraphProperties()> read;
    std::function<void(const model::ParagraphProperties&)> write;
    std::function<void()> reset = {}; ///< a style has no direct formatting to take away
};

class ParagraphFormatObject : public ParagraphFormatBase
{
public:
    ParagraphFormatObject(std::shared_ptr<Server> server, ParagraphTarget target);

    static ParagraphTarget targetOf(const model::LiveRange& range);
    static ParagraphTarget targetOf(model::DocumentPtr document, model::StylePtr style);

protected:
    void doReset() override;
    long getAlignment() override;
    void putAlignment(long value) override;
    float getLeftIndent() override { return points(target_.read().leftIndent); }
    void putLeftIndent(float value) override { put(&model::ParagraphProperties::leftIndent, value); }
    float getRightIndent() override { return points(target_.read().rightIndent); }
    void putRightIndent(float value) override { put(&model::ParagraphProperties::rightIndent, value); }
    float getFirstLineIndent() override { return points(target_.read().firstLineIndent); }
    void putFirstLineIndent(float value) override
    {
        put(&model::ParagraphProperties::firstLineIndent, value);
    }
    float getSpaceBefore() override { return points(target_.read().spaceBefore); }
    void putSpaceBefore(float value) override { put(&model::ParagraphProperties::spaceBefore, value); }
    float getSpaceAfter() override { return points(target_.read().spaceAfter); }
    void putSpaceAfter(float value) override { put(&model::ParagraphProperties::spaceAfter, value); }

private:
    void put(std::optional<float> model::ParagraphProperties::*property, float value);
    static float points(const std::optional<float>& value);

    ParagraphTarget target_;
};
} // namespace standin
