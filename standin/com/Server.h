#pragma once

#include "Application.h"
#include "CalledMember.h"
#include "Faults.h"
#include "TranscriptValue.h"

#include <Word.h>
#include <functional>
#include <map>
#include <memory>
#include <optional>
#include <string>
#include <string_view>

namespace standin {
_COM_SMARTPTR_TYPEDEF(ITypeInfo, __uuidof(ITypeInfo));
_COM_SMARTPTR_TYPEDEF(ITypeLib, __uuidof(ITypeLib));

class ApplicationObject;
class DocumentObject;
class StandinObject;

/// What all objects of one Word stand-in share: the model, the transcript, the faults, the counts.
///
/// It lives until the last of its objects is gone. Used from the one apartment that its objects live in.
class Server final : public std::enable_shared_from_this<Server>, private ObjectNames
{
public:
    using TranscriptSink = std::function<void(const std::string& line, const CalledMember& member)>;
    using InsertedFileSink = std::function<void(const std::wstring& file, const std::string& bytes)>;
    using FileKeeper = std::function<std::optional<std::string>(const std::wstring& file)>;

    static std::shared_ptr<Server> make(const model::Switches& switches);
    ~Server();
    Server(const Server&) = delete;
    Server& operator=(const Server&) = delete;

    /// \name Life
    ///@{
    /// Starts a Word: an application object and an empty model. The objects of an earlier one stay dead.
    void start(bool visible = false);
    /// The application has ended: documents are closed, and every object answers RPC_E_DISCONNECTED from now
    /// on.
    void end();
    bool hasEnded() const { return ended_; }
    /// Which start it is; an object belongs to the life that it was made in.
    int life() const { return life_; }
    /// Called once when the application has ended.
    std::function<void()> whenEnded;
    ///@}

    /// \name Objects
    ///@{
    model::Application& model() { return *model_; }
    /// What documents take the time from; of the next start.
    model::Clock clock = model::systemTime;
    Word::_ApplicationPtr application() const;
    /// The one object of an open document.
    Word::_DocumentPtr document(const model::DocumentPtr& document);
    /// Enters a document that has a file in the running object table, until it is closed.
    void enterDocument(const model::DocumentPtr& document);
    void closeDocument(model::Document& document);
    bool documentsInRunningObjectTable = false;
    bool writesFiles = true; ///< when a document is saved
    FileKeeper keptFiles;    ///< is asked for a file's content before the file is
    std::string contentOf(const std::wstring& file) const;
    InsertedFileSink insertedFiles; ///< is shown each file that is read in
    ITypeInfoPtr typeInfo(const IID& interfaceId);

    void objectBorn() { ++liveObjects_; }
    void objectDied() { --liveObjects_; }
    void documentObjectDied(const model::Document& document);
    /// Without the application object as long as only this holds it.
    long liveObjects() const;
    ///@}

    /// \name Calls
    ///@{
    TranscriptSink transcript;
    Faults faults;
    long callCount() const { return callCount_; }
    /// A call came in: counts it unless it is rejected, and answers with which HRESULT it is to fail, or
    /// S_OK.
    HRESULT countCall();
    void note(const std::string& line, const CalledMember& member = {});
    ObjectNames& names() { return *this; }
    /// "table", "table2", ...: what objects of an interface are called that no expression names.
    std::string ordinalName(std::string_view interfaceName);
    /// A document keeps its name: "document", "document2".
    std::string documentName(const model::Document& document);
    /// The expression, from its second use on with a number: "body.Duplicate", "body.Duplicate#2".
    std::string numberedName(const std::string& expression);
    ///@}

private:
    struct KnownDocument
    {
        DocumentObject* object = nullptr; ///< not counted: the object reports its end
        std::string name;
        DWORD registration = 0;
    };

    explicit Server(const model::Switches& switches) : switches_(switches) {}
    std::string nameOf(IUnknown* object) override;
    void revokeDocument(const model::Document& document);
    void closeDocuments();

    model::Switches switches_;
    std::unique_ptr<model::Application> model_;
    Word::_ApplicationPtr application_;
    ITypeLibPtr library_;
    std::map<const model::Document*, KnownDocument> documents_;
    void forget(std::map<const model::Document*, KnownDocument>::iterator known);
    int nextUse(const std::string& name);

    std::map<std::string, int> uses_; ///< of names in the transcript
    long liveObjects_ = 0;
    long callCount_ = 0;
    int life_ = 0;
    bool ended_ = true;
};
} // namespace standin
