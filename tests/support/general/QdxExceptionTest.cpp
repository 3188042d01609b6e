#include "general/QdxException.h"

#include "QdxString.h"

#include <gtest/gtest.h>
#include <iostream>
#include <memory>
#include <string>
#include <type_traits>

namespace {

static_assert(std::is_base_of_v<std::exception, QdxException>);
static_assert(std::is_nothrow_copy_constructible_v<QdxException>);
static_assert(std::has_virtual_destructor_v<QdxLogBase>);

class TextLog : public QdxLogBase
{
public:
    std::string text;

    bool isOn(const char* category) override { return category == std::string("Throw"); }
    QdxLogBase& operator<<(const char* piece) override
    {
        text += piece;
        return *this;
    }
    QdxLogBase& operator<<(Manipulator) override
    {
        text += "|";
        return *this;
    }
};

} // namespace

TEST(QdxExceptionTest, HoldsItsReason)
{
    EXPECT_STREQ(QdxException("Word is unavailable.").reasonText(), "Word is unavailable.");
    EXPECT_STREQ(QdxException(QdxString("a\nb")).reasonText(), "a\nb");
    EXPECT_STREQ(QdxException(std::string("c")).what(), "c");
    EXPECT_STREQ(QdxException("").reasonText(), "");
}

TEST(QdxExceptionTest, ACopyHoldsTheReasonToo)
{
    auto original = std::make_unique<QdxException>("reason");
    const QdxException copy(*original);
    original.reset();
    EXPECT_STREQ(copy.reasonText(), "reason");
}

TEST(QdxExceptionTest, IsCaughtAsAStandardException)
{
    try {
        throw QdxException("reason");
    } catch (const std::exception& error) {
        EXPECT_STREQ(error.what(), "reason");
    }
}

TEST(QdxExceptionTest, TheDefaultLogIsOff)
{
    ASSERT_NE(QdxException::getLog(), nullptr);
    EXPECT_FALSE(QdxException::getLog()->isOn("Throw"));
    EXPECT_FALSE(QdxException::getLog()->isOn("Catch"));
    *QdxException::getLog() << "nowhere" << std::endl;
}

TEST(QdxExceptionTest, AnotherLogCanBePutInItsPlace)
{
    TextLog log;
    QdxLogBase* const before = QdxException::setLog(&log);
    EXPECT_EQ(QdxException::getLog(), &log);
    EXPECT_TRUE(QdxException::getLog()->isOn("Throw"));
    *QdxException::getLog() << "Exception throw: "
                            << "reason" << std::endl;
    EXPECT_EQ(QdxException::setLog(before), &log);
    EXPECT_EQ(log.text, "Exception throw: reason|");
    EXPECT_EQ(QdxException::getLog(), before);
}
