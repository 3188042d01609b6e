#include "LogReader.h"

#include "AnchorCalls.h"

#include <algorithm>
#include <charconv>
#include <optional>

namespace replay {

namespace {

constexpr std::string_view lineEnd = "\r\n";
constexpr std::string_view object = "mirovel->";
constexpr std::string_view callEnd = ");\r\n";
constexpr std::string_view remarkMark = "//";
constexpr std::string_view pageMark = "// Page ";
constexpr std::string_view missingFileMark = "ERR File not found: ";
constexpr std::string_view failureMark = "COMERROR 0x";

std::string withLineEnds(std::string_view bytes)
{
    if (bytes.find('\0') != bytes.npos)
        throw NotALog("It holds zero bytes, as no trace log does.");
    std::string text;
    text.reserve(bytes.size() + lineEnd.size());
    for (const char c : bytes) {
        if (c == '\n' && !text.ends_with('\r'))
            text += '\r';
        text += c;
    }
    if (!text.empty() && !text.ends_with('\n'))
        text += text.ends_with('\r') ? "\n" : lineEnd;
    return text;
}

/// As the log writes numbers of 16 bits.
std::optional<int> numberFrom(std::string_view text)
{
    short number = 0;
    const auto [end, error] = std::from_chars(text.data(), text.data() + text.size(), number);
    if (error != std::errc() || end != text.data() + text.size() || std::to_string(number) != text)
        return std::nullopt;
    return number;
}

/// Where an argument ends and the next one begins.
struct Separation
{
    std::size_t first = std::string_view::npos; ///< the place of the first separator
    std::size_t last = std::string_view::npos;
};

Separation separationOf(std::string_view body, std::string_view separator)
{
    return {body.find(separator), body.rfind(separator)};
}

class Reader
{
public:
    explicit Reader(std::string_view bytes) : text_(withLineEnds(bytes)), log_(text_)
    {
        acceptedNowhereFrom_.fill(log_.npos);
        endedNowhereFrom_.fill(log_.npos);
    }

    ReadLog read()
    {
        while (at_ < log_.size())
            readPiece();
        std::ranges::stable_sort(doubts_, {}, &Doubt::line);
        return {std::move(text_), std::move(pieces_), std::move(doubts_)};
    }

private:
    /// A call, where it ends, and what of it is in doubt.
    struct Reading
    {
        LoggedCall call;
        std::size_t end = 0;
        bool areArgumentsInDoubt = false;
        bool isEndInDoubt = false;
    };

    [[nodiscard]] std::string_view from(std::size_t at) const { return log_.substr(at); }

    [[nodiscard]] std::size_t endOfLine(std::size_t at) const
    {
        const std::size_t end = log_.find(lineEnd, at);
        return end == log_.npos ? log_.size() : end + lineEnd.size();
    }

    /// The end of `// Page n`; 0 where that does not stand.
    [[nodiscard]] std::size_t endOfPage(std::size_t at) const
    {
        if (!from(at).starts_with(pageMark))
            return 0;
        const std::size_t number = at + pageMark.size();
        const std::size_t end = log_.find_first_not_of("-0123456789", number);
        return end != number && end != log_.npos && from(end).starts_with(lineEnd) ? end + lineEnd.size() : 0;
    }

    [[nodiscard]] bool isFailure(std::size_t at) const
    {
        const std::size_t next = endOfLine(at);
        return next > at + lineEnd.size() && from(next).starts_with(failureMark);
    }

    struct Beginning
    {
        Method method;
        std::size_t arguments; ///< the place behind the opening bracket
    };

    /// `mirovel->method(`, with the quote of a method whose line goes on with one.
    [[nodiscard]] std::optional<Beginning> beginningOfCall(std::size_t at) const
    {
        if (!from(at).starts_with(object))
            return std::nullopt;
        constexpr std::size_t longestName = 20;
        const std::size_t name = at + object.size();
        const std::size_t bracket = log_.substr(name, longestName).find('(');
        if (bracket == log_.npos)
            return std::nullopt;
        const std::optional<Method> method = methodNamed(log_.substr(name, bracket));
        if (!method)
            return std::nullopt;
        return Beginning{*method, name + bracket + 1};
    }

    [[nodiscard]] static bool beginsWithQuote(Arguments arguments)
    {
        return arguments == Arguments::text || arguments == Arguments::textAndNumber ||
               arguments == Arguments::twoTexts || arguments == Arguments::setting;
    }

