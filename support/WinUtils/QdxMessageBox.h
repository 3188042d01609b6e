#pragma once

#include "QdxString.h"

#include <functional>

#include <windows.h>

/// Whether anybody can see a message box: false in a service's session.
[[nodiscard]] bool canAskUser() noexcept;

/// Asks the user, as Win32's MessageBox does: the same flags (MB_YESNO...) and the button pressed (IDYES...),
/// 0 when no box can be shown. `parent` may be null.
int QdxMessageBox(HWND parent, const QdxString& text, const QdxString& caption, UINT flags);

/// While alive, answers in place of the user. Overrides nest; made and destroyed on the thread that asks.
class QdxMessageBoxOverride
{
public:
    using Answer =
        std::function<int(HWND parent, const QdxString& text, const QdxString& caption, UINT flags)>;

    explicit QdxMessageBoxOverride(Answer answer);
    ~QdxMessageBoxOverride();
    QdxMessageBoxOverride(const QdxMessageBoxOverride&) = delete;
    QdxMessageBoxOverride& operator=(const QdxMessageBoxOverride&) = delete;

private:
    friend int QdxMessageBox(HWND, const QdxString&, const QdxString&, UINT);

    Answer answer_;
    QdxMessageBoxOverride* outer_;
};
