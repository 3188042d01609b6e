#pragma once

#include "WriterFixture.h"

#include "OwnRegistry.h"
#include "ScratchFolder.h"
#include "registry/RegisterDynamic.h"
#include "tracedll/Trace.h"

#include <span>

/// Besides, files to insert, and a trace whose log can be read.
class FileWriterTest : public WriterTest
{
protected:
    void SetUp() override
    {
        const QdxString installDir = folder_.file("installed").c_str();
        RegisterDynamic::write("Settings", "InstallDir", RegEntry(installDir));
        WriterTest::SetUp();
    }

    void openTrace(int level)
    {
        Trace trace;
        trace.open(folder_.file("trace.log").c_str());
        trace.setLevel(level);
        writer().setTrace(trace);
    }
    std::string log() const { return contentOf(folder_.file("trace.log")); }

    /// A new file of the folder, as the writer is told.
    QdxString write(const std::string& name, const std::string& content) const
    {
        return folder_.write(name, content).c_str();
    }

    /// A table with one row and one cell, which holds "in".
    void openTable()
    {
        writer().startTable();
        writer().addRow();
        writer().addCell();
        writer().insertText(L"in");
        takeCalls();
    }

    /// Inserts the file once for each position into a new document, with the first, second, ... Word call
    /// refused: there the writer must stand afterwards.
    void expectFailuresToLeave(const QdxString& file, std::span<const std::int32_t> positions)
    {
        for (std::size_t call = 1; call <= positions.size(); ++call) {
            SCOPED_TRACE(call);
            startOver();
            writer().applyStyle();
            word_.failCall(static_cast<long>(call), E_ACCESSDENIED);
            EXPECT_THAT(comErrorOf([&] { writer().insertFile(file, 0); }), isHresult(E_ACCESSDENIED));
            word_.clearFaults();
            EXPECT_EQ(insertionPosition(), positions[call - 1]);
            EXPECT_EQ(text().ends_with(u"X"), call > 1);
            abandon();
        }
    }

    OwnRegistry registry_;
    ScratchFolder folder_;
};
