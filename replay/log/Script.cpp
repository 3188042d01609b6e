#include "Script.h"

#include <algorithm>
#include <cctype>
#include <map>

namespace replay {

namespace {

bool isCallOf(const Step& step, Method method)
{
    return step.kind == Step::Kind::call && step.call.method == method;
}

/// What a client's object knows of itself.
struct ClientState
{
    bool isStarted = false;
    bool isOpen = false;

    void take(const Step& step)
    {
        if (step.kind == Step::Kind::newClient)
            *this = {};
        if (step.kind != Step::Kind::call)
            return;
        switch (step.call.method) {
        case Method::start:
            isStarted = true;
            break;
        case Method::stop:
            isStarted = false;
            break;
        case Method::create:
            isOpen = true;
            break;
        case Method::close:
            isOpen = false;
            break;
        default:
            break;
        }
    }
};

class ScriptMaker
{
public:
    explicit ScriptMaker(const ReadLog& log) : log_(log) { script_.doubts = log.doubts; }

    Script make()
    {
        for (const Piece& piece : log_.pieces)
            if (piece.kind == PieceKind::call)
                addCall(piece);
            else if (piece.kind == PieceKind::missingFile)
                addTrace();
        std::ranges::stable_sort(script_.doubts, {}, &Doubt::line);
        return std::move(script_);
    }

private:
    void add(Step step)
    {
        state_.take(step);
        script_.steps.push_back(std::move(step));
    }

    void addMissing(Method method, int line, DoubtKind kind)
    {
        add({.call = {.method = method}, .line = line, .isAdded = true});
        script_.doubts.push_back({kind, line});
    }

    void addCall(const Piece& piece)
    {
        const Guard guard = formOf(piece.call.method).guard;
        if (guard == Guard::stopped && state_.isStarted) {
            add({.kind = Step::Kind::newClient, .line = piece.line, .isAdded = true});
            script_.doubts.push_back({DoubtKind::anotherClient, piece.line});
        }
        const bool needsDocument = guard == Guard::open && !state_.isOpen;
        if ((guard == Guard::started || needsDocument) && !state_.isStarted)
            addMissing(Method::start, piece.line, DoubtKind::noStart);
        if (needsDocument)
            addMissing(Method::create, piece.line, DoubtKind::noCreate);
        add({.call = piece.call, .line = piece.line});
    }

    /// In front of the call that the file is missed by.
    void addTrace()
    {
        std::vector<Step>& steps = script_.steps;
        if (!state_.isOpen || steps.back().kind != Step::Kind::call)
            return;
        const int line = steps.back().line;
        const auto place = isCallOf(steps.back(), Method::create) ? steps.end() : steps.end() - 1;
        if (place == steps.begin() || std::prev(place)->kind != Step::Kind::traceInBody)
            steps.insert(place, {.kind = Step::Kind::traceInBody, .line = line, .isAdded = true});
    }

    const ReadLog& log_;
    Script script_;
    ClientState state_;
};

bool equalWithoutCase(std::string_view a, std::string_view b)
{
    return std::ranges::equal(
        a, b, [](unsigned char c, unsigned char d) { return std::tolower(c) == std::tolower(d); });
}

/// Without the folder.
std::string_view fileOf(std::string_view path)
{
    const std::size_t end = path.find_last_of("\\/:");
    return end == path.npos ? path : path.substr(end + 1);
}

bool mayFollow(std::string_view folder)
{
    return folder.ends_with('\\') || folder.ends_with('/');
}

/// What calls behind need of those in front of them.
class Needs
{
public:
    void take(const Step& step)
    {
        if (step.kind == Step::Kind::newClient) {
            steps_.clear();
        } else if (isCallOf(step, Method::stop)) {
            forget(Method::start);
        } else if (isCallOf(step, Method::close)) {
            forget(Method::create);
        } else if (isCallOf(step, Method::overrideRegistry) || isCallOf(step, Method::start)) {
            steps_.push_back(step);
        } else if (isCallOf(step, Method::create)) {
            forget(Method::create);
            steps_.push_back(step);
        }
    }
    [[nodiscard]] const std::vector<Step>& steps() const { return steps_; }

private:
    void forget(Method method)
    {
        std::erase_if(steps_, [method](const Step& step) { return isCallOf(step, method); });
    }

    std::vector<Step> steps_;
};

} // namespace

std::size_t Script::callCount() const
{
    return static_cast<std::size_t>(std::ranges::count(steps, Step::Kind::call, &Step::kind));
}

Script scriptOf(const ReadLog& log)
{
    return ScriptMaker(log).make();
}

void keepLines(Script& script, LineRange range)
{
    Needs needs;
    std::vector<Step> kept;
    for (const Step& step : script.steps) {
        if (step.line < range.first) {
            needs.take(step);
        } else if (step.line <= range.last) {
            if (kept.empty())
                kept = needs.steps();
            kept.push_back(step);
        }
    }
    script.steps = std::move(kept);
    std::erase_if(script.doubts, [range](const Doubt& doubt) {
        return doubt.line < range.first || doubt.line > range.last;
    });
}

void complete(Script& script)
{
    ClientState state;
    for (const Step& step : script.steps)
        state.take(step);
    const int line = script.steps.empty() ? 0 : script.steps.back().line;
    if (state.isOpen && state.isStarted)
        script.steps.push_back({.call = {.method = Method::close}, .line = line, .isAdded = true});
    if (state.isStarted)
        script.steps.push_back({.call = {.method = Method::stop}, .line = line, .isAdded = true});
}

void applySettings(Script& script, const std::vector<Setting>& settings)
{
    constexpr int text = 1;
    for (Step& step : script.steps) {
        if (!isCallOf(step, Method::overrideRegistry))
            continue;
        auto& [group, name, value] = step.call.texts;
        for (const Setting& setting : settings) {
            if (equalWithoutCase(group, setting.group) && equalWithoutCase(name, setting.name)) {
                value = setting.value;
                step.call.number = text;
            }
        }
    }
}

void nameDocument(Script& script, std::string_view name)
{
    const auto isCreate = [](const Step& step) { return isCallOf(step, Method::create); };
    if (std::ranges::count_if(script.steps, isCreate) > 1)
        throw NoSuchName("The log makes more than one document; name a folder for them.");
    for (Step& step : script.steps)
        if (isCreate(step))
            step.call.texts[0] = name;
}

void moveDocuments(Script& script, std::string_view folder)
{
    std::map<std::string, std::string> former;
    for (Step& step : script.steps) {
        if (!isCallOf(step, Method::create))
            continue;
        std::string& name = step.call.texts[0];
        if (name.empty())
            throw NoSuchName("The log does not name its document; name a file for it.");
        std::string moved = std::string(folder) + (mayFollow(folder) ? "" : "\\") + std::string(fileOf(name));
        const auto [place, isNew] = former.try_emplace(moved, name);
        if (!isNew && place->second != name)
            throw NoSuchName("Two documents of the log would be " + moved + ".");
        name = std::move(moved);
    }
}

void requireNames(const Script& script)
{
    for (const Step& step : script.steps)
        if (isCallOf(step, Method::create) && step.isAdded && step.call.texts[0].empty())
            throw NoSuchName("The log does not name its document; --output does.");
}

} // namespace replay
