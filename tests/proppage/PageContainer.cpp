#include "PageContainer.h"

#include <cstdio>
#include <stdexcept>

namespace {

constexpr UINT endMessage = WM_APP + 1;

struct EmptyDialog
{
    DLGTEMPLATE header;
    WORD menu = 0, windowClass = 0, title = 0;
};

std::string hexadecimal(const char* what, unsigned long number, int digits)
{
    char text[64];
    std::snprintf(text, sizeof text, "%s 0x%0*lx", what, digits, number);
    return text;
}

bool isKey(const MSG& message)
{
    return message.message >= WM_KEYFIRST && message.message <= WM_KEYLAST;
}

} // namespace

PageContainer::PageContainer(IPropertyPage& page) : page_(page)
{
    const EmptyDialog dialog{{WS_POPUP | WS_CAPTION | WS_SYSMENU, 0, 0, 20, 20, 260, 140}};
    window_ = CreateDialogIndirectParamW(GetModuleHandleW(nullptr), &dialog.header, nullptr, procedure,
                                         reinterpret_cast<LPARAM>(this));
    if (window_ == nullptr)
        throw std::runtime_error("no container window");
    SetWindowTextW(window_, L"Container");
    const auto addButton = [this](const wchar_t* text, int id, int x) {
        CreateWindowExW(0, L"BUTTON", text, WS_CHILD | WS_VISIBLE | WS_TABSTOP, x, 200, 80, 25, window_,
                        reinterpret_cast<HMENU>(static_cast<INT_PTR>(id)), GetModuleHandleW(nullptr),
                        nullptr);
    };
    addButton(L"OK", IDOK, 10);
    addButton(L"Cancel", IDCANCEL, 100);
    addButton(L"&Apply", applyButton, 190);
}

PageContainer::~PageContainer()
{
    DestroyWindow(window_);
}

void PageContainer::show()
{
    const auto check = [](HRESULT result, const char* what) {
        if (result != S_OK)
            throw std::runtime_error(hexadecimal(what, static_cast<unsigned long>(result), 8));
    };
    check(page_.SetPageSite(this), "SetPageSite");
    PROPPAGEINFO info{};
    info.cb = sizeof info;
    check(page_.GetPageInfo(&info), "GetPageInfo");
    CoTaskMemFree(info.pszTitle);
    CoTaskMemFree(info.pszDocString);
    const RECT place{10, 10, 10 + info.size.cx, 10 + info.size.cy};
    check(page_.Activate(window_, &place, FALSE), "Activate");
    SetWindowPos(page(), HWND_TOP, 0, 0, 0, 0, SWP_NOMOVE | SWP_NOSIZE | SWP_NOACTIVATE);
    ShowWindow(window_, SW_SHOW);
    SetForegroundWindow(window_);
    check(page_.Show(SW_SHOW), "Show");
}

void PageContainer::run()
{
    MSG message;
    ended_ = false;
    while (!ended_ && GetMessageW(&message, nullptr, 0, 0) > 0) {
        if (isKey(message) && page_.TranslateAccelerator(&message) == S_OK)
            continue;
        if (IsDialogMessageW(window_, &message))
            continue;
        TranslateMessage(&message);
        DispatchMessageW(&message);
    }
}

void PageContainer::end()
{
    PostMessageW(window_, endMessage, 0, 0);
}

HWND PageContainer::page() const
{
    return FindWindowExW(window_, nullptr, L"#32770", nullptr);
}

std::vector<std::string> PageContainer::record() const
{
    const std::lock_guard guard(lock_);
    return record_;
}

void PageContainer::forget()
{
    const std::lock_guard guard(lock_);
    record_.clear();
}

void PageContainer::note(const std::string& event)
{
    const std::lock_guard guard(lock_);
    record_.push_back(event);
}

HRESULT PageContainer::QueryInterface(REFIID iid, void** out) noexcept
{
    const bool known = IsEqualIID(iid, IID_IUnknown) || IsEqualIID(iid, IID_IPropertyPageSite);
    *out = known ? this : nullptr;
    if (!known)
        return E_NOINTERFACE;
    AddRef();
    return S_OK;
}

HRESULT PageContainer::OnStatusChange(DWORD status) noexcept
{
    note("status " + std::to_string(status));
    return S_OK;
}

HRESULT PageContainer::GetLocaleID(LCID* locale) noexcept
{
    *locale = GetUserDefaultLCID();
    return S_OK;
}

HRESULT PageContainer::GetPageContainer(IUnknown** container) noexcept
{
    *container = nullptr;
    return E_NOTIMPL;
}

HRESULT PageContainer::TranslateAccelerator(MSG* message) noexcept
{
    if (message->message == WM_KEYDOWN)
        note(hexadecimal("offered", static_cast<unsigned long>(message->wParam), 2));
    return S_FALSE;
}

INT_PTR CALLBACK PageContainer::procedure(HWND window, UINT message, WPARAM wParam, LPARAM lParam)
{
    if (message == WM_INITDIALOG) {
        SetWindowLongPtrW(window, DWLP_USER, lParam);
        return FALSE;
    }
    auto* const self = reinterpret_cast<PageContainer*>(GetWindowLongPtrW(window, DWLP_USER));
    if (self != nullptr && message == endMessage)
        self->ended_ = true; // here and not in run(): a box of the page may be dispatching messages
    if (self == nullptr || message != WM_COMMAND)
        return FALSE;
    switch (LOWORD(wParam)) {
    case IDOK:
        self->note("OK");
        return TRUE;
    case IDCANCEL:
        self->note("Cancel");
        return TRUE;
    case applyButton:
        self->note(hexadecimal("Apply", static_cast<unsigned long>(self->page_.Apply()), 8));
        return TRUE;
    default:
        return FALSE;
    }
}
