#pragma once

#include "CallFrame.h"
#include "CallerAddress.h"
#include "DocSession.h"
#include "EchoLine.h"
#include "Mirovel.h"
#include "TextConversion.h"

#include "CallPolicy.h"

/// What the method bodies of `Mirovel` share: the echo and the frame.

/// The trace level from which calls are echoed.
inline constexpr int echoLevel = 10;

/// A method that a client has called, from its beginning to its end: Word is called as the session's settings
/// say, and what happens meanwhile is told under the method's name.
class MethodScope
{
public:
    /// `method`: a literal.
    MethodScope(DocSession& session, const char* method) noexcept
        : events_(session.events), outer_(session.events.enter(method)), calls_(session.wordCalls)
    {
    }
    ~MethodScope() { events_.leave(outer_); }
    MethodScope(const MethodScope&) = delete;
    MethodScope& operator=(const MethodScope&) = delete;

    /// Raises what was silent so far, where that is wanted. A method that another one calls leaves it to
    /// that.
    void raiseWhatWasSilent() const
    {
        if (!outer_ && events_.isAnythingKept()) [[unlikely]]
            events_.raiseKept();
    }
    /// What a method returns that has not failed.
    [[nodiscard]] HRESULT done() const
    {
        raiseWhatWasSilent();
        return S_OK;
    }
    /// The same for one that does nothing.
    [[nodiscard]] HRESULT ignored(Silence why, std::wstring_view concerned = {}) const
    {
        events_.ignored(why, concerned);
        return done();
    }

private:
    SessionEvents& events_;
    const char* outer_;
    Word::CallScope calls_;
};

/// A text argument echoed without quotes.
struct Bare
{
    BSTR text;
};

/// How an argument is echoed: text between quotes, anything else as it is. Converted only when there is an
/// echo.
/// @{
inline Quoted echoed(BSTR text)
{
    return {toNarrow(text)};
}

inline QdxString echoed(const Bare& argument)
{
    return toNarrow(argument.text);
}

template <class Argument>
const Argument& echoed(const Argument& argument)
{
    return argument;
}
/// @}

inline bool Mirovel::echoes() const
{
    return session_->trace.isTrace(echoLevel);
}

template <class... Arguments>
void Mirovel::echo(const char* method, const Arguments&... arguments)
{
    if (echoes())
        EchoLine<Trace>(session_->trace).call(method, echoed(arguments)...);
}

template <class Work>
void Mirovel::framed(const char* activity, Work&& work)
{
    runInFrame(*session_, activity, work);
}

template <class Work>
void Mirovel::withWriter(Work&& work)
{
    if (session_->writer)
        work(*session_->writer);
    else
        session_->events.ignored(Silence::noDocument, {});
}
