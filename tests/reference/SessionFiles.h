#pragma once

#include "DocumentContent.h"

#include <array>
#include <string>
#include <string_view>
#include <vector>

namespace reference {

/// Text of a file in one font.
struct FileRun
{
    std::u16string text;
    Font font = {};
};

struct FileParagraph
{
    std::vector<FileRun> runs;
    std::u16string style = u"Normal";
    int alignment = 0; ///< the number that a client would give for it
};

/// A file that sessions insert.
struct SessionFile
{
    enum class Kind
    {
        text,      ///< says nothing of fonts, styles and alignments
        formatted, ///< has them for all its text
        picture,
        sheet,  ///< becomes an object
        missing ///< there is no such file
    };

    std::u16string_view name; ///< under which sessions name it; a player puts the path in its place
    Kind kind;
    std::string bytes = {};
    std::vector<FileParagraph> paragraphs = {}; ///< of text and formatted
    std::u16string_view look = {};              ///< of a picture: as a token says it

    [[nodiscard]] bool exists() const { return kind != Kind::missing; }
};

/// All of them; none's name is part of another's.
const std::vector<SessionFile>& sessionFiles();

/// Null for a name that is none of theirs.
const SessionFile* findSessionFile(std::u16string_view name);

/// The name that sessions give a picture, to insert and to link to.
inline constexpr std::u16string_view pictureName = u"picture.bmp";

/// All that are pictures. What one is shows in it and not in its name.
inline constexpr std::array<std::u16string_view, 5> pictureNames = {pictureName, u"sign.bmp", u"photo.jpg",
                                                                    u"drawing.emf", u"old.gif"};

} // namespace reference
