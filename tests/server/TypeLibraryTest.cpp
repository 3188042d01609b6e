// What compilers and script hosts read of IDocument: the type library in the built DLL, method by method.
#include "Hresult.h"
#include "ServerModule.h"

#include <gtest/gtest.h>

#include <comdef.h>

#include <IDocument.h>

#include <string>
#include <vector>

namespace {

_COM_SMARTPTR_TYPEDEF(ITypeLib, __uuidof(ITypeLib));
_COM_SMARTPTR_TYPEDEF(ITypeInfo, __uuidof(ITypeInfo));

/// "name(in BSTR text, out BSTR* result)", in the order of the DISPIDs from 1 and of the slots from 7.
const std::vector<std::string> methods = {
    "create(in BSTR fileName)",
    "close()",
    "insertText(in BSTR text)",
    "insertEndl()",
    "insertDiagram(in long ptr, in short width, in short height)",
    "insertPageBreak()",
    "insertField(in short field)",
    "startHeader()",
    "endHeader()",
    "startFooter()",
    "endFooter()",
    "setStyle(in BSTR style)",
    "setFontName(in BSTR name)",
    "setOption(in BSTR option, in BSTR value)",
    "trace(in short level)",
    "getPropPages(out BSTR* bstrCLSID)",
    "start()",
    "stop()",
    "showLast()",
    "setFontSize(in short size)",
    "setFontAttribute(in short att, in VARIANT_BOOL value)",
    "setTextAlign(in short textAlign)",
    "insertFile(in BSTR fileName, in short insertAsType)",
    "getDocType(out BSTR* docType)",
    "overrideRegistry(in BSTR group, in BSTR name, in BSTR value, in short valueType)",
    "insertTOC()",
    "startTable()",
    "endTable()",
    "addCell()",
    "addRow()",
    "insertMark(in long ptr, in VARIANT_BOOL isPrimary)",
    "startTOCEntry()",
    "endTOCEntry()",
    "insertImage(in BSTR imageFileName, in BSTR fileOrUrl)",
    "setOrientation(in short docorient)",
    "setTableRowHeight(in long points)",
    "insertTag(in BSTR tagName)",
    "insertXref(in BSTR text, in BSTR tagName)",
    "startFile(in BSTR fileName)",
    "insertLocate()",
    "pushDirectory(in BSTR directoryName)",
    "popDirectory()",
};

std::string narrow(_bstr_t name)
{
    std::string text;
    for (unsigned i = 0; i < name.length(); ++i)
        text += static_cast<char>(name.GetBSTR()[i]);
    return text;
}

std::string nameOf(const TYPEDESC& type)
{
    switch (type.vt) {
    case VT_BSTR:
        return "BSTR";
    case VT_I4:
        return "long";
    case VT_I2:
        return "short";
    case VT_BOOL:
        return "VARIANT_BOOL";
    case VT_PTR:
        return nameOf(*type.lptdesc) + '*';
    default:
        return "type " + std::to_string(type.vt);
    }
}

std::string directionOf(USHORT flags)
{
    switch (flags) {
    case PARAMFLAG_FIN:
        return "in ";
    case PARAMFLAG_FOUT:
        return "out ";
    default:
        return "flags " + std::to_string(flags) + ' ';
    }
}

class Function
{
public:
    Function(const ITypeInfoPtr& owner, UINT index) : owner_(owner)
    {
        _com_util::CheckError(owner_->GetFuncDesc(index, &description_));
    }
    ~Function() { owner_->ReleaseFuncDesc(description_); }
    Function(const Function&) = delete;
    Function& operator=(const Function&) = delete;

    const FUNCDESC& operator*() const { return *description_; }

