#pragma once

#include "ComErrorReport.h"
#include "DocSession.h"
#include "general/CSignal2Exception.h"
#include "general/QdxException.h"

#include <comdef.h>

/// Why the frame swallows, for the diagnostics.
inline constexpr char swallowingRule[] = "of what fails in it the method tells failed Word calls alone";

/// Runs a method's work so that only what clients are to see leaves it. Hardware faults inside become
/// exceptions.
///  - A failed Word call goes to `onComError`, whose own exception reaches the client.
///  - Every other exception is swallowed; `onSwallowed` hears of it. The method returns as if it had done its
///    work.
template <class Work, class OnComError, class OnSwallowed>
void runInFrame(Work&& work, OnComError&& onComError, OnSwallowed&& onSwallowed)
{
    try {
        const CSignal2Exception guard;
        work();
    } catch (const _com_error& error) {
        onComError(error);
    } catch (...) {
        onSwallowed();
    }
}

/// The frame of nearly all methods: a failed Word call is reported under the name of the activity.
template <class Work>
void runInFrame(DocSession& session, const char* activity, Work&& work)
{
    runInFrame(
        work, [&](const _com_error& error) { reportComError(session, activity, error); },
        [&] { session.events.swallowed(swallowingRule); });
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
        session.events.swallowed(swallowingRule);
    }
}
