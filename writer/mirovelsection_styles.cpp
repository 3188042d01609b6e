#include "mirovelsection.h"

#include "MirovelSectionData.h"
#include "StyleNumber.h"
#include "TextConversion.h"
#include "WordConstants.h"
#include "general/QdxException.h"

#include <algorithm>
#include <iterator>
#include <mutex>

std::map<QdxString, FontData> MirovelSection::s_smap;

namespace {

constexpr int deepestHeading = 9;

/// Guards the fonts of styles: writers in several apartments share them.
std::mutex& fontsMutex()
{
    static std::mutex mutex;
    return mutex;
}

const std::map<QdxString, long>& builtInStyles()
{
    static const std::map<QdxString, long> numbers = {
        {"Heading 1", -2},  {"Heading 2", -3}, {"Heading 3", -4}, {"Heading 4", -5},
        {"Heading 5", -6},  {"Heading 6", -7}, {"Heading 7", -8}, {"Heading 8", -9},
        {"Heading 9", -10}, {"Normal", -1},    {"Header", -32},   {"Footer", -33},
    };
    return numbers;
}

} // namespace

int MirovelSection::getLevel(const QdxString& prefix, const QdxString& name)
{
    const int number = styleNumber(prefix, name);
    return number == 0 ? 1 : number;
}

QdxString MirovelSection::getRealStyle(const QdxString& name)
{
    return getLevel("Heading ", name) <= deepestHeading ? name : QdxString("Heading 9");
}

_variant_t MirovelSection::styleArgument(const QdxString& name)
{
    const auto builtIn = builtInStyles().find(name);
    return builtIn != builtInStyles().end() ? _variant_t(builtIn->second) : _variant_t(toWide(name));
}

void MirovelSection::passStyles(const Word::StylesPtr& styles)
{
    data_->styles = styles;
}

Word::StylePtr MirovelSection::findStyle(const QdxString& name)
{
    return data_->styles->Item(styleArgument(name));
}

void MirovelSection::clearCache()
{
    const std::lock_guard lock(fontsMutex());
    s_smap.clear();
}

// Word is asked without the lock: it may have this thread take another call meanwhile.
FontData MirovelSection::findFont(const QdxString& style)
{
    {
        const std::lock_guard lock(fontsMutex());
        const auto known = s_smap.find(style);
        if (known != s_smap.end())
            return known->second;
    }
    FontData font;
    fromFontPtr(font, findStyle(style)->GetFont());
    const std::lock_guard lock(fontsMutex());
    s_smap[style] = font;
    return font;
}

void MirovelSection::fromFontPtr(FontData& font, const Word::_FontPtr& source)
{
    font.name = toNarrow(source->GetName());
    font.size = static_cast<std::int16_t>(source->GetSize());
    font.bold = source->GetBold() != 0;
    font.italic = source->GetItalic() != 0;
    font.underline = source->GetUnderline() != Word::wdUnderlineNone;
    font.strikeThrough = source->GetStrikeThrough() != 0;
}

void MirovelSection::toFontPtr(const Word::_FontPtr& target, const FontData& font)
{
    target->PutName(toWide(font.name));
    if (font.size != 0)
        target->PutSize(static_cast<float>(font.size));
    target->PutBold(font.bold);
    target->PutItalic(font.italic);
    target->PutUnderline(font.underline ? Word::wdUnderlineSingle : Word::wdUnderlineNone);
    target->PutStrikeThrough(font.strikeThrough);
}

void MirovelSection::setStyle(const QdxString& name, bool force)
{
    if (name == data_->styleName && !force)
        return;
    try {
        startStyle(name);
    } catch (const _com_error&) {
        QdxString message = "ERR Unknown style: ";
        message.append(name);
        throw QdxException(message);
    }
}

void MirovelSection::startStyle(const QdxString& name)
{
    checkForEndl();
    const FontData font = findFont(getRealStyle(name));
    if (!isTableOpen())
        applyStyle();
    data_->styleName = name;
    data_->stylePos = data_->pos;
    setFont(font);
}

// Closes the style run before what was just written, so that the run does not reach across it.
void MirovelSection::reopenStyle()
{
    if (data_->styleName == "Normal")
        return;
    const QdxString style = data_->styleName;
    setStyle("Normal", false);
    setStyle(style, false);
}

void MirovelSection::applyStyle()
{
    if (data_->stylePos == -1)
        return;
    checkForEndl();
    const Word::RangePtr& range = data_->range;
    range->PutStart(data_->stylePos);
    range->PutEnd(data_->pos);
    range->PutStyle(styleArgument(getRealStyle(data_->styleName)));
    applyFont();
    data_->stylePos = -1;
}

void MirovelSection::setFont(const FontData& font)
{
    if (!isTableOpen() && !(font != data_->pendingFont))
        return;
    storeFont(font);
    if (data_->styleName.isEmpty())
        applyFont();
    data_->pendingFont = font;
}

FontData MirovelSection::getFont() const
{
    return data_->pendingFont;
}

void MirovelSection::storeFont(const FontData& font)
{
    FontSave run;
    run.setFont(font);
    if (isTableOpen()) {
        run.setRange(data_->cellRange);
        run.setStart(std::max(data_->cellRange->GetEnd() - 1, 0L));
        run.setCell(std::max<std::int16_t>(data_->tableRows, 1),
                    std::max<std::int16_t>(data_->tableColumn, 1));
        run.setTable(data_->table);
    } else {
        run.setRange(data_->range);
        run.setStart(data_->pos);
    }
    data_->fontRuns.push_back(run);
}

void MirovelSection::applyFont()
{
    for (auto run = data_->fontRuns.begin(); run != data_->fontRuns.end(); ++run) {
        const auto next = std::next(run);
        const bool isLast = next == data_->fontRuns.end();
        const Word::RangePtr& range = run->getRange();
        if (range.GetInterfacePtr() == data_->range.GetInterfacePtr()) {
            const std::int32_t end = isLast ? data_->pos : next->getStart();
            putFont(range, run->getStart(), end, run->getFont());
        } else {
            applyFontToTable(*run, isLast ? nullptr : &*next);
        }
    }
    data_->fontRuns.clear();
    // Without a name it differs from every font, so that the next one begins a run.
    data_->pendingFont.name = "";
}