    [[nodiscard]] static bool mayHaveLineEnds(Arguments arguments)
    {
        return beginsWithQuote(arguments) || arguments == Arguments::pictureAndText;
    }

    /// An empty line or a remark, as whoever writes a script by hand may have them.
    [[nodiscard]] bool isRemark(std::size_t at) const
    {
        return from(at).starts_with(lineEnd) || from(at).starts_with(remarkMark);
    }

    /// Whether something that a log holds may begin here.
    [[nodiscard]] bool mayBegin(std::size_t at) const
    {
        while (at < log_.size() && isRemark(at) && endOfPage(at) == 0)
            at = endOfLine(at);
        if (at == log_.size() || endOfPage(at) != 0 || from(at).starts_with(missingFileMark))
            return true;
        if (const std::optional<Beginning> call = beginningOfCall(at)) {
            const Arguments arguments = formOf(call->method).arguments;
            if (beginsWithQuote(arguments))
                return from(call->arguments).starts_with('"');
            return arguments == Arguments::pictureAndText || readShortCall(*call).has_value();
        }
        return isFailure(at);
    }

    [[nodiscard]] std::optional<Reading> readShortCall(const Beginning& beginning) const
    {
        constexpr std::size_t longest = 40;
        const std::size_t length = log_.substr(beginning.arguments, longest).find(callEnd);
        if (length == log_.npos)
            return std::nullopt;
        const std::string_view body = log_.substr(beginning.arguments, length);
        Reading reading{{.method = beginning.method}, beginning.arguments + length + callEnd.size()};
        switch (formOf(beginning.method).arguments) {
        case Arguments::none:
            return body.empty() ? std::optional(reading) : std::nullopt;
        case Arguments::number: {
            const std::optional<int> number = numberFrom(body);
            reading.call.number = number.value_or(0);
            return number ? std::optional(reading) : std::nullopt;
        }
        case Arguments::attribute:
            for (const int number : {1, 2, 4, 8, 0})
                for (const bool isOn : {true, false})
                    if (body == std::string(attributeName(number)) + (isOn ? "true" : "false")) {
                        reading.call.number = number;
                        reading.call.isOn = isOn;
                        return reading;
                    }
            return std::nullopt;
        default:
            return std::nullopt;
        }
    }

    /// Texts in quotes, and the number behind them, which has no quote in it: what stands between the quotes,
    /// nothing without a number.
    static std::optional<std::string_view> takeNumber(std::string_view body, Reading& reading)
    {
        const std::size_t end = body.rfind("\",");
        if (end == body.npos || end == 0)
            return std::nullopt;
        const std::optional<int> number = numberFrom(body.substr(end + 2));
        reading.call.number = number.value_or(0);
        return number ? std::optional(body.substr(1, end - 1)) : std::nullopt;
    }

    enum class Cut
    {
        atFirst,
        atLast
    };

    /// Which separator divides the two texts is in doubt when one of them holds it, too.
    static bool takeTwo(std::string_view texts, std::string_view separator, Cut cut, Reading& reading)
    {
        const Separation places = separationOf(texts, separator);
        const std::size_t place = cut == Cut::atFirst ? places.first : places.last;
        if (place == texts.npos)
            return false;
        reading.call.texts[0] = texts.substr(0, place);
        reading.call.texts[1] = texts.substr(place + separator.size());
        reading.areArgumentsInDoubt = places.first != places.last;
        return true;
    }

    /// The names of a setting hold no quotes; its value may.
    static bool takeSetting(std::string_view texts, Reading& reading)
    {
        constexpr std::string_view separator = "\",\"";
        const std::size_t name = texts.find(separator);
        const std::size_t value =
            name == texts.npos ? texts.npos : texts.find(separator, name + separator.size());
        if (value == texts.npos)
            return false;
        reading.call.texts[0] = texts.substr(0, name);
        reading.call.texts[1] = texts.substr(name + separator.size(), value - name - separator.size());
        reading.call.texts[2] = texts.substr(value + separator.size());
        reading.areArgumentsInDoubt = texts.find(separator, name + 1) != texts.rfind(separator);
        return true;
    }

