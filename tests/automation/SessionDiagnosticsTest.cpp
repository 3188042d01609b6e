// When an object's diagnostics are on.
#include "FrontEndTest.h"

#include <gmock/gmock.h>

#include <windows.h>

namespace {

using testing::HasSubstr;
using testing::Not;

class SessionDiagnosticsTest : public FrontEndTest
{
protected:
    [[nodiscard]] std::string written(const std::string& stem = "events") const
    {
        return contentOf(folder.file(stem + "." + std::to_string(GetCurrentProcessId()) + ".log"));
    }

    [[nodiscard]] std::string name(const std::string& file = "events.log") const { return folder.file(file); }
};

TEST_F(SessionDiagnosticsTest, AreOffByDefault)
{
    openDocument();
    EXPECT_EQ(written(), "(no file)");
}

TEST_F(SessionDiagnosticsTest, BeginWhenTheObjectIsMade)
{
    const Setting setting("Log", "Diagnostics", name());
    IDocumentPtr other = newClient();
    EXPECT_THAT(written(), HasSubstr("\tObject made\t"));
    EXPECT_THAT(written(), Not(HasSubstr("\tObject released\t")));
    other = nullptr;
    EXPECT_THAT(written(), HasSubstr("\tObject released\t"));
}

TEST_F(SessionDiagnosticsTest, FollowTheSettingAtCreate)
{
    start();
    const Setting setting("Log", "Diagnostics", name());
    EXPECT_EQ(written(), "(no file)");
    client->create(bstr(documentName()));
    EXPECT_NE(written(), "(no file)");
}

TEST_F(SessionDiagnosticsTest, CountTheSessionsOwnWord)
{
    start();
    setting("Log", "Diagnostics", name("own.log"));
    const Setting forAll("Log", "Diagnostics", name());
    client->create(bstr(documentName()));
    EXPECT_NE(written("own"), "(no file)");
    EXPECT_EQ(written(), "(no file)");
}

TEST_F(SessionDiagnosticsTest, TellOfATraceLogThatCannotBeWritten)
{
    const Setting on("Log", "Diagnostics", name());
    const IDocumentPtr other = newClient();
    const std::string log = folder.file("no such folder\\trace.log");
    other->overrideRegistry(L"Log"_b, L"LogName"_b, bstr(log), 1);
    other->trace(10);
    EXPECT_THAT(written(), HasSubstr("\tCannot open trace log " + log + " "));
}

} // namespace
