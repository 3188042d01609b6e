#include "Lines.h"

#include <algorithm>
#include <cstddef>

namespace {

constexpr std::size_t context = 3;

struct Step
{
    char sign; ///< ' ' in both, '-' in the first text, '+' in the second
    const std::string* line;
};

/// The steps from one text to the other, with as many common lines as there can be.
std::vector<Step> stepsBetween(const Lines& before, const Lines& after)
{
    // common[i][j]: how many lines before from i on and after from j on have in common, in order.
    std::vector common(before.size() + 1, std::vector<std::size_t>(after.size() + 1));
    for (std::size_t i = before.size(); i-- > 0;)
        for (std::size_t j = after.size(); j-- > 0;)
            common[i][j] = before[i] == after[j] ? common[i + 1][j + 1] + 1
                                                 : std::max(common[i + 1][j], common[i][j + 1]);
    std::vector<Step> steps;
    std::size_t i = 0;
    std::size_t j = 0;
    while (i < before.size() || j < after.size())
        if (i < before.size() && j < after.size() && before[i] == after[j]) {
            steps.push_back({' ', &before[i]});
            ++i;
            ++j;
        } else if (j == after.size() || (i < before.size() && common[i + 1][j] >= common[i][j + 1]))
            steps.push_back({'-', &before[i++]});
        else
            steps.push_back({'+', &after[j++]});
    return steps;
}

std::string place(char sign, std::size_t first, std::size_t count)
{
    return sign + std::to_string(count == 0 ? first : first + 1) + ',' + std::to_string(count);
}

} // namespace

std::string unifiedDiff(const Lines& before, const Lines& after)
{
    const auto [firstBefore, firstAfter] = std::ranges::mismatch(before, after);
    if (firstBefore == before.end() && firstAfter == after.end())
        return {};
    // The beginning and the end that both have cost nothing, however long the texts are.
    const auto head = static_cast<std::size_t>(firstBefore - before.begin());
    std::size_t tail = 0;
    while (tail < std::min(before.size(), after.size()) - head &&
           before[before.size() - 1 - tail] == after[after.size() - 1 - tail])
        ++tail;
    const std::size_t skipped = head - std::min(head, context);
    const std::size_t kept = tail - std::min(tail, context);
    const Lines from(before.begin() + static_cast<std::ptrdiff_t>(skipped),
                     before.end() - static_cast<std::ptrdiff_t>(kept));
    const Lines to(after.begin() + static_cast<std::ptrdiff_t>(skipped),
                   after.end() - static_cast<std::ptrdiff_t>(kept));
    const std::vector<Step> steps = stepsBetween(from, to);

    std::string diff;
    std::size_t lineBefore = skipped;
    std::size_t lineAfter = skipped;
    for (std::size_t i = 0; i < steps.size();) {
        // A hunk goes on until twice the context is the same.
        const auto changed = [](const Step& step) { return step.sign != ' '; };
        const auto at = [&](std::size_t index) { return steps.begin() + static_cast<std::ptrdiff_t>(index); };
        const auto next = static_cast<std::size_t>(std::find_if(at(i), steps.end(), changed) - steps.begin());
        if (next == steps.size())
            break;
        const std::size_t begin = next - std::min(next - i, context);
        std::size_t end = next;
        for (std::size_t j = next; j < std::min(steps.size(), end + 2 * context + 1); ++j)
            if (changed(steps[j]))
                end = j + 1;
        end = std::min(steps.size(), end + context);
        lineBefore += begin - i;
        lineAfter += begin - i;
        std::string hunk;
        std::size_t countBefore = 0;
        std::size_t countAfter = 0;
        for (std::size_t j = begin; j < end; ++j) {
            hunk += steps[j].sign + *steps[j].line + '\n';
            countBefore += steps[j].sign != '+';
            countAfter += steps[j].sign != '-';
        }
        diff += "@@ " + place('-', lineBefore, countBefore) + ' ' + place('+', lineAfter, countAfter) +
                " @@\n" + hunk;
        lineBefore += countBefore;
        lineAfter += countAfter;
        i = end;
    }
    return diff;
}

testing::AssertionResult sameLines(const char* actualText, const char*, const Lines& actual,
                                   const Lines& expected)
{
    if (actual == expected)
        return testing::AssertionSuccess();
    return testing::AssertionFailure() << actualText << " differs, - what is expected, + what there is:\n"
                                       << unifiedDiff(expected, actual);
}
