#include "Replay.h"

#include "ClientObject.h"
#include "LogReader.h"
#include "Player.h"
#include "Progress.h"
#include "Script.h"

#include "TextConversion.h"
#include "tracedll/LogBeginning.h"

#include <algorithm>
#include <array>
#include <chrono>
#include <cstdio>
#include <filesystem>
#include <fstream>
#include <iterator>
#include <map>
#include <memory>
#include <stdexcept>

namespace replay {

namespace {

/// What ends the program before any call was made.
class CannotReplay : public std::runtime_error
{
public:
    CannotReplay(ExitStatus why, const std::string& text) : std::runtime_error(text), status(why) {}

    ExitStatus status;
};

std::filesystem::path pathOf(const std::string& name)
{
    return fromUtf8(name);
}

/// Word and the object have current folders of their own, or none.
std::string fullName(const std::string& name)
{
    std::error_code error;
    const std::filesystem::path full = std::filesystem::absolute(pathOf(name), error);
    return error ? name : toUtf8(full.wstring());
}

/// As the interface takes it: the code page must hold all of it.
std::string said(const std::string& text)
{
    const std::wstring wide = fromUtf8(text);
    const QdxString narrow = toNarrow(wide.c_str());
    if (static_cast<const wchar_t*>(toWide(narrow)) != wide && !wide.empty())
        throw CannotReplay(ExitStatus::usage, "This computer's code page lacks characters of " + text + ".");
    return narrow.data();
}

std::string bytesOf(const std::string& name)
{
    std::ifstream file(pathOf(name), std::ios::binary);
    if (!file)
        throw CannotReplay(ExitStatus::unreadable, name + ": The file cannot be read.");
    return {std::istreambuf_iterator<char>(file), {}};
}

/// An object that cannot open its log goes on without one, so the mistake has to be found here.
void requireTraceable(const std::string& name)
{
    const std::filesystem::path path = pathOf(name);
    std::error_code error;
    const bool isThere = std::filesystem::exists(path, error);
    if (std::filesystem::is_regular_file(path, error)) {
        std::string beginning(logBeginningSize, '\0');
        std::ifstream file(path, std::ios::binary);
        file.read(beginning.data(), logBeginningSize);
        beginning.resize(static_cast<std::size_t>(file.gcount()));
        if (!isLogBeginning(beginning))
            throw CannotReplay(ExitStatus::usage,
                               name + ": --log names a file that holds something else than a log.");
    }
    if (!std::ofstream(path, std::ios::binary | std::ios::app))
        throw CannotReplay(ExitStatus::usage, name + ": --log names a file that cannot be written.");
    if (!isThere)
        std::filesystem::remove(path, error);
}

/// The number and the noun: "1 call", "2 calls".
std::string counted(std::size_t number, const std::string& noun)
{
    return std::to_string(number) + " " + noun + (number == 1 ? "" : "s");
}

std::string oneLine(std::string text)
{
    std::string line;
    for (const char c : text)
        if (c == '\n')
            line += line.ends_with(':') ? " " : ": ";
        else if (c != '\r')
            line += c;
    while (line.ends_with(' ') || line.ends_with(':'))
        line.pop_back();
    return line;
}

/// A log, read, and what is to be done with it.
struct Task
{
    std::string name;
    Script script;
    std::size_t linesPassedOver = 0;
};

class Program
{
public:
    Program(const Options& options, const Console& console, const std::function<bool()>& isInterrupted)
        : options_(options), console_(console), isInterrupted_(isInterrupted)
    {
    }

