// letter DOCUMENT NAME: writes a letter to NAME, with the registered mirovelcom.
#include "LetterText.h"

#include <comdef.h>

#include <cstdio>

_COM_SMARTPTR_TYPEDEF(IDocument, __uuidof(IDocument));

namespace {

void write(int /*argc*/, wchar_t** argv)
{
    IDocumentPtr mirovel;
    _com_util::CheckError(mirovel.CreateInstance(CLSID_Mirovel, nullptr, CLSCTX_INPROC_SERVER));
    writeLetter(*mirovel, argv[1], argv[2]);
}

} // namespace

int wmain(int argc, wchar_t** argv)
{
    if (argc != 3) {
        std::puts("usage: letter DOCUMENT NAME");
        return 2;
    }
    return runInApartment(write, argc, argv);
}
