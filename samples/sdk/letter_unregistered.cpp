// letter_unregistered DOCUMENT NAME MANIFEST: the same letter, without anything registered. MANIFEST is the
// full path of mirovelcom.manifest, and the DLL lies beside it.
#include "LetterText.h"

#include <comdef.h>

#include <cstdio>

_COM_SMARTPTR_TYPEDEF(IDocument, __uuidof(IDocument));

namespace {

// While one lives, the calling thread finds the classes that the manifest names.
class Activation
{
public:
    explicit Activation(const wchar_t* manifest)
    {
        ACTCTXW request{};
        request.cbSize = sizeof request;
        request.lpSource = manifest;
        context_ = CreateActCtxW(&request);
        if (context_ == INVALID_HANDLE_VALUE)
            throw _com_error(HRESULT_FROM_WIN32(GetLastError()));
        if (!ActivateActCtx(context_, &cookie_)) {
            const DWORD error = GetLastError();
            ReleaseActCtx(context_);
            throw _com_error(HRESULT_FROM_WIN32(error));
        }
    }
    ~Activation()
    {
        DeactivateActCtx(0, cookie_);
        ReleaseActCtx(context_);
    }
    Activation(const Activation&) = delete;
    Activation& operator=(const Activation&) = delete;

private:
    HANDLE context_ = INVALID_HANDLE_VALUE;
    ULONG_PTR cookie_ = 0;
};

void write(int /*argc*/, wchar_t** argv)
{
    // For as long as the object lives: it looks for its type library by this context, too.
    const Activation activation(argv[3]);
    IDocumentPtr mirovel;
    _com_util::CheckError(mirovel.CreateInstance(L"Mirovel.Mirovel", nullptr, CLSCTX_INPROC_SERVER));
    writeLetter(*mirovel, argv[1], argv[2]);
}

} // namespace

int wmain(int argc, wchar_t** argv)
{
    if (argc != 4) {
        std::puts("usage: letter_unregistered DOCUMENT NAME MANIFEST");
        return 2;
    }
    return runInApartment(write, argc, argv);
}
