// sessions_as_json FIRST COUNT FOLDER: writes the files that sessions insert into the folder, and prints
// their names as a JSON list; then random sessions, one a line, as a JSON object with
//   steps   for the end-to-end tests' client, from the first content call to the last; files as named in the
//           list
//   text    of the body, as the reference model says: a line for each paragraph; what is not text as private
//           characters (see the table below)
// sessions_as_json full FOLDER: the session with everything there is.
#include "DocumentContent.h"
#include "FullSession.h"
#include "PrintableText.h"
#include "RandomSession.h"
#include "ReferenceDocument.h"
#include "SessionFiles.h"

#include <cstdlib>
#include <filesystem>
#include <fstream>
#include <iostream>
#include <string_view>

namespace reference {
namespace {

// The other side of this table stands in the test that reads it.
constexpr char16_t contentsMark = 0xE000;
constexpr char16_t fieldMark = 0xE001;
constexpr char16_t pictureMark = 0xE002;
constexpr char16_t pageBreakMark = 0xE003;
constexpr char16_t sectionMark = 0xE004;

std::u16string textOf(const StoryContent& story)
{
    std::u16string text;
    for (const Token& token : story.tokens) {
        switch (token.kind) {
        case TokenKind::character:
            text += token.character;
            break;
        case TokenKind::pageBreak:
            text += pageBreakMark;
            break;
        case TokenKind::picture:
        case TokenKind::object:
            text += pictureMark;
            break;
        case TokenKind::field:
            text += fieldMark;
            break;
        case TokenKind::contents:
            text += contentsMark;
            break;
        case TokenKind::sectionEnd:
            text += sectionMark;
            text += u'\n';
            break;
        case TokenKind::paragraphEnd:
        case TokenKind::cellEnd:
            text += u'\n';
            break;
        case TokenKind::entry:
        case TokenKind::rowEnd:
            break;
        }
    }
    return text;
}

/// `printable` escapes as JSON does, but for quotes.
std::string jsonText(std::string_view printableText)
{
    std::string result = "\"";
    for (const char c : printableText) {
        if (c == '"')
            result += '\\';
        result += c;
    }
    return result + '"';
}

std::string asJson(const Session& session)
{
    ReferenceDocument document(isAddress);
    document.perform(session);
    const std::string steps = stepsOf(session);
    const std::string text = printable(textOf(*document.content().stories.front()));
    return "{\"steps\": " + jsonText(printable(std::u16string(steps.begin(), steps.end()))) +
           ", \"text\": " + jsonText(text) + "}";
}

/// The names of all, those of files that sessions miss as well.
std::string writeFiles(const std::filesystem::path& folder)
{
    std::string names;
    for (const SessionFile& file : sessionFiles()) {
        const std::string name(file.name.begin(), file.name.end());
        names += (names.empty() ? "" : ", ") + jsonText(name);
        if (!file.exists())
            continue;
        std::ofstream stream(folder / name, std::ios::binary);
        stream.exceptions(std::ios::failbit | std::ios::badbit);
        stream << file.bytes << std::flush;
    }
    return "[" + names + "]";
}

} // namespace
} // namespace reference

int main(int argc, char** argv)
{
    if (argc == 3 && argv[1] == std::string_view("full")) {
        std::cout << reference::writeFiles(argv[2]) << '\n'
                  << reference::asJson(reference::fullSession()) << '\n';
        return 0;
    }
    if (argc != 4)
        return 2;
    const auto first = static_cast<std::uint32_t>(std::atoi(argv[1]));
    const auto count = static_cast<std::uint32_t>(std::atoi(argv[2]));
    std::cout << reference::writeFiles(argv[3]) << '\n';
    for (std::uint32_t seed = first; seed < first + count; ++seed)
        std::cout << reference::asJson(reference::randomSession(seed, reference::Extent::all)) << '\n';
    return 0;
}
