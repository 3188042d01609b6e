#include "Options.h"

#include "ExitStatus.h"

#include <CLI/CLI.hpp>

#include <algorithm>
#include <sstream>

namespace replay {

namespace {

constexpr const char* description =
    "Makes the calls that a trace log of Mirovelcom tells of, and so writes the document again.";

std::string footer()
{
    const auto line = [](ExitStatus status, const char* meaning) {
        const std::string number = std::to_string(static_cast<int>(status));
        return std::string(4 - number.size(), ' ') + number + "  " + meaning + '\n';
    };
    return "\nExit status:\n" +
           line(ExitStatus::done, "all calls were made; with --check: all was understood") +
           line(ExitStatus::callFailed, "a call failed") +
           line(ExitStatus::usage, "the command line makes no sense") +
           line(ExitStatus::unreadable, "a log could not be read, or lines of it were not understood") +
           line(ExitStatus::noObject, "there is no object to call") +
           line(ExitStatus::interrupted, "ended by Ctrl-C; the document was closed and its Word ended");
}

/// "Word/Strict=true"; nothing for anything else.
std::optional<Setting> settingFrom(const std::string& text)
{
    const std::size_t equals = text.find('=');
    const std::size_t slash = text.find('/');
    if (equals == text.npos || slash == 0 || slash >= equals || slash + 1 == equals)
        return std::nullopt;
    return Setting{text.substr(0, slash), text.substr(slash + 1, equals - slash - 1),
                   text.substr(equals + 1)};
}

const CLI::Validator isSetting(
    [](const std::string& text) {
        return settingFrom(text) ? std::string() : "Not of the form Group/Name=value: " + text;
    },
    "");

} // namespace

std::variant<Options, Answer> parseOptions(std::vector<std::string> arguments)
{
    Options options;
    CLI::App app(description, "mirovel-replay");
    // The same on all systems, and a log's name may begin with a slash.
    app.allow_windows_style_options(false);
    app.set_version_flag("--version", "mirovel-replay " MIROVEL_VERSION);
    app.footer(footer());

    app.add_option("LOG", options.logs, "Trace logs, one after the other")->required()->type_name("");
    app.add_option("--output", options.output,
                   "The document's name instead of that in the log; a folder for more than one")
        ->type_name("NAME");
    app.add_option("--template", options.templateName, "The Word template instead of that of the log")
        ->type_name("FILE");
    std::optional<int> tocLevel;
    app.add_option("--toc-level", tocLevel, "The deepest heading in the table of contents")
        ->check(CLI::Range(0, 50))
        ->type_name("N");
    std::vector<std::string> settings;
    app.add_option("--set", settings, "A setting instead of that of the log; may be given again")
        ->check(isSetting)
        ->allow_extra_args(false)
        ->type_name("GROUP/NAME=VALUE");
    app.add_option("--row-height", options.rowHeight,
                   "Points for setTableRowHeight, whose height no log tells; 20 unless given")
        ->check(CLI::Range(0, 1584))
        ->type_name("N");
    app.add_option("--dll", options.dll, "The class of this DLL, registered or not")->type_name("PATH");

    CLI::Option* const first =
        app.add_option("--from", options.lines.first, "The first line whose call is made")
            ->check(CLI::PositiveNumber)
            ->type_name("LINE");
    CLI::Option* const last = app.add_option("--to", options.lines.last, "The last one")
                                  ->check(CLI::PositiveNumber)
                                  ->type_name("LINE");
    app.add_flag("--check", options.onlyChecks, "Only read, and tell what there is and what is in doubt");
    app.add_flag("--continue-on-error", options.goesOn, "Go on behind what fails or is not understood");
    app.add_flag("--show", options.showsLast, "Open the last document at the end");
    app.add_option("--log", options.log, "Trace the replay into this log")->type_name("FILE");
    app.add_option("--level", options.level, "The trace's level; 10 unless given, which echoes every call")
        ->check(CLI::Range(0, 32767))
        ->type_name("N");
    app.add_flag("--quiet", options.isQuiet, "Say only what fails");

    std::ranges::reverse(arguments); // as the parser wants them
    try {
        app.parse(std::move(arguments));
        options.takesPart = *first || *last;
        if (options.takesPart && options.logs.size() > 1)
            throw CLI::ValidationError("--from and --to are for one log");
        if (options.lines.first > options.lines.last)
            throw CLI::ValidationError("--from is behind --to");
        if (options.level && options.log.empty())
            throw CLI::RequiresError("--level", "--log");
    } catch (const CLI::ParseError& error) {
        std::ostringstream out;
        std::ostringstream errors;
        const bool isRefusal = app.exit(error, out, errors) != 0;
        return Answer{isRefusal ? errors.str() : out.str(), isRefusal};
    }

    constexpr short echoLevel = 10;
    if (!options.log.empty() && !options.level)
        options.level = echoLevel;
    for (const std::string& setting : settings)
        options.settings.push_back(*settingFrom(setting));
    if (tocLevel)
        options.settings.push_back({"Word", "TOCLevel", std::to_string(*tocLevel)});
    return options;
}

} // namespace replay
