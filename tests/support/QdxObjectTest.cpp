#include "QdxObject.h"

#include <gtest/gtest.h>
#include <type_traits>

static_assert(std::has_virtual_destructor_v<QdxObject>);
static_assert(sizeof(QdxObject) == sizeof(void*), "nothing but the virtual table");

TEST(QdxObjectTest, AssignmentReturnsTheObjectItself)
{
    QdxObject a;
    const QdxObject b(a);
    EXPECT_EQ(&(a = b), &a);
}

TEST(QdxObjectTest, DestroysTheDerivedObject)
{
    struct Derived : QdxObject
    {
        explicit Derived(bool& flag) : destroyed(flag) {}
        ~Derived() override { destroyed = true; }
        bool& destroyed;
    };
    bool destroyed = false;
    const QdxObject* const object = new Derived(destroyed);
    delete object;
    EXPECT_TRUE(destroyed);
}
