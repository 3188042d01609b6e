// sessions_of_kit COUNT FOLDER: writes the files that sessions insert into the folder, and prints the script
// with the sessions of the verification kit (verify/) and what the reference model says of their documents.
//
// The script is JScript, ASCII, a line for each session; verify/source/comparison.js tells of its members.
#include "DocumentContent.h"
#include "PrintableText.h"
#include "RandomSession.h"
#include "ReferenceDocument.h"
#include "ReferenceStyles.h"
#include "SessionFiles.h"

#include <algorithm>
#include <cstdlib>
#include <filesystem>
#include <fstream>
#include <iostream>
#include <string_view>

namespace reference {
namespace {

constexpr std::uint32_t firstSeed = 500'001;
constexpr std::size_t longestSession = 3000; ///< as a text

// What is not text; the other side of this table stands in verify/source/reading.js.
constexpr char16_t mark(const Token& token)
{
    switch (token.kind) {
    case TokenKind::character:
        return token.character;
    case TokenKind::contents:
        return 0xE000;
    case TokenKind::field:
        return 0xE001;
    case TokenKind::picture:
        return 0xE002;
    case TokenKind::pageBreak:
        return 0xE003;
    case TokenKind::sectionEnd:
        return 0xE004;
    case TokenKind::object:
        return 0xE005;
    case TokenKind::entry:
        return 0xE006;
    case TokenKind::cellEnd:
        return 0xE007;
    case TokenKind::rowEnd:
        return 0xE008;
    case TokenKind::paragraphEnd:
        break;
    }
    return u'\r';
}

/// `printable` escapes as scripts do, but for quotes.
std::string inQuotes(std::u16string_view text)
{
    std::string result = "\"";
    for (const char c : printable(text)) {
        if (c == '"')
            result += '\\';
        result += c;
    }
    return result + '"';
}

std::string inQuotes(const std::string& ascii)
{
    return inQuotes(std::u16string(ascii.begin(), ascii.end()));
}

/// Gathers the members of a list.
class List
{
public:
    void add(const std::string& member)
    {
        text_ += text_.empty() ? "" : ",";
        text_ += member;
    }
    void add(std::size_t number) { add(std::to_string(number)); }
    [[nodiscard]] std::string text() const { return "[" + text_ + "]"; }

private:
    std::string text_;
};

std::string fontText(const Font& font)
{
    const int flags = (font.isBold ? 1 : 0) + (font.isItalic ? 2 : 0) + (font.isUnderlined ? 4 : 0) +
                      (font.isStruck ? 8 : 0);
    List list;
    list.add(inQuotes(font.name));
    list.add(static_cast<std::size_t>(font.size));
    list.add(static_cast<std::size_t>(flags));
    return list.text();
}

std::string numberOf(const std::optional<Font>& font, std::vector<Font>& fonts)
{
    if (!font)
        return "-1";
    const auto found = std::find(fonts.begin(), fonts.end(), *font);
    const auto number = found - fonts.begin();
    if (found == fonts.end())
        fonts.push_back(*font);
    return std::to_string(number);
}

std::string targetText(const LinkTarget& target)
{
    if (!target.place)
        return inQuotes(target.address);
    List place;
    place.add(target.place->story);
    place.add(target.place->position);
    return place.text();
}

bool haveOneFont(const Token& a, const Token& b)
{
    return a.font == b.font && a.isFromFile == b.isFromFile;
}

std::string runsOf(const std::vector<Token>& tokens, std::vector<Font>& fonts)
{
    List runs;
    for (std::size_t i = 0; i < tokens.size();) {
        std::size_t past = i + 1;
        while (past < tokens.size() && haveOneFont(tokens[i], tokens[past]))
            ++past;
        List run;
        run.add(past - i);
        run.add(tokens[i].kind == TokenKind::character ? numberOf(tokens[i].font, fonts) : "-1");
        if (tokens[i].isFromFile)
            run.add("1");
        runs.add(run.text());
        i = past;
    }
    return runs.text();
}

std::string linksOf(const std::vector<Token>& tokens)
{
    List links;
    for (std::size_t i = 0; i < tokens.size();) {
        if (!tokens[i].link) {
            ++i;
            continue;
        }
        std::size_t past = i + 1;
        while (past < tokens.size() && tokens[past].link == tokens[i].link && !tokens[past].beginsLink)
            ++past;
        List link;
        link.add(i);
        link.add(past - i);
        link.add(targetText(*tokens[i].link));
        links.add(link.text());
        i = past;
    }
    return links.text();
}

std::string storyText(const StoryContent& story, std::vector<Font>& fonts)
{
    std::u16string text;
    List paragraphs;
    List details;
    List tags;
    for (const Token& token : story.tokens) {
        text += mark(token);
        if (token.kind == TokenKind::field || token.kind == TokenKind::object)
            details.add(inQuotes(token.text));
        if (token.kind == TokenKind::entry)
            details.add(inQuotes(std::to_string(token.level) + " " + printable(token.text)));
        if (token.style.empty() && !token.isFormatOpen)
            continue;
        List paragraph;
        paragraph.add(token.isFormatOpen ? "\"\"" : inQuotes(token.style));
        paragraph.add(static_cast<std::size_t>(token.alignment));
        paragraphs.add(paragraph.text());
    }
    for (const Tag& tag : story.tags)
        tags.add(tag.start);
    return "{text:" + inQuotes(text) + ",paragraphs:" + paragraphs.text() +
           ",fonts:" + runsOf(story.tokens, fonts) + ",links:" + linksOf(story.tokens) +
           ",details:" + details.text() + ",tags:" + tags.text() + "}";
}

std::string scriptOf(std::uint32_t seed, const Session& session, std::vector<Font>& fonts)
{
    ReferenceDocument document(isAddress);
    document.perform(session);
    const DocumentContent content = document.content();
    List pages;
    for (const Page& page : content.pages) {
        List one;
        one.add(page.isLandscape ? "1" : "0");
        one.add(static_cast<std::size_t>(page.leftMargin));
        pages.add(one.text());
    }
    List stories;
    for (const auto& story : content.stories)
        stories.add(story ? storyText(*story, fonts) : "null");
    return "{name:\"session " + std::to_string(seed) + "\",steps:" + inQuotes(stepsOf(session)) +
           ",pages:" + pages.text() + ",stories:" + stories.text() + "}";
}

/// The bytes of a sheet would have to be a sheet's, and its program be there.
bool isForKit(const Session& session)
{
    const bool hasSheet = std::any_of(session.begin(), session.end(),
                                      [](const ClientCall& call) { return call.text == u"sheet.xls"; });
    return !hasSheet && stepsOf(session).size() <= longestSession;
}

void writeFiles(const std::filesystem::path& folder)
{
    for (const SessionFile& file : sessionFiles()) {
        if (!file.exists() || file.kind == SessionFile::Kind::sheet)
            continue;
        std::ofstream stream(folder / std::string(file.name.begin(), file.name.end()), std::ios::binary);
        stream.exceptions(std::ios::failbit | std::ios::badbit);
        stream << file.bytes << std::flush;
    }
}

std::string stylesText()
{
    List styles;
    for (const char16_t* name : {u"Normal", u"Heading 1", u"Heading 2", u"Heading 3", u"Heading 9", u"Title",
                                 u"Plain Text", u"Header", u"Footer"}) {
        const ReferenceStyle& style = *findStyle(name);
        List one;
        one.add(inQuotes(name));
        one.add(fontText(style.font));
        one.add(static_cast<std::size_t>(style.alignment));
        styles.add(one.text());
    }
    return styles.text();
}

template <class MakeSession>
void writeSessions(const char* name, std::size_t count, std::vector<Font>& fonts, MakeSession makeSession)
{
    std::cout << "var " << name << " = [\n";
    std::size_t written = 0;
    for (std::uint32_t seed = firstSeed; written < count; ++seed) {
        const Session session = makeSession(seed);
        if (isForKit(session))
            std::cout << scriptOf(seed, session, fonts) << (++written < count ? ",\n" : "\n];\n");
    }
}

void writeScript(std::size_t count)
{
    List files;
    for (const SessionFile& file : sessionFiles())
        files.add(inQuotes(file.name));
    std::cout << "// Written by sessions_of_kit.\n"
              << "var kitFiles = " << files.text() << ";\nvar kitStyles = " << stylesText() << ";\n";
    std::vector<Font> fonts;
    writeSessions("kitSessions", count, fonts,
                  [](std::uint32_t seed) { return randomSession(seed, Extent::all); });
    writeSessions("kitArranged", count, fonts, [](std::uint32_t seed) { return arrangedSession(seed); });
    List fontList;
    for (const Font& font : fonts)
        fontList.add(fontText(font));
    std::cout << "var kitFonts = " << fontList.text() << ";\n";
}

} // namespace
} // namespace reference

int main(int argc, char** argv)
{
    if (argc != 3)
        return 2;
    reference::writeFiles(argv[2]);
    reference::writeScript(static_cast<std::size_t>(std::atoi(argv[1])));
    return 0;
}