    /// Divides what stands between the brackets; nothing when that is not what the method writes.
    [[nodiscard]] static std::optional<Reading> divide(Method method, std::string_view body)
    {
        Reading reading{{.method = method}};
        bool isDivided = false;
        switch (formOf(method).arguments) {
        case Arguments::text:
            isDivided = body.size() >= 2 && body.ends_with('"');
            if (isDivided)
                reading.call.texts[0] = body.substr(1, body.size() - 2);
            break;
        case Arguments::textAndNumber:
            if (const std::optional<std::string_view> text = takeNumber(body, reading)) {
                reading.call.texts[0] = *text;
                isDivided = true;
            }
            break;
        case Arguments::twoTexts: // A label may be anything; what it leads to seldom holds quotes.
            isDivided = body.size() >= 2 && body.ends_with('"') &&
                        takeTwo(body.substr(1, body.size() - 2), "\",\"", Cut::atLast, reading);
            break;
        case Arguments::pictureAndText: // No name of a file holds quotes.
            isDivided =
                body.ends_with('"') && takeTwo(body.substr(0, body.size() - 1), ",\"", Cut::atFirst, reading);
            break;
        case Arguments::setting:
            if (const std::optional<std::string_view> texts = takeNumber(body, reading))
                isDivided = takeSetting(*texts, reading);
            break;
        default:
            break;
        }
        return isDivided ? std::optional(reading) : std::nullopt;
    }

    /// Where the last argument may begin at the earliest; `npos` where separators are missing.
    [[nodiscard]] std::size_t lastArgument(Arguments arguments, std::size_t begin) const
    {
        const auto behind = [&](std::string_view separator, std::size_t at) {
            const std::size_t found = at == log_.npos ? log_.npos : log_.find(separator, at);
            return found == log_.npos ? log_.npos : found + separator.size();
        };
        switch (arguments) {
        case Arguments::textAndNumber:
            return behind("\",", begin + 1);
        case Arguments::twoTexts:
            return behind("\",\"", begin + 1);
        case Arguments::pictureAndText:
            return behind(",\"", begin);
        case Arguments::setting:
            return behind("\",", behind("\",\"", behind("\",\"", begin + 1)));
        default:
            return begin + 1;
        }
    }

    /// Whether what ends at `bracket` may be the last argument: a cheap look, before all is divided.
    [[nodiscard]] bool mayEndAt(Arguments arguments, std::size_t earliest, std::size_t bracket) const
    {
        if (bracket <= earliest)
            return false;
        const bool isNumberLast = arguments == Arguments::textAndNumber || arguments == Arguments::setting;
        const char last = log_[bracket - 1];
        return isNumberLast ? last >= '0' && last <= '9' : last == '"';
    }

    /// A call with a text in it goes on to the first place where it may end and a line that may be one
    /// follows. Where there is no such place, it ends where it may, unless lines of the log come before.
    std::optional<Reading> readLongCall(const Beginning& beginning)
    {
        const auto index = static_cast<std::size_t>(beginning.method);
        const Arguments arguments = formOf(beginning.method).arguments;
        const std::size_t begin = beginning.arguments;
        if (beginsWithQuote(arguments) && !from(begin).starts_with('"'))
            return std::nullopt;
        std::optional<std::size_t> firstEnd;
        // Where nothing was found, nothing is found from a later place.
        const bool isAccepted = begin < acceptedNowhereFrom_.at(index);
        if (begin < endedNowhereFrom_.at(index)) {
            const std::size_t last = lastArgument(arguments, begin);
            for (std::size_t bracket = log_.find(callEnd, last); bracket != log_.npos;
                 bracket = log_.find(callEnd, bracket + 1)) {
                if (!mayEndAt(arguments, last, bracket))
                    continue;
                const std::size_t end = bracket + callEnd.size();
                const bool follows = isAccepted && mayBegin(end);
                if (firstEnd && !follows)
                    continue;
                std::optional<Reading> reading =
                    divide(beginning.method, log_.substr(begin, bracket - begin));
                if (!reading)
                    continue;
                reading->end = end;
                if (follows) {
                    reading->isEndInDoubt = firstEnd || holdsLines(begin, bracket);
                    return reading;
                }
                firstEnd = bracket;
                if (!isAccepted)
                    break;
            }
            acceptedNowhereFrom_.at(index) = std::min(acceptedNowhereFrom_.at(index), begin);
            if (!firstEnd)
                endedNowhereFrom_.at(index) = begin;
        }
        if (!firstEnd || holdsLines(begin, *firstEnd))
            return std::nullopt;
        std::optional<Reading> reading = divide(beginning.method, log_.substr(begin, *firstEnd - begin));
        reading->end = *firstEnd + callEnd.size();
        reading->isEndInDoubt = true;
        return reading;
    }

