#include "PictureText.h"

#include <string>
#include <string_view>

namespace compose {

namespace {

void writeKind(rtf::RtfBuilder& rtf, PictureKind kind)
{
    switch (kind) {
    case PictureKind::png:
        return rtf.word("pngblip");
    case PictureKind::jpeg:
        return rtf.word("jpegblip");
    case PictureKind::emf:
        return rtf.word("emfblip");
    case PictureKind::bitmap:
        return rtf.word("dibitmap", 0);
    }
}

std::string hexadecimal(std::string_view bytes)
{
    constexpr std::string_view digits = "0123456789abcdef";
    constexpr std::size_t bytesInALine = 64;
    std::string text;
    text.reserve(2 * bytes.size() + bytes.size() / bytesInALine + 1);
    for (std::size_t at = 0; at < bytes.size(); ++at) {
        if (at > 0 && at % bytesInALine == 0)
            text += '\n';
        const auto byte = static_cast<unsigned char>(bytes[at]);
        text += digits[byte >> 4U];
        text += digits[byte & 0xFU];
    }
    return text;
}

} // namespace

// Readers of old know bitmaps; the other kinds stand where those do not look.
void writePicture(rtf::RtfBuilder& rtf, const KeptPicture& picture)
{
    const bool isNew = picture.form.kind != PictureKind::bitmap;
    if (isNew) {
        rtf.openIgnorable();
        rtf.word("shppict");
    }
    rtf.open();
    rtf.word("pict");
    writeKind(rtf, picture.form.kind);
    rtf.word("picw", picture.form.width);
    rtf.word("pich", picture.form.height);
    rtf.word("picwgoal", picture.form.naturalWidth);
    rtf.word("pichgoal", picture.form.naturalHeight);
    rtf.endLine();
    rtf.append(hexadecimal(picture.data()));
    rtf.close();
    if (isNew)
        rtf.close();
}

} // namespace compose
