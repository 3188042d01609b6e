#pragma once

#include "LiveRange.h"

#include <StandinBases.h>
#include <functional>
#include <optional>

namespace standin {
/// What a font object reads and writes: the text of a range or a style.
struct FontTarget
{
    std::function<model::FontProperties()> read;
    std::function<void(const model::FontProperties&)> write;
    std::function<void()> reset = {}; ///< a style has no direct formatting to take away
};

/// A flag as Word answers it: -1, 0, or 9999999 when it differs within a range.
long flagValue(const std::optional<bool>& flag);
/// The flag that a value put into a property asks for. Raises WordError 4608.
bool toggledFlag(const std::optional<bool>& current, long value);

class FontObject : public FontBase
{
public:
    FontObject(std::shared_ptr<Server> server, FontTarget target);

    static FontTarget targetOf(const model::LiveRange& range);
    static FontTarget targetOf(model::DocumentPtr document, model::StylePtr style);

protected:
    void doReset() override;
    std::u16string getName() override { return read().name.value_or(u""); }
    void putName(std::u16string_view name) override
    {
        put(&model::FontProperties::name, std::u16string(name));
    }
    float getSize() override;
    void putSize(float size) override;
    long getBold() override { return flagValue(read().bold); }
    void putBold(long value) override { put(&model::FontProperties::bold, toggledFlag(read().bold, value)); }
    long getItalic() override { return flagValue(read().italic); }
    void putItalic(long value) override
    {
        put(&model::FontProperties::italic, toggledFlag(read().italic, value));
    }
    long getStrikeThrough() override { return flagValue(read().strikeThrough); }
    void putStrikeThrough(long value) override
    {
        put(&model::FontProperties::strikeThrough, toggledFlag(read().strikeThrough, value));
    }
    long getHidden() override { return flagValue(read().hidden); }
    long getUnderline() override { return read().underline.value_or(model::mixedValue); }
    void putUnderline(long value) override { put(&model::FontProperties::underline, std::int32_t{value}); }
    long getColor() override { return read().color.value_or(model::mixedValue); }

private:
    template <typename Value>
    void put(std::optional<Value> model::FontProperties::*property, Value value)
    {
        model::FontProperties properties;
        properties.*property = std::move(value);
        target_.write(properties);
    }

    model::FontProperties read() const { return target_.read(); }

    FontTarget target_;
};
} // namespace standin
