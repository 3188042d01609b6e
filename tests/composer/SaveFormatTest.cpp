#include "SaveFormat.h"

#include <gtest/gtest.h>

namespace compose {
namespace {

TEST(SaveFormatTest, IsWhatTheNameSays)
{
    EXPECT_EQ(saveFormatOf(L"C:\\a\\b.doc"), _variant_t(0L));
    EXPECT_EQ(saveFormatOf(L"b.docx"), _variant_t(12L));
    EXPECT_EQ(saveFormatOf(L"b.RTF"), _variant_t(6L));
    EXPECT_EQ(saveFormatOf(L"b.pdf"), _variant_t(17L));
    for (const wchar_t* name : {L"b.html", L"b", L"", L"a.doc\\b", L"b.docm"})
        EXPECT_EQ(saveFormatOf(name).vt, VT_ERROR) << name;
}

} // namespace
} // namespace compose
