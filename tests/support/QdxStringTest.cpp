#include "QdxString.h"

#include <array>
#include <clocale>
#include <gtest/gtest.h>
#include <map>
#include <stdexcept>
#include <string>
#include <string_view>
#include <thread>
#include <type_traits>
#include <utility>
#include <vector>

namespace {

static_assert(sizeof(QdxString) == sizeof(void*));
static_assert(!std::is_polymorphic_v<QdxString>);
static_assert(QdxString::npos == ~std::size_t{0});

std::string_view view(const QdxString& s)
{
    return {s.data(), s.length()};
}

QdxString withNul(std::string_view bytes)
{
    return {bytes.data(), bytes.size()};
}

using namespace std::string_view_literals;

} // namespace

TEST(QdxStringTest, DefaultIsEmptyAndTerminated)
{
    const QdxString s;
    EXPECT_EQ(s.length(), 0u);
    EXPECT_TRUE(s.isEmpty());
    ASSERT_NE(s.data(), nullptr);
    EXPECT_EQ(*s.data(), '\0');
}

TEST(QdxStringTest, AllEmptyStringsShareOneBody)
{
    const char* const empty = QdxString().data();
    EXPECT_EQ(QdxString("").data(), empty);
    EXPECT_EQ(QdxString(static_cast<const char*>(nullptr)).data(), empty);
    QdxString s("abc");
    s.remove(0);
    EXPECT_EQ(s.data(), empty);
    s = "";
    EXPECT_EQ(s.data(), empty);
}

TEST(QdxStringTest, ConstructsFromTextUpToItsNul)
{
    EXPECT_EQ(view("abc\0def"), "abc");
    EXPECT_EQ(QdxString("abc").length(), 3u);
    EXPECT_FALSE(QdxString("abc").isEmpty());
    EXPECT_EQ(QdxString("abc").data()[3], '\0');
}

TEST(QdxStringTest, ConstructsFromCountedBytes)
{
    EXPECT_EQ(view(withNul("a\0b"sv)), "a\0b"sv);
    EXPECT_TRUE(QdxString(nullptr, 5).isEmpty());
}

TEST(QdxStringTest, CopySharesTheBodyUntilOneChanges)
{
    const QdxString original("abc");
    QdxString copy(original);
    EXPECT_EQ(copy.data(), original.data());
    copy.append("d");
    EXPECT_EQ(view(copy), "abcd");
    EXPECT_EQ(view(original), "abc");
    EXPECT_NE(copy.data(), original.data());
}

TEST(QdxStringTest, EveryChangeLeavesCopiesAlone)
{
    const std::array<void (*)(QdxString&), 12> changes{
        [](QdxString& s) { s = "other"; },
        [](QdxString& s) { s = QdxString("other"); },
        [](QdxString& s) { s.insert(1, "x"); },
        [](QdxString& s) { s.append(QdxString("x")); },
        [](QdxString& s) { s.append(QdxString("xyz"), 1); },
        [](QdxString& s) { s.append("x"); },
        [](QdxString& s) { s.append("xyz", 2); },
        [](QdxString& s) { s.remove(1); },
        [](QdxString& s) { s.remove(1, 1); },
        [](QdxString& s) { s.toUpper(); },
        [](QdxString& s) { s.toLower(); },
        [](QdxString& s) { s.replaceStr("b", "yy"); },
    };
    for (const auto change : changes) {
        QdxString changed("aBbc");
        const QdxString copy(changed);
        change(changed);
        EXPECT_EQ(view(copy), "aBbc");
        EXPECT_NE(view(changed), "aBbc");
    }
}

TEST(QdxStringTest, TheLastHolderOfABodyChangesItInPlace)
{
    QdxString s("abc");
    {
        const QdxString copy(s);
    }
    const char* const body = s.data();
    s.remove(1, 1);
    EXPECT_EQ(s.data(), body);
    EXPECT_EQ(view(s), "ac");
}