    /// Whether one of the lines that begin within looks like one of the log.
    [[nodiscard]] bool holdsLines(std::size_t begin, std::size_t end) const
    {
        for (std::size_t next = log_.find(lineEnd, begin); next < end; next = log_.find(lineEnd, next)) {
            next += lineEnd.size();
            if (next < end && mayBegin(next))
                return true;
        }
        return false;
    }

    void add(PieceKind kind, std::size_t end, LoggedCall call = {})
    {
        pieces_.push_back({kind, line_, at_, end, std::move(call)});
        line_ += static_cast<int>(std::ranges::count(log_.substr(at_, end - at_), '\n'));
        at_ = end;
    }

    void doubt(DoubtKind kind) { doubts_.push_back({kind, line_}); }

    void readPiece()
    {
        if (readCall())
            return;
        const std::size_t next = endOfLine(at_);
        if (const std::size_t page = endOfPage(at_); page != 0) {
            add(PieceKind::page, page);
        } else if (isRemark(at_)) {
            const bool isEmpty = next == at_ + lineEnd.size();
            const std::size_t behind = isEmpty ? endOfPage(next) : 0;
            add(behind != 0 ? PieceKind::page : PieceKind::nothing, behind != 0 ? behind : next);
        } else if (from(at_).starts_with(missingFileMark)) {
            add(PieceKind::missingFile, next);
        } else if (isFailure(at_)) {
            // The activity, the code, and what the system says about it: one line or more.
            std::size_t end = endOfLine(next);
            while (end < log_.size() && !mayBegin(end))
                end = endOfLine(end);
            add(PieceKind::failure, end);
        } else {
            doubt(DoubtKind::notUnderstood);
            add(PieceKind::notUnderstood, endOfUnfinished());
        }
    }

    /// setFontAttribute begins its line before it can fail; the next one then stands behind that.
    [[nodiscard]] std::size_t endOfUnfinished() const
    {
        constexpr std::string_view begun = "mirovel->setFontAttribute(";
        const std::size_t next = at_ + begun.size();
        return from(at_).starts_with(begun) && from(next).starts_with(object) ? next : endOfLine(at_);
    }

    bool readCall()
    {
        const std::optional<Beginning> beginning = beginningOfCall(at_);
        if (!beginning)
            return false;
        std::optional<Reading> reading = mayHaveLineEnds(formOf(beginning->method).arguments)
                                             ? readLongCall(*beginning)
                                             : readShortCall(*beginning);
        if (!reading)
            return false;
        tellDoubts(*reading);
        const int line = line_;
        const Method method = reading->call.method;
        add(PieceKind::call, reading->end, std::move(reading->call));
        if (method == Method::insertText)
            passOwnCalls(line);
        return true;
    }

    void tellDoubts(const Reading& reading)
    {
        const LoggedCall& call = reading.call;
        const auto holds = [&](std::string_view what) {
            return std::ranges::any_of(call.texts,
                                       [&](const std::string& text) { return text.find(what) != text.npos; });
        };
        if (reading.isEndInDoubt)
            doubt(DoubtKind::endInText);
        if (reading.areArgumentsInDoubt)
            doubt(DoubtKind::arguments);
        if (holds(lineEnd))
            doubt(DoubtKind::lineEnd);
        if (holds("?"))
            doubt(DoubtKind::questionMark);
        if (call.method == Method::setTableRowHeight)
            doubt(DoubtKind::rowHeight);
        if (call.method == Method::setFontAttribute && call.number == 0)
            doubt(DoubtKind::attribute);
    }

    void passOwnCalls(int line)
    {
        const std::string text = pieces_.back().call.texts[0];
        AnchorCalls calls(text);
        for (std::string next = calls.next(); !next.empty(); next = calls.next()) {
            if (!from(at_).starts_with(next)) {
                doubts_.push_back({DoubtKind::anchorCut, line});
                return;
            }
            add(PieceKind::ownCall, at_ + next.size());
        }
    }

    std::string text_;
    std::string_view log_;
    std::size_t at_ = 0;
    int line_ = 1;
    std::vector<Piece> pieces_;
    std::vector<Doubt> doubts_;
    /// Of each method: from there on no call of it ends so that a line follows, or at all.
    std::array<std::size_t, methodCount> acceptedNowhereFrom_{};
    std::array<std::size_t, methodCount> endedNowhereFrom_{};
};

} // namespace

ReadLog readLog(std::string_view bytes)
{
    return Reader(bytes).read();
}

} // namespace replay
