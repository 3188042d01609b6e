#pragma once

#include "WinUtils/ChildDialog.h"
#include "WritingSettings.h"

#include <windows.h>

#include <array>
#include <cstddef>
#include <functional>
#include <optional>
#include <string>
#include <utility>

/// The page's dialog: for each setting a label, a box to have a value of one's own, a field, the machine's
/// value, and a line that explains the setting or says what is wrong. Used on one thread.
///
/// The dialog is a resource of the program. Failures of Windows raise `_com_error`.
class WritingPageWindow final : public ChildDialog
{
public:
    /// What the user does, told while messages are dispatched.
    struct Handlers
    {
        std::function<void()> edited;  ///< a field or a box is other than it was filled
        std::function<void()> openLog; ///< the button was pressed
    };

    explicit WritingPageWindow(Handlers handlers) : handlers_(std::move(handlers)) {}

    /// In pixels, as the template and its font make it.
    [[nodiscard]] static SIZE naturalSize();

    /// A hidden child of `parent`, which may destroy it.
    void create(HWND parent, const RECT& place);

    /// Shows a setting as it stands, and its explanation.
    void fill(SettingName setting, const SettingState& state);
    /// What the user wants: nothing is no value of his own.
    [[nodiscard]] std::optional<std::wstring> input(SettingName setting) const;
    /// What the field shows, his own or not.
    [[nodiscard]] std::wstring shown(SettingName setting) const;
    /// Says below a field why it was not taken, until that is edited.
    void refuse(SettingName setting, const std::wstring& words);

    void focusFirstField() const noexcept;
    /// The field of a setting.
    void focus(SettingName setting) const noexcept;
    /// For a message of a control: true when it was Enter on the button, which is then pressed.
    [[nodiscard]] bool pressesButton(const MSG& message) const noexcept;

private:
    struct Row
    {
        int number = 0;
        std::wstring explanation = {};
        std::wstring inherited = {};
        bool isRefused = false;
    };

    INT_PTR answer(UINT message, WPARAM wParam, LPARAM lParam) override;
    void prepare();
    void command(int control, int notification);
    void edited(std::size_t row);
    [[nodiscard]] HWND control(std::size_t row, int part) const noexcept;
    [[nodiscard]] std::wstring value(std::size_t row) const;
    void setValue(std::size_t row, const std::wstring& value);
    void setOwn(std::size_t row, bool isOwn) const noexcept;
    [[nodiscard]] bool isOwn(std::size_t row) const noexcept;

    Handlers handlers_;
    std::array<Row, WritingSettings::all.size()> rows_{};
    bool isFilling_ = false;
};
