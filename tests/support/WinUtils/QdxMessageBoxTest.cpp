#include "WinUtils/QdxMessageBox.h"

#include <gtest/gtest.h>
#include <string>

TEST(QdxMessageBoxTest, AnOverrideAnswersAndSeesTheQuestion)
{
    const HWND window = GetDesktopWindow();
    int asked = 0;
    const QdxMessageBoxOverride answer(
        [&](HWND parent, const QdxString& text, const QdxString& caption, UINT flags) {
            ++asked;
            EXPECT_EQ(parent, window);
            EXPECT_STREQ(text.data(), "Continue?");
            EXPECT_STREQ(caption.data(), "Lumarkscribe");
            EXPECT_EQ(flags, UINT{MB_YESNO | MB_ICONHAND});
            return IDYES;
        });
    EXPECT_EQ(QdxMessageBox(window, "Continue?", "Lumarkscribe", MB_YESNO | MB_ICONHAND), IDYES);
    EXPECT_EQ(asked, 1);
}

TEST(QdxMessageBoxTest, OverridesNest)
{
    const auto always = [](int button) {
        return [button](HWND, const QdxString&, const QdxString&, UINT) { return button; };
    };
    const QdxMessageBoxOverride outer(always(IDYES));
    {
        const QdxMessageBoxOverride inner(always(IDNO));
        EXPECT_EQ(QdxMessageBox(nullptr, "", "", MB_YESNO), IDNO);
    }
    EXPECT_EQ(QdxMessageBox(nullptr, "", "", MB_YESNO), IDYES);
}
