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
    const QdxString text = comErrorText(activity, error);
    if (!session.quietErrors)
        throwLogged(QdxException(text));
    if (session.trace.isTrace(1))
        session.trace << text << std::endl;
}

void throwLogged(const QdxException& exception)
{
    QdxLogBase* const log = QdxException::getLog();
    if (log->isOn("Throw"))
        *log << "Exception throw: " << exception.reasonText() << std::endl;
    throw exception;
}
