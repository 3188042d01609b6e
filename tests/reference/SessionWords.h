#pragma once

#include <array>
#include <string_view>

/// What random sessions say. Names (of styles, fonts, tags, addresses) are of the ANSI code page.
namespace reference::words {

using Word = std::u16string_view;

inline constexpr std::array<Word, 18> texts = {
    u"alpha ",
    u"b",
    u"Gr\u00fc\u00dfe ",
    u"\u03a9\u03bb",
    u"\U0001f600",
    u"\u6f22\u5b57 ",
    u"tab\there",
    u" ",
    u"a \"quoted\" word",
    u"back\\slash\\",
    u"{brace}",
    u"<b>bold</b>",
    u"a < b > c",
    u"",
    u"X",
    u"  two  spaces  ",
    u"the quick brown fox",
    u"\U0001f600\U0001f468 and \u20ac",
};

/// Paragraph ends of all kinds, leading, doubled, mixed.
inline constexpr std::array<Word, 12> brokenTexts = {
    u"\n",      u"\r",        u"\r\n", u"\n\n",     u"one\ntwo", u"\nlead",
    u"trail\n", u"\r\n\r\nx", u"\n\r", u"a\r\n\nb", u"p\rq\r\n", u"\n\n\nthree",
};

inline constexpr std::array<Word, 8> labels = {
    u"label",        u"a", u"\u03a9 label", u"\U0001f600", u"\"q\"", u"the longer label of a link",
    u"\u00e4\u00f6", u"X",
};

inline constexpr std::array<Word, 6> addresses = {
    u"http://a.example/",
    u"www.b.example",
    u"mailto:someone@c.example",
    u"https://d.example/with/a/long/path/to/a/page/that/lies/deep?and=a&query=with#fragment",
    u"ftp://e.example/\u00e4",
    u"http://a.example/other",
};

/// Those that may be placed; names are told apart by case.
inline constexpr std::array<Word, 9> tags = {
    u"GUID 1", u"GUID 22", u"here", u"the place", u"GUID 3", u"Kapitel \u00c4", u"six", u"seven", u"Here",
};
/// Never placed.
inline constexpr std::array<Word, 2> missingTags = {u"GUID 404", u"nowhere"};

inline constexpr std::array<Word, 7> styles = {
    u"Normal", u"Heading 1", u"Heading 2", u"Heading 3", u"Heading 12", u"Title", u"Plain Text",
};
inline constexpr Word unknownStyle = u"No Such Style";

inline constexpr std::array<Word, 3> fonts = {u"Arial", u"Courier New", u"Georgia"};
inline constexpr std::array<int, 5> fontSizes = {8, 12, 15, 24, 0};
inline constexpr std::array<int, 5> fontAttributes = {1, 2, 4, 8, 3};
/// As a client gives them to insertFile: embedded (any number), linked, a hyperlink.
inline constexpr std::array<int, 5> fileKinds = {0, 1, 2, 4, 0};
inline constexpr std::array<int, 6> alignments = {0, 1, 2, 3, 4, 2};

} // namespace reference::words