TEST(QdxStringTest, AssignmentSharesAndReturnsTheTarget)
{
    const QdxString source("abc");
    QdxString target("old");
    EXPECT_EQ(&(target = source), &target);
    EXPECT_EQ(target.data(), source.data());
    EXPECT_EQ(&(target = "xyz"), &target);
    EXPECT_EQ(view(target), "xyz");
    target = static_cast<const char*>(nullptr);
    EXPECT_TRUE(target.isEmpty());
}

TEST(QdxStringTest, AssignsToItself)
{
    QdxString s("abc");
    const QdxString& same = s;
    s = same;
    EXPECT_EQ(view(s), "abc");
    s = s.data() + 1;
    EXPECT_EQ(view(s), "bc");
}

TEST(QdxStringTest, MovingTakesTheBodyAndLeavesAnEmptyString)
{
    QdxString source("abc");
    const char* const body = source.data();
    QdxString target(std::move(source));
    EXPECT_EQ(target.data(), body);
    EXPECT_TRUE(source.isEmpty()); // NOLINT(bugprone-use-after-move): the header promises it
    source = std::move(target);
    EXPECT_EQ(source.data(), body);
    EXPECT_TRUE(target.isEmpty()); // NOLINT(bugprone-use-after-move)
}

TEST(QdxStringTest, InsertsInFrontOfAPosition)
{
    QdxString s("ad");
    EXPECT_EQ(&s.insert(1, "bc"), &s);
    EXPECT_EQ(view(s), "abcd");
    s.insert(0, "<");
    s.insert(s.length(), ">");
    EXPECT_EQ(view(s), "<abcd>");
    s.insert(1, withNul("\0!"sv));
    EXPECT_EQ(view(s), "<\0!abcd>"sv);
    QdxString empty;
    empty.insert(0, "x");
    EXPECT_EQ(view(empty), "x");
}

TEST(QdxStringTest, InsertBeyondTheEndIsOutOfRange)
{
    QdxString s("abc");
    EXPECT_THROW(s.insert(4, "x"), std::out_of_range);
    EXPECT_THROW(s.insert(4, ""), std::out_of_range);
    EXPECT_THROW(s.insert(QdxString::npos, "x"), std::out_of_range);
    EXPECT_EQ(view(s), "abc");
}

TEST(QdxStringTest, AppendsAString)
{
    QdxString s("ab");
    EXPECT_EQ(&s.append(withNul("c\0d"sv)), &s);
    EXPECT_EQ(view(s), "abc\0d"sv);
    const QdxString source("xyz");
    QdxString empty;
    empty.append(source);
    EXPECT_EQ(empty.data(), source.data());
}

TEST(QdxStringTest, AppendsTheFirstBytesOfAString)
{
    QdxString s("ab");
    s.append(QdxString("cdef"), 2);
    EXPECT_EQ(view(s), "abcd");
    s.append(QdxString("ef"), 99);
    EXPECT_EQ(view(s), "abcdef");
    s.append(QdxString("gh"), 0);
    EXPECT_EQ(view(s), "abcdef");
}

TEST(QdxStringTest, AppendsTextUpToItsNul)
{
    QdxString s("ab");
    s.append("cd\0ef");
    EXPECT_EQ(view(s), "abcd");
    s.append(static_cast<const char*>(nullptr));
    EXPECT_EQ(view(s), "abcd");
}

TEST(QdxStringTest, AppendsExactlyTheCountedBytes)
{
    QdxString s("ab");
    s.append("c\0d..", 3);
    EXPECT_EQ(view(s), "abc\0d"sv);
    s.append(nullptr, 0);
    EXPECT_EQ(s.length(), 5u);
}

TEST(QdxStringTest, AppendsPiecesOfItself)
{
    QdxString s("abc");
    s.append(s);
    EXPECT_EQ(view(s), "abcabc");
    s.append(s.data() + 3);
    EXPECT_EQ(view(s), "abcabcabc");
    s.append(s.data() + 1, 2);
    EXPECT_EQ(view(s), "abcabcabcbc");
    s.insert(1, s);
    EXPECT_EQ(view(s), "aabcabcabcbcbcabcabcbc");
}

