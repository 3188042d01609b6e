// The settings of one session: the order of look-up, and the kinds of values.
#include "FrontEndTest.h"

#include <filesystem>

namespace {

class OverrideRegistryTest : public FrontEndTest
{
};

TEST_F(OverrideRegistryTest, GoesBeforeTheRegistryWithinTheSessionOnly)
{
    const Setting registered("Log", "LogName", folder.file("registered.log"));
    const IDocumentPtr other = newClient();
    client->trace(10);
    other->trace(10);
    client->addRow();
    other->addCell();
    EXPECT_EQ(log(), logLines({"mirovel->addRow();"}));
    EXPECT_EQ(contentOf(folder.file("registered.log")), logLines({"mirovel->addCell();"}));
}

TEST_F(OverrideRegistryTest, ReplacesAnEarlierOne)
{
    setting("Log", "LogName", folder.file("second.log"));
    trace(10);
    client->addRow();
    EXPECT_EQ(contentOf(folder.file("second.log")), logLines({"mirovel->addRow();"}));
    EXPECT_EQ(log(), "(no file)");
}

TEST_F(OverrideRegistryTest, NeverReachesTheRegistry)
{
    setting("Mirovel test", "Value", "x");
    HKEY key = nullptr;
    EXPECT_EQ(RegOpenKeyExW(HKEY_CURRENT_USER, L"Software\\Lumarkscribe\\Mirovelcom\\Mirovel test", 0,
                            KEY_READ, &key),
              ERROR_FILE_NOT_FOUND);
}

TEST_F(OverrideRegistryTest, AcceptsEveryKindAndEmptyNames)
{
    for (const short kind : std::initializer_list<short>{-32768, -1, 0, 1, 2, 3, 4, 32767})
        EXPECT_THAT(client->overrideRegistry(L""_b, L""_b, L"x"_b, kind), isHresult(S_OK));
}

/// The log name as its kind makes it read, seen by the file that the trace writes to. A bare name lies in the
/// temporary directory.
class OverrideKindTest : public OverrideRegistryTest
{
protected:
    static bool tracesTo(const std::string& name, const char* value, short kind)
    {
        const std::string path = (std::filesystem::temp_directory_path() / name).string();
        std::filesystem::remove(path);
        {
            const IDocumentPtr other = newClient();
            EXPECT_THAT(other->overrideRegistry(L"Log"_b, L"LogName"_b, bstr(value), kind), isHresult(S_OK));
            EXPECT_THAT(other->trace(10), isHresult(S_OK));
            other->addRow();
        }
        const bool found = contentOf(path) == "mirovel->addRow();\r\n";
        std::filesystem::remove(path);
        return found;
    }
};

TEST_F(OverrideKindTest, OneIsText)
{
    EXPECT_TRUE(tracesTo("0017 mirovel", "0017 mirovel", 1));
}

TEST_F(OverrideKindTest, TwoIsAnInteger)
{
    EXPECT_TRUE(tracesTo("17", "0017 mirovel", 2));
}

TEST_F(OverrideKindTest, ThreeIsABoolean)
{
    EXPECT_TRUE(tracesTo("1", "0017 mirovel", 3));
    EXPECT_TRUE(tracesTo("0", "mirovel", 3));
}

TEST_F(OverrideKindTest, AnythingElseIsText)
{
    EXPECT_TRUE(tracesTo("0018 mirovel", "0018 mirovel", 0));
    EXPECT_TRUE(tracesTo("0019 mirovel", "0019 mirovel", 4));
    EXPECT_TRUE(tracesTo("0020 mirovel", "0020 mirovel", -1));
}

} // namespace
