#include "SwitchTable.h"

#include <algorithm>
#include <array>
#include <stdexcept>
#include <string>
#include <utility>

namespace standin::model {

namespace {

template <bool Switches::*member>
SwitchEntry flag(std::string_view name)
{
    return {name,
            {"1", "0"},
            [](Switches& switches, std::size_t value) { switches.*member = value == 0; },
            [](const Switches& switches) { return switches.*member ? std::size_t{0} : std::size_t{1}; }};
}

/// The values in the order of their enumerators.
template <auto member>
SwitchEntry choice(std::string_view name, std::vector<std::string_view> values)
{
    using Value = std::remove_reference_t<decltype(std::declval<Switches>().*member)>;
    return {name, std::move(values),
            [](Switches& switches, std::size_t value) { switches.*member = static_cast<Value>(value); },
            [](const Switches& switches) { return static_cast<std::size_t>(switches.*member); }};
}

#define NAMED(member) flag<&Switches::member>(#member)
#define CHOICE(member, ...) choice<&Switches::member>(#member, {__VA_ARGS__})

const std::vector<SwitchEntry>& entries()
{
    static const std::vector<SwitchEntry> all = {
        NAMED(pageBreakRangeCoversBreak),
        CHOICE(pageBreakParagraphMark, "never", "atStartOfText", "always"),
        NAMED(sectionBreakRangeLiesBehind),
        NAMED(deleteAnswersOne),
        NAMED(deletedStoryRangeCollapses),
        NAMED(collapseToEndStaysBeforeFinalMark),
        NAMED(endBeyondStoryIsRefused),
        NAMED(cellRangeKeepsMark),
        NAMED(paragraphStyleKeepsDirectFormatting),
        NAMED(paragraphStyleKeepsFontOfMost),
        NAMED(linkedStyleFormatsParagraph),
        NAMED(mixedStyleReadsFirst),
        NAMED(closeDropsChanges),
        CHOICE(docWithoutFormat, "document97", "machineDefault", "refused"),
        NAMED(fieldsAddReplacesNothing),
        NAMED(fieldsAddOmitsMergeFormat),
        NAMED(textBehindHiddenFieldShows),
        NAMED(hyperlinkWithoutLinkData),
        NAMED(oleObjectIsField),
        NAMED(shapeReplacesNothing),
        NAMED(headerTakesPageBreak),
        NAMED(headerTakesContents),
        NAMED(contentsTakeAnyLevel),
        CHOICE(bookmarkInFrontOfTable, "stays", "firstCell", "behind"),
        NAMED(convertToTableRangeCoversTable),
        NAMED(convertToTableDrawsNoLines),
        CHOICE(insertFileLastParagraph, "mark", "dropped", "surplus"),
        NAMED(insertFileLeavesDefaultFont),
        NAMED(insertFileKeepsDifferencesOnly),
        CHOICE(insertFileRange, "coversText", "inFront", "behind"),
        NAMED(insertFileMovesBookmarks),
        CHOICE(insertFileOverlappedBookmarks, "kept", "lostInside", "lostTouching"),
        NAMED(insertFileTakesRtf)};
    return all;
}

#undef NAMED
#undef CHOICE

[[noreturn]] void refuse(std::string_view what)
{
    throw std::invalid_argument("no switch or value of one: " + std::string(what));
}

} // namespace

std::span<const SwitchEntry> switchTable()
{
    return entries();
}

void setSwitch(Switches& switches, std::string_view name, std::string_view value)
{
    const auto entry = std::ranges::find(entries(), name, &SwitchEntry::name);
    if (entry == entries().end())
        refuse(name);
    if (entry->values.front() == "1" && (value == "true" || value == "false"))
        value = value == "true" ? "1" : "0";
    const auto found = std::ranges::find(entry->values, value);
    if (found == entry->values.end())
        refuse(std::string(name) + "=" + std::string(value));
    entry->set(switches, static_cast<std::size_t>(found - entry->values.begin()));
}

void readSwitches(Switches& switches, std::string_view text)
{
    while (!text.empty()) {
        const std::string_view one = text.substr(0, text.find(','));
        const std::size_t equals = one.find('=');
        setSwitch(switches, one.substr(0, equals),
                  equals == std::string_view::npos ? "" : one.substr(equals + 1));
        text.remove_prefix(std::min(one.size() + 1, text.size()));
    }
}

std::string namedSwitches(const Switches& switches)
{
    std::string text;
    for (const SwitchEntry& entry : entries())
        if (const std::size_t value = entry.get(switches); value != 0)
            text += std::string(text.empty() ? "" : ",") + std::string(entry.name) + "=" +
                    std::string(entry.values[value]);
    return text;
}

} // namespace standin::model
