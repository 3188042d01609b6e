// Any client: random methods of the type library and of none, in any order, by Invoke and by the virtual
// table, with any arguments. The host lives on, and the next session is as ever. MIROVEL_SEED repeats a run.
#include "BuiltServer.h"
#include "Hresult.h"
#include "ImportedFunction.h"

#include <gtest/gtest.h>

#include <array>
#include <cstdlib>
#include <memory>
#include <random>
#include <shellapi.h>
#include <string>
#include <vector>

namespace {

class Chance
{
public:
    explicit Chance(unsigned seed) : engine_(seed) {}
    /// From 0 to `past` - 1.
    std::size_t below(std::size_t past) { return engine_() % past; }
    bool oneIn(std::size_t n) { return below(n) == 0; }
    template <class Container>
    auto& of(Container& container)
    {
        return container[below(std::size(container))];
    }

private:
    std::mt19937 engine_;
};

Chance* answering = nullptr; // while questions to the user may come

int WINAPI answerQuestion(HWND, const wchar_t*, const wchar_t*, UINT)
{
    return answering && answering->oneIn(2) ? IDYES : IDNO;
}

BOOL WINAPI openNothing(SHELLEXECUTEINFOW*)
{
    SetLastError(ERROR_FILE_NOT_FOUND);
    return FALSE;
}

/// Arguments of one call, with what they point to.
class Arguments
{
public:
    Arguments(Chance& chance, IDispatch* object, const std::vector<std::wstring>& texts)
        : chance_(chance), object_(object), texts_(texts)
    {
    }
    ~Arguments()
    {
        for (VARIANT& each : variants)
            if ((each.vt & VT_BYREF) == 0)
                VariantClear(&each);
        for (const std::unique_ptr<VARIANT>& each : referred_)
            VariantClear(each.get());
    }
    Arguments(const Arguments&) = delete;
    Arguments& operator=(const Arguments&) = delete;

    void make(std::size_t count)
    {
        for (std::size_t i = 0; i < count; ++i)
            variants.push_back(chance_.oneIn(5) ? reference() : value());
    }

