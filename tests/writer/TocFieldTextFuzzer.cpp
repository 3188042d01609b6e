// What a field of the table of contents says of any entry: its quotes and switches stay whole.
#include "StyleNumber.h"
#include "TocFieldText.h"

#include <cstdint>
#include <cstdlib>
#include <string>

namespace {

void check(bool holds)
{
    if (!holds)
        std::abort();
}

bool isLeadByte(unsigned char byte)
{
    return byte >= 0x81 && byte <= 0x9F;
}

} // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size)
{
    constexpr std::size_t most = 1007;
    // Several times over, so that entries get too long.
    std::string entry = std::string(reinterpret_cast<const char*>(data), size).c_str();
    const int level = size == 0 ? 0 : data[0] - 128;
    while (!entry.empty() && entry.size() < most && data[0] % 2 == 0)
        entry += entry;
    const QdxString made = tocFieldText(entry.c_str(), level, isLeadByte);
    const std::string text(made.data(), made.length());
    check(text.size() <= most);
    const std::string end = "\" \\fC \\l \"" + std::to_string(level) + "\"";
    check(text.starts_with("\"") && text.ends_with(end));
    const std::string kept = text.substr(1, text.size() - 1 - end.size());
    check(entry.starts_with(kept));
    check(kept == entry || text.size() >= most - 1); // no more is cut than must be
    for (std::size_t i = 0; i < kept.size(); ++i)
        if (isLeadByte(static_cast<unsigned char>(kept[i])))
            check(++i < kept.size() || kept == entry);
    styleNumber("Heading ", entry.c_str());
    return 0;
}
