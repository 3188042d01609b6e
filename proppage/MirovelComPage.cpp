#include "MirovelComPage.h"

#include "CComModule.h"
#include "ExceptionTranslation.h"
#include "PageResources.h"
#include "StandardComPointers.h"
#include "TemplateFileDialog.h"
#include "TextConversion.h"
#include "WinUtils/QdxMessageBox.h"
#include "win32/WindowsError.h"

#include <cstring>
#include <memory>
#include <new>

namespace {

struct TaskMemoryDeleter
{
    void operator()(void* memory) const noexcept { CoTaskMemFree(memory); }
};
using TaskString = std::unique_ptr<wchar_t, TaskMemoryDeleter>;

/// A string of the module's table.
TaskString loadText(UINT number)
{
    const wchar_t* text = nullptr;
    // With a size of 0 Windows answers the length and where the text lies in the module.
    const int length = LoadStringW(comModule().instance(), number, reinterpret_cast<wchar_t*>(&text), 0);
    if (length == 0)
        throwLastError();
    const std::size_t size = static_cast<std::size_t>(length) * sizeof(wchar_t);
    TaskString copy(static_cast<wchar_t*>(CoTaskMemAlloc(size + sizeof(wchar_t))));
    if (!copy)
        throw std::bad_alloc();
    std::memcpy(copy.get(), text, size);
    copy.get()[length] = L'\0';
    return copy;
}

} // namespace

MirovelComPage::MirovelComPage() : window_({[this] { edited(); }, [this] { browse(); }}) {}

HRESULT MirovelComPage::Activate(HWND parent, LPCRECT place, BOOL /*modal*/) noexcept
try {
    if (place == nullptr)
        return E_POINTER;
    if (!IsWindow(parent))
        return E_INVALIDARG;
    if (window_)
        return E_UNEXPECTED;
    needsFilling_ = true;
    window_.create(parent, *place);
    return S_OK;
} catch (...) {
    return currentExceptionToHresult();
}

HRESULT MirovelComPage::Deactivate() noexcept
{
    if (!window_)
        return E_UNEXPECTED;
    window_.destroy();
    return S_OK;
}

HRESULT MirovelComPage::GetPageInfo(PROPPAGEINFO* info) noexcept
try {
    if (info == nullptr)
        return E_POINTER;
    TaskString title = loadText(pageTitle);
    TaskString description = loadText(pageDescription);
    const SIZE size = PageWindow::naturalSize();
    *info = {sizeof *info, title.release(), size, description.release(), nullptr, 0};
    return S_OK;
} catch (...) {
    return currentExceptionToHresult();
}

HRESULT MirovelComPage::Show(UINT showCommand) noexcept
try {
    if (!window_)
        return E_UNEXPECTED;
    if (showCommand != SW_HIDE && needsFilling_)
        fill();
    window_.show(showCommand);
    if (showCommand != SW_HIDE)
        window_.focusFirstField();
    return S_OK;
} catch (...) {
    return currentExceptionToHresult();
}

HRESULT MirovelComPage::Move(LPCRECT place) noexcept
{
    if (place == nullptr)
        return E_POINTER;
    if (!window_)
        return E_UNEXPECTED;
    window_.move(*place);
    return S_OK;
}

HRESULT MirovelComPage::Apply() noexcept
try {
    if (!window_)
        return E_UNEXPECTED;
    if (needsFilling_)
        return S_OK; // Never shown: the empty fields are nobody's input.
    const std::optional<WordSettings::Refusal> refusal = settings_.apply(
        window_.templateName(WordSettings::fieldLength), window_.tocLevel(WordSettings::fieldLength));
    if (!refusal) {
        setDirty(false);
        return S_OK;
    }
    QdxMessageBox(window_.handle(), refusal->text, "Invalid Value", MB_OK | MB_ICONEXCLAMATION);
    if (refusal->field == WordSettings::Field::tocLevel) {
        // There is no such control without the dialog, so the focus stays where it is. It always has: users
        // are used to going on where they were.
        const HWND nowhere = GetDlgItem(nullptr, tocLevelField);
        SendMessageW(window_.handle(), WM_NEXTDLGCTL, reinterpret_cast<WPARAM>(nowhere), TRUE);
    }
    return E_UNEXPECTED;
} catch (...) {
    return currentExceptionToHresult();
}

HRESULT MirovelComPage::TranslateAccelerator(MSG* message) noexcept
{
    if (message == nullptr)
        return E_POINTER;
    if (!window_)
        return E_UNEXPECTED;
    if (!window_.contains(message->hwnd))
        return S_FALSE;
    if (window_.translateKey(*message))
        return S_OK;
    IPropertyPageSite* const container = site();
    return container != nullptr && container->TranslateAccelerator(message) == S_OK ? S_OK : S_FALSE;
}

void MirovelComPage::fill()
{
    window_.setTemplateName(toWide(settings_.templateName()));
    window_.setTocLevel(settings_.tocLevel());
    window_.setTocLevelRange(WordSettings::lowestTocLevel, WordSettings::highestTocLevel);
    needsFilling_ = false;
    setDirty(false);
}

void MirovelComPage::edited() noexcept
{
    if (!needsFilling_)
        setDirty(true);
}

void MirovelComPage::browse()
{
    // The container may let go of the page while the dialog is open.
    const IUnknownPtr keepAlive(static_cast<IPropertyPage*>(this));
    // From what is stored, not from what stands in the field.
    const std::optional<std::wstring> chosen =
        chooseTemplateFile(window_.handle(), toWide(settings_.templateName()));
    if (chosen)
        window_.setTemplateName(chosen->c_str());
}
