#include "InlineCopies.h"

#include <random>

namespace {

class Dice
{
public:
    explicit Dice(std::uint32_t seed) : engine_(seed) {}

#if defined(__GNUC__)
    [[gnu::noinline]]
#endif
    std::uint32_t
    next()
    {
        const auto thrown = static_cast<std::uint32_t>(engine_() % 6);
        sum_ += thrown;
        if (thrown == 3)
            sum_ += static_cast<std::uint32_t>(engine_() % 7);
        return sum_;
    }

private:
    std::mt19937 engine_;
    std::uint32_t sum_ = 0;
};

} // namespace

std::uint32_t drawnFast(std::uint32_t seed, int count)
{
    Dice dice(seed);
    std::uint32_t result = 0;
    for (int i = 0; i < count; ++i)
        result = result * 3 + dice.next();
    return result;
}
