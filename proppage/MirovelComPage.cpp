#include "MirovelComPage.h"

#include "CComModule.h"
#include "PageResources.h"
#include "StandardComPointers.h"
#include "TemplateFileDialog.h"
#include "TextConversion.h"
#include "WinUtils/QdxMessageBox.h"
#include "win32/WindowsError.h"

namespace {

/// A string of the module's table.
std::wstring_view loadText(UINT number)
{
    const wchar_t* text = nullptr;
    // With a size of 0 Windows answers the length and where the text lies in the module.
    const int length = LoadStringW(comModule().instance(), number, reinterpret_cast<wchar_t*>(&text), 0);
    if (length == 0)
        throwLastError();
    return {text, static_cast<std::size_t>(length)};
}

} // namespace

MirovelComPage::MirovelComPage()
    : WindowPage(PageWindow::Handlers{[this] { edited(); }, [this] { browse(); }})
{
}

std::wstring_view MirovelComPage::title() const
{
    return loadText(pageTitle);
}

std::wstring_view MirovelComPage::description() const
{
    return loadText(pageDescription);
}

bool MirovelComPage::store()
{
    const std::optional<WordSettings::Refusal> refusal = settings_.apply(
        window().templateName(WordSettings::fieldLength), window().tocLevel(WordSettings::fieldLength));
    if (!refusal) {
        setDirty(false);
        return true;
    }
    QdxMessageBox(window().handle(), refusal->text, "Invalid Value", MB_OK | MB_ICONEXCLAMATION);
    if (refusal->field == WordSettings::Field::tocLevel) {
        // There is no such control without the dialog, so the focus stays where it is. It always has: users
        // are used to going on where they were.
        const HWND nowhere = GetDlgItem(nullptr, tocLevelField);
        SendMessageW(window().handle(), WM_NEXTDLGCTL, reinterpret_cast<WPARAM>(nowhere), TRUE);
    }
    return false;
}

HRESULT MirovelComPage::TranslateAccelerator(MSG* message) noexcept
{
    if (message == nullptr)
        return E_POINTER;
    if (!window())
        return E_UNEXPECTED;
    if (!window().contains(message->hwnd))
        return S_FALSE;
    if (window().translateKey(*message))
        return S_OK;
    IPropertyPageSite* const container = site();
    return container != nullptr && container->TranslateAccelerator(message) == S_OK ? S_OK : S_FALSE;
}

void MirovelComPage::fill()
{
    window().setTemplateName(toWide(settings_.templateName()));
    window().setTocLevel(settings_.tocLevel());
    window().setTocLevelRange(WordSettings::lowestTocLevel, WordSettings::highestTocLevel);
}

void MirovelComPage::browse()
{
    // The container may let go of the page while the dialog is open.
    const IUnknownPtr keepAlive(static_cast<IPropertyPage*>(this));
    // From what is stored, not from what stands in the field.
    const std::optional<std::wstring> chosen =
        chooseTemplateFile(window().handle(), toWide(settings_.templateName()));
    if (chosen)
        window().setTemplateName(chosen->c_str());
}
