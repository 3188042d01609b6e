#include "SwitchNames.h"

#include <algorithm>
#include <map>
#include <stdexcept>
#include <string>

namespace standin::model {

namespace {

template <typename Map>
auto lookUp(const Map& map, std::string_view key)
{
    const auto found = map.find(key);
    if (found == map.end())
        throw std::invalid_argument("no switch or value of one: " + std::string(key));
    return found->second;
}

void setSwitch(Switches& switches, std::string_view name, std::string_view value)
{
    static const std::map<std::string_view, bool> flags = {{"0", false}, {"1", true}};
    static const std::map<std::string_view, LastParagraph> lastParagraphs = {
        {"mark", LastParagraph::mark},
        {"dropped", LastParagraph::dropped},
        {"surplus", LastParagraph::surplus}};
#define NAMED(name)                                                                                          \
    {                                                                                                        \
#name, &Switches::name                                                                               \
    }
    static const std::map<std::string_view, bool Switches::*> names = {
        NAMED(pageBreakRangeCoversBreak),
        NAMED(sectionBreakRangeLiesBehind),
        NAMED(deleteAnswersOne),
        NAMED(collapseToEndStaysBeforeFinalMark),
        NAMED(paragraphStyleKeepsDirectFormatting),
        NAMED(mixedStyleReadsFirst),
        NAMED(closeDropsChanges),
        NAMED(fieldsAddReplacesNothing),
        NAMED(fieldsAddOmitsMergeFormat),
        NAMED(hyperlinkWithoutLinkData),
        NAMED(oleObjectIsField),
        NAMED(insertFileLeavesDefaultFont),
        NAMED(insertFileKeepsDifferencesOnly),
        NAMED(insertFileRangeCoversText),
        NAMED(insertFileMovesBookmarks),
        NAMED(insertFileTakesRtf)};
#undef NAMED
    if (name == "insertFileLastParagraph")
        switches.insertFileLastParagraph = lookUp(lastParagraphs, value);
    else
        switches.*lookUp(names, name) = lookUp(flags, value);
}

} // namespace

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

} // namespace standin::model
