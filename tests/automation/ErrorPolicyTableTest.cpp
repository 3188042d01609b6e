// The table of docs/error-policy.md against the list of silent cases that the code goes by.
#include "SilenceText.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <fstream>
#include <regex>
#include <string>
#include <vector>

namespace {

struct Row
{
    std::string atStrict;
    std::string line; ///< in the diagnostics
};

std::vector<std::string> cellsOf(const std::string& line)
{
    static const std::regex bar(" *\\| *");
    return {std::sregex_token_iterator(line.begin(), line.end(), bar, -1), {}};
}

/// What is concerned stands between quotation marks.
std::string withoutNames(const std::string& text)
{
    return std::regex_replace(text, std::regex(" \"[^\"]*\""), "");
}

std::vector<Row> documentedRows()
{
    std::ifstream page(MIROVEL_ERROR_POLICY);
    std::string line;
    while (std::getline(page, line) && !line.starts_with("| Case | By default |"))
        continue;
    std::getline(page, line); // the rule below the heading
    std::vector<Row> rows;
    while (std::getline(page, line) && line.starts_with("|")) {
        const std::vector<std::string> cells = cellsOf(line);
        EXPECT_EQ(cells.size(), 5U) << line;
        rows.push_back({withoutNames(cells.at(3)), withoutNames(cells.at(4))});
    }
    return rows;
}

std::vector<SilenceText> knownCases()
{
    std::vector<SilenceText> all;
    for (int i = 0; i <= static_cast<int>(Silence::withoutEffect); ++i)
        all.push_back(textOf(static_cast<Silence>(i)));
    return all;
}

std::string narrow(std::wstring_view text)
{
    return {text.begin(), text.end()};
}

bool isAbout(const Row& row, const SilenceText& known)
{
    // A swallowed failure has a line of its own.
    if (known.why == Silence::swallowed)
        return row.line.starts_with("\"Swallowed:") || row.line.starts_with("Swallowed:") ||
               row.atStrict.starts_with(narrow(known.what));
    return row.line == narrow(known.what) || (row.line == "the same" && known.why == Silence::notStarted);
}

TEST(ErrorPolicyTableTest, HasARowForEachCaseWithItsWords)
{
    const std::vector<Row> rows = documentedRows();
    ASSERT_GE(rows.size(), 18U);
    for (const SilenceText& known : knownCases()) {
        const auto row = std::ranges::find_if(rows, [&](const Row& each) { return isAbout(each, known); });
        ASSERT_NE(row, rows.end()) << narrow(known.what);
        const std::string atStrict =
            known.isRaised ? narrow(known.what) + ": " + narrow(known.remedy) : "`S_OK`";
        EXPECT_TRUE(row->atStrict.starts_with(atStrict)) << row->atStrict << "\n" << atStrict;
    }
}

TEST(ErrorPolicyTableTest, HasNoRowForAnythingElse)
{
    const std::vector<SilenceText> known = knownCases();
    for (const Row& row : documentedRows())
        EXPECT_TRUE(std::ranges::any_of(known, [&](const SilenceText& each) { return isAbout(row, each); }))
            << row.line;
}

} // namespace
