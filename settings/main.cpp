// Shows the registered settings page and the program's own: what a Start menu entry opens.
#include "PageFrame.h"
#include "RegistryStore.h"
#include "WritingPage.h"

#include <IDocument.h>

#include <comdef.h>

_COM_SMARTPTR_TYPEDEF(IPropertyPage, __uuidof(IPropertyPage));

namespace {

class Apartment
{
public:
    Apartment() { _com_util::CheckError(OleInitialize(nullptr)); }
    ~Apartment() { OleUninitialize(); }
    Apartment(const Apartment&) = delete;
    Apartment& operator=(const Apartment&) = delete;
};

void showSettings()
{
    const Apartment apartment;
    IPropertyPagePtr page;
    _com_util::CheckError(page.CreateInstance(CLSID_MirovelComPage, nullptr, CLSCTX_INPROC_SERVER));
    RegistryStore registry;
    WritingPage writing(registry);
    PageFrame({page.GetInterfacePtr(), &writing}).run();
}

void tell(const wchar_t* text)
{
    MessageBoxW(nullptr, text, L"Mirovelcom Settings", MB_OK | MB_ICONERROR);
}

} // namespace

int WINAPI wWinMain(HINSTANCE /*instance*/, HINSTANCE /*previous*/, PWSTR /*arguments*/, int /*show*/)
try {
    showSettings();
    return 0;
} catch (const _com_error& error) {
    if (error.Error() == REGDB_E_CLASSNOTREG)
        tell(L"The settings page is not registered on this computer.\n\n"
             L"Install Mirovelcom again, or register its DLL as an administrator:\nregsvr32 mirovelcom.dll");
    else
        tell(error.ErrorMessage());
    return 1;
}
