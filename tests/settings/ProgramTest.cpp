// mirovel-settings.exe as users start it.
#include "Hresult.h"
#include "PageFixture.h"
#include "WritingPageResources.h"

#include <filesystem>
#include <stdexcept>

namespace {

std::wstring programPath()
{
    wchar_t own[MAX_PATH] = {};
    GetModuleFileNameW(nullptr, own, MAX_PATH);
    return (std::filesystem::path(own).parent_path() / MIROVEL_SETTINGS).wstring();
}

/// The running program.
class Program
{
public:
    Program()
    {
        STARTUPINFOW startup{};
        startup.cb = sizeof startup;
        std::wstring command = L"\"" + programPath() + L"\"";
        if (!CreateProcessW(nullptr, command.data(), nullptr, nullptr, FALSE, 0, nullptr, nullptr, &startup,
                            &process_))
            throw std::runtime_error("mirovel-settings.exe does not start");
        CloseHandle(process_.hThread);
    }
    ~Program()
    {
        TerminateProcess(process_.hProcess, 99);
        CloseHandle(process_.hProcess);
    }
    Program(const Program&) = delete;
    Program& operator=(const Program&) = delete;

    /// Its window, once there is one.
    HWND window() const
    {
        for (const ULONGLONG deadline = GetTickCount64() + 30000; GetTickCount64() < deadline; Sleep(10)) {
            const HWND found = FindWindowW(L"#32770", L"Mirovelcom Settings");
            DWORD owner = 0;
            GetWindowThreadProcessId(found, &owner);
            if (found != nullptr && IsWindowVisible(found) && owner == process_.dwProcessId)
                return found;
        }
        throw std::runtime_error("mirovel-settings.exe shows no window");
    }

    DWORD status() const
    {
        DWORD status = 0;
        if (WaitForSingleObject(process_.hProcess, 30000) != WAIT_OBJECT_0)
            throw std::runtime_error("mirovel-settings.exe does not end");
        GetExitCodeProcess(process_.hProcess, &status);
        return status;
    }

private:
    PROCESS_INFORMATION process_{};
};

std::wstring staticText(HWND window)
{
    std::wstring text;
    for (HWND each = nullptr; (each = FindWindowExW(window, each, L"Static", nullptr)) != nullptr;)
        text += textOf(each);
    return text;
}

class ProgramTest : public PageFixture
{
};

TEST_F(ProgramTest, ShowsTheRegisteredPage)
{
    ASSERT_THAT(server.registerServer(), isHresult(S_OK));
    store(L"Word", L"TOCLevel", 7);
    {
        const Program program;
        const HWND window = program.window();
        const HWND page = FindWindowExW(window, nullptr, L"#32770", nullptr);
        EXPECT_EQ(textOf(GetDlgItem(page, tocEdit)), L"7");
        PostMessageW(window, WM_COMMAND, IDCANCEL, 0);
        EXPECT_EQ(program.status(), 0u);
    }
    EXPECT_THAT(server.unregisterServer(), isHresult(S_OK));
}

TEST_F(ProgramTest, ShowsItsOwnPageToo)
{
    ASSERT_THAT(server.registerServer(), isHresult(S_OK));
    store(L"Word", L"TOCTitle", L"Inhalt");
    {
        const Program program;
        const HWND window = program.window();
        std::vector<std::wstring> titles;
        for (HWND page = nullptr; (page = FindWindowExW(window, page, L"#32770", nullptr)) != nullptr;)
            if (const HWND title = GetDlgItem(page, tocTitleRow + fieldPart)) {
                const LONG_PTR style = GetWindowLongPtrW(page, GWL_STYLE);
                EXPECT_EQ(style & WS_VISIBLE, 0) << "behind the other one";
                titles.push_back(textOf(title));
            }
        EXPECT_THAT(titles, testing::ElementsAre(L"")) << "not filled before it is shown";
        PostMessageW(window, WM_COMMAND, IDCANCEL, 0);
        EXPECT_EQ(program.status(), 0u);
    }
    EXPECT_THAT(server.unregisterServer(), isHresult(S_OK));
}

TEST_F(ProgramTest, StoresWhatIsEntered)
{
    ASSERT_THAT(server.registerServer(), isHresult(S_OK));
    {
        const Program program;
        const HWND window = program.window();
        const HWND page = FindWindowExW(window, nullptr, L"#32770", nullptr);
        SendMessageW(GetDlgItem(page, templateName), WM_SETTEXT, 0, reinterpret_cast<LPARAM>(L""));
        SendMessageW(GetDlgItem(page, tocEdit), WM_SETTEXT, 0, reinterpret_cast<LPARAM>(L"4"));
        PostMessageW(window, WM_COMMAND, IDOK, 0);
        EXPECT_EQ(program.status(), 0u);
    }
    EXPECT_EQ(storedLevel(), L"number 4");
    EXPECT_THAT(server.unregisterServer(), isHresult(S_OK));
}

TEST_F(ProgramTest, TellsThatThePageIsNotRegistered)
{
    server.unregisterServer();
    const Program program;
    const HWND box = program.window();
    EXPECT_EQ(staticText(box),
              L"The settings page is not registered on this computer.\n\nInstall Mirovelcom again, "
              L"or register its DLL as an administrator:\nregsvr32 mirovelcom.dll");
    PostMessageW(box, WM_COMMAND, IDOK, 0);
    EXPECT_EQ(program.status(), 1u);
}

} // namespace
