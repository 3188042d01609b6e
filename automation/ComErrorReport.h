#pragma once

#include "QdxString.h"
#include "general/QdxException.h"

#include <comdef.h>

struct DocSession;

/// The text for a failed Word call: the activity, the code and what the system says about it, on a line each.
QdxString comErrorText(const char* activity, const _com_error& error);

/// Throws a `QdxException` with that text, and with "Word"/"Strict" all that is known of the failure behind
/// it; while the session's errors are quiet, writes it to the trace at level 1 instead; nothing is thrown
/// then.
void reportComError(DocSession& session, const char* activity, const _com_error& error);

/// Passes the exception on that is being handled; a failed Word call with the text that a frame would give it
/// under the name of the method that has ended.
[[noreturn]] void raiseWithText(const DocSession& session);

/// Notes an exception that goes no further in the exception log, when its category "Catch" is on.
void logCaught(const QdxException& exception);

/// Throws `exception`, after a line in the exception log when its category "Throw" is on.
[[noreturn]] void throwLogged(const QdxException& exception);
