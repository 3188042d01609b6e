// Content made from the fuzzer's bytes: its fragment is well-formed, shows what the content says, and has no
// direct formatting that says what a style says.
#include "ContentTokens.h"
#include "Fragment.h"
#include "FragmentFitness.h"
#include "FragmentTokens.h"
#include "TestStyles.h"

#include <cstdint>
#include <cstdio>
#include <cstdlib>
#include <exception>

namespace {

void check(bool good, const char* what, const std::string& rtf)
{
    if (!good) {
        std::fprintf(stderr, "%s:\n%s\n", what, rtf.c_str());
        std::abort();
    }
}

} // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size)
{
    using namespace compose;
    std::size_t at = 0;
    const RandomContent content =
        makeContent([&](std::size_t count) { return at < size ? data[at++] % count : count - 1; });
    for (const Block& block : content.blocks)
        check(fitsFragment(block, content.links, {432, 648}), "does not fit", "");

    TestStyles styles;
    constexpr float textWidth = 432;
    const std::string rtf = fragmentOf(content.blocks, {styles, content.links, isLinkedBookmark, textWidth});
    try {
        const FragmentReading reading = readFragment(rtf);
        check(reading.tokens == tokensOf(content, textWidth), "shows something else", rtf);
        check(reading.idleProperties == 0, "says what a style says", rtf);
    } catch (const std::exception& error) {
        check(false, error.what(), rtf);
    }
    return 0;
}
