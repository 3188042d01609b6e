#include "LetterText.h"

#include "general/QdxException.h"

#include <comdef.h>

#include <cstdio>
#include <stdexcept>

namespace {

struct Apartment
{
    Apartment() { _com_util::CheckError(CoInitializeEx(nullptr, COINIT_APARTMENTTHREADED)); }
    ~Apartment() { CoUninitialize(); }
    Apartment(const Apartment&) = delete;
    Apartment& operator=(const Apartment&) = delete;
};

void writeParagraph(IDocument& mirovel, const wchar_t* style, const std::wstring& text)
{
    mirovel.setStyle(_bstr_t(style));
    mirovel.insertText(_bstr_t(text.c_str()));
    mirovel.insertEndl();
}

} // namespace

void writeLetter(IDocument& mirovel, const std::wstring& fileName, const std::wstring& to)
{
    if (to.empty())
        throw std::invalid_argument("a letter to nobody");
    mirovel.trace(10);
    mirovel.start();
    // The one method with a result to look at: E_FAIL says that `start` has not been called.
    _com_util::CheckError(mirovel.create(_bstr_t(fileName.c_str())));
    writeParagraph(mirovel, L"Heading 1", L"Dear " + to + L",");
    writeParagraph(mirovel, L"Normal", L"this letter was written by a program that knows no Word.");
    mirovel.close();
    mirovel.stop();
}

int runInApartment(void (*work)(int argc, wchar_t** argv), int argc, wchar_t** argv)
{
    // Outside the try: leaving the apartment may unload the DLL, and what it threw needs its code.
    const Apartment apartment;
    try {
        work(argc, argv);
        return 0;
    } catch (const QdxException& e) {
        // What went wrong in Word: which step, the error's number, Word's own text.
        std::printf("QdxException: %s\n", e.reasonText());
    } catch (const _com_error& e) {
        std::printf("_com_error: 0x%lx\n", static_cast<unsigned long>(static_cast<DWORD>(e.Error())));
    } catch (const std::exception& e) {
        std::printf("%s\n", e.what());
    }
    return 1;
}
