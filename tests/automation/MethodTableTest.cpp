// Every method of IDocument, called by the virtual table and by IDispatch, in each state of the session.
#include "FrontEndTest.h"

#include <cstring>
#include <map>

namespace {

enum class Guard
{
    none,
    started,
    open
};

enum class State
{
    idle,
    started,
    open
};

std::string nameOf(State state)
{
    return state == State::idle ? "before start" : state == State::started ? "after start" : "after create";
}

struct Method
{
    DISPID id;
    const char* name;
    Guard guard;
    Lines echo;
    std::vector<_variant_t> arguments;
    std::function<HRESULT(IDocument&)> call;

    [[nodiscard]] bool acts(State state) const
    {
        return guard == Guard::none || state == State::open ||
               (guard == Guard::started && state == State::started);
    }
};

_variant_t number(short value)
{
    return {value, VT_I2};
}

/// A text of which no test frees the original.
BSTR text(const wchar_t* characters)
{
    static std::map<std::wstring, _bstr_t> made;
    return made.try_emplace(characters, characters).first->second;
}

std::vector<Method> methodTable(const std::string& fileName)
{
    const _bstr_t name = bstr(fileName);
    // clang-format off
    return {
        {1, "create", Guard::started, {"mirovel->create(\"" + fileName + "\");", "// Page 1"}, {name},
         [name](IDocument& m) { return m.create(name); }},
        {2, "close", Guard::open, {"mirovel->close();"}, {}, [](IDocument& m) { return m.close(); }},
        {3, "insertText", Guard::open, {"mirovel->insertText(\"abc\");"}, {L"abc"},
         [](IDocument& m) { return m.insertText(text(L"abc")); }},
        {4, "insertEndl", Guard::open, {"mirovel->insertEndl();"}, {}, [](IDocument& m) { return m.insertEndl(); }},
        {5, "insertDiagram", Guard::open, {}, {_variant_t(7L), number(2), number(3)},
         [](IDocument& m) { return m.insertDiagram(7, 2, 3); }},
        {6, "insertPageBreak", Guard::open, {"mirovel->insertPageBreak();", "", "// Page 2"}, {},
         [](IDocument& m) { return m.insertPageBreak(); }},
        {7, "insertField", Guard::open, {"mirovel->insertField(4);"}, {number(4)},
         [](IDocument& m) { return m.insertField(4); }},
        {8, "startHeader", Guard::open, {"mirovel->startHeader();"}, {}, [](IDocument& m) { return m.startHeader(); }},
        {9, "endHeader", Guard::open, {"mirovel->endHeader();"}, {}, [](IDocument& m) { return m.endHeader(); }},
        {10, "startFooter", Guard::open, {"mirovel->startFooter();"}, {}, [](IDocument& m) { return m.startFooter(); }},
        {11, "endFooter", Guard::open, {"mirovel->endFooter();"}, {}, [](IDocument& m) { return m.endFooter(); }},
        {12, "setStyle", Guard::open, {"mirovel->setStyle(\"Heading 1\");"}, {L"Heading 1"},
         [](IDocument& m) { return m.setStyle(text(L"Heading 1")); }},
        {13, "setFontName", Guard::open, {"mirovel->setFontName(\"Courier New\");"}, {L"Courier New"},
         [](IDocument& m) { return m.setFontName(text(L"Courier New")); }},
        {14, "setOption", Guard::none, {}, {L"a", L"b"},
         [](IDocument& m) { return m.setOption(text(L"a"), text(L"b")); }},
        {15, "trace", Guard::none, {}, {number(10)}, [](IDocument& m) { return m.trace(10); }},
        {16, "getPropPages", Guard::none, {}, {},
         [](IDocument& m) {
             BSTR answer = nullptr;
             const HRESULT result = m.getPropPages(&answer);
             SysFreeString(answer);
             return result;
         }},
        {17, "start", Guard::none, {"mirovel->start();"}, {}, [](IDocument& m) { return m.start(); }},
        {18, "stop", Guard::started, {"mirovel->stop();"}, {}, [](IDocument& m) { return m.stop(); }},
        {19, "showLast", Guard::none, {}, {}, [](IDocument& m) { return m.showLast(); }},
        {20, "setFontSize", Guard::open, {"mirovel->setFontSize(14);"}, {number(14)},
         [](IDocument& m) { return m.setFontSize(14); }},
        {21, "setFontAttribute", Guard::open, {"mirovel->setFontAttribute(DocBold,true);"}, {number(1), true},
         [](IDocument& m) { return m.setFontAttribute(1, VARIANT_TRUE); }},
        {22, "setTextAlign", Guard::none, {"mirovel->setTextAlign(2);"}, {number(2)},
         [](IDocument& m) { return m.setTextAlign(2); }},
        {23, "insertFile", Guard::none, {"mirovel->insertFile(\"c:\\no such.txt\",1);"}, {L"c:\\no such.txt", number(1)},
         [](IDocument& m) { return m.insertFile(text(L"c:\\no such.txt"), 1); }},
        {24, "getDocType", Guard::none, {}, {},
         [](IDocument& m) {
             BSTR answer = nullptr;
             const HRESULT result = m.getDocType(&answer);
             SysFreeString(answer);
             return result;
         }},
        {25, "overrideRegistry", Guard::none, {"mirovel->overrideRegistry(\"g\",\"n\",\"v\",1);"},
         {L"g", L"n", L"v", number(1)},
         [](IDocument& m) { return m.overrideRegistry(text(L"g"), text(L"n"), text(L"v"), 1); }},
        {26, "insertTOC", Guard::none, {"mirovel->insertTOC();"}, {}, [](IDocument& m) { return m.insertTOC(); }},
        {27, "startTable", Guard::none, {"mirovel->startTable();"}, {}, [](IDocument& m) { return m.startTable(); }},
        {28, "endTable", Guard::none, {"mirovel->endTable();"}, {}, [](IDocument& m) { return m.endTable(); }},
        {29, "addCell", Guard::none, {"mirovel->addCell();"}, {}, [](IDocument& m) { return m.addCell(); }},
        {30, "addRow", Guard::none, {"mirovel->addRow();"}, {}, [](IDocument& m) { return m.addRow(); }},
        {31, "insertMark", Guard::none, {}, {_variant_t(7L), true},
         [](IDocument& m) { return m.insertMark(7, VARIANT_TRUE); }},
        {32, "startTOCEntry", Guard::none, {"mirovel->startTOCEntry();"}, {},
         [](IDocument& m) { return m.startTOCEntry(); }},
        {33, "endTOCEntry", Guard::none, {"mirovel->endTOCEntry();"}, {},
         [](IDocument& m) { return m.endTOCEntry(); }},
        {34, "insertImage", Guard::none, {"mirovel->insertImage(c:\\no such.bmp,\"\");"}, {L"c:\\no such.bmp", L""},
         [](IDocument& m) { return m.insertImage(text(L"c:\\no such.bmp"), text(L"")); }},
        {35, "setOrientation", Guard::none, {}, {number(1)}, [](IDocument& m) { return m.setOrientation(1); }},
        {36, "setTableRowHeight", Guard::none, {"mirovel->setTableRowHeight();"}, {_variant_t(20L)},
         [](IDocument& m) { return m.setTableRowHeight(20); }},
        {37, "insertTag", Guard::none, {"mirovel->insertTag(\"\");"}, {L""},
         [](IDocument& m) { return m.insertTag(text(L"")); }},
        {38, "insertXref", Guard::none, {"mirovel->insertXref(\"label\",\"tag\");"}, {L"label", L"tag"},
         [](IDocument& m) { return m.insertXref(text(L"label"), text(L"tag")); }},
        {39, "startFile", Guard::none, {}, {L"a"}, [](IDocument& m) { return m.startFile(text(L"a")); }},
        {40, "insertLocate", Guard::none, {}, {}, [](IDocument& m) { return m.insertLocate(); }},
        {41, "pushDirectory", Guard::none, {}, {L"a"}, [](IDocument& m) { return m.pushDirectory(text(L"a")); }},
        {42, "popDirectory", Guard::none, {}, {}, [](IDocument& m) { return m.popDirectory(); }},
    };
    // clang-format on
}

/// What a call comes to where that is not S_OK.
struct Exceptional
{
    const char* method;
    State state;
    std::string byTable;
    std::string byInvoke;
};

std::vector<Exceptional> exceptionalOutcomes()
{
    const std::string noDocument = "Mirovel.Mirovel 0x80004003 " + systemMessage(E_POINTER);
    return {
        {"create", State::idle, "0x80004005", "Mirovel.Mirovel 0x80004005 " + systemMessage(E_FAIL)},
        {"setOrientation", State::idle, "_com_error 0x80004003", noDocument},
        {"setOrientation", State::started, "_com_error 0x80004003", noDocument},
    };
}

std::string expectedOutcome(const Method& method, State state, bool byTable)
{
    for (const Exceptional& exceptional : exceptionalOutcomes())
        if (exceptional.state == state && exceptional.method == std::string(method.name))
            return byTable ? exceptional.byTable : exceptional.byInvoke;
    return "0x00000000";
}

/// What the current writer traces itself.
std::map<std::string, std::string> messagesOfTheWriter()
{
    return {
        {"insertFile", "ERR File not found: c:\\no such.txt"},
        {"insertImage", "ERR File not found: c:\\no such.bmp"},
    };
}

std::string expectedLog(const Method& method, State state)
{
    // `start` does nothing a second time.
    if (!method.acts(state) || (method.id == 17 && state != State::idle))
        return "";
    Lines lines = method.echo;
    if (state == State::open) {
        for (const auto& [name, message] : messagesOfTheWriter())
            if (name == method.name)
                lines.push_back(message);
    }
    return logLines(lines);
}

class MethodTableTest : public FrontEndTest, public testing::WithParamInterface<int>
{
protected:
    MethodTableTest()
        : method(methodTable(folder.file("second.doc")).at(static_cast<std::size_t>(GetParam())))
    {
    }

