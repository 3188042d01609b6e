#include "SessionFiles.h"

#include "DocumentComparison.h"
#include "DocumentReading.h"
#include "RandomSession.h"
#include "ReferenceDocument.h"

#include "FileContent.h"

#include <gtest/gtest.h>

namespace reference {
namespace {

TEST(SessionFilesTest, NoNameIsPartOfAnother)
{
    for (const SessionFile& file : sessionFiles())
        for (const SessionFile& other : sessionFiles())
            EXPECT_EQ(file.name.find(other.name) != file.name.npos, &file == &other);
    EXPECT_EQ(findSessionFile(u"letter.rtf")->name, u"letter.rtf");
    EXPECT_EQ(findSessionFile(u"letter.rt"), nullptr);
}

TEST(SessionFilesTest, HoldWhatIsSaidOfThem)
{
    for (const SessionFile& file : sessionFiles()) {
        if (file.paragraphs.empty())
            continue;
        ReferenceDocument expected(isAddress);
        expected.perform({Method::insertFile, std::u16string(file.name)});
        const auto document = standin::model::Document::make(u"Document1");
        standin::model::LiveRange place(document->mainStory(), 0, 0);
        standin::rtf::insertFileContent(place, file.bytes);
        for (const Difference& difference : compare(expected.content(), readContent(*document)))
            ADD_FAILURE() << std::string(file.name.begin(), file.name.end()) << ": "
                          << difference.description;
    }
}

} // namespace
} // namespace reference
