#include "ParamDesc.h"

#include <gtest/gtest.h>
#include <memory>
#include <type_traits>

static_assert(std::is_base_of_v<QdxObject, ParamDesc>);

TEST(ParamDescTest, DefaultHasAnEmptyName)
{
    EXPECT_TRUE(ParamDesc().getName().isEmpty());
}

TEST(ParamDescTest, CopiesBothFields)
{
    const ParamDesc original("width", 7);
    const ParamDesc copy(original);
    EXPECT_STREQ(copy.getName().data(), "width");
    EXPECT_EQ(copy.getCode(), 7);
    ParamDesc assigned;
    assigned = original;
    EXPECT_STREQ(assigned.getName().data(), "width");
    EXPECT_EQ(assigned.getCode(), 7);
}

TEST(ParamDescTest, ComparesByNameThenByCode)
{
    const ParamDesc a1("a", 1);
    const ParamDesc a2("a", 2);
    const ParamDesc b1("b", 1);
    EXPECT_TRUE(a1 == ParamDesc("a", 1));
    EXPECT_FALSE(a1 != ParamDesc("a", 1));
    EXPECT_TRUE(a1 != a2);
    EXPECT_FALSE(a1 == b1);
    EXPECT_TRUE(a1 < a2);
    EXPECT_TRUE(a2 < b1);
    EXPECT_TRUE(b1 > a2);
    EXPECT_FALSE(a1 > a1);
    EXPECT_FALSE(a1 < a1);
}

TEST(ParamDescTest, IsDestroyedThroughItsBase)
{
    // A lost virtual destructor shows as a leak under AddressSanitizer.
    const std::unique_ptr<QdxObject> object = std::make_unique<ParamDesc>("a name of its own", short{1});
    EXPECT_NE(dynamic_cast<ParamDesc*>(object.get()), nullptr);
}
