#include "KeptPicture.h"

#include <filesystem>
#include <fstream>
#include <optional>
#include <system_error>
#include <utility>

namespace compose {

namespace {

/// Nothing when it is not read, or is larger. No length is believed: the file may grow meanwhile.
std::optional<std::string> read(const std::filesystem::path& path, std::size_t most)
{
    std::error_code error;
    if (!std::filesystem::is_regular_file(path, error))
        return {};
    const std::uintmax_t size = std::filesystem::file_size(path, error);
    if (error || size > most)
        return {};
    std::string bytes(static_cast<std::size_t>(size) + 1, '\0');
    std::ifstream file(path, std::ios::binary);
    if (!file)
        return {};
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
