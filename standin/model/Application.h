#pragma once

#include "Document.h"

#include <functional>
#include <string_view>
#include <vector>

namespace standin::model {

/// Word's application-wide settings that a client may turn.
struct Options
{
    bool checkSpellingAsYouType = true;
    bool checkGrammarAsYouType = true;
};

/// What one running Word holds: options and open documents.
class Application
{
public:
    /// New documents take the time from `clock`.
    explicit Application(const Switches& switches = {}, Clock clock = systemTime)
        : switches_(switches), clock_(std::move(clock))
    {
    }
    ~Application();
    Application(const Application&) = delete;
    Application& operator=(const Application&) = delete;

    Options options;

    /// Called with each document that is about to be closed, while it can still be read.
    std::function<void(const Document&)> whenClosing;

    /// How documents that are made from now on behave where it is not certain how Word does.
    void setSwitches(const Switches& switches) { switches_ = switches; }

    /// A new document named "Document<n>", n counting from 1 for the life of the application. When `fill`
    /// raises, there is none.
    DocumentPtr addDocument(const std::function<void(Document&)>& fill = {});
    std::int32_t documentCount() const { return static_cast<std::int32_t>(documents_.size()); }
    /// 1-based, the newest document first; raises 5941.
    DocumentPtr document(std::int32_t index) const;
    /// By name or full name, without case; raises 4160.
    DocumentPtr document(std::u16string_view name) const;
    const std::vector<DocumentPtr>& documents() const { return documents_; } ///< newest first
    /// Closes the document and takes it off the list.
    void close(Document& document);
    void closeAll();

private:
    Switches switches_;
    Clock clock_;
    std::vector<DocumentPtr> documents_;
    std::int32_t lastNumber_ = 0;
};

} // namespace standin::model
