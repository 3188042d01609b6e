#pragma once

#include "ComErrorReport.h"
#include "DocSession.h"
#include "general/CSignal2Exception.h"
#include "general/QdxException.h"

#include <comdef.h>

/// Runs a method's work so that only what clients are to see leaves it. Hardware faults inside become
/// exceptions.
///  - A failed Word call goes to `onComError`, whose own exception reaches the client.
///  - Every other exception is swallowed: the method returns as if it had done its work.
template <class Work, class OnComError>
void runInFrame(Work&& work, OnComError&& onComError)
{
    try {
        const CSignal2Exception guard;
        work();
    } catch (const _com_error& error) {
        onComError(error);
    } catch (...) {
    }
}

/// The frame of nearly all methods: Word calls are made as the session's settings say, and a failed one is
/// reported under the name of the activity.
template <class Work>
void runInFrame(DocSession& session, const char* activity, Work&& work)
{
    const Word::CallScope calls(session.wordCalls);
    runInFrame(work, [&](const _com_error& error) { reportComError(session, activity, error); });
}

/// The frame of diagrams: of the other exceptions only `QdxException` is swallowed, and noted in the
/// exception log when its category "Catch" is on.
template <class Work>
void runInDiagramFrame(DocSession& session, const char* activity, Work&& work)
{
    try {
        const CSignal2Exception guard;
        work();
    } catch (const _com_error& error) {
        reportComError(session, activity, error);
    } catch (const QdxException& exception) {
        logCaught(exception);
    }
}
