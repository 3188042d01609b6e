#include "FragmentStyles.h"

#include "DirectAlignment.h"
#include "FragmentFont.h"
#include "StyleName.h"

#include <array>
#include <cmath>
#include <string_view>

namespace compose {

namespace {

/// That of RTF, and that of styles that state none in old documents.
bool isDefaultSize(float points)
{
    return points == 12 || points == 10;
}

std::string_view alignmentWord(int wordNumber)
{
    static constexpr std::array<std::string_view, 4> words = {"ql", "qc", "qr", "qj"};
    return words.at(static_cast<std::size_t>(wordNumber));
}

void writeSwitch(rtf::RtfBuilder& rtf, std::string_view name, std::optional<bool> isOn)
{
    if (!isOn)
        return;
    if (*isOn)
        rtf.word(name);
    else
        rtf.word(name, 0);
}

void writeNamed(rtf::RtfBuilder& rtf, std::u16string_view name)
{
    rtf.text(name);
    rtf.text(u";");
    rtf.close();
}

} // namespace

FragmentStyles::FragmentStyles(StyleSheet& styles) : sheet_(styles)
{
    noteFont(std::u16string(fragmentFont)); // the default: number 0
    style(u"Normal");                       // has number 0 by convention, used or not
}

FragmentStyles::Style& FragmentStyles::style(const std::u16string& name)
{
    Style*& known = byName_[name];
    if (!known) {
        const auto [place, isNew] = styles_.try_emplace(rtfStyleName(name));
        known = &place->second;
        if (isNew) {
            known->name = place->first;
            known->number = static_cast<std::int32_t>(inOrder_.size());
            known->stated.name = fragmentFont;
            inOrder_.push_back(known);
        }
    }
    return *known;
}

void FragmentStyles::note(const Paragraph& paragraph)
{
    Style& own = style(paragraph.style);
    if (directAlignment(paragraph, sheet_) == 0)
        own.alignment = sheet_.alignmentOf(paragraph.style);
    for (const Item& item : paragraph.items) {
        const auto [place, isNew] = own.changes.try_emplace(item.font.get());
        if (!isNew)
            continue;
        place->second = compose::changeOf(item.font.get(), paragraph.style, sheet_);
        noteFont(place->second.name);
        stateWhatIsDefault(own, paragraph.style, place->second);
    }
}

void FragmentStyles::stateWhatIsDefault(Style& style, const std::u16string& name, const FontChange& change)
{
    if (change.size && isDefaultSize(*change.size))
        style.stated.size = sheet_.fontOf(name, FontProperty::size).size;
    if (change.isBold == false)
        style.stated.isBold = sheet_.fontOf(name, FontProperty::bold).isBold;
    if (change.isItalic == false)
        style.stated.isItalic = sheet_.fontOf(name, FontProperty::italic).isItalic;
    if (change.isUnderlined == false)
        style.stated.isUnderlined = sheet_.fontOf(name, FontProperty::underline).isUnderlined;
    if (change.isStruck == false)
        style.stated.isStruck = sheet_.fontOf(name, FontProperty::strike).isStruck;
}

void FragmentStyles::noteFont(const std::optional<std::u16string>& name)
{
    if (!name)
        return;
    const auto [place, isNew] = fonts_.try_emplace(*name);
    if (isNew) {
        place->second = static_cast<std::int32_t>(fontsInOrder_.size());
        fontsInOrder_.push_back(&place->first);
    }
}

void FragmentStyles::writeTables(rtf::RtfBuilder& rtf) const
{
    rtf.open();
    rtf.word("fonttbl");
    for (const std::u16string* name : fontsInOrder_) {
        rtf.open();
        rtf.word("f", fonts_.at(*name));
        rtf.word("fnil");
        writeNamed(rtf, *name);
    }
    rtf.close();
    rtf.endLine();

    rtf.open();
    rtf.word("stylesheet");
    for (const Style* style : inOrder_) {
        rtf.open();
        rtf.word("s", style->number);
        if (style->alignment)
            rtf.word(alignmentWord(*style->alignment));
        writeChange(rtf, style->stated);
        writeNamed(rtf, style->name);
    }
    if (hasLinks_) {
        rtf.openIgnorable();
        writeLinkStyle(rtf);
        rtf.word("additive");
        writeNamed(rtf, u"Hyperlink");
    }
    rtf.close();
    rtf.endLine();
}

void FragmentStyles::writeParagraphStart(rtf::RtfBuilder& rtf, const Paragraph& paragraph, bool isInTable)
{
    const Style& own = style(paragraph.style);
    rtf.word("pard");
    rtf.word("plain");
    if (isInTable)
        rtf.word("intbl");
    rtf.word("s", own.number);
    const std::optional<int> direct = directAlignment(paragraph, sheet_);
    if (const std::optional<int> alignment = direct ? direct : own.alignment)
        rtf.word(alignmentWord(*alignment));
    writeChange(rtf, own.stated);
}

const FontChange& FragmentStyles::changeOf(const Item& item, const Paragraph& paragraph)
{
    return style(paragraph.style).changes.at(item.font.get());
}

void FragmentStyles::writeChange(rtf::RtfBuilder& rtf, const FontChange& change) const
{
    if (change.name)
        rtf.word("f", fonts_.at(*change.name));
    if (change.size)
        rtf.word("fs", static_cast<std::int32_t>(std::lround(*change.size * 2)));
    writeSwitch(rtf, "b", change.isBold);
    writeSwitch(rtf, "i", change.isItalic);
    if (change.isUnderlined)
        rtf.word(*change.isUnderlined ? "ul" : "ulnone");
    writeSwitch(rtf, "strike", change.isStruck);
}

void FragmentStyles::writeLinkStyle(rtf::RtfBuilder& rtf) const
{
    rtf.word("cs", linkStyleNumber());
}

} // namespace compose
