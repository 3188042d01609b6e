#pragma once

#include "QdxString.h"
#include "WinUtils/ChildDialog.h"
#include "WinUtils/CommonControls.h"

#include <windows.h>

#include <commctrl.h>

#include <cstddef>
#include <functional>
#include <optional>
#include <utility>

/// The page's dialog with its controls; it knows their numbers and nothing of what they mean. Used on one
/// thread.
///
/// The dialog is a resource of the module. Failures of Windows raise `_com_error`.
class PageWindow final : public ChildDialog
{
public:
    /// What the user does, told while messages are dispatched. What a handler throws ends there.
    struct Handlers
    {
        std::function<void()> edited; ///< a field has a new text, whoever put it there
        std::function<void()> browse; ///< the button was pressed
    };

    explicit PageWindow(Handlers handlers) : handlers_(std::move(handlers)) {}
    ~PageWindow() { destroy(); } // while its controls' classes are there

    /// In pixels, as the template and its font make it.
    [[nodiscard]] static SIZE naturalSize();

    /// A hidden child of `parent`, which may destroy it.
    void create(HWND parent, const RECT& place);

    void focusFirstField() const noexcept;

    void setTemplateName(const wchar_t* name) const noexcept;
    void setTocLevel(int level) const noexcept;
    void setTocLevelRange(int lowest, int highest) const noexcept;
    /// At most `limit` characters of the field.
    [[nodiscard]] QdxString templateName(std::size_t limit) const;
    [[nodiscard]] QdxString tocLevel(std::size_t limit) const;

    /// True for the messages of a control.
    [[nodiscard]] bool contains(HWND window) const noexcept { return IsChild(handle(), window) != FALSE; }
    /// For a message of a control: moves between the controls, presses the button under Enter, and passes
    /// characters on. False for what belongs to the container: keys that leave the page, Enter and Escape.
    [[nodiscard]] bool translateKey(MSG& message) const noexcept;

private:
    INT_PTR answer(UINT message, WPARAM wParam, LPARAM lParam) override;
    [[nodiscard]] QdxString text(int field, std::size_t limit) const;
    [[nodiscard]] bool hasMnemonic(WPARAM character) const noexcept;
    [[nodiscard]] bool tabLeaves(HWND focus) const noexcept;

    Handlers handlers_;
    std::optional<CommonControls> controls_;
};
