// Drives a few QdxStrings, which share bodies as they please, beside plain std::strings through the same
// operations.
#include "QdxString.h"

#include <algorithm>
#include <array>
#include <cctype>
#include <cstdint>
#include <cstdlib>
#include <stdexcept>
#include <string>

namespace {

class Input
{
public:
    Input(const std::uint8_t* data, std::size_t size) : next_(data), end_(data + size) {}

    [[nodiscard]] bool isEmpty() const { return next_ == end_; }
    std::uint8_t byte() { return isEmpty() ? std::uint8_t{0} : *next_++; }
    /// Few different characters, so that searches hit; NUL and a byte above 127 are among them.
    char character() { return "aAbBx,\0\xe4"[byte() % 8]; }
    std::string text()
    {
        std::string text(byte() % 6, '\0');
        std::generate(text.begin(), text.end(), [this] { return character(); });
        return text;
    }

private:
    const std::uint8_t* next_;
    const std::uint8_t* end_;
};

/// The reference: the rules of QdxString, written for clarity only.
namespace model {

std::string upToNul(const std::string& s)
{
    return s.c_str();
}

std::size_t find(const std::string& s, const std::string& pattern)
{
    return s.empty() ? std::string::npos : s.find(upToNul(pattern));
}

std::string replaced(const std::string& s, const std::string& from, const std::string& to)
{
    if (from.empty())
        return s;
    std::string rest = s;
    std::string out;
    for (std::size_t i = find(rest, from); i != std::string::npos; i = find(rest, from)) {
        out += rest.substr(0, i) + to;
        rest.erase(0, i + from.size());
    }
    return out + rest;
}

int sign(int n)
{
    return (n > 0) - (n < 0);
}

} // namespace model

void require(bool condition)
{
    if (!condition)
        std::abort();
}

constexpr std::size_t count = 4;
using Strings = std::array<QdxString, count>;
using Models = std::array<std::string, count>;

bool throwsOutOfRange(auto&& operation)
{
    try {
        operation();
        return false;
    } catch (const std::out_of_range&) {
        return true;
    }
}

void change(Input& input, Strings& strings, Models& models)
{
    const std::uint8_t operation = input.byte() % 14;
    const std::size_t i = input.byte() % count;
    const std::size_t j = input.byte() % count;
    QdxString& s = strings[i];
    std::string& m = models[i];
    const QdxString& other = strings[j];
    const std::string otherModel = models[j];
    const std::size_t pos = input.byte() % 24;
    const std::size_t n = input.byte() % 12;
    switch (operation) {
    case 0: {
        const std::string text = input.text();
        s = QdxString(text.data(), text.size());
        m = text;
        break;
    }
    case 1:
        s = other;
        m = otherModel;
        break;
    case 2:
        s = other.data();
        m = model::upToNul(otherModel);
        break;
    case 3:
        require(throwsOutOfRange([&] { s.insert(pos, other); }) == (pos > m.size()));
        if (pos <= m.size())
            m.insert(pos, otherModel);
        break;
    case 4:
        s.append(other);
        m += otherModel;
        break;
    case 5:
        s.append(other, n);
        m += otherModel.substr(0, n);
        break;
    case 6:
        s.append(other.data());
        m += model::upToNul(otherModel);
        break;
    case 7: {
        const std::size_t taken = std::min(n, otherModel.size());
        s.append(other.data(), taken);
        m += otherModel.substr(0, taken);
        break;
    }
    case 8:
        require(throwsOutOfRange([&] { s.remove(pos); }) == (pos > m.size()));
        m.resize(std::min(pos, m.size()));
        break;
    case 9:
        require(throwsOutOfRange([&] { s.remove(pos, n); }) == (pos > m.size()));
        if (pos <= m.size())
            m.erase(pos, n);
        break;
    case 10:
        s.toUpper();
        std::transform(m.begin(), m.end(), m.begin(),
                       [](unsigned char c) { return static_cast<char>(std::toupper(c)); });
        break;
    case 11:
        s.toLower();
        std::transform(m.begin(), m.end(), m.begin(),
                       [](unsigned char c) { return static_cast<char>(std::tolower(c)); });
        break;
    case 12: {
        const std::string to = input.text();
        m = model::replaced(m, otherModel, to);
        s.replaceStr(other, QdxString(to.data(), to.size()));
        break;
    }
    case 13: {
        QdxString taken(std::move(strings[j]));
        models[j].clear();
        s = std::move(taken);
        m = otherModel;
        break;
    }
    default:
        break;
    }
}

/// Strings appended to each other would double for ever.
void keepShort(Strings& strings, Models& models)
{
    for (std::size_t i = 0; i < count; ++i)
        if (models[i].size() > 200) {
            strings[i].remove(3);
            models[i].resize(3);
        }
}

void compare(Input& input, const Strings& strings, const Models& models)
{
    for (std::size_t k = 0; k < count; ++k) {
        require(strings[k].length() == models[k].size());
        require(strings[k].isEmpty() == models[k].empty());
        require(std::string(strings[k].data(), strings[k].length()) == models[k]);
        require(strings[k].data()[models[k].size()] == '\0');
    }
    const std::size_t i = input.byte() % count;
    const std::size_t j = input.byte() % count;
    const QdxString& a = strings[i];
    const QdxString& b = strings[j];
    const std::string& ma = models[i];
    const std::string& mb = models[j];
    const char c = input.character();
    require(a.find(b) == model::find(ma, mb));
    require(a.first(c) == ma.find(c));
    require(a.last(c) == ma.rfind(c));
    require(a.first(b) == ma.find_first_of(model::upToNul(mb)));
    require(a.startsWith(b.data()) == (ma.rfind(model::upToNul(mb), 0) == 0));
    require((a == b) == (ma == mb));
    require((a != b) == (ma != mb));
    require((a < b) == (model::sign(ma.compare(mb)) < 0));
    require((a > b) == (model::sign(ma.compare(mb)) > 0));
    require(ma != mb || a.hash() == b.hash());
}

} // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size)
{
    Input input(data, size);
    Strings strings;
    Models models;
    while (!input.isEmpty()) {
        keepShort(strings, models);
        change(input, strings, models);
        compare(input, strings, models);
    }
    return 0;
}
