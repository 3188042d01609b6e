#include "WinUtils/QdxMessageBox.h"

#include "TextConversion.h"

#include <utility>

namespace {

QdxMessageBoxOverride* currentOverride = nullptr;

} // namespace

bool canAskUser() noexcept
{
    USEROBJECTFLAGS flags = {};
    return GetUserObjectInformationW(GetProcessWindowStation(), UOI_FLAGS, &flags, sizeof flags, nullptr) ==
               0 ||
           (flags.dwFlags & WSF_VISIBLE) != 0;
}

int QdxMessageBox(HWND parent, const QdxString& text, const QdxString& caption, UINT flags)
{
    if (currentOverride)
        return currentOverride->answer_(parent, text, caption, flags);
    return MessageBoxW(parent, toWide(text), toWide(caption), flags);
}

QdxMessageBoxOverride::QdxMessageBoxOverride(Answer answer)
    : answer_(std::move(answer)), outer_(std::exchange(currentOverride, this))
{
}

QdxMessageBoxOverride::~QdxMessageBoxOverride()
{
    currentOverride = outer_;
}
