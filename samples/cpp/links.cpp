// Writes links of every kind, from a C++ host that calls the interface's virtual table:
//   scripts/run-client build/mingw-release/samples/sample_links.exe --log /tmp/links.log --
//       'Z:\tmp\links.doc' 'Z:\...\samples\report-files'
//
// It is composed (the setting Word/Compose): each link covers just its text, and may lead to a tag that is
// placed later.
//
// By virtual table a failure in Word arrives as a QdxException; what has no text for the user stays a
// _com_error.
#include "general/QdxException.h"

#include <windows.h>

#include <IDocument.h>
#include <comdef.h>

#include <cstdio>
#include <string>
#include <utility>

_COM_SMARTPTR_TYPEDEF(IDocument, __uuidof(IDocument));

namespace {

constexpr short embeddedFile = 0, linkedFile = 2, linkToFile = 4;
constexpr short landscape = 1;
constexpr wchar_t homePage[] = L"http://www.lindholm.example/";

struct Apartment
{
    Apartment() { _com_util::CheckError(CoInitializeEx(nullptr, COINIT_APARTMENTTHREADED)); }
    ~Apartment() { CoUninitialize(); }
    Apartment(const Apartment&) = delete;
    Apartment& operator=(const Apartment&) = delete;
};

_bstr_t bstr(const std::wstring& text)
{
    return text.c_str();
}

class Links
{
public:
    explicit Links(std::wstring files) : files_(std::move(files)) {}

    void writeLinks(const std::wstring& fileName)
    {
        _com_util::CheckError(mirovel_.CreateInstance(L"Mirovel.Mirovel"));
        // The installer sets this for the machine; the DLL alone does not.
        mirovel_->overrideRegistry(bstr(L"Word"), bstr(L"Compose"), bstr(L"1"), 2);
        mirovel_->start();
        _com_util::CheckError(mirovel_->create(bstr(fileName)));
        // To find out why a document fails, have it written down:
        // mirovel_->overrideRegistry(_bstr_t(L"Log"), _bstr_t(L"Diagnostics"), _bstr_t(L"sample.log"), 1);
        mirovel_->trace(10);
        mirovel_->setOrientation(landscape);
        writeReferences();
        writeAddresses();
        writeMarkup();
        writePictures();
        writeLinksInCells();
        mirovel_->insertTag(bstr(L"end"));
        endLine(L"The end.");
        mirovel_->close();
        mirovel_->stop();
    }

private:
    void endLine(const std::wstring& text)
    {
        mirovel_->insertText(bstr(text));
        mirovel_->insertEndl();
    }

    // A tag may be used before it is placed, and is drawn if it is placed before the document is closed.
    void writeReferences()
    {
        mirovel_->insertXref(bstr(L"The end"), bstr(L"end"));
        endLine(L" of this page,");
        mirovel_->insertXref(bstr(L"a place that nobody made"), bstr(L"nowhere"));
        endLine(L",");
        mirovel_->insertTag(bstr(L"Start"));
        mirovel_->insertXref(bstr(L"the start"), bstr(L"Start"));
        endLine(L",");
        mirovel_->insertXref(bstr(L"another tag"), bstr(L"start"));
        endLine(L" whose name differs in case.");
        mirovel_->insertXref(bstr(L"No link"), bstr(L""));
        endLine(L" where there is no target.");
    }

    void writeAddresses()
    {
        mirovel_->insertXref(bstr(L"The observatory"), bstr(homePage));
        endLine(L".");
        mirovel_->insertFile(bstr(homePage), embeddedFile);
        endLine(L".");
        mirovel_->insertXref(bstr(L"A file"), bstr(files_ + L"\\method.rtf"));
        endLine(L".");
        mirovel_->insertFile(bstr(files_ + L"\\method.rtf"), linkedFile);
        endLine(L".");
        mirovel_->insertFile(bstr(files_ + L"\\missing.txt"), linkToFile);
        endLine(L".");
        mirovel_->insertFile(bstr(files_ + L"\\missing.txt"), linkedFile);
        endLine(L"Nothing was inserted in front of this.");
    }

    void writeMarkup()
    {
        endLine(std::wstring(L"See <a href=\"") + homePage +
                L"log\">the log</a> and <a href=\"#GUID 7\">item 7</a>.");
        mirovel_->insertTag(bstr(L"GUID 7"));
        endLine(L"This is item 7.");
    }

    void writePictures()
    {
        mirovel_->insertImage(bstr(files_ + L"\\winter.bmp"), bstr(L"end"));
        endLine(L" leads to the end.");
        mirovel_->insertImage(bstr(files_ + L"\\summer.bmp"), bstr(homePage));
        endLine(L" leads to the observatory.");
        mirovel_->insertFile(bstr(files_ + L"\\yearly.xls"), linkedFile);
        endLine(L" stays outside.");
    }

    void writeLinksInCells()
    {
        mirovel_->startTable();
        mirovel_->addRow();
        mirovel_->addCell();
        mirovel_->insertXref(bstr(L"Start"), bstr(L"Start"));
        mirovel_->addCell();
        mirovel_->insertXref(bstr(L"Observatory"), bstr(homePage));
        mirovel_->endTable();
        mirovel_->insertEndl();
    }

    IDocumentPtr mirovel_;
    std::wstring files_;
};

} // namespace

int wmain(int argc, wchar_t** argv)
{
    if (argc != 3) {
        std::puts("usage: sample_links DOCUMENT FOLDER-OF-FILES");
        return 2;
    }
    // Outside the try: leaving the apartment unloads the DLL, and its exceptions need its code.
    const Apartment apartment;
    try {
        Links(argv[2]).writeLinks(argv[1]);
        return 0;
    } catch (const QdxException& e) {
        std::printf("The links could not be written: %s\n", e.reasonText());
    } catch (const _com_error& e) {
        std::printf("The links could not be written: error 0x%lx\n",
                    static_cast<unsigned long>(static_cast<DWORD>(e.Error())));
    }
    return 1;
}
