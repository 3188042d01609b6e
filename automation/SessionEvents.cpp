#include "SessionEvents.h"

#include "SilenceText.h"

#include "BusyWord.h"
#include "CodeMeaning.h"
#include "TextConversion.h"
#include "general/QdxException.h"

#include <cstdint>
#include <exception>
#include <utility>

namespace {

using diagnostics::Event;
using diagnostics::Severity;

std::wstring widened(std::string_view ascii)
{
    return {ascii.begin(), ascii.end()};
}

std::wstring textOf(const _bstr_t& text)
{
    return {static_cast<const wchar_t*>(text), text.length()};
}

std::string nameOf(const Word::CallName& name)
{
    const char* const verb = name.kind == Word::CallKind::propertyPut ? "put " : "";
    return std::string(name.interfaceName) + "." + verb + name.member;
}

std::wstring textOfCurrentException()
try {
    throw;
} catch (const _com_error& error) {
    return error.ErrorMessage();
} catch (const std::exception& exception) {
    return static_cast<const wchar_t*>(toWide(exception.what()));
} catch (...) {
    return L"an exception of unknown type";
}

std::optional<std::uint32_t> codeOfCurrentException()
try {
    throw;
} catch (const _com_error& error) {
    return static_cast<std::uint32_t>(error.Error());
} catch (...) {
    return {};
}

std::string milliseconds(std::chrono::milliseconds time)
{
    return std::to_string(time.count()) + " ms";
}

} // namespace

const char* SessionEvents::enter(const char* method) noexcept
{
    diagnostics_.setMethod(method);
    if (!method_ && lastFailure_) [[unlikely]] {
        lastFailure_.reset();
        flushedCall_.clear();
    }
    return std::exchange(method_, method);
}

void SessionEvents::leave(const char* outer) noexcept
{
    diagnostics_.setMethod(outer);
    lastMethod_ = std::exchange(method_, outer);
    if (outer)
        return;
    kept_.clear();
}

void SessionEvents::toldTheClient() noexcept
{
    // A method of the object's own that has called it is still to decide what becomes of it.
    if (method_ || !diagnostics_.isOn())
        return;
    const char* const outer = diagnostics_.setMethod(lastMethod_);
    const HRESULT reported = std::exchange(reportedCode_, S_OK);
    diagnostics_.tell([&] {
        Event event{.severity = Severity::error,
                    .what = "The client is told: " + toUtf8(textOfCurrentException()),
                    .code = codeOfCurrentException()};
        if (!event.code && FAILED(reported))
            event.code = static_cast<std::uint32_t>(reported);
        return event;
    });
    diagnostics_.setMethod(outer);
}

void SessionEvents::raiseKept()
{
    std::wstring text;
    for (const std::wstring& each : std::exchange(kept_, {}))
        text.append(text.empty() ? L"" : L"\n").append(each);
    throw QdxException(toNarrow(text.c_str()));
}

void SessionEvents::documentIsSafe() noexcept
try {
    for (const std::wstring& tag : std::exchange(deadLinks_, {}))
        keep(strictText(widened(method_ ? method_ : ""), Silence::missingTag, tag));
} catch (...) { // NOLINT(bugprone-empty-catch): without memory nobody is told
}

void SessionEvents::keep(std::wstring text)
{
    if (isStrict_ && !isQuiet_)
        kept_.push_back(std::move(text));
}

void SessionEvents::swallowed(const char* rule) noexcept
try {
    if (!areAnyWanted())
        return;
    const std::wstring text = textOfCurrentException();
    keep(strictText(widened(method_ ? method_ : ""), Silence::swallowed, text));
    diagnostics_.tell([&] {
        return Event{.severity = Severity::warning,
                     .what = "Swallowed: " + toUtf8(text) + " (" + rule + ")",
                     .code = codeOfCurrentException()};
    });
} catch (...) { // NOLINT(bugprone-empty-catch): without memory nobody is told
}

