#include <RunningApplication.h>

#include "InProcessWord.h"
#include "TestSupport.h"

namespace {
TEST(RunningApplication, IsFoundWhileItLives)
{
    const standin_test::Apartment apartment;
    const standin::InProcessWord word;
    constexpr CLSID applicationClass = {0x000209FF, 0, 0, {0xC0, 0, 0, 0, 0, 0, 0, 0x46}};
    IUnknown* found = nullptr;
    {
        const standin::RunningApplication running(*word.application());
        ASSERT_THAT(GetActiveObject(applicationClass, nullptr, &found), isHresult(S_OK));
        EXPECT_EQ(Word::_ApplicationPtr(found).GetInterfacePtr(), word.application().GetInterfacePtr());
        found->Release();
    }
    EXPECT_THAT(GetActiveObject(applicationClass, nullptr, &found), isHresult(MK_E_UNAVAILABLE));
}
} // namespace
