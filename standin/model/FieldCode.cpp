#include "FieldCode.h"

#include <algorithm>
#include <array>

namespace standin::model {

namespace {

struct TypeRow
{
    std::int32_t type;
    std::u16string_view keyword;
};

constexpr std::array types = {
    TypeRow{3, u"REF"},
    TypeRow{4, u"XE"},
    TypeRow{6, u"SET"},
    TypeRow{7, u"IF"},
    TypeRow{8, u"INDEX"},
    TypeRow{9, u"TC"},
    TypeRow{10, u"STYLEREF"},
    TypeRow{11, u"RD"},
    TypeRow{12, u"SEQ"},
    TypeRow{13, u"TOC"},
    TypeRow{14, u"INFO"},
    TypeRow{15, u"TITLE"},
    TypeRow{16, u"SUBJECT"},
    TypeRow{17, u"AUTHOR"},
    TypeRow{18, u"KEYWORDS"},
    TypeRow{19, u"COMMENTS"},
    TypeRow{20, u"LASTSAVEDBY"},
    TypeRow{21, u"CREATEDATE"},
    TypeRow{22, u"SAVEDATE"},
    TypeRow{23, u"PRINTDATE"},
    TypeRow{24, u"REVNUM"},
    TypeRow{25, u"EDITTIME"},
    TypeRow{26, u"NUMPAGES"},
    TypeRow{27, u"NUMWORDS"},
    TypeRow{28, u"NUMCHARS"},
    TypeRow{29, u"FILENAME"},
    TypeRow{30, u"TEMPLATE"},
    TypeRow{31, u"DATE"},
    TypeRow{32, u"TIME"},
    TypeRow{33, u"PAGE"},
    TypeRow{34, u"="},
    TypeRow{35, u"QUOTE"},
    TypeRow{36, u"INCLUDE"},
    TypeRow{37, u"PAGEREF"},
    TypeRow{38, u"ASK"},
    TypeRow{39, u"FILLIN"},
    TypeRow{41, u"NEXT"},
    TypeRow{42, u"NEXTIF"},
    TypeRow{43, u"SKIPIF"},
    TypeRow{44, u"MERGEREC"},
    TypeRow{45, u"DDE"},
    TypeRow{46, u"DDEAUTO"},
    TypeRow{47, u"GLOSSARY"},
    TypeRow{48, u"PRINT"},
    TypeRow{49, u"EQ"},
    TypeRow{50, u"GOTOBUTTON"},
    TypeRow{51, u"MACROBUTTON"},
    TypeRow{52, u"AUTONUMOUT"},
    TypeRow{53, u"AUTONUMLGL"},
    TypeRow{54, u"AUTONUM"},
    TypeRow{55, u"IMPORT"},
    TypeRow{56, u"LINK"},
    TypeRow{57, u"SYMBOL"},
    TypeRow{58, u"EMBED"},
    TypeRow{59, u"MERGEFIELD"},
    TypeRow{60, u"USERNAME"},
    TypeRow{61, u"USERINITIALS"},
    TypeRow{62, u"USERADDRESS"},
    TypeRow{63, u"BARCODE"},
    TypeRow{64, u"DOCVARIABLE"},
    TypeRow{65, u"SECTION"},
    TypeRow{66, u"SECTIONPAGES"},
    TypeRow{67, u"INCLUDEPICTURE"},
    TypeRow{68, u"INCLUDETEXT"},
    TypeRow{69, u"FILESIZE"},
    TypeRow{70, u"FORMTEXT"},
    TypeRow{71, u"FORMCHECKBOX"},
    TypeRow{72, u"NOTEREF"},
    TypeRow{73, u"TOA"},
    TypeRow{74, u"TA"},
    TypeRow{75, u"MERGESEQ"},
    TypeRow{77, u"PRIVATE"},
    TypeRow{78, u"DATABASE"},
    TypeRow{79, u"AUTOTEXT"},
    TypeRow{80, u"COMPARE"},
    TypeRow{81, u"ADDIN"},
    TypeRow{83, u"FORMDROPDOWN"},
    TypeRow{84, u"ADVANCE"},
    TypeRow{85, u"DOCPROPERTY"},
    TypeRow{87, u"CONTROL"},
    TypeRow{88, u"HYPERLINK"},
    TypeRow{89, u"AUTOTEXTLIST"},
    TypeRow{90, u"LISTNUM"},
    TypeRow{91, u"HTMLCONTROL"},
};

char16_t upperCase(char16_t c)
{
    return c >= u'a' && c <= u'z' ? static_cast<char16_t>(c - u'a' + u'A') : c;
}

bool isSpace(char16_t c)
{
    return c <= u' ' || c == 0xA0;
}

struct Word
{
    bool isSwitch = false;
    std::u16string text;
};

/// Cuts a code into words: separated by spaces, held together by quotes, a backslash in front standing for a
/// switch and elsewhere taking the next character as it is.
std::vector<Word> wordsOf(std::u16string_view code)
{
    std::vector<Word> words;
    for (std::size_t at = 0; at < code.size();) {
        if (isSpace(code[at])) {
            ++at;
            continue;
        }
        Word word;
        word.isSwitch = code[at] == u'\\' && at + 1 < code.size() && code[at + 1] != u'\\';
        at += word.isSwitch ? 1 : 0;
        bool quoted = false;
        for (; at < code.size() && (quoted || !isSpace(code[at])); ++at)
            if (code[at] == u'"')
                quoted = !quoted;
            else if (code[at] == u'\\' && at + 1 < code.size() &&
                     (code[at + 1] == u'\\' || code[at + 1] == u'"'))
                word.text += code[++at];
            else
                word.text += code[at];
        words.push_back(std::move(word));
    }
    return words;
}

} // namespace

FieldCode::FieldCode(std::u16string_view code)
{
    const std::vector<Word> words = wordsOf(code);
    std::size_t at = 0;
    if (!words.empty() && !words.front().isSwitch) {
        keyword_ = words[at++].text;
        std::transform(keyword_.begin(), keyword_.end(), keyword_.begin(), upperCase);
    }
    for (; at < words.size() && !words[at].isSwitch; ++at)
        arguments_.push_back(words[at].text);
    for (; at < words.size(); ++at) {
        const std::u16string& text = words[at].text;
        if (words[at].isSwitch) {
            switches_.push_back(
                {text.empty() ? u'\0' : upperCase(text[0]), text.substr(text.empty() ? 0 : 1)});
        } else if (switches_.back().value.empty()) {
            switches_.back().value = text;
        }
    }
}

std::int32_t FieldCode::type() const
{
    const auto found = std::find_if(types.begin(), types.end(),
                                    [this](const TypeRow& row) { return row.keyword == keyword_; });
    return found == types.end() ? noFieldType : found->type;
}

std::u16string FieldCode::argument(std::size_t index) const
{
    return index < arguments_.size() ? arguments_[index] : std::u16string();
}

bool FieldCode::has(char16_t name) const
{
    return value(name).has_value();
}

std::optional<std::u16string> FieldCode::value(char16_t name) const
{
    const auto found = std::find_if(switches_.begin(), switches_.end(),
                                    [name](const Switch& each) { return each.name == upperCase(name); });
    return found == switches_.end() ? std::nullopt : std::optional(found->value);
}

std::u16string quotedArgument(std::u16string_view text)
{
    std::u16string quoted = u"\"";
    for (const char16_t unit : text) {
        if (unit == u'\\' || unit == u'"')
            quoted += u'\\';
        quoted += unit;
    }
    return quoted + u'"';
}

std::u16string_view keywordOf(std::int32_t type)
{
    const auto found =
        std::find_if(types.begin(), types.end(), [type](const TypeRow& row) { return row.type == type; });
    return found == types.end() ? std::u16string_view() : found->keyword;
}

} // namespace standin::model