TEST(QdxStringTest, AppendsPiecesOfItselfWhileThereIsRoomInPlace)
{
    QdxString s(std::string(100, 'x').c_str());
    s.remove(4);
    s.append(s.data() + 1, 3).append(s).insert(2, s);
    EXPECT_EQ(s.length(), 28u);
    EXPECT_EQ(view(s), std::string(28, 'x'));
}

TEST(QdxStringTest, AppendingManyPiecesIsCopiedSeldom)
{
    QdxString s;
    int moves = 0;
    for (int i = 0; i < 100000; ++i) {
        const char* const before = s.data();
        s.append("x", 1);
        moves += s.data() != before;
    }
    EXPECT_EQ(view(s), std::string(100000, 'x'));
    EXPECT_LT(moves, 100);
}

TEST(QdxStringTest, RemovesToTheEnd)
{
    QdxString s("abcdef");
    EXPECT_EQ(&s.remove(2), &s);
    EXPECT_EQ(view(s), "ab");
    EXPECT_EQ(s.data()[2], '\0');
    s.remove(2);
    EXPECT_EQ(view(s), "ab");
    s.remove(0);
    EXPECT_TRUE(s.isEmpty());
}

TEST(QdxStringTest, RemovesCountedBytesCutAtTheEnd)
{
    QdxString s("abcdef");
    s.remove(1, 2);
    EXPECT_EQ(view(s), "adef");
    s.remove(2, 99);
    EXPECT_EQ(view(s), "ad");
    s.remove(1, QdxString::npos);
    EXPECT_EQ(view(s), "a");
    s.remove(0, 0);
    EXPECT_EQ(view(s), "a");
}

TEST(QdxStringTest, RemoveBeyondTheEndIsOutOfRange)
{
    QdxString s("abc");
    EXPECT_THROW(s.remove(4), std::out_of_range);
    EXPECT_THROW(s.remove(4, 0), std::out_of_range);
    EXPECT_THROW(s.remove(QdxString::npos, 1), std::out_of_range);
    EXPECT_EQ(view(s), "abc");
}

TEST(QdxStringTest, TooLongATextIsALengthError)
{
    QdxString s("abc");
    EXPECT_THROW(s.append("x", QdxString::npos), std::length_error);
    EXPECT_EQ(view(s), "abc");
}

TEST(QdxStringTest, StartsWith)
{
    const QdxString s("abc");
    EXPECT_TRUE(s.startsWith(""));
    EXPECT_TRUE(s.startsWith("a"));
    EXPECT_TRUE(s.startsWith("abc"));
    EXPECT_FALSE(s.startsWith("abcd"));
    EXPECT_FALSE(s.startsWith("A"));
    EXPECT_FALSE(s.startsWith("b"));
    EXPECT_TRUE(QdxString().startsWith(""));
    EXPECT_FALSE(QdxString().startsWith("a"));
    EXPECT_TRUE(s.startsWith(nullptr));
}

TEST(QdxStringTest, StartsWithStopsAtTheFirstNulOfEither)
{
    const QdxString s = withNul("ab\0cd"sv);
    EXPECT_TRUE(s.startsWith("ab\0xx"));
    EXPECT_TRUE(s.startsWith("ab"));
    EXPECT_FALSE(s.startsWith("abc"));
}

TEST(QdxStringTest, FindsTheFirstOccurrence)
{
    const QdxString s("abcabc");
    EXPECT_EQ(s.find("bc"), 1u);
    EXPECT_EQ(s.find("abcabc"), 0u);
    EXPECT_EQ(s.find("BC"), QdxString::npos);
    EXPECT_EQ(s.find("abcabcd"), QdxString::npos);
    EXPECT_EQ(s.find("cb"), QdxString::npos);
    EXPECT_EQ(s.find(""), 0u);
    EXPECT_EQ(QdxString("aab").find("ab"), 1u);
}

TEST(QdxStringTest, FindTakesThePatternUpToItsFirstNul)
{
    EXPECT_EQ(QdxString("xab").find(withNul("ab\0zz"sv)), 1u);
    EXPECT_EQ(withNul("ab\0cd"sv).find("cd"), 3u);
}

