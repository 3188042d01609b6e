#include "WritingPageWindow.h"

#include "WritingPageResources.h"

#include <algorithm>
#include <span>

namespace {

constexpr int firstRow = composeRow;
constexpr int rowDistance = strictRow - composeRow;
constexpr COLORREF refusalColour = RGB(176, 0, 0);

constexpr std::array compositions = {L"Off", L"Typed calls", L"Fragments"};
constexpr std::array offAndOn = {L"Off", L"On"};

std::size_t rowOf(SettingName setting)
{
    return static_cast<std::size_t>(std::ranges::find(WritingSettings::all, setting) -
                                    WritingSettings::all.begin());
}

/// What can be chosen, in the order of the numbers; nothing for a text.
std::span<const wchar_t* const> choicesOf(SettingName setting)
{
    if (setting == SettingName::compose)
        return compositions;
    if (describe(setting).kind == SettingKind::flag)
        return offAndOn;
    return {};
}

/// A value as it is read by people.
std::wstring named(SettingName setting, const std::wstring& value)
{
    const auto choices = choicesOf(setting);
    for (std::size_t i = 0; i < choices.size(); ++i)
        if (value == std::to_wstring(i))
            return choices[i];
    return value.empty() ? L"(empty)" : value;
}

std::wstring textOf(HWND window)
{
    std::wstring text(static_cast<std::size_t>(GetWindowTextLengthW(window)) + 1, L'\0');
    text.resize(static_cast<std::size_t>(GetWindowTextW(window, text.data(), static_cast<int>(text.size()))));
    return text;
}

} // namespace

SIZE WritingPageWindow::naturalSize()
{
    return ChildDialog::naturalSize(GetModuleHandleW(nullptr), writingPageDialog);
}

void WritingPageWindow::create(HWND parent, const RECT& place)
{
    ChildDialog::create(GetModuleHandleW(nullptr), writingPageDialog, parent);
    prepare();
    move(place);
}

void WritingPageWindow::prepare()
{
    for (std::size_t row = 0; row < rows_.size(); ++row) {
        rows_[row].number = firstRow + static_cast<int>(row) * rowDistance;
        rows_[row].explanation = textOf(control(row, notePart));
        const auto choices = choicesOf(WritingSettings::all[row]);
        for (const wchar_t* choice : choices)
            SendMessageW(control(row, fieldPart), CB_ADDSTRING, 0, reinterpret_cast<LPARAM>(choice));
        if (choices.empty())
            SendMessageW(control(row, fieldPart), EM_SETLIMITTEXT, WritingSettings::longestText, 0);
    }
}

void WritingPageWindow::fill(SettingName setting, const SettingState& state)
{
    const std::size_t row = rowOf(setting);
    isFilling_ = true;
    rows_[row].inherited = state.inherited();
    setOwn(row, state.user.has_value());
    setValue(row, state.user.value_or(state.inherited()));
    const std::wstring machine = state.machine ? L"All users: " + named(setting, *state.machine) : L"";
    SetWindowTextW(control(row, machinePart), machine.c_str());
    rows_[row].isRefused = false;
    SetWindowTextW(control(row, notePart), rows_[row].explanation.c_str());
    isFilling_ = false;
}

std::optional<std::wstring> WritingPageWindow::input(SettingName setting) const
{
    const std::size_t row = rowOf(setting);
    return isOwn(row) ? std::optional(value(row)) : std::nullopt;
}

std::wstring WritingPageWindow::shown(SettingName setting) const
{
    return value(rowOf(setting));
}

void WritingPageWindow::refuse(SettingName setting, const std::wstring& words)
{
    const std::size_t row = rowOf(setting);
    rows_[row].isRefused = true;
    SetWindowTextW(control(row, notePart), words.c_str());
}

void WritingPageWindow::focusFirstField() const noexcept
{
    SendMessageW(handle(), WM_NEXTDLGCTL, reinterpret_cast<WPARAM>(control(0, isOwnPart)), TRUE);
}