    ExitStatus run()
    {
        // All mistakes that can be found first are, before anything is written.
        const std::vector<Setting> settings = allSettings();
        std::vector<Task> tasks;
        for (const std::string& log : options_.logs)
            tasks.push_back(taskFrom(log));
        if (options_.onlyChecks)
            return check(tasks);
        nameDocuments(tasks);
        bool isDoubtful = false;
        for (Task& task : tasks) {
            requireUnderstood(task);
            applySettings(task.script, settings);
            complete(task.script);
            isDoubtful = isDoubtful || task.linesPassedOver != 0;
        }
        const ExitStatus played = play(tasks, settings);
        return played == ExitStatus::done && isDoubtful ? ExitStatus::unreadable : played;
    }

private:
    std::vector<Setting> allSettings() const
    {
        std::vector<Setting> settings;
        const auto add = [&](const std::string& group, const std::string& name, const std::string& value) {
            settings.push_back({said(group), said(name), said(value)});
        };
        for (const Setting& setting : options_.settings)
            add(setting.group, setting.name, setting.value);
        if (!options_.templateName.empty()) {
            // A bare name means a file of the folder of templates.
            const bool isBare = options_.templateName.find_first_of("\\/:") == std::string::npos;
            add("Word", "WordTemplateName", isBare ? options_.templateName : fullName(options_.templateName));
        }
        if (!options_.log.empty()) {
            std::error_code error;
            for (const std::string& log : options_.logs)
                if (std::filesystem::equivalent(pathOf(log), pathOf(options_.log), error))
                    throw CannotReplay(ExitStatus::usage,
                                       options_.log + ": --log would write over what is to be read.");
            if (!options_.onlyChecks)
                requireTraceable(options_.log);
            add("Log", "LogName", fullName(options_.log));
        }
        return settings;
    }

    Task taskFrom(const std::string& name) const
    try {
        const ReadLog log = readLog(bytesOf(name));
        Task task{name, scriptOf(log)};
        if (options_.takesPart)
            keepLines(task.script, options_.lines);
        task.linesPassedOver = static_cast<std::size_t>(
            std::ranges::count(task.script.doubts, DoubtKind::notUnderstood, &Doubt::kind));
        return task;
    } catch (const NotALog& error) {
        throw CannotReplay(ExitStatus::unreadable, name + ": " + error.what());
    }

    void nameDocuments(std::vector<Task>& tasks) const
    {
        if (options_.output.empty()) {
            for (const Task& task : tasks)
                naming(task, [&] { requireNames(task.script); });
            return;
        }
        std::error_code error;
        const bool isFolder = std::filesystem::is_directory(pathOf(options_.output), error);
        if (!isFolder && tasks.size() > 1)
            throw CannotReplay(ExitStatus::usage,
                               options_.output + ": For more than one log a folder is needed.");
        const std::string place = said(fullName(options_.output));
        for (Task& task : tasks)
            naming(task, [&] {
                if (isFolder)
                    moveDocuments(task.script, place);
                else
                    nameDocument(task.script, place);
            });
    }

    template <class Work>
    static void naming(const Task& task, Work&& work)
    try {
        work();
    } catch (const NoSuchName& error) {
        throw CannotReplay(ExitStatus::usage, task.name + ": " + toUtf8(QdxString(error.what())));
    }

    ExitStatus check(const std::vector<Task>& tasks) const
    {
        ExitStatus status = ExitStatus::done;
        for (const Task& task : tasks) {
            std::map<std::string_view, std::size_t> counts;
            for (const Step& step : task.script.steps)
                if (step.kind == Step::Kind::call && !step.isAdded)
                    ++counts[formOf(step.call.method).name];
            std::size_t calls = 0;
            std::string methods;
            for (const auto& [method, count] : counts) {
                calls += count;
                const std::string number = std::to_string(count);
                methods += std::string(number.size() < 8 ? 8 - number.size() : 0, ' ') + number + "  " +
                           std::string(method) + '\n';
            }
            console_.say(task.name + ": " + counted(calls, "call") + "\n");
            if (!options_.isQuiet)
                console_.say(methods);
            tellDoubts(task);
            if (task.linesPassedOver != 0)
                status = ExitStatus::unreadable;
        }
        return status;
    }

    void tellDoubts(const Task& task) const
    {
        for (const std::string& line : reportOf(task.script.doubts))
            console_.say(line + "\n");
    }