TEST(QdxStringTest, NothingIsFoundInAnEmptyString)
{
    const QdxString empty;
    EXPECT_EQ(empty.find("a"), QdxString::npos);
    EXPECT_EQ(empty.find(""), QdxString::npos);
    EXPECT_EQ(empty.first('a'), QdxString::npos);
    EXPECT_EQ(empty.first('\0'), QdxString::npos);
    EXPECT_EQ(empty.first(QdxString("a")), QdxString::npos);
    EXPECT_EQ(empty.last('a'), QdxString::npos);
    EXPECT_EQ(empty.last('\0'), QdxString::npos);
}

TEST(QdxStringTest, FirstAndLastByte)
{
    const QdxString s("abcab");
    EXPECT_EQ(s.first('b'), 1u);
    EXPECT_EQ(s.last('b'), 4u);
    EXPECT_EQ(s.first('a'), 0u);
    EXPECT_EQ(s.last('a'), 3u);
    EXPECT_EQ(s.first('z'), QdxString::npos);
    EXPECT_EQ(s.last('B'), QdxString::npos);
    EXPECT_EQ(s.first('\0'), QdxString::npos);
    EXPECT_EQ(withNul("a\0b\0c"sv).first('\0'), 1u);
    EXPECT_EQ(withNul("a\0b\0c"sv).last('\0'), 3u);
    EXPECT_EQ(QdxString("a\xe4z").first('\xe4'), 1u);
}

TEST(QdxStringTest, FirstOfASet)
{
    EXPECT_EQ(QdxString("a,b;c").first(QdxString(";,")), 1u);
    EXPECT_EQ(QdxString("a,b;c").first(QdxString(";")), 3u);
    EXPECT_EQ(QdxString("abc").first(QdxString(";,")), QdxString::npos);
    EXPECT_EQ(QdxString("abc").first(QdxString()), QdxString::npos);
    EXPECT_EQ(QdxString("abc").first(QdxString("cb")), 1u);
}

TEST(QdxStringTest, ChangesCaseByteByByte)
{
    QdxString s("aBc1_z");
    s.toUpper();
    EXPECT_EQ(view(s), "ABC1_Z");
    s.toLower();
    EXPECT_EQ(view(s), "abc1_z");
    QdxString nul = withNul("a\0b"sv);
    nul.toUpper();
    EXPECT_EQ(view(nul), "A\0B"sv);
    QdxString high("\xe4\xff");
    std::setlocale(LC_CTYPE, "C");
    high.toUpper();
    EXPECT_EQ(view(high), "\xe4\xff");
}

TEST(QdxStringTest, ChangingCaseOfATextThatHasItCopiesNothing)
{
    QdxString s("abc");
    const QdxString copy(s);
    s.toLower();
    EXPECT_EQ(s.data(), copy.data());
}

TEST(QdxStringTest, HashDependsOnBytesAndCase)
{
    static_assert(std::is_same_v<decltype(QdxString().hash()), std::uint32_t>);
    EXPECT_EQ(QdxString("abc").hash(), QdxString("abc").hash());
    EXPECT_NE(QdxString("abc").hash(), QdxString("ABC").hash());
    EXPECT_NE(QdxString("abc").hash(), QdxString("acb").hash());
    EXPECT_NE(withNul("a\0b"sv).hash(), withNul("a\0c"sv).hash());
}

TEST(QdxStringTest, ReplacesEveryOccurrence)
{
    const auto replaced = [](QdxString text, const QdxString& from, const QdxString& to) {
        text.replaceStr(from, to);
        return std::string(view(text));
    };
    EXPECT_EQ(replaced("aXbXc", "X", "YY"), "aYYbYYc");
    EXPECT_EQ(replaced("aXbXc", "X", "XX"), "aXXbXXc");
    EXPECT_EQ(replaced("abX", "X", "YY"), "abYY");
    EXPECT_EQ(replaced("XXX", "X", ""), "");
    EXPECT_EQ(replaced("aaa", "aa", "b"), "ba");
    EXPECT_EQ(replaced("abab", "ab", "abab"), "abababab");
    EXPECT_EQ(replaced("abc", "x", "y"), "abc");
    EXPECT_EQ(replaced("abc", "B", "y"), "abc");
    EXPECT_EQ(replaced("", "x", "y"), "");
    EXPECT_EQ(replaced("c:\\a\\b", "\\", "\\\\"), "c:\\\\a\\\\b");
    EXPECT_EQ(replaced("#GUID 1", "#GUID ", "GUID "), "GUID 1");
}

