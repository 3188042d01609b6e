#include "tracedll/LogBeginning.h"

#include <gtest/gtest.h>

TEST(LogBeginningTest, TakesAnEmptyFile)
{
    EXPECT_TRUE(isLogBeginning(""));
}

TEST(LogBeginningTest, TakesWhatATraceWritesFirst)
{
    EXPECT_TRUE(isLogBeginning("mirovel->start();\r\n"));
    EXPECT_TRUE(isLogBeginning("mirovel->insertText(\"a\r\nb"));
    EXPECT_TRUE(isLogBeginning("mirovel->setFontAttribute("));
    EXPECT_TRUE(isLogBeginning("ERR File not found: a.txt\r\n"));
    EXPECT_TRUE(isLogBeginning("Stopping Word\r\nCOMERROR 0x800706ba\r\nWord is unavailable.\r\n"));
}

TEST(LogBeginningTest, TakesNothingElse)
{
    for (const char* text :
         {"left behind\r\n", "\r\n", " ", "mirovel", "mirovel->", "mirovel->(", "mirovel->start",
          "mirovel->a;", "mirovel.start();", " mirovel->start();", "ERR File", "// Page 1\r\n",
          "\r\nCOMERROR 0x1", "COMERROR 0x1", "a\nCOMERROR 0x1", "a\r\nb\r\nCOMERROR 0x1", "a\r\nCOMERROR",
          "{\\rtf1", "\xef\xbb\xbfmirovel->start();"})
        EXPECT_FALSE(isLogBeginning(text)) << text;
}
