#include "OperationText.h"

#include "StoryReading.h"

using namespace compose;

namespace {

std::string number(long long value)
{
    return std::to_string(value);
}

std::string spanned(const char* name, const Span& span)
{
    return std::string(name) + " " + number(span.start) + "-" + number(span.end);
}

std::string listed(const std::vector<int>& numbers)
{
    std::string result;
    for (const int each : numbers)
        result += (result.empty() ? "" : ",") + number(each);
    return result;
}

std::string said(const char* word, const std::optional<bool>& is)
{
    if (!is)
        return {};
    return std::string(*is ? " " : " not ") + word;
}

struct Printer
{
    std::string operator()(const WriteText& text) const
    {
        return "text " + number(text.at) + " '" + printable(text.text) + "'";
    }
    std::string operator()(const ClearFont& clear) const { return spanned("clear", clear.span); }
    std::string operator()(const PutStyle& style) const
    {
        return spanned("style", style.span) + " " + printable(style.style);
    }
    std::string operator()(const PutAlignment& put) const
    {
        return spanned("alignment", put.span) + " " +
               (put.alignment ? number(*put.alignment) : "of the style");
    }
    std::string operator()(const PutFont& font) const
    {
        const FontChange& change = font.change;
        std::string result = spanned("font", font.span);
        if (change.name)
            result += " " + printable(*change.name);
        if (change.size)
            result += " " + number(static_cast<long long>(*change.size));
        return result + said("bold", change.isBold) + said("italic", change.isItalic) +
               said("underlined", change.isUnderlined) + said("struck", change.isStruck);
    }
    std::string operator()(const MakeTable& table) const
    {
        return spanned("table", table.span) + " " + number(static_cast<long long>(table.rows)) + "x" +
               number(static_cast<long long>(table.columns)) + " heights " + listed(table.heights) +
               (table.isLast ? " last" : "");
    }
    std::string operator()(const ExtendTable& table) const
    {
        return "extend from " + number(static_cast<long long>(table.rowsBefore)) + " to " +
               number(static_cast<long long>(table.rows)) + "x" +
               number(static_cast<long long>(table.columns)) + " heights " + listed(table.heights);
    }
    std::string operator()(const AddField& field) const
    {
        return "field " + number(field.at) + " " + number(field.number) +
               (field.replacesCharacter ? " instead of X" : "");
    }
    std::string operator()(const AddEntry& entry) const
    {
        return "entry " + number(entry.at) + " '" + printable(entry.text) + "' " + number(entry.level);
    }
    std::string operator()(const AddLink& link) const
    {
        return spanned("link", link.span) + " " + printable(link.target.address) + "#" +
               printable(link.target.bookmark);
    }
    std::string operator()(const PlaceTag& tag) const
    {
        return (tag.isBehindField ? "tag behind field " : "tag " + number(tag.at) + " ") +
               printable(tag.bookmark);
    }
    std::string operator()(const AddPicture& picture) const
    {
        return "picture " + number(picture.at) + " " + printable(picture.picture->name);
    }
    std::string operator()(const RemoveText& removal) const { return spanned("remove", removal.span); }
    std::string operator()(const BreakSection& section) const { return "section " + number(section.at); }
    std::string operator()(const KeepBreak& pageBreak) const { return "keep break " + number(pageBreak.at); }
    std::string operator()(const KeepContents& contents) const
    {
        return "keep contents " + number(contents.at);
    }
};

} // namespace

std::string printable(const Operation& operation)
{
    return std::visit(Printer(), operation);
}

std::vector<std::string> linesOf(const Passage& passage)
{
    std::vector<std::string> lines;
    if (passage.cell)
        lines.push_back("in cell " + number(static_cast<long long>(passage.cell->row)) + "," +
                        number(static_cast<long long>(passage.cell->column)));
    for (const Operation& operation : passage.operations)
        lines.push_back(printable(operation));
    return lines;
}

std::vector<std::string> linesOf(const Plan& plan)
{
    std::vector<std::string> lines;
    for (const Passage& passage : plan.passages)
        for (std::string& line : linesOf(passage))
            lines.push_back(std::move(line));
    return lines;
}
