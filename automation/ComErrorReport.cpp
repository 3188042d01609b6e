#include "ComErrorReport.h"

#include "DocSession.h"
#include "TextConversion.h"

#include <array>
#include <cstdio>
#include <ostream>

namespace {

constexpr HRESULT serverUnavailable = static_cast<HRESULT>(0x800706BA);

QdxString description(const _com_error& error)
{
    return error.Error() == serverUnavailable ? QdxString("Word is unavailable.")
                                              : toNarrow(error.ErrorMessage());
}

QdxString fullText(const DocSession& session, const char* activity, const _com_error& error)
{
    QdxString text = comErrorText(activity, error);
    text.append(toNarrow(session.events.furtherLines(error.Error()).c_str()));
    return text;
}

// Called while the object is being destroyed, which nothing may stop: without memory there is no report.
void traceComError(Trace& trace, const char* activity, const _com_error& error) noexcept
try {
    if (trace.isTrace(1))
        trace << comErrorText(activity, error) << std::endl;
} catch (...) { // NOLINT(bugprone-empty-catch): see above
}

} // namespace

QdxString comErrorText(const char* activity, const _com_error& error)
{
    std::array<char, 16> code{};
    std::snprintf(code.data(), code.size(), "0x%x", static_cast<unsigned>(error.Error()));
    QdxString text = activity;
    text.append("\nCOMERROR ").append(code.data()).append("\n").append(description(error));
    return text;
}

void reportComError(DocSession& session, const char* activity, const _com_error& error)
{
    session.events.reporting(error.Error());
    if (!session.quietErrors)
        throwLogged(QdxException(fullText(session, activity, error)));
    traceComError(session.trace, activity, error);
    session.diagnostics.tell([&] {
        return diagnostics::Event{.severity = diagnostics::Severity::error,
                                  .what = std::string("Not told, since the object is being released: ") +
                                          activity,
                                  .code = static_cast<std::uint32_t>(error.Error())};
    });
}

void raiseWithText(const DocSession& session)
try {
    throw;
} catch (const _com_error& error) {
    const char* const method = session.events.lastMethod();
    throwLogged(QdxException(fullText(session, method ? method : "", error)));
}

void logCaught(const QdxException& exception)
{
    QdxLogBase* const log = QdxException::getLog();
    if (log->isOn("Catch"))
        *log << "Exception catch: " << exception.reasonText() << std::endl;
}

void throwLogged(const QdxException& exception)
{
    QdxLogBase* const log = QdxException::getLog();
    if (log->isOn("Throw"))
        *log << "Exception throw: " << exception.reasonText() << std::endl;
    throw exception;
}
