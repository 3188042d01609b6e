#include "WordSettings.h"

#include <gmock/gmock.h>

#include <map>
#include <stdexcept>
#include <string>
#include <vector>

namespace {

using testing::ElementsAre;
using testing::IsEmpty;

/// A store in memory that keeps a record of what is asked of it.
class Machine : public PageEnvironment
{
public:
    RegEntry read(const QdxString& group, const QdxString& name, const RegEntry& defaultEntry) const override
    {
        const auto found = stored.find(path(group, name));
        return found == stored.end() ? defaultEntry : found->second;
    }
    void write(const QdxString& group, const QdxString& name, const RegEntry& entry) override
    {
        if (path(group, name) == unwritable)
            throw std::runtime_error("access denied");
        stored[path(group, name)] = entry;
        calls.push_back("write " + path(group, name) + " = " + entry.getValue().data() + " (kind " +
                        std::to_string(entry.getKind()) + ")");
    }
    bool fileExists(const QdxString& name) const override
    {
        calls.push_back(std::string("exists? ") + name.data());
        return name == file.c_str();
    }
    QdxString appendToDir(const QdxString& dir, const QdxString& name) const override
    {
        return dir.isEmpty() ? name : QdxString(dir).append("\\").append(name);
    }

    std::map<std::string, RegEntry> stored;
    std::string unwritable;
    std::string file = "c:\\my.dot";
    mutable std::vector<std::string> calls;

private:
    static std::string path(const QdxString& group, const QdxString& name)
    {
        return std::string(group.data()) + "/" + name.data();
    }
};

class WordSettingsTest : public testing::Test
{
protected:
    /// The text of the refusal; "taken" when there is none.
    std::string apply(const char* templateName, const char* tocLevel)
    {
        const std::optional<WordSettings::Refusal> refusal = settings.apply(templateName, tocLevel);
        if (!refusal)
            return "taken";
        field = refusal->field;
        return refusal->text.data();
    }
    std::string storedLevel(const char* tocLevel)
    {
        machine.stored.erase("Word/TOCLevel");
        if (apply("", tocLevel) != "taken")
            return "refused";
        return machine.stored.at("Word/TOCLevel").getValue().data();
    }

