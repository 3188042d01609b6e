// Any text in any field: a line stays one line of as many fields, no UTF-8 character is cut in two, and a
// process gets a file of its own under any name.
#include "EventLine.h"
#include "LogFileName.h"

#include <algorithm>
#include <cstdint>
#include <cstdlib>
#include <string>

namespace {

void check(bool holds)
{
    if (!holds)
        std::abort();
}

bool continues(char c)
{
    return (static_cast<unsigned char>(c) & 0xC0U) == 0x80U;
}

} // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size)
{
    const std::string bytes(reinterpret_cast<const char*>(data), size);
    const std::size_t half = size / 2;
    diagnostics::Event event{
        .what = bytes, .description = bytes.substr(0, half), .source = bytes.substr(half)};
    if (size % 3 == 0)
        event.code = static_cast<std::uint32_t>(0x800A1423U + size);
    const std::string document = bytes.substr(half / 2);
    const std::string line = eventLine({7, document, "create"}, event);
    check(std::ranges::count(line, '\t') == 7);
    check(
        std::ranges::none_of(line, [](char c) { return c != '\t' && static_cast<unsigned char>(c) < 0x20; }));

    const std::size_t most = size == 0 ? 0 : data[0];
    const std::string shortText = diagnostics::shortened(bytes, most);
    check(size <= most ? shortText == bytes : shortText.ends_with("..."));
    if (size > most) {
        const std::size_t kept = shortText.size() - 3;
        check(kept <= most && bytes.starts_with(shortText.substr(0, kept)) &&
              (kept == 0 || !continues(bytes[kept])));
    }

    const std::wstring name(bytes.begin(), bytes.end());
    const std::wstring path = diagnostics::logFileName(name, L"C:\\temp\\", 4711);
    check(path.find(L"4711") != path.npos);
    check(path.find(L"4711", path.size() - diagnostics::bareName(path).size()) != path.npos);
    return 0;
}
