// The trace's level and log.
#include "FrontEndTest.h"

#include <initializer_list>

namespace {

class TraceTest : public FrontEndTest
{
};

TEST_F(TraceTest, ClosesTheLogAtLevelZero)
{
    trace(10);
    client->endTable();
    trace(0);
    client->startTable();
    EXPECT_EQ(log(), logLines({"mirovel->endTable();"}));
}

TEST_F(TraceTest, KeepsWhatThisProcessHasWrittenWhenItIsOpenedAgain)
{
    trace(10);
    client->endTable();
    trace(0);
    trace(10);
    client->addRow();
    EXPECT_EQ(log(), logLines({"mirovel->endTable();", "mirovel->addRow();"}));
}

TEST_F(TraceTest, OnlyPurgesAtANegativeLevel)
{
    folder.write("trace.log", "mirovel->stop();\r\n");
    trace(-1);
    EXPECT_EQ(log(), "(no file)");
    client->endTable();
    EXPECT_EQ(log(), "(no file)");

    trace(10);
    trace(-1);
    client->endTable();
    EXPECT_EQ(log(), logLines({"mirovel->endTable();"}));
}

TEST_F(TraceTest, PurgesAtLevelZeroToo)
{
    folder.write("trace.log", "mirovel->stop();\r\n");
    trace(0);
    EXPECT_EQ(log(), "(no file)");
}

TEST_F(TraceTest, PurgesBeforeItOpens)
{
    folder.write("trace.log", "mirovel->stop();\r\n");
    trace(10);
    client->endTable();
    EXPECT_EQ(log(), logLines({"mirovel->endTable();"}));
}

TEST_F(TraceTest, FollowsAnotherLogName)
{
    trace(10);
    setting("Log", "LogName", folder.file("other.log"));
    trace(10);
    client->endTable();
    EXPECT_EQ(contentOf(folder.file("other.log")), logLines({"mirovel->endTable();"}));
    EXPECT_EQ(log(), logLines({"mirovel->overrideRegistry(\"Log\",\"LogName\",\"" + folder.file("other.log") +
                               "\",1);"}));
}

TEST_F(TraceTest, TakesTheLogNameOfTheRegistry)
{
    const Setting registered("Log", "LogName", folder.file("registered.log"));
    const IDocumentPtr other = newClient();
    ASSERT_THAT(other->trace(10), isHresult(S_OK));
    other->endTable();
    EXPECT_EQ(contentOf(folder.file("registered.log")), logLines({"mirovel->endTable();"}));
}

TEST_F(TraceTest, GoesOnWithoutALogThatCannotBeWritten)
{
    openDocument();
    trace(10);
    const std::string name = folder.file("no such folder\\trace.log");
    setting("Log", "LogName", name);
    const std::string echoed = log();
    RecordedExceptionLog exceptions;
    EXPECT_THAT(client->trace(10), isHresult(S_OK));
    ASSERT_EQ(exceptions.lines.size(), 1U);
    EXPECT_THAT(exceptions.lines[0],
                testing::StartsWith("Exception catch: Cannot open trace log " + name + "\n"));
    client->insertEndl();
    client->insertFile(L"c:\\no such.txt"_b, 1);
    EXPECT_EQ(log(), echoed) << "nothing is traced";
    EXPECT_EQ(invoke(*client, 15, {_variant_t(static_cast<short>(1), VT_I2)}).outcome, "0x00000000");
    exceptions.off = "Catch";
    EXPECT_THAT(client->trace(10), isHresult(S_OK));
    EXPECT_EQ(exceptions.lines.size(), 2U);
}

TEST_F(TraceTest, LeavesAFileThatIsNoLog)
{
    folder.write("trace.log", "A letter.\r\n");
    RecordedExceptionLog exceptions;
    for (const short level : std::initializer_list<short>{-1, 0, 1, 10}) {
        trace(level);
        client->endTable();
    }
    EXPECT_EQ(log(), "A letter.\r\n");
    const std::string line = "Exception catch: Cannot open trace log " + folder.file("trace.log") +
                             "\nThe file holds something else.";
    EXPECT_LINES(exceptions.lines, (Lines{line, line}));
}

TEST_F(TraceTest, GivesTheBodyACopyOnlyWhenItIsCalledAfterCreate)
{
    trace(1);
    openDocument();
    client->insertFile(L"c:\\first.txt"_b, 1);
    trace(1);
    client->insertFile(L"c:\\second.txt"_b, 1);
    EXPECT_EQ(log(), logLines({"ERR File not found: c:\\second.txt"}));
}

TEST_F(TraceTest, LeavesTheBodyItsLevelUntilItIsCalledAgain)
{
    openDocument();
    trace(1);
    client->close();
    client->create(bstr(folder.file("b.doc")));
    client->insertFile(L"c:\\first.txt"_b, 1);
    EXPECT_EQ(log(), "");
    trace(1);
    trace(0);
    client->insertFile(L"c:\\second.txt"_b, 1);
    EXPECT_EQ(log(), "");
}

TEST_F(TraceTest, GivesHeadersAndFootersACopyWhenTheyAreMade)
{
    openDocument();
    client->startHeader();
    trace(1);
    client->insertFile(L"c:\\header.txt"_b, 1);
    client->endHeader();
    client->startFooter();
    client->insertFile(L"c:\\footer.txt"_b, 1);
    client->endFooter();
    client->insertFile(L"c:\\body.txt"_b, 1);
    EXPECT_EQ(log(), logLines({"ERR File not found: c:\\footer.txt", "ERR File not found: c:\\body.txt"}));
}

TEST_F(TraceTest, OutlivesDocumentsAndWord)
{
    trace(10);
    start();
    client->stop();
    client->endTable();
    start();
    EXPECT_EQ(log(), logLines({"mirovel->start();", "mirovel->stop();", "mirovel->endTable();",
                               "mirovel->start();"}));
}

} // namespace
