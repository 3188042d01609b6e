#pragma once

#include "Diagnostics.h"
#include "WriterEvents.h"

#include "CallObserver.h"

#include <comdef.h>
#include <optional>
#include <set>
#include <string>
#include <string_view>
#include <vector>

/// Everything that happens to a session and that its client is not told of, or not all of it. It goes to the
/// diagnostics; and with "Word"/"Strict" what was silent is kept until the client's call is over, and raised
/// then.
///
/// None of it raises but `raiseKept`, and none of it costs more than a branch or two while nobody wants to
/// know.
class SessionEvents : public WriterEvents, public Word::CallObserver
{
public:
    explicit SessionEvents(diagnostics::Diagnostics& diagnostics) noexcept : diagnostics_(diagnostics) {}

    void setStrict(bool isStrict) noexcept { isStrict_ = isStrict; }
    [[nodiscard]] bool isStrict() const noexcept { return isStrict_; }
    /// From now on nothing is kept: there is nobody to raise it to.
    void setQuiet() noexcept { isQuiet_ = true; }

    /// \name The client's calls
    /// @{
    /// A method begins; a literal. Returns the one that has called it, or null.
    const char* enter(const char* method) noexcept;
    /// It ends, and `outer` goes on.
    void leave(const char* outer) noexcept;
    /// A failed call with that code is going to be told.
    void reporting(HRESULT code) noexcept { reportedCode_ = code; }
    /// The method that has ended last; null: none.
    [[nodiscard]] const char* lastMethod() const noexcept { return lastMethod_; }
    /// What a method that has ended told its client; only while its exception is being handled.
    void toldTheClient() noexcept;
    [[nodiscard]] bool isAnythingKept() const noexcept { return !kept_.empty(); }
    /// Raises `QdxException` with what was kept, and forgets it.
    [[noreturn]] void raiseKept();
    /// Links that lead nowhere are told when their document is safe, which it is now.
    void documentIsSafe() noexcept;
    /// @}

    /// An exception goes no further; only while it is being handled. `rule`: by which.
    void swallowed(const char* rule) noexcept;

    /// Further lines of the text for a failed Word call; empty unless strict.
    [[nodiscard]] std::wstring furtherLines(HRESULT code) const;

    // WriterEvents
    void ignored(Silence why, std::wstring_view concerned) noexcept override;
    void flushed(const Flush& flush) noexcept override;
    void flushFailed(std::u16string_view clientCall) noexcept override;
    void fragmentRefused(std::size_t size) noexcept override;

    // Word::CallObserver
    void retrying(const Word::CallName& name, HRESULT code) override;
    void retried(const Word::CallName& name, int attempts, std::chrono::milliseconds elapsed,
                 HRESULT outcome) override;
    void failed(const Word::FailedCall& call) override;

private:
    struct Failure
    {
        HRESULT code;
        std::wstring call; ///< "Documents.Add("c:\a.dot")"
        std::wstring description;
        std::wstring source;
    };

    [[nodiscard]] bool areAnyWanted() const noexcept { return isStrict_ || diagnostics_.isOn(); }
    void keep(std::wstring text);

    diagnostics::Diagnostics& diagnostics_;
    bool isStrict_ = false;
    bool isQuiet_ = false;
    const char* method_ = nullptr;     ///< the one that Word is called for
    const char* lastMethod_ = nullptr; ///< the one that ended last
    std::vector<std::wstring> kept_;
    std::set<std::wstring> deadLinks_; ///< tags of links of the open document
    HRESULT reportedCode_ = S_OK;
    std::optional<Failure> lastFailure_;
    std::wstring flushedCall_; ///< the client's call that the last failed flush was about
};
