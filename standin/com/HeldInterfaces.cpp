#include "HeldInterfaces.h"

#include <algorithm>
#include <array>

namespace standin {

namespace {

const std::array heldInterfaces = {
    __uuidof(IDispatch),
    __uuidof(Word::_Application),
    __uuidof(Word::Bookmark),
    __uuidof(Word::Bookmarks),
    __uuidof(Word::Cell),
    __uuidof(Word::Cells),
    __uuidof(Word::Column),
    __uuidof(Word::Columns),
    __uuidof(Word::_Document),
    __uuidof(Word::Documents),
    __uuidof(Word::Field),
    __uuidof(Word::Fields),
    __uuidof(Word::_Font),
    __uuidof(Word::HeaderFooter),
    __uuidof(Word::HeadersFooters),
    __uuidof(Word::Hyperlink),
    __uuidof(Word::Hyperlinks),
    __uuidof(Word::InlineShape),
    __uuidof(Word::InlineShapes),
    __uuidof(Word::Options),
    __uuidof(Word::PageSetup),
    __uuidof(Word::_ParagraphFormat),
    __uuidof(Word::Range),
    __uuidof(Word::Row),
    __uuidof(Word::Rows),
    __uuidof(Word::Section),
    __uuidof(Word::Sections),
    __uuidof(Word::Style),
    __uuidof(Word::Styles),
    __uuidof(Word::Table),
    __uuidof(Word::TableOfContents),
    __uuidof(Word::Tables),
    __uuidof(Word::TablesOfContents),
};

/// Has these interfaces, and answers no calls: nobody gets hold of it.
class Nobody final : public IUnknown
{
public:
    HRESULT STDMETHODCALLTYPE QueryInterface(REFIID id, void** result) noexcept override
    {
        const bool isHeld =
            id == __uuidof(IUnknown) || std::ranges::find(heldInterfaces, id) != heldInterfaces.end();
        *result = isHeld ? this : nullptr;
        return isHeld ? S_OK : E_NOINTERFACE;
    }
    ULONG STDMETHODCALLTYPE AddRef() noexcept override { return 2; }
    ULONG STDMETHODCALLTYPE Release() noexcept override { return 1; }
};

} // namespace

HeldInterfaces::HeldInterfaces()
{
    static Nobody nobody;
    for (const IID& interfaceId : heldInterfaces) {
        IStreamPtr stream;
        _com_util::CheckError(CreateStreamOnHGlobal(nullptr, TRUE, &stream));
        _com_util::CheckError(
            CoMarshalInterface(stream, interfaceId, &nobody, MSHCTX_LOCAL, nullptr, MSHLFLAGS_TABLESTRONG));
        marshaled_.push_back(stream);
    }
}

HeldInterfaces::~HeldInterfaces()
{
    for (const IStreamPtr& stream : marshaled_) {
        stream->Seek({}, STREAM_SEEK_SET, nullptr);
        CoReleaseMarshalData(stream);
    }
}

} // namespace standin
