#include "Player.h"

#include "TextConversion.h"
#include "general/QdxException.h"

#include <array>
#include <cstdio>
#include <utility>

namespace replay {

namespace {

constexpr short textSetting = 1;

_bstr_t bstr(const std::string& text)
{
    return toWide(QdxString(text.data(), text.size()));
}

std::string textOf(HRESULT result)
{
    std::array<char, 16> code{};
    std::snprintf(code.data(), code.size(), "0x%08lx", static_cast<unsigned long>(result));
    const QdxString message = toNarrow(_com_error(result).ErrorMessage());
    return std::string(code.data()) + " " + message.data();
}

/// What a call failed with; nothing when it did not.
template <class Call>
std::optional<std::string> failureOf(Call&& call)
try {
    const HRESULT result = call();
    return FAILED(result) ? std::optional(textOf(result)) : std::nullopt;
} catch (const QdxException& exception) {
    return exception.reasonText();
} catch (const _com_error& error) {
    return textOf(error.Error());
}

HRESULT make(IDocument& client, const LoggedCall& call, int rowHeight)
{
    const _bstr_t first = bstr(call.texts[0]);
    const _bstr_t second = bstr(call.texts[1]);
    const auto number = static_cast<short>(call.number);
    switch (call.method) {
    case Method::start:
        return client.start();
    case Method::stop:
        return client.stop();
    case Method::create:
        return client.create(first);
    case Method::close:
        return client.close();
    case Method::overrideRegistry:
        return client.overrideRegistry(first, second, bstr(call.texts[2]), number);
    case Method::insertText:
        return client.insertText(first);
    case Method::insertEndl:
        return client.insertEndl();
    case Method::insertPageBreak:
        return client.insertPageBreak();
    case Method::insertField:
        return client.insertField(number);
    case Method::startHeader:
        return client.startHeader();
    case Method::endHeader:
        return client.endHeader();
    case Method::startFooter:
        return client.startFooter();
    case Method::endFooter:
        return client.endFooter();
    case Method::setStyle:
        return client.setStyle(first);
    case Method::setFontName:
        return client.setFontName(first);
    case Method::setFontSize:
        return client.setFontSize(number);
    case Method::setFontAttribute:
        return client.setFontAttribute(number, call.isOn ? VARIANT_TRUE : VARIANT_FALSE);
    case Method::setTextAlign:
        return client.setTextAlign(number);
    case Method::insertFile:
        return client.insertFile(first, number);
    case Method::insertTOC:
        return client.insertTOC();
    case Method::startTOCEntry:
        return client.startTOCEntry();
    case Method::endTOCEntry:
        return client.endTOCEntry();
    case Method::startTable:
        return client.startTable();
    case Method::endTable:
        return client.endTable();
    case Method::addRow:
        return client.addRow();
    case Method::addCell:
        return client.addCell();
    case Method::setTableRowHeight:
        return client.setTableRowHeight(rowHeight);
    case Method::insertImage:
        return client.insertImage(first, second);
    case Method::insertTag:
        return client.insertTag(first);
    case Method::insertXref:
        return client.insertXref(first, second);
    }
    return E_NOTIMPL;
}

} // namespace

/// The objects of one script: the one that is called, and those before it.
class Player::Clients
{
public:
    Clients(ObjectSource& source, const PlayOptions& options) : source_(source), options_(options) { add(); }

    void add()
    {
        ObjectPtr object = source_.make();
        for (const Setting& setting : options_.settings)
            object->overrideRegistry(bstr(setting.group), bstr(setting.name), bstr(setting.value),
                                     textSetting);
        objects_.push_back(std::move(object));
        isInBody_ = true;
        trace();
    }
    [[nodiscard]] IDocument& current() const { return *objects_.back(); }
    /// What the call has done to the client.
    void take(Method method, bool hasFailed)
    {
        if ((method == Method::startHeader || method == Method::startFooter) && !hasFailed)
            isInBody_ = false;
        if (method == Method::endHeader || method == Method::endFooter || method == Method::create)
            isInBody_ = true;
    }
    [[nodiscard]] bool isInBody() const { return isInBody_; }
    void trace() const
    {
        if (options_.level)
            current().trace(*options_.level);
    }
    /// A Word that nobody sees ends with its object; one that a user sees keeps what else is open in it.
    void closeDocuments() const
    {
        for (const ObjectPtr& object : objects_)
            failureOf([&] { return object->close(); });
    }

private:
    ObjectSource& source_;
    const PlayOptions& options_;
    std::vector<ObjectPtr> objects_;
    bool isInBody_ = true; ///< Content goes there.
};

Player::Player(ObjectSource& source, const PlayOptions& options, std::function<void(std::size_t)> whenCalled,
               std::function<bool()> isInterrupted)
    : source_(source), options_(options), whenCalled_(std::move(whenCalled)),
      isInterrupted_(std::move(isInterrupted))
{
}

Played Player::play(const Script& script)
{
    Played played;
    Clients clients(source_, options_);
    const auto attempt = [&](int line, std::string_view method, auto&& call) {
        std::optional<std::string> failure = failureOf(call);
        const bool hasFailed = failure.has_value();
        if (hasFailed)
            played.failures.push_back({line, method, std::move(*failure)});
        return !hasFailed;
    };
    for (const Step& step : script.steps) {
        played.isInterrupted = isInterrupted_();
        if (played.isInterrupted)
            break;
        if (step.kind == Step::Kind::newClient) {
            clients.add();
        } else if (step.kind == Step::Kind::traceInBody) {
            if (clients.isInBody())
                clients.trace();
        } else {
            const Method method = step.call.method;
            const bool isDone = attempt(step.line, formOf(method).name, [&] {
                return make(clients.current(), step.call, options_.rowHeight);
            });
            clients.take(method, !isDone);
            whenCalled_(++played.calls);
            if (!isDone && !options_.goesOn)
                break;
        }
    }
    const bool isComplete = !played.isInterrupted && (played.failures.empty() || options_.goesOn);
    if (!isComplete)
        clients.closeDocuments();
    else if (options_.showsLast)
        attempt(script.steps.empty() ? 0 : script.steps.back().line, "showLast",
                [&] { return clients.current().showLast(); });
    return played;
}

} // namespace replay
