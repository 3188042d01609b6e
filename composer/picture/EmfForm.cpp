#include "PictureForm.h"

#include "FileBytes.h"

namespace compose {

namespace {

constexpr std::uint32_t headerRecord = 1;
constexpr std::uint32_t lastRecord = 14;
constexpr std::uint32_t smallestHeader = 88;
constexpr double hundredthsPerInch = 2540;

struct Header
{
    explicit Header(FileBytes bytes)
    {
        type = bytes.little32();
        size = bytes.little32();
        bytes.skip(16); // the bounds
        left = bytes.signed32();
        top = bytes.signed32();
        right = bytes.signed32();
        bottom = bytes.signed32();
        isSigned = bytes.take(4) == " EMF";
        bytes.skip(4); // the version
        fileSize = bytes.little32();
        records = bytes.little32();
    }

    std::uint32_t type = 0;
    std::uint32_t size = 0;
    std::int64_t left = 0;
    std::int64_t top = 0;
    std::int64_t right = 0;
    std::int64_t bottom = 0;
    bool isSigned = false;
    std::uint32_t fileSize = 0;
    std::uint32_t records = 0;
};

bool endsAfter(FileBytes bytes, std::uint32_t records)
{
    for (std::uint32_t count = 1;; ++count) {
        constexpr std::uint32_t smallest = 8;
        const std::uint32_t type = bytes.little32();
        const std::uint32_t size = bytes.little32();
        if (bytes.hasFailed() || size < smallest || size % 4 != 0)
            return false;
        bytes.skip(size - smallest);
        if (bytes.hasFailed())
            return false;
        if (type == lastRecord)
            return count == records && bytes.left() == 0;
    }
}

} // namespace

std::optional<PictureForm> emfForm(std::string_view file)
{
    const Header header{FileBytes(file)};
    if (header.type != headerRecord || header.size < smallestHeader || !header.isSigned ||
        header.fileSize != file.size() || !endsAfter(FileBytes(file), header.records))
        return {};
    return pixelForm(PictureKind::emf, header.right - header.left, header.bottom - header.top,
                     hundredthsPerInch, hundredthsPerInch);
}

} // namespace compose