    Machine machine;
    WordSettings settings{machine};
    WordSettings::Field field{};
    const std::string badLevel = "Heading level must fall between 0 and 50.";
};

TEST_F(WordSettingsTest, ProposesATemplateBelowTheInstallation)
{
    EXPECT_STREQ(settings.templateName().data(), "templates\\KXR1.dot");
    machine.stored["Settings/InstallDir"] = "c:\\mirovel";
    EXPECT_STREQ(settings.templateName().data(), "c:\\mirovel\\templates\\KXR1.dot");
}

TEST_F(WordSettingsTest, ShowsTheStoredTemplateEvenIfItIsEmpty)
{
    machine.stored["Settings/InstallDir"] = "c:\\mirovel";
    machine.stored["Word/WordTemplateName"] = "other.dot";
    EXPECT_STREQ(settings.templateName().data(), "other.dot");
    machine.stored["Word/WordTemplateName"] = "";
    EXPECT_STREQ(settings.templateName().data(), "");
}

TEST_F(WordSettingsTest, ShowsTheStoredLevelAsItIs)
{
    EXPECT_EQ(settings.tocLevel(), 50);
    for (const int level : {0, 3, 50, 51, -7}) {
        machine.stored["Word/TOCLevel"] = level;
        EXPECT_EQ(settings.tocLevel(), level);
    }
    machine.stored["Word/TOCLevel"] = "12";
    EXPECT_EQ(settings.tocLevel(), 12);
}

TEST_F(WordSettingsTest, ReadsWithoutWriting)
{
    static_cast<void>(settings.templateName());
    static_cast<void>(settings.tocLevel());
    EXPECT_THAT(machine.calls, IsEmpty());
    EXPECT_THAT(machine.stored, IsEmpty());
}

TEST_F(WordSettingsTest, StoresTheTemplateAndThenTheLevel)
{
    EXPECT_EQ(apply("c:\\my.dot", "3"), "taken");
    EXPECT_THAT(machine.calls,
                ElementsAre("exists? c:\\my.dot", "write Word/WordTemplateName = c:\\my.dot (kind 2)",
                            "write Word/TOCLevel = 3 (kind 0)"));
}

TEST_F(WordSettingsTest, LeavesTheStoredTemplateWhenTheFieldIsEmpty)
{
    machine.stored["Word/WordTemplateName"] = "other.dot";
    EXPECT_EQ(apply("", "3"), "taken");
    EXPECT_THAT(machine.calls, ElementsAre("write Word/TOCLevel = 3 (kind 0)"));
    EXPECT_STREQ(settings.templateName().data(), "other.dot");
}

TEST_F(WordSettingsTest, RefusesATemplateThatIsNotThereAndStoresNothing)
{
    EXPECT_EQ(apply("c:\\none.dot", "3"), "c:\\none.dot\nFile Not Found.\n"
                                          "Please verify the correct template name was given.");
    EXPECT_EQ(field, WordSettings::Field::templateName);
    EXPECT_THAT(machine.calls, ElementsAre("exists? c:\\none.dot"));
}

TEST_F(WordSettingsTest, SpeaksOfTheTemplateFirstWhenBothAreWrong)
{
    EXPECT_THAT(apply("c:\\none.dot", "51"), testing::StartsWith("c:\\none.dot\n"));
}

TEST_F(WordSettingsTest, KeepsTheTemplateWhenTheLevelIsRefused)
{
    EXPECT_EQ(apply("c:\\my.dot", "51"), badLevel);
    EXPECT_EQ(field, WordSettings::Field::tocLevel);
    EXPECT_THAT(machine.calls,
                ElementsAre("exists? c:\\my.dot", "write Word/WordTemplateName = c:\\my.dot (kind 2)"));
}

TEST_F(WordSettingsTest, TakesLevelsFromZeroToFifty)
{
    EXPECT_EQ(storedLevel("0"), "0");
    EXPECT_EQ(storedLevel("50"), "50");
    EXPECT_EQ(apply("", "51"), badLevel);
    EXPECT_EQ(apply("", "-1"), badLevel);
    EXPECT_EQ(apply("", "2147483648"), badLevel);
    EXPECT_EQ(apply("", "-2147483649"), badLevel);
    EXPECT_EQ(apply("", "4294967297"), badLevel);
    EXPECT_EQ(apply("", "18446744073709551617"), badLevel);
}

TEST_F(WordSettingsTest, ReadsALevelByItsLeadingNumber)
{
    EXPECT_EQ(storedLevel(""), "0");
    EXPECT_EQ(storedLevel("many"), "0");
    EXPECT_EQ(storedLevel("x7"), "0");
    EXPECT_EQ(storedLevel("7x"), "7");
    EXPECT_EQ(storedLevel("7.9"), "7");
    EXPECT_EQ(storedLevel(" +7"), "7");
    EXPECT_EQ(storedLevel("007"), "7");
    EXPECT_EQ(storedLevel("-0"), "0");
    EXPECT_EQ(storedLevel("--7"), "0");
    EXPECT_EQ(storedLevel("0x10"), "0");
}

TEST_F(WordSettingsTest, LetsFailuresOfTheStorePass)
{
    machine.unwritable = "Word/WordTemplateName";
    EXPECT_THROW(apply("c:\\my.dot", "3"), std::runtime_error);
    EXPECT_THAT(machine.stored, IsEmpty());
    machine.unwritable = "Word/TOCLevel";
    EXPECT_THROW(apply("c:\\my.dot", "3"), std::runtime_error);
    EXPECT_EQ(machine.stored.count("Word/WordTemplateName"), 1u);
}

} // namespace
