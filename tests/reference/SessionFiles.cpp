#include "SessionFiles.h"

#include "SamplePictures.h"

#include <algorithm>

namespace reference {

namespace {

using Kind = SessionFile::Kind;

// Its fonts and alignments are none that sessions set, the style is one of theirs. Ends with a paragraph end.
constexpr const char* letter =
    R"({\rtf1\ansi\deff0{\fonttbl{\f0 Times New Roman;}{\f1 Verdana;}{\f2 Arial;}})"
    R"({\stylesheet{\s0\f0\fs24 Normal;}{\s2\f2\fs28\b\i\sbasedon0 heading 2;}})"
    R"(\pard\plain\qc\f1\fs36 Letter \b bold\b0  head\par)"
    R"(\pard\plain\s2\f2\fs28\b\i Subject\par)"
    R"(\pard\plain\qr\f1\fs18 Dear reader\par})";

// The last paragraph is not ended; one is empty.
constexpr const char* memo = R"({\rtf1\ansi\deff0{\fonttbl{\f0 Times New Roman;}{\f1 Tahoma;}})"
                             R"(\pard\plain\qj\f1\fs20 Memo\par\pard\plain\f0\fs24\par)"
                             R"(\pard\plain\ql\f1\fs42\strike done})";

/// A tenth of an inch wide, which every cell holds.
std::string smallEmf()
{
    constexpr std::size_t frameEnd = 32;
    return sample::emf().replace(frameEnd, 8, sample::little(254, 4) + sample::little(127, 4));
}

std::vector<SessionFile> makeFiles()
{
    const Font head = {u"Verdana", 18};
    Font boldHead = head;
    boldHead.isBold = true;
    Font struck = {u"Tahoma", 21};
    struck.isStruck = true;
    return {
        {u"one line.txt", Kind::text, "File of one line", {{{{u"File of one line"}}}}},
        {u"lines.txt",
         Kind::text,
         "First of file\r\nSecond of file\r\n\r\nFourth of file\r\n",
         {{{{u"First of file"}}}, {{{u"Second of file"}}}, {{}}, {{{u"Fourth of file"}}}}},
        {u"letter.rtf",
         Kind::formatted,
         letter,
         {{{{u"Letter ", head}, {u"bold", boldHead}, {u" head", head}}, u"Normal", textAlign::centred},
          {{{u"Subject", {u"Arial", 14, true, true}}}, u"Heading 2", textAlign::left},
          {{{u"Dear reader", {u"Verdana", 9}}}, u"Normal", textAlign::right}}},
        {u"memo.doc",
         Kind::formatted,
         memo,
         {{{{u"Memo", {u"Tahoma", 10}}}, u"Normal", textAlign::justified},
          {{}, u"Normal", textAlign::left},
          {{{u"done", struck}}, u"Normal", textAlign::left}}},
        {pictureName, Kind::picture, sample::bmp(), {}, u"bitmap 45x30"},
        {u"sign.bmp", Kind::picture, sample::png(), {}, u"png 40x20"},
        {u"photo.jpg", Kind::picture, sample::jpeg(), {}, u"jpeg 160x160"},
        {u"drawing.emf", Kind::picture, smallEmf(), {}, u"emf 144x72"},
        {u"old.gif", Kind::picture, sample::gif(), {}, u"png 60x135"},
        {u"sheet.xls", Kind::sheet, "a sheet's bytes"},
        {u"missing.txt", Kind::missing},
        {u"missing.rtf", Kind::missing},
    };
}

} // namespace

const std::vector<SessionFile>& sessionFiles()
{
    static const std::vector<SessionFile> files = makeFiles();
    return files;
}

const SessionFile* findSessionFile(std::u16string_view name)
{
    const auto found = std::find_if(sessionFiles().begin(), sessionFiles().end(),
                                    [name](const SessionFile& file) { return file.name == name; });
    return found == sessionFiles().end() ? nullptr : &*found;
}

} // namespace reference