    void requireUnderstood(const Task& task) const
    {
        if (task.linesPassedOver == 0 || options_.goesOn)
            return;
        std::string text = task.name + ": " + counted(task.linesPassedOver, "line") + " not understood:";
        for (const std::string& line : reportOf(task.script.doubts))
            text += "\n" + line;
        throw CannotReplay(ExitStatus::unreadable, text + "\n--continue-on-error passes over them.");
    }

    ExitStatus play(const std::vector<Task>& tasks, const std::vector<Setting>& settings) const
    {
        const PlayOptions playing = {.settings = settings,
                                     .level = options_.level,
                                     .rowHeight = options_.rowHeight,
                                     .showsLast = options_.showsLast,
                                     .goesOn = options_.goesOn};
        const std::unique_ptr<ObjectSource> source = makeSource();
        ExitStatus status = ExitStatus::done;
        for (const Task& task : tasks) {
            PlayOptions own = playing;
            own.showsLast = playing.showsLast && &task == &tasks.back();
            const ExitStatus played = play(task, *source, own);
            if (played == ExitStatus::interrupted)
                return played;
            if (played != ExitStatus::done)
                status = played;
            if (status != ExitStatus::done && !options_.goesOn)
                break;
        }
        return status;
    }

    std::unique_ptr<ObjectSource> makeSource() const
    {
        if (options_.dll.empty())
            return std::make_unique<RegisteredClass>();
        try {
            return std::make_unique<LibraryClass>(pathOf(fullName(options_.dll)).wstring());
        } catch (const _com_error& error) {
            throw CannotReplay(ExitStatus::noObject, options_.dll + ": " + toUtf8(error.ErrorMessage()));
        }
    }

    ExitStatus play(const Task& task, ObjectSource& source, const PlayOptions& playing) const
    {
        using Clock = std::chrono::steady_clock;
        if (!options_.isQuiet)
            tellDoubts(task);
        const auto begin = Clock::now();
        const auto seconds = [begin] { return std::chrono::duration<double>(Clock::now() - begin).count(); };
        ProgressReport progress(task.script.callCount(), console_.columns(), seconds,
                                [this](std::string_view text) { console_.complain(text); });
        Player player(
            source, playing,
            [&](std::size_t done) {
                if (!options_.isQuiet)
                    progress.reached(done);
            },
            isInterrupted_);
        Played played;
        try {
            played = player.play(task.script);
        } catch (const _com_error& error) {
            throw CannotReplay(
                ExitStatus::noObject,
                "There is no object to call: " + toUtf8(error.ErrorMessage()) +
                    (options_.dll.empty() ? "\nInstall Mirovelcom, or name its DLL with --dll." : ""));
        }
        progress.end();
        return tell(task, played, seconds());
    }

    ExitStatus tell(const Task& task, const Played& played, double seconds) const
    {
        for (const Failure& failure : played.failures)
            console_.complain(task.name + ", line " + std::to_string(failure.line) + ": " +
                              std::string(failure.method) + ": " +
                              oneLine(toUtf8(QdxString(failure.text.c_str()))) + "\n");
        std::array<char, 32> time{};
        std::snprintf(time.data(), time.size(), "%.1f s", seconds);
        if (!options_.isQuiet)
            console_.say(task.name + ": " + counted(played.calls, "call") + " in " + time.data() + ", " +
                         std::to_string(played.failures.size()) + " failed" +
                         (played.isInterrupted ? "; interrupted, document closed" : "") + "\n");
        return played.isInterrupted      ? ExitStatus::interrupted
               : played.failures.empty() ? ExitStatus::done
                                         : ExitStatus::callFailed;
    }

    const Options& options_;
    const Console& console_;
    const std::function<bool()>& isInterrupted_;
};

} // namespace

ExitStatus replayLogs(const Options& options, const Console& console,
                      const std::function<bool()>& isInterrupted)
try {
    return Program(options, console, isInterrupted).run();
} catch (const CannotReplay& error) {
    console.complain(std::string(error.what()) + "\n");
    return error.status;
}

} // namespace replay