    BSTR text()
    {
        if (chance_.oneIn(12))
            return nullptr;
        if (chance_.oneIn(40))
            return SysAllocString(std::wstring(70'000, L'x').c_str());
        std::wstring made = chance_.of(texts_);
        if (chance_.oneIn(4))
            for (std::size_t n = chance_.below(20); n > 0; --n)
                made +=
                    static_cast<wchar_t>(chance_.oneIn(3) ? chance_.below(0x10000) : ' ' + chance_.below(95));
        return SysAllocStringLen(made.data(), static_cast<UINT>(made.size()));
    }

    int number()
    {
        static constexpr std::array numbers = {0,  1,  2,  3,  4,   5,     8,      10,
                                               12, 20, -1, -2, 255, 32767, -32768, 70'000};
        return chance_.of(numbers);
    }

    std::vector<VARIANT> variants;

private:
    VARIANT value()
    {
        VARIANT made;
        VariantInit(&made);
        made.llVal = number();
        static constexpr std::array<VARTYPE, 26> types = {VT_BSTR,     VT_BSTR,
                                                          VT_BSTR,     VT_BSTR,
                                                          VT_BSTR,     VT_I2,
                                                          VT_I2,       VT_I4,
                                                          VT_I4,       VT_I8,
                                                          VT_UI1,      VT_UI2,
                                                          VT_UI4,      VT_UI8,
                                                          VT_I1,       VT_INT,
                                                          VT_R4,       VT_R8,
                                                          VT_BOOL,     VT_DATE,
                                                          VT_CY,       VT_NULL,
                                                          VT_EMPTY,    VT_ERROR,
                                                          VT_DISPATCH, VT_ARRAY | VT_VARIANT};
        made.vt = chance_.of(types);
        switch (made.vt) {
        case VT_BSTR:
            made.bstrVal = text();
            break;
        case VT_R8:
        case VT_DATE:
            made.dblVal = chance_.oneIn(3) ? 1e300 : number() + 0.5;
            break;
        case VT_ERROR:
            made.scode = DISP_E_PARAMNOTFOUND;
            break;
        case VT_DISPATCH:
            made.pdispVal = chance_.oneIn(2) ? object_ : nullptr;
            if (made.pdispVal)
                made.pdispVal->AddRef();
            break;
        case VT_ARRAY | VT_VARIANT:
            made.parray = SafeArrayCreateVector(VT_VARIANT, 0, static_cast<ULONG>(chance_.below(3)));
            break;
        default:
            break;
        }
        return made;
    }

    VARIANT reference()
    {
        referred_.push_back(std::make_unique<VARIANT>(value()));
        VARIANT* const to = referred_.back().get();
        VARIANT made;
        VariantInit(&made);
        made.vt = VT_VARIANT | VT_BYREF;
        made.pvarVal = to;
        const bool isPlain = to->vt != VT_EMPTY && to->vt != VT_NULL;
        if (isPlain && chance_.oneIn(2)) {
            made.vt = static_cast<VARTYPE>(to->vt | VT_BYREF);
            made.byref = &to->llVal;
        }
        return made;
    }

    Chance& chance_;
    IDispatch* object_;
    const std::vector<std::wstring>& texts_;
    std::vector<std::unique_ptr<VARIANT>> referred_;
};

class InvokeFuzzTest : public testing::Test
{
protected:
    InvokeFuzzTest() { CoInitialize(nullptr); }
    ~InvokeFuzzTest() override
    {
        answering = nullptr;
        CoUninitialize();
    }

    void invoke(Chance& chance, IDocument* object)
    {
        Arguments arguments(chance, object, texts_);
        arguments.make(chance.below(6));
        std::vector<DISPID> names;
        if (chance.oneIn(6))
            for (std::size_t n = chance.below(arguments.variants.size() + 1); n > 0; --n)
                names.push_back(chance.oneIn(4) ? DISPID_PROPERTYPUT : static_cast<DISPID>(chance.below(5)));
        DISPPARAMS parameters = {arguments.variants.data(), names.data(),
                                 static_cast<UINT>(arguments.variants.size()),
                                 static_cast<UINT>(names.size())};
        const auto member =
            static_cast<DISPID>(chance.oneIn(20) ? chance.below(200) - 100 : 1 + chance.below(42));
        static constexpr std::array<WORD, 6> kinds = {
            DISPATCH_METHOD,      DISPATCH_METHOD,
            DISPATCH_METHOD,      DISPATCH_METHOD | DISPATCH_PROPERTYGET,
            DISPATCH_PROPERTYGET, DISPATCH_PROPERTYPUT};
        VARIANT result;
        VariantInit(&result);
        EXCEPINFO exception{};
        UINT wrong = 0;
        const bool takesException = !chance.oneIn(4);
        const HRESULT outcome = object->Invoke(
            member, chance.oneIn(30) ? IID_IDocument : IID_NULL, LOCALE_USER_DEFAULT, chance.of(kinds),
            chance.oneIn(50) ? nullptr : &parameters, chance.oneIn(3) ? nullptr : &result,
            takesException ? &exception : nullptr, chance.oneIn(3) ? nullptr : &wrong);
        EXPECT_THAT(outcome, testing::Not(isHresult(E_UNEXPECTED)))
            << "an exception of unknown type in member " << member;
        VariantClear(&result);
        SysFreeString(exception.bstrSource);
        SysFreeString(exception.bstrDescription);
        SysFreeString(exception.bstrHelpFile);
    }

    /// The methods of the virtual table take what the compiler lets a client give.
    void callDirectly(Chance& chance, IDocument* object)
    {
        Arguments arguments(chance, object, texts_);
        const _bstr_t a(arguments.text(), false), b(arguments.text(), false), c(arguments.text(), false);
        const auto number = static_cast<short>(arguments.number());
        const VARIANT_BOOL isOn = chance.oneIn(2) ? VARIANT_TRUE : VARIANT_FALSE;
        failureOf([&]() -> HRESULT {
            switch (chance.below(30)) {
            case 0:
                return object->start();
            case 1:
                return object->create(a);
            case 2:
                return object->close();
            case 3:
                return object->stop();
            case 4:
                return object->insertTOC();
            case 5:
                return object->setStyle(a);
            case 6:
                return object->setFontName(a);
            case 7:
                return object->setFontSize(number);
            case 8:
                return object->setFontAttribute(number, isOn);
            case 9:
                return object->setTextAlign(number);
            case 10:
                return object->insertFile(a, number);
            case 11:
                return object->insertImage(a, b);
            case 12:
                return object->insertXref(a, b);
            case 13:
                return object->insertTag(a);
            case 14:
                return object->startHeader();
            case 15:
                return object->endHeader();
            case 16:
                return object->startFooter();
            case 17:
                return object->endFooter();
            case 18:
                return object->startTable();
            case 19:
                return object->addRow();
            case 20:
                return object->addCell();
            case 21:
                return object->endTable();
            case 22:
                return object->setTableRowHeight(arguments.number());
            case 23:
                return object->setOrientation(number);
            case 24:
                return object->overrideRegistry(a, b, c, number);
            case 25:
                return object->insertField(number);
            case 26:
                return object->getDocType(nullptr);
            case 27:
                return object->insertPageBreak();
            case 28:
                return object->trace(number);
            default:
                return object->insertText(a);
            }
        });
    }

    /// One client's life.
    void live(Chance& chance, const BuiltServer& server, ObservedWord& word)
    {
        const IDocumentPtr object = server.make();
        // Nobody waits for a busy Word; files stay in the test's folder.
        object->overrideRegistry(bstr("Word"), bstr("BusyTimeout"), bstr("0"), 1);
        object->overrideRegistry(bstr("Word"), bstr("WordTemplateName"), bstr(""), 1);
        object->overrideRegistry(bstr("Word"), bstr("Compose"), bstr(std::to_string(chance.below(3))), 1);
        object->overrideRegistry(bstr("Word"), bstr("Strict"), bstr(std::to_string(chance.below(2))), 1);
        object->overrideRegistry(bstr("Log"), bstr("LogName"), bstr(folder_.file("trace.log")), 1);
        if (!chance.oneIn(5)) {
            failureOf([&] { return object->start(); });
            failureOf([&] { return object->create(bstr(folder_.file("fuzz.doc"))); });
        }
        static constexpr std::array<HRESULT, 4> codes = {E_FAIL, static_cast<HRESULT>(0x800706BA),
                                                         static_cast<HRESULT>(0x80010001),
                                                         static_cast<HRESULT>(0x800A1735)};
        if (chance.oneIn(4))
            word.word.failCall(static_cast<long>(1 + chance.below(100)), chance.of(codes));
        for (std::size_t n = 5 + chance.below(60); n > 0; --n)
            chance.oneIn(2) ? invoke(chance, object) : callDirectly(chance, object);
        if (chance.oneIn(2))
            failureOf([&] { return object->close(); });
    }

    const ScratchFolder folder_;
    const std::vector<std::wstring> texts_ = {L"",
                                              L"Some text",
                                              L"Heading 1",
                                              L"Normal",
                                              L"Word",
                                              L"Compose",
                                              L"Strict",
                                              L"Settings",
                                              L"InstallDir",
                                              L"TOCLevel",
                                              L"Courier New",
                                              L"top",
                                              L"a.doc",
                                              L"2",
                                              L"true",
                                              L"-7",
                                              L"<a href=\"#top\">x</a>",
                                              L"<a href=",
                                              L"a\r\nb\n\nc\td",
                                              L"http://a.example/",
                                              L"www.b.example",
                                              L"no\\such\\file.rtf",
                                              L"C:\\windows\\win.ini",
                                              L"OwnInstance"};
};

unsigned chosenSeed()
{
    const char* const given = std::getenv("MIROVEL_SEED");
    if (given && *given)
        return static_cast<unsigned>(std::strtoul(given, nullptr, 10));
    return isSoak() ? std::random_device()() : 1;
}

TEST_F(InvokeFuzzTest, WhateverAClientCalls)
{
    const BuiltServer server;
    const ImportedFunction questions(server.module.handle(), "MessageBoxW", answerQuestion);
    const ImportedFunction shell(server.module.handle(), "ShellExecuteExW", openNothing);
    ObservedWord word;
    const Played expected = word.playShortSession(server.make(), Mode::typed);
    const unsigned first = chosenSeed();
    const unsigned clients = isSoak() ? 20'000 : 400;
    std::printf("MIROVEL_SEED=%u\n", first);
    for (unsigned i = 0; i < clients && !HasFailure(); ++i) {
        const testing::ScopedTrace trace(__FILE__, __LINE__, "MIROVEL_SEED=" + std::to_string(first + i));
        if (i % 100 == 0)
            std::fflush(stdout);
        Chance chance(first + i);
        answering = &chance;
        live(chance, server, word);
        answering = nullptr;
        word.word.clearFaults();
        EXPECT_THAT(server.module.canUnloadNow(), isHresult(S_OK));
        EXPECT_EQ(word.word.liveObjects(), 0);
        word.clear();
        EXPECT_TRUE(i % 20 != 0 || word.playShortSession(server.make(), Mode::typed) == expected);
    }
}

} // namespace