    std::string text() const
    {
        BSTR raw[10] = {};
        UINT count = 0;
        _com_util::CheckError(owner_->GetNames(description_->memid, raw, 10, &count));
        std::vector<std::string> names;
        for (UINT i = 0; i < count; ++i)
            names.push_back(narrow(_bstr_t(raw[i], false)));
        EXPECT_EQ(names.size(), 1U + static_cast<std::size_t>(description_->cParams));
        std::string text = names.at(0) + '(';
        for (SHORT i = 0; i < description_->cParams; ++i) {
            const ELEMDESC& parameter = description_->lprgelemdescParam[i];
            text += (i > 0 ? ", " : "") + directionOf(parameter.paramdesc.wParamFlags) +
                    nameOf(parameter.tdesc) + ' ' + names.at(static_cast<std::size_t>(i) + 1);
        }
        return text + ')';
    }

private:
    ITypeInfoPtr owner_;
    FUNCDESC* description_ = nullptr;
};

class TypeLibrary : public testing::Test
{
protected:
    TypeLibrary()
    {
        _com_util::CheckError(LoadTypeLibEx(ServerModule::builtFile().c_str(), REGKIND_NONE, &library_));
        _com_util::CheckError(library_->GetTypeInfoOfGuid(IID_IDocument, &dispatch_));
        HREFTYPE reference = 0;
        _com_util::CheckError(dispatch_->GetRefTypeOfImplType(static_cast<UINT>(-1), &reference));
        _com_util::CheckError(dispatch_->GetRefTypeInfo(reference, &table_));
    }

    /// "Name: first = 1, second = 2" of every enumeration in the library.
    std::vector<std::string> enumerations() const
    {
        std::vector<std::string> found;
        for (UINT i = 0; i < library_->GetTypeInfoCount(); ++i) {
            TYPEKIND kind{};
            _com_util::CheckError(library_->GetTypeInfoType(i, &kind));
            if (kind != TKIND_ENUM)
                continue;
            ITypeInfoPtr type;
            _com_util::CheckError(library_->GetTypeInfo(i, &type));
            found.push_back(nameOf(*type, MEMBERID_NIL) + ':' + valuesOf(*type));
        }
        return found;
    }

    static std::string nameOf(ITypeInfo& type, MEMBERID member)
    {
        BSTR name = nullptr;
        _com_util::CheckError(type.GetDocumentation(member, &name, nullptr, nullptr, nullptr));
        return narrow(_bstr_t(name, false));
    }

    static std::string helpOf(ITypeInfo& type, MEMBERID member)
    {
        BSTR help = nullptr;
        _com_util::CheckError(type.GetDocumentation(member, nullptr, &help, nullptr, nullptr));
        return narrow(_bstr_t(help, false));
    }

    static std::string valuesOf(ITypeInfo& type)
    {
        TYPEATTR* attributes = nullptr;
        _com_util::CheckError(type.GetTypeAttr(&attributes));
        const UINT count = attributes->cVars;
        type.ReleaseTypeAttr(attributes);
        std::string text;
        for (UINT i = 0; i < count; ++i) {
            VARDESC* constant = nullptr;
            _com_util::CheckError(type.GetVarDesc(i, &constant));
            text += (i > 0 ? ", " : " ") + nameOf(type, constant->memid) + " = " +
                    std::to_string(constant->lpvarValue->lVal);
            type.ReleaseVarDesc(constant);
        }
        return text;
    }

