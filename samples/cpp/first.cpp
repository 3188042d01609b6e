// Writes a document of two pages, from a C++ host that calls the interface's virtual table. On Windows, with
// mirovelcom installed:
//   sample_first.exe C:\Documents\first.doc
// Where mirovelcom is built, with the Word stand-in under Wine:
//   scripts/run-client build/mingw-release/samples/sample_first.exe --log /tmp/first.log --
//       'Z:\tmp\first.doc'
//
// By virtual table a failure in Word arrives as a QdxException; what has no text for the user stays a
// _com_error.
#include "general/QdxException.h"

#include <windows.h>

#include <IDocument.h>
#include <comdef.h>

#include <cstdio>

_COM_SMARTPTR_TYPEDEF(IDocument, __uuidof(IDocument));

namespace {

struct Apartment
{
    Apartment() { _com_util::CheckError(CoInitializeEx(nullptr, COINIT_APARTMENTTHREADED)); }
    ~Apartment() { CoUninitialize(); }
    Apartment(const Apartment&) = delete;
    Apartment& operator=(const Apartment&) = delete;
};

void insertText(IDocument& document, const wchar_t* text)
{
    document.insertText(_bstr_t(text));
}

void insertHeading(IDocument& document, const wchar_t* text)
{
    document.setStyle(_bstr_t(L"Heading 1"));
    insertText(document, text);
    document.insertEndl();
    document.setStyle(_bstr_t(L"Normal"));
}

void writeDocument(const wchar_t* fileName)
{
    IDocumentPtr mirovel;
    _com_util::CheckError(mirovel.CreateInstance(L"Mirovel.Mirovel"));
    // To find out why a document fails, have it written down:
    // mirovel->overrideRegistry(_bstr_t(L"Log"), _bstr_t(L"Diagnostics"), _bstr_t(L"sample.log"), 1);
    mirovel->trace(10);
    // The installer sets this for the machine; the DLL alone does not.
    mirovel->overrideRegistry(_bstr_t(L"Word"), _bstr_t(L"Compose"), _bstr_t(L"1"), 2);
    mirovel->start();
    _com_util::CheckError(mirovel->create(_bstr_t(fileName)));

    insertHeading(*mirovel, L"A first document");
    insertText(*mirovel, L"Word wrote this page. The client said what, one call after the other: ");
    insertText(*mirovel, L"a heading, some text, the end of a paragraph.");
    mirovel->insertEndl();
    mirovel->insertPageBreak();

    insertHeading(*mirovel, L"The second page");
    insertText(*mirovel, L"It begins where the client asked for a page break.");
    mirovel->insertEndl();

    mirovel->close();
    mirovel->stop();
}

} // namespace

int wmain(int argc, wchar_t** argv)
{
    if (argc != 2) {
        std::puts("usage: sample_first DOCUMENT");
        return 2;
    }
    // Outside the try: leaving the apartment unloads the DLL, and its exceptions need its code.
    const Apartment apartment;
    try {
        writeDocument(argv[1]);
        return 0;
    } catch (const QdxException& e) {
        std::printf("The document could not be written: %s\n", e.reasonText());
    } catch (const _com_error& e) {
        std::printf("The document could not be written: error 0x%lx\n",
                    static_cast<unsigned long>(static_cast<DWORD>(e.Error())));
    }
    return 1;
}