void WritingPageWindow::focus(SettingName setting) const noexcept
{
    const std::size_t row = rowOf(setting);
    const HWND target = control(row, isOwn(row) ? fieldPart : isOwnPart);
    SendMessageW(handle(), WM_NEXTDLGCTL, reinterpret_cast<WPARAM>(target), TRUE);
}

bool WritingPageWindow::pressesButton(const MSG& message) const noexcept
{
    if (message.message != WM_KEYDOWN || message.wParam != VK_RETURN ||
        message.hwnd != GetDlgItem(handle(), openLogButton))
        return false;
    SendMessageW(message.hwnd, BM_CLICK, 0, 0);
    return true;
}

HWND WritingPageWindow::control(std::size_t row, int part) const noexcept
{
    return GetDlgItem(handle(), rows_[row].number + part);
}

std::wstring WritingPageWindow::value(std::size_t row) const
{
    const HWND field = control(row, fieldPart);
    if (choicesOf(WritingSettings::all[row]).empty())
        return textOf(field);
    return std::to_wstring(SendMessageW(field, CB_GETCURSEL, 0, 0));
}

void WritingPageWindow::setValue(std::size_t row, const std::wstring& value)
{
    const HWND field = control(row, fieldPart);
    if (choicesOf(WritingSettings::all[row]).empty()) {
        if (textOf(field) != value)
            SetWindowTextW(field, value.c_str());
        return;
    }
    SendMessageW(field, CB_SETCURSEL, static_cast<WPARAM>(value.front() - L'0'), 0);
}

bool WritingPageWindow::isOwn(std::size_t row) const noexcept
{
    return SendMessageW(control(row, isOwnPart), BM_GETCHECK, 0, 0) == BST_CHECKED;
}

void WritingPageWindow::setOwn(std::size_t row, bool isOwn) const noexcept
{
    SendMessageW(control(row, isOwnPart), BM_SETCHECK, isOwn ? BST_CHECKED : BST_UNCHECKED, 0);
    EnableWindow(control(row, fieldPart), isOwn);
}

void WritingPageWindow::edited(std::size_t row)
{
    if (isFilling_)
        return;
    if (rows_[row].isRefused) {
        rows_[row].isRefused = false;
        SetWindowTextW(control(row, notePart), rows_[row].explanation.c_str());
    }
    handlers_.edited();
}

void WritingPageWindow::command(int id, int notification)
{
    if (id == openLogButton && notification == BN_CLICKED)
        return handlers_.openLog();
    const int offset = id - firstRow;
    const auto row = static_cast<std::size_t>(offset / rowDistance);
    if (offset < 0 || row >= rows_.size())
        return;
    const int part = offset % rowDistance;
    if (part == isOwnPart && notification == BN_CLICKED) {
        const bool has = isOwn(row);
        EnableWindow(control(row, fieldPart), has);
        isFilling_ = true;
        setValue(row, rows_[row].inherited);
        isFilling_ = false;
        edited(row);
    } else if (part == fieldPart) {
        const bool isText = choicesOf(WritingSettings::all[row]).empty();
        if (notification == (isText ? EN_CHANGE : CBN_SELCHANGE))
            edited(row);
    }
}

INT_PTR WritingPageWindow::answer(UINT message, WPARAM wParam, LPARAM lParam)
{
    switch (message) {
    case WM_COMMAND:
        command(LOWORD(wParam), HIWORD(wParam));
        break;
    case WM_CTLCOLORSTATIC: {
        const HWND note = reinterpret_cast<HWND>(lParam);
        for (std::size_t row = 0; row < rows_.size(); ++row)
            if (rows_[row].isRefused && control(row, notePart) == note) {
                const HDC context = reinterpret_cast<HDC>(wParam);
                SetTextColor(context, refusalColour);
                SetBkColor(context, GetSysColor(COLOR_3DFACE));
                return reinterpret_cast<INT_PTR>(GetSysColorBrush(COLOR_3DFACE));
            }
        break;
    }
    default:
        break;
    }
    return FALSE;
}