    ITypeLibPtr library_;
    ITypeInfoPtr dispatch_; ///< as scripts see it
    ITypeInfoPtr table_;    ///< as compilers do
};

TEST_F(TypeLibrary, TellsCompilersEveryMethodWithItsSlot)
{
    TYPEATTR* attributes = nullptr;
    ASSERT_THAT(table_->GetTypeAttr(&attributes), isHresult(S_OK));
    EXPECT_EQ(attributes->typekind, TKIND_INTERFACE);
    EXPECT_EQ(attributes->wTypeFlags & TYPEFLAG_FDUAL, TYPEFLAG_FDUAL);
    EXPECT_EQ(attributes->cFuncs, methods.size());
    EXPECT_EQ(attributes->cbSizeVft, (7 + methods.size()) * sizeof(void*));
    table_->ReleaseTypeAttr(attributes);
    ASSERT_EQ(methods.size(), 42U);
    for (UINT i = 0; i < methods.size(); ++i) {
        SCOPED_TRACE(methods[i]);
        const Function function(table_, i);
        EXPECT_EQ(function.text(), methods[i]);
        EXPECT_EQ((*function).memid, static_cast<MEMBERID>(i + 1));
        EXPECT_EQ((*function).oVft, static_cast<SHORT>((7 + i) * sizeof(void*)));
        EXPECT_EQ((*function).elemdescFunc.tdesc.vt, VT_HRESULT);
        EXPECT_EQ((*function).invkind, INVOKE_FUNC);
        EXPECT_EQ((*function).callconv, CC_STDCALL);
        EXPECT_EQ((*function).cParamsOpt, 0);
        EXPECT_EQ((*function).wFuncFlags, 0);
    }
}

TEST_F(TypeLibrary, TellsScriptHostsTheSameMethodsBehindTheirOwnSeven)
{
    TYPEATTR* attributes = nullptr;
    ASSERT_THAT(dispatch_->GetTypeAttr(&attributes), isHresult(S_OK));
    EXPECT_EQ(attributes->typekind, TKIND_DISPATCH);
    const UINT inherited = 7;
    ASSERT_EQ(attributes->cFuncs, inherited + methods.size());
    dispatch_->ReleaseTypeAttr(attributes);
    for (UINT i = 0; i < methods.size(); ++i) {
        SCOPED_TRACE(methods[i]);
        const Function function(dispatch_, inherited + i);
        EXPECT_EQ(function.text(), methods[i]);
        EXPECT_EQ((*function).memid, static_cast<MEMBERID>(i + 1));
        EXPECT_EQ((*function).elemdescFunc.tdesc.vt, VT_VOID);
        EXPECT_EQ((*function).invkind, INVOKE_FUNC);
    }
}

TEST_F(TypeLibrary, SaysOfEveryMethodInASentenceWhatItDoes)
{
    for (UINT i = 0; i < methods.size(); ++i) {
        const std::string help = helpOf(*table_, static_cast<MEMBERID>(i + 1));
        EXPECT_GE(help.size(), 11U) << methods[i];
        EXPECT_TRUE(help.ends_with('.')) << methods[i] << ": " << help;
    }
}

TEST_F(TypeLibrary, NamesTheNumbersThatMethodsTake)
{
    EXPECT_EQ(enumerations(),
              (std::vector<std::string>{
                  "MirovelAlignment: mirovelAlignLeft = 1, mirovelAlignCentred = 2, mirovelAlignRight = 3, "
                  "mirovelAlignJustified = 4",
                  "MirovelFontAttribute: mirovelBold = 1, mirovelItalic = 2, mirovelUnderline = 4, "
                  "mirovelStrike = 8",
                  "MirovelField: mirovelFieldDate = 1, mirovelFieldTime = 2, mirovelFieldFileName = 3, "
                  "mirovelFieldPage = 4",
                  "MirovelOrientation: mirovelPortrait = 0, mirovelLandscape = 1",
                  "MirovelFileKind: mirovelFileEmbedded = 0, mirovelFileLinked = 2, mirovelFileHyperlink = 4",
                  "MirovelValueType: mirovelText = 1, mirovelInteger = 2, mirovelBoolean = 3"}));
}

TEST_F(TypeLibrary, SaysOfEveryTypeOfItsOwnWhatItIs)
{
    unsigned described = 0;
    for (UINT i = 0; i < library_->GetTypeInfoCount(); ++i) {
        ITypeInfoPtr type;
        _com_util::CheckError(library_->GetTypeInfo(i, &type));
        const std::string name = nameOf(*type, MEMBERID_NIL);
        if (!name.starts_with("Mirovel") && name != "IDocument")
            continue; // the system's, which came along
        EXPECT_FALSE(helpOf(*type, MEMBERID_NIL).empty()) << name;
        ++described;
    }
    EXPECT_EQ(described, 9U) << "six enumerations, the interface, two classes";
}

} // namespace
