#include "User.h"

#include <algorithm>
#include <cstring>
#include <exception>
#include <iterator>
#include <stdexcept>
#include <thread>
#include <vector>

namespace {

/// Ends every action: no control cares for it, and when it comes out of the queue, all input before it has. A
/// few keys take turns, so that one left over from a window that has closed is not taken for the next.
constexpr WORD endKeys[] = {VK_F21, VK_F22, VK_F23, VK_F24};
std::atomic<WPARAM> endKeyTaken = 0;

LRESULT CALLBACK watch(int code, WPARAM removed, LPARAM lParam)
{
    const MSG& message = *reinterpret_cast<const MSG*>(lParam);
    // Keys that no control has the focus for come as system keys.
    const bool isKeyUp = message.message == WM_KEYUP || message.message == WM_SYSKEYUP;
    if (code == HC_ACTION && removed == PM_REMOVE && isKeyUp &&
        std::ranges::count(endKeys, message.wParam) != 0)
        endKeyTaken = message.wParam;
    return CallNextHookEx(nullptr, code, removed, lParam);
}

INPUT keyInput(WORD key, DWORD flags)
{
    INPUT input{};
    input.type = INPUT_KEYBOARD;
    input.ki.wVk = key;
    input.ki.wScan = static_cast<WORD>(MapVirtualKeyW(key, MAPVK_VK_TO_VSC));
    input.ki.dwFlags = flags;
    return input;
}

bool isDialog(HWND window)
{
    wchar_t name[16];
    GetClassNameW(window, name, 16);
    return std::wcscmp(name, L"#32770") == 0;
}

std::vector<HWND> topWindows(DWORD thread)
{
    std::vector<HWND> windows;
    EnumThreadWindows(
        thread,
        [](HWND window, LPARAM into) -> BOOL {
            if (IsWindowVisible(window))
                reinterpret_cast<std::vector<HWND>*>(into)->push_back(window);
            return TRUE;
        },
        reinterpret_cast<LPARAM>(&windows));
    return windows;
}

} // namespace

std::wstring textOf(HWND window)
{
    std::wstring text(1024, L'\0');
    text.resize(static_cast<std::size_t>(
        SendMessageW(window, WM_GETTEXT, text.size(), reinterpret_cast<LPARAM>(text.data()))));
    return text;
}

User::User()
    : screenThread_(GetCurrentThreadId()),
      hook_(SetWindowsHookExW(WH_GETMESSAGE, watch, nullptr, screenThread_))
{
}

User::~User()
{
    UnhookWindowsHookEx(hook_);
}

void User::uses(const std::function<void()>& screen, const std::function<void()>& script)
{
    std::exception_ptr failure;
    screenClosed_ = false;
    std::thread user([&] {
        try {
            script();
        } catch (...) {
            failure = std::current_exception();
            while (!screenClosed_) {
                closesEverything();
                Sleep(20);
            }
        }
    });
    screen();
    screenClosed_ = true;
    user.join();
    if (failure)
        std::rethrow_exception(failure);
}

void User::closesEverything() const
{
    for (const HWND window : topWindows(screenThread_))
        PostMessageW(window, WM_COMMAND, IDCANCEL, 0);
}

void User::press(WORD key, WORD held, WORD alsoHeld) const
{
    std::vector<INPUT> inputs;
    for (const WORD each : {alsoHeld, held})
        if (each != 0)
            inputs.push_back(keyInput(each, 0));
    inputs.push_back(keyInput(key, 0));
    inputs.push_back(keyInput(key, KEYEVENTF_KEYUP));
    for (const WORD each : {held, alsoHeld})
        if (each != 0)
            inputs.push_back(keyInput(each, KEYEVENTF_KEYUP));
    sends(inputs.data(), static_cast<UINT>(inputs.size()));
}

void User::types(const std::wstring& text) const
{
    for (const wchar_t character : text) {
        const SHORT key = VkKeyScanW(character);
        if (key == -1)
            throw std::runtime_error("the keyboard has no such character");
        press(static_cast<WORD>(key & 0xFF), (key & 0x100) != 0 ? VK_SHIFT : 0);
    }
}

void User::replaces(HWND field, const std::wstring& text) const
{
    clicks(field);
    press(VK_HOME);
    press(VK_END, VK_SHIFT);
    press(VK_DELETE);
    types(text);
}

void User::clicks(HWND window, double x, double y) const
{
    RECT place{};
    GetWindowRect(window, &place);
    const double screenX = place.left + x * (place.right - place.left);
    const double screenY = place.top + y * (place.bottom - place.top);
    // Each input says where: in between, the display may report a place where the pointer was before.
    constexpr DWORD actions[] = {0, MOUSEEVENTF_LEFTDOWN, MOUSEEVENTF_LEFTUP};
    INPUT inputs[3]{};
    for (int i = 0; i < 3; ++i) {
        inputs[i].type = INPUT_MOUSE;
        inputs[i].mi.dx = static_cast<LONG>((screenX + 0.5) * 65536 / GetSystemMetrics(SM_CXSCREEN));
        inputs[i].mi.dy = static_cast<LONG>((screenY + 0.5) * 65536 / GetSystemMetrics(SM_CYSCREEN));
        inputs[i].mi.dwFlags = MOUSEEVENTF_ABSOLUTE | MOUSEEVENTF_MOVE | actions[i];
    }
    sends(inputs, 3);
}

void User::sends(INPUT* inputs, UINT count) const
{
    const WORD endKey = endKeys[turn_++ % std::size(endKeys)];
    endKeyTaken = 0;
    INPUT end[] = {keyInput(endKey, 0), keyInput(endKey, KEYEVENTF_KEYUP)};
    if (SendInput(count, inputs, sizeof(INPUT)) != count || SendInput(2, end, sizeof(INPUT)) != 2)
        throw std::runtime_error("input is blocked");
    waitFor("input being taken in", [&] { return endKeyTaken == endKey || screenClosed_; });
}

HWND User::focus() const
{
    GUITHREADINFO info{};
    info.cbSize = sizeof info;
    GetGUIThreadInfo(screenThread_, &info);
    return info.hwndFocus;
}

HWND User::dialog(const std::wstring& title) const
{
    HWND found = nullptr;
    try {
        waitFor("a dialog \"" + std::string(title.begin(), title.end()) + "\"", [&] {
            for (const HWND window : topWindows(screenThread_))
                if (isDialog(window) && textOf(window) == title)
                    found = window;
            if (found == nullptr)
                return false;
            // There is no window manager that would give the keyboard to a window that the system has
            // forgotten.
            if (GetForegroundWindow() != found)
                SetForegroundWindow(found);
            return GetForegroundWindow() == found && IsChild(found, focus());
        });
    } catch (const std::runtime_error& error) {
        throw std::runtime_error(std::string(error.what()) + (found == nullptr ? ": it is not there"
                                                              : GetForegroundWindow() != found
                                                                  ? ": it is behind another"
                                                                  : ": it has no keyboard"));
    }
    return found;
}

void User::waitFor(const std::string& what, const std::function<bool()>& condition) const
{
    const ULONGLONG deadline = GetTickCount64() + 30000;
    while (!condition()) {
        if (GetTickCount64() > deadline)
            throw std::runtime_error("still waiting for " + what);
        Sleep(2);
    }
}

void User::waitUntilGone(HWND window) const
{
    waitFor("a window to close", [window] { return !IsWindow(window) || !IsWindowVisible(window); });
}
