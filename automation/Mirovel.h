#pragma once

#include "QdxString.h"

#include "CComCoClass.h"
#include "CComObjectRootEx.h"
#include "CComSingleThreadModel.h"
#include "IDispatchImpl.h"
#include "InterfaceList.h"

#include "Word.h"
#include <IDocument.h>

#include <cstdint>
#include <memory>
#include <string_view>

class DocumentWriter;
struct DocSession;

/// The document generator that clients create as "Mirovel.Mirovel": checks the state of the session, echoes
/// the call into the trace and hands the work to the current writer or to Word.
///
/// Failures, seen by a client that calls the virtual table:
///  - A method called in the wrong state does nothing and returns S_OK, except `create` without `start`,
///    which returns E_FAIL.
///  - A failed Word call leaves most methods as a `QdxException` that names the activity; docs/interface.md
///    has the few that let `_com_error` through. A null Word pointer counts as a failed call with E_POINTER.
/// Through `IDispatch::Invoke` the same failures come back as DISP_E_EXCEPTION, and to a client in another
/// apartment as a HRESULT with an error object.
///
/// Threading: single-threaded apartment; every call arrives on the thread that made the object.
class Mirovel : public CComObjectRootEx<CComSingleThreadModel>,
                public CComCoClass<Mirovel, &CLSID_Mirovel>,
                public IDispatchImpl<IDocument, &IID_IDocument, &LIBID_MIROVELCOMLib, 1, 0>,
                public ISupportErrorInfo
{
public:
    using Interfaces = InterfaceList<IDocument, IDispatch, ISupportErrorInfo>;

    Mirovel();

    // IDocument
    STDMETHODIMP create(BSTR fileName) override;
    STDMETHODIMP close() override;
    STDMETHODIMP insertText(BSTR text) override;
    STDMETHODIMP insertEndl() override;
    STDMETHODIMP insertDiagram(long ptr, short width, short height) override;
    STDMETHODIMP insertPageBreak() override;
    STDMETHODIMP insertField(short field) override;
    STDMETHODIMP startHeader() override;
    STDMETHODIMP endHeader() override;
    STDMETHODIMP startFooter() override;
    STDMETHODIMP endFooter() override;
    STDMETHODIMP setStyle(BSTR style) override;
    STDMETHODIMP setFontName(BSTR name) override;
    STDMETHODIMP setOption(BSTR option, BSTR value) override;
    STDMETHODIMP trace(short level) override;
    STDMETHODIMP getPropPages(BSTR* bstrCLSID) override;
    STDMETHODIMP start() override;
    STDMETHODIMP stop() override;
    STDMETHODIMP showLast() override;
    STDMETHODIMP setFontSize(short size) override;
    STDMETHODIMP setFontAttribute(short att, VARIANT_BOOL value) override;
    STDMETHODIMP setTextAlign(short textAlign) override;
    STDMETHODIMP insertFile(BSTR fileName, short insertAsType) override;
    STDMETHODIMP getDocType(BSTR* docType) override;
    STDMETHODIMP overrideRegistry(BSTR group, BSTR name, BSTR value, short valueType) override;
    STDMETHODIMP insertTOC() override;
    STDMETHODIMP startTable() override;
    STDMETHODIMP endTable() override;
    STDMETHODIMP addCell() override;
    STDMETHODIMP addRow() override;
    STDMETHODIMP insertMark(long ptr, VARIANT_BOOL isPrimary) override;
    STDMETHODIMP startTOCEntry() override;
    STDMETHODIMP endTOCEntry() override;
    STDMETHODIMP insertImage(BSTR imageFileName, BSTR fileOrUrl) override;
    STDMETHODIMP setOrientation(short docorient) override;
    STDMETHODIMP setTableRowHeight(long points) override;
    STDMETHODIMP insertTag(BSTR tagName) override;
    STDMETHODIMP insertXref(BSTR text, BSTR tagName) override;
    STDMETHODIMP startFile(BSTR fileName) override;
    STDMETHODIMP insertLocate() override;
    STDMETHODIMP pushDirectory(BSTR directoryName) override;
    STDMETHODIMP popDirectory() override;

    // ISupportErrorInfo
    STDMETHODIMP InterfaceSupportsErrorInfo(REFIID iid) noexcept override;

protected:
    /// Closes the document and stops Word, unless the user can see Word. Errors go to the trace.
    ~Mirovel();

private:
    /// How an exception leaves a method; only within its handler.
    HRESULT failed(const void* caller) const;

    bool echoes() const;
    template <class... Arguments>
    void echo(const char* method, const Arguments&... arguments);
    template <class Work>
    void framed(const char* activity, Work&& work);
    /// Hands a call to the current writer; without one there is nothing to do.
    template <class Work>
    void withWriter(Work&& work);

    void connectToWord();
    void switchProofingOff();
    void restoreProofing();
    void closeRunningCopy();
    void makeDocument(BSTR fileName);
    void goBackTo(const Word::_DocumentPtr& document, const QdxString& name);
    void addDocument();
    void saveDocument(const DocumentWriter& writer);
    void completeDocument();
    void closeAllDocuments();
    void closeOwnDocuments();
    void quitWord();
    void deleteTemporaryFiles();

    void writeText(BSTR text);
    void writeTail(std::wstring_view text);
    bool splitAnchorMarkup(std::wstring_view text, std::size_t anchorPos, std::wstring_view& tail);

    std::unique_ptr<DocSession> session_;
};
