#include "SilenceText.h"

#include <gtest/gtest.h>

namespace {

TEST(SilenceTextTest, NamesMethodCaseAndRemedy)
{
    EXPECT_EQ(strictText(L"insertText", Silence::noDocument, L""),
              L"insertText: no document is open: call create first");
}

TEST(SilenceTextTest, NamesWhatIsConcerned)
{
    EXPECT_EQ(whatIsWrong(Silence::unknownField, L"9"), L"no field has the number \"9\"");
    EXPECT_EQ(strictText(L"insertImage", Silence::missingFile, L"c:\\a.gif"),
              L"insertImage: the file is not there \"c:\\a.gif\": check the name; give the full path");
}

TEST(SilenceTextTest, HasARemedyForWhatIsRaised)
{
    for (int i = 0; i <= static_cast<int>(Silence::withoutEffect); ++i) {
        const SilenceText& text = textOf(static_cast<Silence>(i));
        EXPECT_EQ(static_cast<int>(text.why), i);
        EXPECT_FALSE(text.what.empty());
        EXPECT_TRUE(!text.isRaised || !text.remedy.empty()) << i;
    }
}

} // namespace