void SessionEvents::ignored(Silence why, std::wstring_view concerned) noexcept
try {
    if (!areAnyWanted())
        return;
    const SilenceText& text = ::textOf(why);
    if (why == Silence::missingTag) {
        if (!isQuiet_)
            deadLinks_.emplace(concerned);
    } else if (text.isRaised) {
        keep(strictText(widened(method_ ? method_ : ""), why, concerned));
    }
    diagnostics_.tell([&] {
        return Event{.severity = text.isRaised ? Severity::warning : Severity::info,
                     .what = "Nothing done: " + toUtf8(whatIsWrong(why, concerned)),
                     .remedy = toUtf8(text.remedy)};
    });
} catch (...) { // NOLINT(bugprone-empty-catch): without memory nobody is told
}

void SessionEvents::flushed(const Flush& flush) noexcept
{
    diagnostics_.tell([&] {
        return Event{.what = "Brought into Word: " + std::to_string(flush.operations) + " operations, " +
                             std::to_string(flush.fragments) + " fragments, in " + milliseconds(flush.time)};
    });
}

void SessionEvents::flushFailed(std::u16string_view clientCall) noexcept
try {
    if (!areAnyWanted())
        return;
    flushedCall_.assign(clientCall.begin(), clientCall.end());
    diagnostics_.tell([this] {
        return Event{.severity = Severity::warning,
                     .what = "Failed while bringing into Word what waited, at the client's call " +
                             toUtf8(flushedCall_)};
    });
} catch (...) { // NOLINT(bugprone-empty-catch): without memory nobody is told
}

void SessionEvents::fragmentRefused(std::size_t size) noexcept
{
    diagnostics_.tell([&] {
        return Event{.severity = Severity::warning,
                     .what = "Word did not take a fragment of " + std::to_string(size) +
                             " bytes; it goes call by call, and so does the rest of the document"};
    });
}

void SessionEvents::retrying(const Word::CallName& name, HRESULT code)
{
    diagnostics_.tell([&] {
        return Event{.severity = Severity::warning,
                     .what = "Word is busy; repeating " + nameOf(name),
                     .code = static_cast<std::uint32_t>(code)};
    });
}

void SessionEvents::retried(const Word::CallName& name, int attempts, std::chrono::milliseconds elapsed,
                            HRESULT outcome)
{
    diagnostics_.tell([&] {
        const bool isTaken = !Word::isRejected(outcome); // which is no success yet
        Event event{.severity = isTaken ? Severity::info : Severity::warning,
                    .what = nameOf(name) + (isTaken ? " went through" : " did not go through") + " after " +
                            std::to_string(attempts) + " attempts and " + milliseconds(elapsed)};
        if (FAILED(outcome))
            event.code = static_cast<std::uint32_t>(outcome);
        return event;
    });
}

void SessionEvents::failed(const Word::FailedCall& call)
{
    if (!areAnyWanted())
        return;
    Failure failure{call.error().Error(), widened(nameOf(call.name())) + L"(" + call.arguments() + L")",
                    textOf(call.error().Description()), textOf(call.error().Source())};
    diagnostics_.tell([&] {
        return Event{.severity = Severity::warning,
                     .what = "Word call failed: " + toUtf8(failure.call),
                     .code = static_cast<std::uint32_t>(failure.code),
                     .description = toUtf8(failure.description),
                     .source = toUtf8(failure.source)};
    });
    lastFailure_ = std::move(failure);
}

std::wstring SessionEvents::furtherLines(HRESULT code) const
{
    std::wstring lines;
    if (!isStrict_)
        return lines;
    if (lastFailure_ && lastFailure_->code == code) {
        const Failure& failure = *lastFailure_;
        if (!failure.description.empty())
            lines.append(L"\n")
                .append(failure.source.empty() ? L"Word" : failure.source)
                .append(L": ")
                .append(failure.description);
        lines.append(L"\nWord call: ").append(failure.call);
    }
    if (!flushedCall_.empty())
        lines.append(L"\nBrought in for: ").append(flushedCall_);
    if (const diagnostics::CodeMeaning* const known =
            diagnostics::meaningOf(static_cast<std::uint32_t>(code)))
        lines.append(L"\n").append(widened(known->meaning)).append(L"\n").append(widened(known->remedy));
    return lines;
}
