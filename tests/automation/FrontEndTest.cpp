#include "FrontEndTest.h"

#include "CComModule.h"
#include "TextConversion.h"
#include "mirovelsection.h"
#include "registry/RegisterDynamic.h"

#include <array>
#include <cstdio>

namespace {

std::string narrow(BSTR text)
{
    return toNarrow(text).data();
}

/// COM for the whole program, and the type library, which the front end answers IDispatch from.
class ComEnvironment : public testing::Environment
{
public:
    void SetUp() override
    {
        _com_util::CheckError(CoInitialize(nullptr));
        std::wstring path = L"Z:";
        for (const wchar_t c : std::wstring(MIROVELCOM_TYPELIB))
            path += c == L'/' ? L'\\' : c;
        _com_util::CheckError(LoadTypeLibEx(path.c_str(), REGKIND_REGISTER, &library_));
    }

    void TearDown() override
    {
        library_->Release();
        UnRegisterTypeLib(LIBID_MIROVELCOMLib, 2, 0, LOCALE_NEUTRAL, SYS_WIN64);
        CoUninitialize();
    }

private:
    ITypeLib* library_ = nullptr;
};

const testing::Environment* const comEnvironment = testing::AddGlobalTestEnvironment(new ComEnvironment);

int unexpectedQuestion(HWND, const QdxString& text, const QdxString&, UINT)
{
    ADD_FAILURE() << "the user is asked: " << text.data();
    return 0;
}

} // namespace

_bstr_t bstr(const std::string& text)
{
    return toWide(QdxString(text.data(), text.size()));
}

std::string logLines(const Lines& lines)
{
    std::string text;
    for (const std::string& line : lines)
        text += line + "\r\n";
    return text;
}

std::string systemMessage(HRESULT code)
{
    std::array<char, 512> text{};
    FormatMessageA(FORMAT_MESSAGE_FROM_SYSTEM | FORMAT_MESSAGE_IGNORE_INSERTS, nullptr,
                   static_cast<DWORD>(code), 0, text.data(), static_cast<DWORD>(text.size()), nullptr);
    const std::string message = text.data();
    if (message.empty()) { // how _com_error describes what the system has no text for
        std::snprintf(text.data(), text.size(), "Unknown error 0x%0lX", static_cast<unsigned long>(code));
        return text.data();
    }
    return message.substr(0, message.find_last_not_of("\r\n") + 1);
}

std::string outcome(const std::function<HRESULT()>& call)
try {
    return hexadecimal(call());
} catch (const QdxException& exception) {
    return std::string("QdxException: ") + exception.reasonText();
} catch (const _com_error& error) {
    return "_com_error " + hexadecimal(error.Error());
} catch (...) {
    return "exception";
}

Invoked invoke(IDispatch& object, DISPID member, std::vector<_variant_t> arguments)
{
    std::vector<VARIANT> reversed(arguments.rbegin(), arguments.rend());
    DISPPARAMS parameters = {reversed.data(), nullptr, static_cast<UINT>(reversed.size()), 0};
    EXCEPINFO exception = {};
    Invoked invoked;
    const HRESULT result = object.Invoke(member, IID_NULL, LOCALE_NEUTRAL, DISPATCH_METHOD, &parameters,
                                         &invoked.value, &exception, nullptr);
    if (result != DISP_E_EXCEPTION) {
        invoked.outcome = hexadecimal(result);
        return invoked;
    }
    const _bstr_t source(exception.bstrSource, false);
    const _bstr_t description(exception.bstrDescription, false);
    const _bstr_t help(exception.bstrHelpFile, false);
    invoked.outcome = narrow(source) + " " + hexadecimal(exception.scode) + " " + narrow(description);
    return invoked;
}

Setting::Setting(const char* group, const char* name, const std::string& value) : group_(group), name_(name)
{
    RegisterDynamic::write(group, name, RegEntry(QdxString(value.c_str())));
}

Setting::~Setting()
{
    const std::wstring root = RegisterBase::root;
    RegDeleteKeyValueW(HKEY_CURRENT_USER, (root + L"\\" + static_cast<const wchar_t*>(bstr(group_))).c_str(),
                       bstr(name_));
}

FrontEndTest::FrontEndTest(const standin::InProcessWordOptions& options)
    : word(options), installed(std::make_unique<standin::ClassRegistration>(word)), client(newClient()),
      noQuestions_(unexpectedQuestion),
      shell_([this](const QdxString& fileName) { opened.emplace_back(fileName.data()); })
{
    MirovelSection::clearCache(); // what an earlier test left there would spare this one some calls
    setting("Word", "WordTemplateName", "");
    setting("Log", "LogName", folder.file("trace.log"));
}

LONG FrontEndTest::moduleLocks()
{
    return comModule().lockCount();
}

void FrontEndTest::TearDown()
{
    client = nullptr;
    EXPECT_EQ(word.liveObjects(), 0);
    EXPECT_EQ(moduleLocks(), locksAtStart);
}

IDocumentPtr FrontEndTest::newClient()
{
    void* created = nullptr;
    _com_util::CheckError(Mirovel::createInstance(nullptr, IID_IDocument, &created));
    return {static_cast<IDocument*>(created), false};
}

void FrontEndTest::setting(const char* group, const char* name, const std::string& value, short kind) const
{
    ASSERT_THAT(client->overrideRegistry(bstr(group), bstr(name), bstr(value), kind), isHresult(S_OK));
}

void FrontEndTest::trace(short level) const
{
    ASSERT_THAT(client->trace(level), isHresult(S_OK));
}

std::string FrontEndTest::log() const
{
    return contentOf(folder.file("trace.log"));
}

std::string FrontEndTest::diagnosticsOf(const std::string& stem) const
{
    return contentOf(folder.file(stem + "." + std::to_string(GetCurrentProcessId()) + ".log"));
}

void FrontEndTest::start() const
{
    ASSERT_THAT(client->start(), isHresult(S_OK));
}

void FrontEndTest::openDocument()
{
    start();
    ASSERT_THAT(client->create(bstr(documentName())), isHresult(S_OK));
    word.clearTranscript();
}

std::string FrontEndTest::documentText() const
{
    const auto& documents = word.model().documents();
    if (documents.size() != 1)
        return "(" + std::to_string(documents.size()) + " documents)";
    const Word::_DocumentPtr document = word.application()->GetActiveDocument();
    std::string text = narrow(document->GetContent()->GetText());
    if (!text.empty())
        text.pop_back();
    return text;
}

Lines FrontEndTest::takeTranscript()
{
    Lines lines = word.transcript();
    word.clearTranscript();
    return lines;
}
