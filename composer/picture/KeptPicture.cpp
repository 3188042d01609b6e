#include "KeptPicture.h"

#include <cstdint>
#include <filesystem>
#include <fstream>
#include <optional>
#include <system_error>
#include <utility>

namespace compose {

namespace {

/// Nothing when it is not read, or is larger. No length is believed: the file may grow meanwhile. What has no
/// end to go to is no file: a console would wait for somebody to type.
std::optional<std::string> read(const std::filesystem::path& path, std::size_t most)
{
    std::ifstream file(path, std::ios::binary | std::ios::ate);
    const std::streamoff size = file ? static_cast<std::streamoff>(file.tellg()) : -1;
    if (size < 0 || static_cast<std::uintmax_t>(size) > most)
        return {};
    file.seekg(0);
    std::string bytes(static_cast<std::size_t>(size) + 1, '\0');
    file.read(bytes.data(), static_cast<std::streamsize>(bytes.size()));
    const auto count = static_cast<std::size_t>(file.gcount());
    if (file.bad() || count != bytes.size() - 1)
        return {};
    bytes.pop_back();
    return bytes;
}

} // namespace

std::string_view KeptPicture::data() const
{
    constexpr std::size_t bitmapFileHeader = 14;
    return std::string_view(file).substr(form.kind == PictureKind::bitmap ? bitmapFileHeader : 0);
}

std::u16string_view KeptPicture::extension() const
{
    switch (form.kind) {
    case PictureKind::png:
        return u".png";
    case PictureKind::jpeg:
        return u".jpg";
    case PictureKind::emf:
        return u".emf";
    case PictureKind::bitmap:
        break;
    }
    return u".bmp";
}

KeptPicturePtr keepPicture(const std::u16string& name, std::size_t most)
{
    std::optional<std::string> bytes;
    try {
        bytes = read(std::filesystem::path(name), most);
    } catch (const std::system_error&) { // half a surrogate pair in the name
        return nullptr;
    }
    if (!bytes)
        return nullptr;
    const std::optional<PictureForm> form = pictureForm(*bytes);
    if (!form)
        return nullptr;
    return std::make_shared<const KeptPicture>(KeptPicture{*form, *std::move(bytes), name});
}

} // namespace compose
