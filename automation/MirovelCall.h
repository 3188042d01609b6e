#pragma once

#include "CallFrame.h"
#include "CallerAddress.h"
#include "DocSession.h"
#include "EchoLine.h"
#include "Mirovel.h"
#include "TextConversion.h"

/// What the method bodies of `Mirovel` share: the echo and the frame.

/// The trace level from which calls are echoed.
inline constexpr int echoLevel = 10;

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
    if (!session_->writer)
        return;
    const Word::CallScope calls(session_->wordCalls);
    work(*session_->writer);
}
