#pragma once

#include <windows.h>

#include <atomic>
#include <functional>
#include <string>

/// Someone at the keyboard and the mouse, on a thread of his own, while the thread that made this object
/// shows windows. Input takes the way of real input, through the system's queue; every action returns when
/// the shown windows have taken it in. Nothing depends on time: what has not happened after half a minute
/// counts as never happening (std::runtime_error).
class User
{
public:
    User();
    ~User();
    User(const User&) = delete;
    User& operator=(const User&) = delete;

    /// Runs `screen`, which shows windows until they are closed, and meanwhile `script` on the user's thread.
    /// When the script fails, the windows are closed and its exception is raised here.
    void uses(const std::function<void()>& screen, const std::function<void()>& script);

    // For the script:

    /// A key with others held down: press('T', VK_MENU).
    void press(WORD key, WORD held = 0, WORD alsoHeld = 0) const;
    void types(const std::wstring& text) const;
    /// What stands in a field of one line.
    void replaces(HWND field, const std::wstring& text) const;
    /// In the middle of the window, or at a point in it given in parts of its width and height.
    void clicks(HWND window, double x = 0.5, double y = 0.5) const;

    /// The control with the focus.
    HWND focus() const;
    /// The dialog with that title, once it is shown and in front.
    HWND dialog(const std::wstring& title) const;
    void waitFor(const std::string& what, const std::function<bool()>& condition) const;
    void waitUntilGone(HWND window) const;

private:
    void sends(INPUT* inputs, UINT count) const;
    void closesEverything() const;

    DWORD screenThread_;
    HHOOK hook_;
    static inline unsigned turn_ = 0; ///< goes on from user to user: a key left over is the last one's
    std::atomic<bool> screenClosed_ = true;
};

std::wstring textOf(HWND window);
