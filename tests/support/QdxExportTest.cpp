#include "QdxString.h"

#include <gtest/gtest.h>
#include <windows.h>

// What is marked is exported from whatever module links it, so this program's own export table shows it.
TEST(QdxExportTest, EveryOperationOfQdxStringIsExportedUnderItsDecoratedName)
{
    constexpr const char* names[] = {
        "_ZN9QdxStringC1Ev",                 // QdxString()
        "_ZN9QdxStringC1ERKS_",              // QdxString(const QdxString&)
        "_ZN9QdxStringC1EOS_",               // QdxString(QdxString&&)
        "_ZN9QdxStringC1EPKc",               // QdxString(const char*)
        "_ZN9QdxStringC1EPKcy",              // QdxString(const char*, size_t)
        "_ZN9QdxStringD1Ev",                 // ~QdxString()
        "_ZN9QdxStringaSERKS_",              // operator=(const QdxString&)
        "_ZN9QdxStringaSEOS_",               // operator=(QdxString&&)
        "_ZN9QdxStringaSEPKc",               // operator=(const char*)
        "_ZNK9QdxString4dataEv",             // data()
        "_ZNK9QdxString6lengthEv",           // length()
        "_ZNK9QdxString7isEmptyEv",          // isEmpty()
        "_ZN9QdxString6insertEyRKS_",        // insert(size_t, const QdxString&)
        "_ZN9QdxString6appendERKS_",         // append(const QdxString&)
        "_ZN9QdxString6appendERKS_y",        // append(const QdxString&, size_t)
        "_ZN9QdxString6appendEPKc",          // append(const char*)
        "_ZN9QdxString6appendEPKcy",         // append(const char*, size_t)
        "_ZN9QdxString6removeEy",            // remove(size_t)
        "_ZN9QdxString6removeEyy",           // remove(size_t, size_t)
        "_ZNK9QdxString10startsWithEPKc",    // startsWith(const char*)
        "_ZNK9QdxString4findERKS_",          // find(const QdxString&)
        "_ZNK9QdxString5firstEc",            // first(char)
        "_ZNK9QdxString5firstERKS_",         // first(const QdxString&)
        "_ZNK9QdxString4lastEc",             // last(char)
        "_ZN9QdxString7toUpperEv",           // toUpper()
        "_ZN9QdxString7toLowerEv",           // toLower()
        "_ZNK9QdxString4hashEv",             // hash()
        "_ZN9QdxString10replaceStrERKS_S1_", // replaceStr(const QdxString&, const QdxString&)
        "_ZeqRK9QdxStringS1_",               // operator==
        "_ZneRK9QdxStringS1_",               // operator!=
        "_ZltRK9QdxStringS1_",               // operator<
        "_ZgtRK9QdxStringS1_",               // operator>
    };
    for (const char* const name : names)
        EXPECT_NE(GetProcAddress(GetModuleHandleW(nullptr), name), nullptr) << name;
}
