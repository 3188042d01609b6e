#include "RecordedSession.h"

#include "LinkedClass.h"
#include "TextConversion.h"
#include "general/QdxException.h"
#include "mirovelsection.h"

#include <algorithm>
#include <cctype>
#include <cstdio>
#include <map>
#include <regex>
#include <string_view>
#include <utility>

namespace replay {

namespace {

constexpr short textSetting = 1;
constexpr short numberSetting = 2;
constexpr short echoLevel = 10;

constexpr char recordedName[] = "recorded.doc";
constexpr char replayedName[] = "replayed.doc";
constexpr char logName[] = "trace.log";

_bstr_t bstr(const std::string& text)
{
    return toWide(QdxString(text.data(), text.size()));
}

template <class Call>
std::size_t failuresOf(Call&& call)
try {
    return FAILED(call()) ? 1 : 0;
} catch (const QdxException&) {
    return 1;
} catch (const _com_error&) {
    return 1;
}

std::string replaced(std::string text, std::string_view what, std::string_view with)
{
    for (std::size_t at = text.find(what); at != text.npos; at = text.find(what, at + with.size()))
        text.replace(at, what.size(), with);
    return text;
}

/// Fragments lie in files of any name.
std::string withoutFragmentName(const std::string& line)
{
    static const std::regex name("mirovel-\\{[-0-9A-F]+\\}");
    return std::regex_replace(line, name, "fragment");
}

/// The stand-in counts the objects of all its sessions. Here they are counted from the first that appears,
/// and the first document's text has the name that it has in a stand-in's first session.
class ObjectNumbers
{
public:
    std::string renumbered(std::string_view line)
    {
        if (line.starts_with('#')) // a remark, in words
            return std::string(line);
        std::string result;
        while (!line.empty()) {
            const std::string_view part = line.substr(0, lengthOfPart(line));
            const bool isName = part.front() >= 'a' && part.front() <= 'z';
            result += isName ? named(part) : std::string(part);
            line.remove_prefix(part.size());
        }
        return result;
    }

private:
    /// A text in quotes, or all that belongs to one expression, or one other character.
    static std::size_t lengthOfPart(std::string_view line)
    {
        std::size_t length = 0;
        if (line.front() == '"') {
            for (length = 1; length < line.size() && line[length] != '"'; ++length)
                length += line[length] == '\\' ? 1 : 0;
            return std::min(length + 1, line.size());
        }
        while (length < line.size() &&
               (std::isalnum(static_cast<unsigned char>(line[length])) != 0 || line[length] == '.'))
            ++length;
        return std::max<std::size_t>(length, 1);
    }

    /// An expression begins with a kind of object and the number that tells it apart: "document2.body".
    std::string named(std::string_view expression)
    {
        const std::string_view root = expression.substr(0, expression.find('.'));
        const std::string_view kind = root.substr(0, root.find_first_of("0123456789"));
        std::map<std::string, std::size_t>& known = numbers_[std::string(kind)];
        const std::size_t place =
            known.try_emplace(std::string(root.substr(kind.size())), known.size() + 1).first->second;
        std::string_view rest = expression.substr(root.size());
        if (kind == "document" && place == 1 && rest.starts_with(".body"))
            return std::string(rest.substr(1));
        return std::string(kind) + (place > 1 ? std::to_string(place) : "") + std::string(rest);
    }

    /// By kind and the stand-in's own number.
    std::map<std::string, std::map<std::string, std::size_t>> numbers_;
};

std::u16string asTold(const std::u16string& text)
{
    const std::wstring wide(text.begin(), text.end());
    const _bstr_t narrow = toWide(toNarrow(wide.c_str()));
    std::u16string told;
    for (const wchar_t c : std::wstring_view(narrow, narrow.length())) {
        if (c == L'\n' && !told.ends_with(u'\r'))
            told += u'\r';
        told += static_cast<char16_t>(c);
    }
    return told;
}

} // namespace

SessionRecorder::SessionRecorder() : player_(reference::Writer::counting)
{
    player_.release();
    player_.word().clearTranscript();
}

Recording SessionRecorder::record(const reference::Session& session, const SessionBeginning& beginning)
{
    MirovelSection::clearCache();
    std::size_t failures = 0;
    {
        ObjectPtr client = LinkedClass().make();
        const auto attempt = [&](auto&& call) { failures += failuresOf(call); };
        client->overrideRegistry(bstr("Log"), bstr("LogName"), bstr(file(logName)), textSetting);
        client->trace(echoLevel);
        client->overrideRegistry(bstr("Word"), bstr("WordTemplateName"), bstr(""), textSetting);
        client->overrideRegistry(bstr("Word"), bstr("Compose"),
                                 bstr(std::to_string(static_cast<int>(beginning.writer))), numberSetting);
        attempt([&] { return client->start(); });
        attempt([&] { return client->create(bstr(file(recordedName))); });
        if (beginning.tracesAgain)
            client->trace(echoLevel);
        for (const reference::ClientCall& call : session)
            attempt([&] { return player_.call(*client, call); });
        attempt([&] { return client->close(); });
        attempt([&] { return client->stop(); });
    }
    Recording recording = take(recordedName);
    recording.failures = failures;
    return recording;
}

Recording SessionRecorder::replay(const std::string& log, std::vector<Setting> settings)
{
    Script script = scriptOf(readLog(log));
    nameDocument(script, file(replayedName));
    applySettings(script, settings);
    complete(script);
    settings.push_back({"Log", "LogName", file(logName)});
    const PlayOptions options = {
        .settings = std::move(settings), .level = echoLevel, .rowHeight = rowHeight, .goesOn = true};
    MirovelSection::clearCache();
    LinkedClass source;
    Player player(
        source, options, [](std::size_t) {}, [] { return false; });
    const std::size_t failures = player.play(script).failures.size();
    Recording recording = take(replayedName);
    recording.failures = failures;
    return recording;
}

Recording SessionRecorder::take(const std::string& documentName)
{
    Recording recording;
    recording.log = replaced(contentOf(file(logName)), documentName, recordedName);
    ObjectNumbers numbers;
    for (const std::string& line : player_.word().transcript())
        recording.transcript +=
            numbers.renumbered(withoutFragmentName(replaced(line, documentName, recordedName))) + "\n";
    recording.wordCalls = player_.word().transcript().size();
    player_.word().clearTranscript();
    std::remove(file(logName).c_str());
    return recording;
}

reference::Session withoutSilentCalls(reference::Session session)
{
    std::erase_if(session, [](const reference::ClientCall& call) {
        return call.method == reference::Method::setOrientation;
    });
    return session;
}

reference::Session asTheLogTells(reference::Session session)
{
    session = withoutSilentCalls(std::move(session));
    for (reference::ClientCall& call : session) {
        call.text = asTold(call.text);
        call.target = asTold(call.target);
    }
    return session;
}

} // namespace replay
