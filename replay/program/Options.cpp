#include "Options.h"

#include "ExitStatus.h"

#include <CLI/CLI.hpp>

#include <algorithm>
#include <sstream>
#include <utility>

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

/// The command line as it is said, and the options that it fills.
class CommandLine
{
public:
    CommandLine()
    {
        // The same on all systems, and a log's name may begin with a slash.
        app_.allow_windows_style_options(false);
        app_.set_version_flag("--version", "mirovel-replay " MIROVEL_VERSION);
        app_.footer(footer());
        addDocument();
        addCalls();
        addTrace();
    }

    std::variant<Options, Answer> parse(std::vector<std::string> arguments)
    {
        std::ranges::reverse(arguments); // as the parser wants them
        try {
            app_.parse(std::move(arguments));
            refuseContradictions();
        } catch (const CLI::ParseError& error) {
            std::ostringstream out;
            std::ostringstream errors;
            const bool isRefusal = app_.exit(error, out, errors) != 0;
            return Answer{isRefusal ? errors.str() : out.str(), isRefusal};
        }
        return meaning();
    }

private:
    void addDocument()
    {
        app_.add_option("LOG", options_.logs, "Trace logs, one after the other")->required()->type_name("");
        app_.add_option("--output", options_.output,
                        "The document's name instead of that in the log; a folder for more than one")
            ->type_name("NAME");
        app_.add_option("--template", options_.templateName, "The Word template instead of that of the log")
            ->type_name("FILE");
        app_.add_option("--toc-level", tocLevel_, "The deepest heading in the table of contents")
            ->check(CLI::Range(0, 50))
            ->type_name("N");
        app_.add_option("--set", settings_, "A setting instead of that of the log; may be given again")
            ->check(isSetting)
            ->allow_extra_args(false)
            ->type_name("GROUP/NAME=VALUE");
        app_.add_option("--row-height", options_.rowHeight,
                        "Points for setTableRowHeight, whose height no log tells; 20 unless given")
            ->check(CLI::Range(0, 1584))
            ->type_name("N");
        app_.add_option("--dll", options_.dll, "The class of this DLL, registered or not")->type_name("PATH");
    }

    void addCalls()
    {
        first_ = app_.add_option("--from", options_.lines.first, "The first line whose call is made")
                     ->check(CLI::PositiveNumber)
                     ->type_name("LINE");
        last_ = app_.add_option("--to", options_.lines.last, "The last one")
                    ->check(CLI::PositiveNumber)
                    ->type_name("LINE");
        app_.add_flag("--check", options_.onlyChecks,
                      "Only read, and tell what there is and what is in doubt");
        app_.add_flag("--continue-on-error", options_.goesOn, "Go on behind what fails or is not understood");
        app_.add_flag("--show", options_.showsLast, "Open the last document at the end");
    }

    void addTrace()
    {
        app_.add_option("--log", options_.log, "Trace the replay into this log")->type_name("FILE");
        app_.add_option("--level", options_.level,
                        "The trace's level; 10 unless given, which echoes every call")
            ->check(CLI::Range(0, 32767))
            ->type_name("N");
        app_.add_flag("--quiet", options_.isQuiet, "Say only what fails");
    }

    void refuseContradictions()
    {
        options_.takesPart = *first_ || *last_;
        if (options_.takesPart && options_.logs.size() > 1)
            throw CLI::ValidationError("--from and --to are for one log");
        if (options_.lines.first > options_.lines.last)
            throw CLI::ValidationError("--from is behind --to");
        if (options_.level && options_.log.empty())
            throw CLI::RequiresError("--level", "--log");
    }

    /// What follows from what was said.
    [[nodiscard]] Options meaning() const
    {
        constexpr short echoLevel = 10;
        Options options = options_;
        if (!options.log.empty() && !options.level)
            options.level = echoLevel;
        for (const std::string& setting : settings_)
            options.settings.push_back(*settingFrom(setting));
        if (tocLevel_)
            options.settings.push_back({"Word", "TOCLevel", std::to_string(*tocLevel_)});
        return options;
    }

    CLI::App app_{description, "mirovel-replay"};
    Options options_;
    std::optional<int> tocLevel_;
    std::vector<std::string> settings_;
    CLI::Option* first_ = nullptr;
    CLI::Option* last_ = nullptr;
};

} // namespace

std::variant<Options, Answer> parseOptions(std::vector<std::string> arguments)
{
    return CommandLine().parse(std::move(arguments));
}

} // namespace replay