TEST(QdxStringTest, ReplacingAnEmptyTextChangesNothing)
{
    QdxString s("abc");
    s.replaceStr("", "x");
    EXPECT_EQ(view(s), "abc");
}

TEST(QdxStringTest, ReplacesWithItself)
{
    QdxString s("ab");
    s.replaceStr(s, s);
    EXPECT_EQ(view(s), "ab");
    s.replaceStr("a", s);
    EXPECT_EQ(view(s), "abb");
}

TEST(QdxStringTest, ReplacementDeletesTheWholeLengthOfAPatternWithANul)
{
    QdxString s("1ab2345");
    s.replaceStr(withNul("ab\0z"sv), "-");
    EXPECT_EQ(view(s), "1-45");
    QdxString atEnd("1ab");
    atEnd.replaceStr(withNul("ab\0z"sv), "-");
    EXPECT_EQ(view(atEnd), "1-");
}

TEST(QdxStringTest, EqualityComparesAllBytes)
{
    EXPECT_TRUE(QdxString("abc") == QdxString("abc"));
    EXPECT_FALSE(QdxString("abc") != QdxString("abc"));
    EXPECT_FALSE(QdxString("abc") == QdxString("ABC"));
    EXPECT_TRUE(QdxString("abc") != QdxString("ab"));
    EXPECT_FALSE(withNul("a\0b"sv) == withNul("a\0c"sv));
    EXPECT_FALSE(withNul("a\0"sv) == QdxString("a"));
    EXPECT_TRUE(QdxString() == QdxString(""));
}

TEST(QdxStringTest, OrdersByUnsignedBytesThenByLength)
{
    const auto expectOrder = [](const QdxString& smaller, const QdxString& greater) {
        EXPECT_TRUE(smaller < greater) << smaller.data() << " " << greater.data();
        EXPECT_TRUE(greater > smaller) << smaller.data() << " " << greater.data();
        EXPECT_FALSE(smaller > greater) << smaller.data() << " " << greater.data();
        EXPECT_FALSE(greater < smaller) << smaller.data() << " " << greater.data();
    };
    expectOrder("ab", "abc");
    expectOrder("B", "a");
    expectOrder("", "a");
    expectOrder("z", "\xe4");
    expectOrder("a", withNul("a\0"sv));
    expectOrder(withNul("a\0b"sv), withNul("a\0c"sv));
    EXPECT_FALSE(QdxString("abc") < QdxString("abc"));
    EXPECT_FALSE(QdxString("abc") > QdxString("abc"));
}

TEST(QdxStringTest, IsAMapKeyWithCase)
{
    std::map<QdxString, int> map;
    map["Normal"] = 1;
    map["normal"] = 2;
    EXPECT_EQ(map.size(), 2u);
    EXPECT_EQ(map["Normal"], 1);
    EXPECT_EQ(map.begin()->second, 1);
}

TEST(QdxStringTest, ThreadsMayHoldCopiesOfOneConstant)
{
    const QdxString constant("Normal");
    std::vector<std::thread> threads;
    for (int t = 0; t < 4; ++t)
        threads.emplace_back([&constant] {
            for (int i = 0; i < 20000; ++i) {
                QdxString copy(constant);
                const QdxString second(copy);
                copy.append("x");
            }
        });
    for (std::thread& thread : threads)
        thread.join();
    QdxString last(constant);
    EXPECT_EQ(last.data(), constant.data());
    EXPECT_EQ(view(constant), "Normal");
}
