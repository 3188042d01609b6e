#include "RegistryScript.h"

#include "ScriptTokens.h"

#include <algorithm>
#include <array>
#include <utility>

namespace {

/// Limits of the registry itself.
constexpr std::size_t maximalKeyName = 255;
constexpr std::size_t maximalDepth = 512;

constexpr std::array<std::pair<std::u16string_view, RootKey>, 14> rootKeys{{
    {u"HKCR", RootKey::classesRoot},
    {u"HKEY_CLASSES_ROOT", RootKey::classesRoot},
    {u"HKCU", RootKey::currentUser},
    {u"HKEY_CURRENT_USER", RootKey::currentUser},
    {u"HKLM", RootKey::localMachine},
    {u"HKEY_LOCAL_MACHINE", RootKey::localMachine},
    {u"HKU", RootKey::users},
    {u"HKEY_USERS", RootKey::users},
    {u"HKPD", RootKey::performanceData},
    {u"HKEY_PERFORMANCE_DATA", RootKey::performanceData},
    {u"HKDD", RootKey::dynData},
    {u"HKEY_DYN_DATA", RootKey::dynData},
    {u"HKCC", RootKey::currentConfig},
    {u"HKEY_CURRENT_CONFIG", RootKey::currentConfig},
}};

constexpr std::array<std::pair<std::u16string_view, KeyFlag>, 3> keyFlags{{
    {u"NoRemove", KeyFlag::noRemove},
    {u"ForceRemove", KeyFlag::forceRemove},
    {u"Delete", KeyFlag::deleteKey},
}};

constexpr char16_t lower(char16_t c) noexcept
{
    return c >= u'A' && c <= u'Z' ? static_cast<char16_t>(c + (u'a' - u'A')) : c;
}

bool isWord(const ScriptToken& token, std::u16string_view word) noexcept
{
    return !token.isQuoted && !token.isEnd && std::ranges::equal(token.text, word, {}, lower, lower);
}

template <class Value, std::size_t size>
std::optional<Value> lookUp(const std::array<std::pair<std::u16string_view, Value>, size>& table,
                            const ScriptToken& token) noexcept
{
    const auto found = std::ranges::find_if(table, [&](const auto& row) { return isWord(token, row.first); });
    return found == table.end() ? std::nullopt : std::optional(found->second);
}

[[noreturn]] void fail(const ScriptToken& at, const std::string& reason)
{
    throw RegistryScriptError(at.line, at.column, reason);
}

class Parser
{
public:
    Parser(std::u16string_view text, const ScriptVariables& variables) : tokens_(text, variables) {}

    RegistryScript script()
    {
        RegistryScript roots;
        while (!tokens_.peek().isEnd)
            roots.push_back(root());
        return roots;
    }

private:
    ScriptRoot root()
    {
        const ScriptToken name = tokens_.next();
        const std::optional<RootKey> root = lookUp(rootKeys, name);
        if (!root)
            fail(name, "expected a root key such as HKCR");
        ScriptRoot result{*root, {}};
        expect(u"{", "expected { after the root key");
        while (!endOfBlock()) {
            if (isWord(tokens_.peek(), u"val"))
                fail(tokens_.peek(), "a root key has no values");
            result.keys.push_back(key());
        }
        return result;
    }

    ScriptKey key()
    {
        ScriptKey result;
        if (const std::optional<KeyFlag> flag = lookUp(keyFlags, tokens_.peek())) {
            result.flag = *flag;
            tokens_.next();
        }
        result.name = keyName();
        if (isWord(tokens_.peek(), u"="))
            result.defaultValue = assignment();
        if (isWord(tokens_.peek(), u"{"))
            block(result);
        return result;
    }

    void block(ScriptKey& owner)
    {
        const ScriptToken opening = tokens_.next();
        if (++depth_ > maximalDepth)
            fail(opening, "keys are nested too deeply");
        while (!endOfBlock())
            if (isWord(tokens_.peek(), u"val"))
                owner.values.push_back(value());
            else
                owner.subkeys.push_back(key());
        --depth_;
    }

    ScriptValue value()
    {
        tokens_.next();
        ScriptToken name = tokens_.next();
        if (isPunctuation(name))
            fail(name, "expected the name of a value");
        return {std::move(name.text), assignment()};
    }

    std::u16string keyName()
    {
        ScriptToken name = tokens_.next();
        if (isPunctuation(name))
            fail(name, "expected the name of a key");
        if (name.text.empty())
            fail(name, "a key needs a name");
        if (name.text.size() > maximalKeyName)
            fail(name, "the name of the key is too long");
        // It would name a key further down, past the rules for the keys between.
        if (name.text.find(u'\\') != std::u16string::npos)
            fail(name, "the name of a key cannot hold a backslash");
        return std::move(name.text);
    }

    /// `= s 'data'`
    std::u16string assignment()
    {
        expect(u"=", "expected = and a value");
        expect(u"s", "expected the value type s");
        ScriptToken data = tokens_.next();
        if (!data.isQuoted)
            fail(data, "expected the value's data in single quotes");
        return std::move(data.text);
    }

    void expect(std::u16string_view word, const std::string& otherwise)
    {
        const ScriptToken token = tokens_.next();
        if (!isWord(token, word))
            fail(token, otherwise);
    }

    /// Takes the closing brace, if it is next.
    bool endOfBlock()
    {
        if (tokens_.peek().isEnd)
            fail(tokens_.peek(), "a { is not closed");
        if (!isWord(tokens_.peek(), u"}"))
            return false;
        tokens_.next();
        return true;
    }

    static bool isPunctuation(const ScriptToken& token) noexcept
    {
        return token.isEnd || isWord(token, u"{") || isWord(token, u"}") || isWord(token, u"=");
    }

    ScriptTokens tokens_;
    std::size_t depth_ = 0;
};

} // namespace

RegistryScriptError::RegistryScriptError(std::size_t line, std::size_t column, const std::string& reason)
    : std::runtime_error("line " + std::to_string(line) + ", column " + std::to_string(column) + ": " +
                         reason),
      line_(line), column_(column)
{
}

RegistryScript parseRegistryScript(std::u16string_view text, const ScriptVariables& variables)
{
    return Parser(text, variables).script();
}
