#include "ScriptTokens.h"

#include <utility>

namespace {

bool isSpace(char16_t c) noexcept
{
    return c == u' ' || c == u'\t' || c == u'\r' || c == u'\n';
}

} // namespace

ScriptTokens::ScriptTokens(std::u16string_view text, const ScriptVariables& variables)
    : text_(text), variables_(variables), ahead_(read())
{
}

ScriptToken ScriptTokens::next()
{
    ScriptToken taken = std::move(ahead_);
    ahead_ = read();
    return taken;
}

void ScriptTokens::advance() noexcept
{
    if (current() == u'\n') {
        ++line_;
        column_ = 1;
    } else {
        ++column_;
    }
    ++position_;
}

void ScriptTokens::skipSpace() noexcept
{
    while (!atEnd() && isSpace(current()))
        advance();
}

ScriptToken ScriptTokens::read()
{
    skipSpace();
    ScriptToken token;
    token.line = line_;
    token.column = column_;
    token.isEnd = atEnd();
    if (token.isEnd)
        return token;
    token.isQuoted = current() == u'\'';
    if (token.isQuoted)
        readQuoted(token);
    else
        readPlain(token);
    return token;
}

void ScriptTokens::readQuoted(ScriptToken& token)
{
    advance();
    for (;;) {
        if (atEnd())
            throw RegistryScriptError(token.line, token.column, "the quote is not closed");
        if (current() != u'\'') {
            readCharacter(token);
            continue;
        }
        advance();
        if (atEnd() || current() != u'\'')
            return;
        token.text += u'\'';
        advance();
    }
}

void ScriptTokens::readPlain(ScriptToken& token)
{
    while (!atEnd() && !isSpace(current()))
        readCharacter(token);
}

void ScriptTokens::readCharacter(ScriptToken& token)
{
    // The registry would cut a name there, and take it for another one.
    if (current() == u'\0')
        fail("a NUL character");
    if (current() == u'%')
        return readVariable(token);
    token.text += current();
    advance();
}

void ScriptTokens::readVariable(ScriptToken& token)
{
    const std::size_t begin = position_ + 1;
    const std::size_t end = text_.find_first_of(u"%\r\n", begin);
    if (end == std::u16string_view::npos || text_[end] != u'%')
        fail("the variable's name is not closed by a percent sign");
    if (end == begin) {
        token.text += u'%';
    } else {
        const auto variable = variables_.find(text_.substr(begin, end - begin));
        if (variable == variables_.end())
            fail("an unknown variable");
        token.text += variable->second;
    }
    while (position_ <= end)
        advance();
}

void ScriptTokens::fail(const std::string& reason) const
{
    throw RegistryScriptError(line_, column_, reason);
}
