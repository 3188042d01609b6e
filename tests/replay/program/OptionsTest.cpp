#include "Options.h"

#include "ExitStatus.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

namespace replay {
namespace {

using testing::ElementsAre;
using testing::HasSubstr;
using testing::IsEmpty;

Options optionsOf(std::vector<std::string> arguments)
{
    const std::variant<Options, Answer> parsed = parseOptions(std::move(arguments));
    if (const auto* const answer = std::get_if<Answer>(&parsed)) {
        ADD_FAILURE() << answer->text;
        return {};
    }
    return std::get<Options>(parsed);
}

/// Why it is refused; "(accepted)" when it is not.
std::string refusalOf(std::vector<std::string> arguments)
{
    const std::variant<Options, Answer> parsed = parseOptions(std::move(arguments));
    const auto* const answer = std::get_if<Answer>(&parsed);
    return answer == nullptr ? "(accepted)" : answer->isRefusal ? answer->text : "(answered)";
}

std::vector<std::string> settingsOf(const Options& options)
{
    std::vector<std::string> settings;
    for (const Setting& setting : options.settings)
        settings.push_back(setting.group + "|" + setting.name + "|" + setting.value);
    return settings;
}

TEST(OptionsTest, NeedNoMoreThanALog)
{
    const Options options = optionsOf({"a.log"});
    EXPECT_THAT(options.logs, ElementsAre("a.log"));
    EXPECT_THAT(options.settings, IsEmpty());
    EXPECT_FALSE(options.takesPart || options.showsLast || options.onlyChecks || options.goesOn ||
                 options.isQuiet);
    EXPECT_FALSE(options.level);
    EXPECT_EQ(options.rowHeight, 20);
}

TEST(OptionsTest, AreTaken)
{
    const Options options = optionsOf({"--output",
                                       "o",
                                       "--template=t.dot",
                                       "--toc-level",
                                       "3",
                                       "--set",
                                       "Word/Compose=1",
                                       "--set",
                                       "Log/Diagnostics=a=b/c",
                                       "--row-height",
                                       "0",
                                       "--dll",
                                       "x.dll",
                                       "--log",
                                       "n.log",
                                       "--level",
                                       "1",
                                       "--show",
                                       "--check",
                                       "--continue-on-error",
                                       "--quiet",
                                       "--from",
                                       "2",
                                       "--to",
                                       "5",
                                       "a.log"});
    EXPECT_EQ(options.output, "o");
    EXPECT_EQ(options.templateName, "t.dot");
    EXPECT_THAT(settingsOf(options),
                ElementsAre("Word|Compose|1", "Log|Diagnostics|a=b/c", "Word|TOCLevel|3"));
    EXPECT_EQ(options.rowHeight, 0);
    EXPECT_EQ(options.dll, "x.dll");
    EXPECT_EQ(options.log, "n.log");
    EXPECT_EQ(options.level, 1);
    EXPECT_TRUE(options.takesPart && options.showsLast && options.onlyChecks && options.goesOn &&
                options.isQuiet);
    EXPECT_EQ(options.lines.first, 2);
    EXPECT_EQ(options.lines.last, 5);
    EXPECT_THAT(options.logs, ElementsAre("a.log"));
}

TEST(OptionsTest, MayStandAnywhere)
{
    const Options options = optionsOf({"a.log", "--set", "A/b=c", "b.log", "/c.log"});
    EXPECT_THAT(options.logs, ElementsAre("a.log", "b.log", "/c.log"));
}

TEST(OptionsTest, TraceEveryCallUnlessToldOtherwise)
{
    EXPECT_EQ(optionsOf({"a.log", "--log", "n.log"}).level, 10);
    EXPECT_EQ(optionsOf({"a.log", "--log", "n.log", "--level", "0"}).level, 0);
}

TEST(OptionsTest, MayHaveEmptyValues)
{
    EXPECT_THAT(settingsOf(optionsOf({"a.log", "--set", "Word/WordTemplateName="})),
                ElementsAre("Word|WordTemplateName|"));
}

TEST(OptionsTest, BeginAtOneEnd)
{
    const Options options = optionsOf({"a.log", "--to", "3"});
    EXPECT_TRUE(options.takesPart);
    EXPECT_EQ(options.lines.first, 1);
}

TEST(OptionsTest, AreRefused)
{
    EXPECT_THAT(refusalOf({}), HasSubstr("LOG"));
    EXPECT_THAT(refusalOf({"a.log", "--nonsense"}), HasSubstr("--nonsense"));
    EXPECT_THAT(refusalOf({"a.log", "--set", "Compose=1"}), HasSubstr("Group/Name=value"));
    EXPECT_THAT(refusalOf({"a.log", "--set", "/Compose=1"}), HasSubstr("Group/Name=value"));
    EXPECT_THAT(refusalOf({"a.log", "--set", "Word/=1"}), HasSubstr("Group/Name=value"));
    EXPECT_THAT(refusalOf({"a.log", "--set", "Word/Compose"}), HasSubstr("Group/Name=value"));
    EXPECT_THAT(refusalOf({"a.log", "--toc-level", "51"}), HasSubstr("--toc-level"));
    EXPECT_THAT(refusalOf({"a.log", "--toc-level", "x"}), HasSubstr("--toc-level"));
    EXPECT_THAT(refusalOf({"a.log", "--row-height", "-1"}), HasSubstr("--row-height"));
    EXPECT_THAT(refusalOf({"a.log", "--from", "0"}), HasSubstr("--from"));
    EXPECT_THAT(refusalOf({"a.log", "--from", "3", "--to", "2"}), HasSubstr("behind"));
    EXPECT_THAT(refusalOf({"a.log", "b.log", "--to", "2"}), HasSubstr("one log"));
    EXPECT_THAT(refusalOf({"a.log", "--level", "10"}), HasSubstr("--log"));
    EXPECT_THAT(refusalOf({"a.log", "--output"}), HasSubstr("--output"));
}

TEST(OptionsTest, TellOfThemselves)
{
    const auto help = std::get<Answer>(parseOptions({"--help"}));
    EXPECT_FALSE(help.isRefusal);
    for (const char* const option : {"LOG", "--output", "--template", "--toc-level", "--set", "--log",
                                     "--level", "--show", "--check", "--from", "--to", "--continue-on-error",
                                     "--quiet", "--row-height", "--dll", "--help", "--version", "130"})
        EXPECT_THAT(help.text, HasSubstr(option));
    const auto version = std::get<Answer>(parseOptions({"--version"}));
    EXPECT_FALSE(version.isRefusal);
    EXPECT_THAT(version.text, testing::StartsWith("mirovel-replay "));
}

} // namespace
} // namespace replay
