#include "Doubt.h"

#include <map>
#include <set>

namespace replay {

namespace {

std::string rangesOf(const std::set<int>& lines)
{
    std::string text = lines.size() == 1 ? "line " : "lines ";
    for (auto first = lines.begin(); first != lines.end();) {
        auto last = first;
        while (std::next(last) != lines.end() && *std::next(last) == *last + 1)
            ++last;
        text += (first == lines.begin() ? "" : ", ") + std::to_string(*first);
        if (last != first)
            text += (*last == *first + 1 ? ", " : "-") + std::to_string(*last);
        first = std::next(last);
    }
    return text;
}

} // namespace

std::string_view describe(DoubtKind kind)
{
    switch (kind) {
    case DoubtKind::notUnderstood:
        return "not understood, passed over";
    case DoubtKind::endInText:
        return "the text holds what could be its end, or other lines of the log";
    case DoubtKind::arguments:
        return "the arguments could be divided in another way";
    case DoubtKind::lineEnd:
        return "a line end in a text may have been LF or CR LF; taken for CR LF";
    case DoubtKind::questionMark:
        return "a question mark may stand for a character that the log cannot hold";
    case DoubtKind::rowHeight:
        return "the height is not in the log; --row-height says it";
    case DoubtKind::attribute:
        return "the number of a font attribute that there is not; taken for 0";
    case DoubtKind::anchorCut:
        return "the calls for an anchor in the text break off, as when Word fails; taken for its own";
    case DoubtKind::anotherClient:
        return "Word is started already; taken for the start of another client";
    case DoubtKind::noStart:
        return "start left no line; made in front of this";
    case DoubtKind::noCreate:
        return "create left no line; made in front of this";
    }
    return {};
}

std::vector<std::string> reportOf(const std::vector<Doubt>& doubts)
{
    std::map<DoubtKind, std::set<int>> byKind;
    for (const Doubt& doubt : doubts)
        byKind[doubt.kind].insert(doubt.line);
    std::vector<std::string> report;
    for (const auto& [kind, lines] : byKind)
        report.push_back("  " + rangesOf(lines) + ": " + std::string(describe(kind)));
    return report;
}

} // namespace replay
