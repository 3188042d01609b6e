// Any text where switches and faults are named, and as a profile: taken, or refused in one way.
#include "Faults.h"
#include "Profile.h"
#include "SwitchTable.h"

#include <cstdint>
#include <cstdlib>
#include <stdexcept>
#include <string_view>

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size)
{
    const std::string_view text(reinterpret_cast<const char*>(data), size);
    standin::model::Switches switches;
    try {
        readSwitches(switches, text);
    } catch (const std::invalid_argument&) {
    }
    try {
        standin::model::readProfile(switches, text);
    } catch (const std::invalid_argument&) {
    }
    standin::Faults faults;
    try {
        faults.read(text);
        for (const long ordinal : {0L, 1L, 7L, 1'000'000L}) {
            const auto result = faults.resultOf(ordinal);
            if (result != faults.resultOf(ordinal))
                std::abort();
            for (int i = 0; i < 3; ++i)
                faults.takeRejection(ordinal);
        }
    } catch (const std::invalid_argument&) {
    }
    return 0;
}
