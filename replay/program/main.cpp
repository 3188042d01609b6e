// mirovel-replay.exe: makes the calls of a trace log. docs/replay.md says how it is used.
#include "Replay.h"

#include "TextConversion.h"

#include <comdef.h>

#include <atomic>

namespace {

using namespace replay;

std::atomic<bool> interrupted = false;

/// The first time, the call that is being made is the last one; the second time, Windows ends the program.
BOOL WINAPI onControl(DWORD event) noexcept
{
    const bool isOurs = event == CTRL_C_EVENT || event == CTRL_BREAK_EVENT;
    return isOurs && !interrupted.exchange(true) ? TRUE : FALSE;
}

class Apartment
{
public:
    Apartment() { _com_util::CheckError(CoInitializeEx(nullptr, COINIT_APARTMENTTHREADED)); }
    ~Apartment() { CoUninitialize(); }
    Apartment(const Apartment&) = delete;
    Apartment& operator=(const Apartment&) = delete;
};

ExitStatus run(const Options& options, const Console& console)
{
    SetConsoleCtrlHandler(nullptr, FALSE); // A caller may have had Ctrl-C ignored.
    SetConsoleCtrlHandler(onControl, TRUE);
    const Apartment apartment;
    return replayLogs(options, console, [] { return interrupted.load(); });
}

} // namespace

int wmain(int count, wchar_t** values)
{
    const Console console;
    std::vector<std::string> arguments;
    for (int i = 1; i < count; ++i)
        arguments.push_back(toUtf8(values[i]));
    const std::variant<Options, Answer> parsed = parseOptions(std::move(arguments));
    if (const auto* const answer = std::get_if<Answer>(&parsed)) {
        answer->isRefusal ? console.complain(answer->text) : console.say(answer->text);
        return static_cast<int>(answer->isRefusal ? ExitStatus::usage : ExitStatus::done);
    }
    return static_cast<int>(run(std::get<Options>(parsed), console));
}
