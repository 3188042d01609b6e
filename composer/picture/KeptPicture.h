#pragma once

#include "PictureForm.h"

#include <cstddef>
#include <memory>
#include <string>
#include <string_view>

namespace compose {

/// A picture as its file held it when it was asked for. What becomes of the file later changes nothing.
struct KeptPicture
{
    PictureForm form;
    std::string file;    ///< its bytes, all of them
    std::u16string name; ///< of the file

    /// What a document holds of the file.
    [[nodiscard]] std::string_view data() const;
    /// That the file can have: ".png".
    [[nodiscard]] std::u16string_view extension() const;
};

using KeptPicturePtr = std::shared_ptr<const KeptPicture>;

/// Null for a file that cannot be read, is larger than `most` bytes, or has no form that we know
/// (`pictureForm`).
KeptPicturePtr keepPicture(const std::u16string& name, std::size_t most);

} // namespace compose