    void enter(State state) const
    {
        if (state != State::idle)
            start();
        const HRESULT created = state == State::open ? client->create(bstr(documentName())) : S_OK;
        ASSERT_THAT(created, isHresult(S_OK));
        trace(10);
    }

    Method method;
};

class ByTable : public MethodTableTest
{
protected:
    void check(State state)
    {
        SCOPED_TRACE(std::string(method.name) + " " + nameOf(state));
        enter(state);
        EXPECT_EQ(outcome([&] { return method.call(*client.GetInterfacePtr()); }),
                  expectedOutcome(method, state, true));
        EXPECT_EQ(log(), expectedLog(method, state));
    }
};

TEST_P(ByTable, BeforeStart)
{
    check(State::idle);
}

TEST_P(ByTable, AfterStart)
{
    check(State::started);
}

TEST_P(ByTable, AfterCreate)
{
    check(State::open);
}

class ByInvoke : public MethodTableTest
{
protected:
    void check(State state)
    {
        SCOPED_TRACE(std::string(method.name) + " " + nameOf(state));
        enter(state);
        EXPECT_EQ(invoke(*client, method.id, method.arguments).outcome,
                  expectedOutcome(method, state, false));
        EXPECT_EQ(log(), expectedLog(method, state));
    }
};

TEST_P(ByInvoke, BeforeStart)
{
    check(State::idle);
}

TEST_P(ByInvoke, AfterStart)
{
    check(State::started);
}

TEST_P(ByInvoke, AfterCreate)
{
    check(State::open);
}

INSTANTIATE_TEST_SUITE_P(Methods, ByTable, testing::Range(0, 42));
INSTANTIATE_TEST_SUITE_P(Methods, ByInvoke, testing::Range(0, 42));

/// The slot of a method in the virtual table, straight from memory.
using NoArguments = HRESULT(STDMETHODCALLTYPE*)(IDocument*);

class InterfaceTest : public FrontEndTest
{
};

TEST_F(InterfaceTest, GivesEveryMethodTheIdOfItsPlaceInTheTable)
{
    for (const Method& method : methodTable("x.doc")) {
        std::wstring name(method.name, method.name + std::strlen(method.name));
        LPOLESTR names = name.data();
        DISPID id = 0;
        EXPECT_THAT(client->GetIDsOfNames(IID_NULL, &names, 1, LOCALE_NEUTRAL, &id), isHresult(S_OK))
            << method.name;
        EXPECT_EQ(id, method.id) << method.name;
    }
    EXPECT_EQ(methodTable("x.doc").size(), 42U);
}

TEST_F(InterfaceTest, PutsTheMethodsBehindTheSevenSlotsOfIDispatch)
{
    IDocument* const object = client.GetInterfacePtr();
    void** const table = *reinterpret_cast<void***>(object);
    trace(10);
    // `start` (17) and `stop` (18), by their place alone.
    EXPECT_THAT(reinterpret_cast<NoArguments>(table[7 + 16])(object), isHresult(S_OK));
    EXPECT_THAT(reinterpret_cast<NoArguments>(table[7 + 17])(object), isHresult(S_OK));
    EXPECT_EQ(log(), logLines({"mirovel->start();", "mirovel->stop();"}));
}

TEST_F(InterfaceTest, KnowsNoMethodOutsideTheTable)
{
    EXPECT_EQ(invoke(*client, 0, {}).outcome, "0x80020003");
    EXPECT_EQ(invoke(*client, 43, {}).outcome, "0x80020003");
}

TEST_F(InterfaceTest, AnswersTextsAsResultsToScripts)
{
    EXPECT_EQ(invoke(*client, 16, {}).value, _variant_t(L"{5C2E7A11-3B41-4D8E-9F62-A1B3C4D5E6F7}"));
    EXPECT_EQ(invoke(*client, 24, {}).value, _variant_t(L"Word"));
}

TEST_F(InterfaceTest, AnswersTextsInVariablesOfScripts)
{
    for (const auto& [id, answer] :
         std::map<DISPID, std::wstring>{{16, L"{5C2E7A11-3B41-4D8E-9F62-A1B3C4D5E6F7}"}, {24, L"Word"}}) {
        _variant_t variable(L"what stood there before");
        VARIANT reference;
        reference.vt = VT_BYREF | VT_VARIANT;
        reference.pvarVal = &variable;
        DISPPARAMS parameters = {&reference, nullptr, 1, 0};
        EXPECT_THAT(client->Invoke(id, IID_NULL, LOCALE_NEUTRAL, DISPATCH_METHOD, &parameters, nullptr,
                                   nullptr, nullptr),
                    isHresult(S_OK));
        EXPECT_EQ(variable, _variant_t(answer.c_str()));
    }
}

TEST_F(InterfaceTest, AnswersTextsInOutParameters)
{
    BSTR answer = nullptr;
    ASSERT_THAT(client->getPropPages(&answer), isHresult(S_OK));
    EXPECT_EQ(_bstr_t(answer, false), _bstr_t(L"{5C2E7A11-3B41-4D8E-9F62-A1B3C4D5E6F7}"));
    ASSERT_THAT(client->getDocType(&answer), isHresult(S_OK));
    EXPECT_EQ(SysStringLen(answer), 4U);
    EXPECT_EQ(_bstr_t(answer, false), _bstr_t(L"Word"));
}

TEST_F(InterfaceTest, ConvertsWhatScriptsPass)
{
    openDocument();
    trace(10);
    EXPECT_EQ(invoke(*client, 20, {_variant_t(L"14")}).outcome, "0x00000000");
    EXPECT_EQ(invoke(*client, 21, {_variant_t(2L), _variant_t(1L)}).outcome, "0x00000000");
    EXPECT_EQ(invoke(*client, 3, {_variant_t(15L)}).outcome, "0x00000000");
    EXPECT_EQ(log(), logLines({"mirovel->setFontSize(14);", "mirovel->setFontAttribute(DocItalic,true);",
                               "mirovel->insertText(\"15\");"}));
}

TEST_F(InterfaceTest, RefusesWrongArgumentsOfScripts)
{
    EXPECT_EQ(invoke(*client, 20, {}).outcome, "0x8002000e");
    EXPECT_EQ(invoke(*client, 4, {_variant_t(1L)}).outcome, "0x8002000e");
    EXPECT_EQ(invoke(*client, 20, {_variant_t(L"large")}).outcome, "0x80020005");
}

} // namespace
