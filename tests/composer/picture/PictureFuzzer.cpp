// A picture that is whole, changed at places that the fuzzer chooses, and the fuzzer's bytes alone.
#include "PictureForm.h"

#include "SamplePictures.h"

#include <array>
#include <cstdint>
#include <cstdlib>
#include <string>
#include <string_view>

namespace {

void judge(std::string_view file)
{
    const std::optional<compose::PictureForm> form = compose::pictureForm(file);
    if (!form)
        return;
    constexpr std::int32_t longest = 31680;
    for (const std::int32_t length : {form->naturalWidth, form->naturalHeight})
        if (length < 1 || length > longest)
            std::abort();
    if (form->width < 1 || form->height < 1)
        std::abort();
}

} // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size)
{
    static const std::array<std::string, 4> samples = {sample::png(), sample::jpeg(), sample::emf(),
                                                       sample::bmp()};
    const std::string bytes(data, data + size);
    judge(bytes);
    if (size == 0)
        return 0;
    std::string file = samples.at(data[0] % samples.size());
    for (std::size_t i = 1; i + 1 < size; i += 2)
        file.at(data[i] % file.size()) = bytes[i + 1];
    if (data[0] >= 0x80)
        file.resize(file.size() - data[size - 1] % file.size());
    judge(file);
    return 0;
}
