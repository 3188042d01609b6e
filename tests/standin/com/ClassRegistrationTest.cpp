#include <ClassRegistration.h>

#include "InProcessWord.h"
#include "TestSupport.h"

namespace {
class ClassRegistration : public testing::Test
{
protected:
    standin_test::Apartment apartment;
    standin::InProcessWord word;
};

TEST_F(ClassRegistration, LetsAnApplicationBeCreatedByItsProgId)
{
    const standin::ClassRegistration registration(word);
    Word::_ApplicationPtr application;
    ASSERT_THAT(application.CreateInstance(L"Word.Application", nullptr, CLSCTX_ALL), isHresult(S_OK));
    EXPECT_EQ(application.GetInterfacePtr(), word.application().GetInterfacePtr());
    application->Quit();
    Word::_ApplicationPtr next;
    ASSERT_THAT(next.CreateInstance(L"Word.Application", nullptr, CLSCTX_ALL), isHresult(S_OK));
    EXPECT_EQ(next->GetDocuments()->GetCount(), 0);
    EXPECT_THAT(comErrorOf([&] { application->GetName(); }),
                isHresult(RPC_E_DISCONNECTED)); // the earlier Word stays gone
    EXPECT_EQ(registration.created(), 2);
}

TEST_F(ClassRegistration, LeavesNothingBehind)
{
    {
        const standin::ClassRegistration registration(word);
        CLSID id{};
        EXPECT_THAT(CLSIDFromProgID(L"Word.Application", &id), isHresult(S_OK));
    }
    CLSID id{};
    EXPECT_THAT(CLSIDFromProgID(L"Word.Application", &id), isHresult(CO_E_CLASSSTRING));
}
} // namespace
