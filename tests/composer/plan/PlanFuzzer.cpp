// Content of which the fuzzer chooses the calls, planned and written into a model, against what was said.
#include "ComposedSession.h"

#include <cstdint>
#include <cstdio>
#include <cstdlib>
#include <exception>

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size)
{
    ComposedSession session{Choices({data, size})};
    std::string failure;
    try {
        failure = session.run();
    } catch (const std::exception& error) {
        failure = error.what();
    }
    if (!failure.empty()) {
        std::fprintf(stderr, "%s%s\n", session.story().c_str(), failure.c_str());
        std::abort();
    }
    return 0;
}
