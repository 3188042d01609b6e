#pragma once

#include "RegistryScript.h"

#include <cstddef>
#include <string>
#include <string_view>

/// One word of a registration script, variables replaced.
struct ScriptToken
{
    std::u16string text;
    bool isQuoted = false;
    bool isEnd = false; ///< The end of the script; no text.
    std::size_t line = 1;
    std::size_t column = 1;
};

/// Cuts a registration script into words.
class ScriptTokens
{
public:
    /// Both are borrowed.
    ScriptTokens(std::u16string_view text, const ScriptVariables& variables);

    /// The next word, which `next` then takes.
    [[nodiscard]] const ScriptToken& peek() const noexcept { return ahead_; }

    /// Throws `RegistryScriptError` if the word after the one returned cannot be read.
    ScriptToken next();

private:
    [[nodiscard]] bool atEnd() const noexcept { return position_ == text_.size(); }
    [[nodiscard]] char16_t current() const noexcept { return text_[position_]; }
    void advance() noexcept;

    void skipSpace() noexcept;
    ScriptToken read();
    void readQuoted(ScriptToken& token);
    void readPlain(ScriptToken& token);
    void readCharacter(ScriptToken& token);
    void readVariable(ScriptToken& token);
    [[noreturn]] void fail(const std::string& reason) const;

    std::u16string_view text_;
    const ScriptVariables& variables_;
    std::size_t position_ = 0;
    std::size_t line_ = 1;
    std::size_t column_ = 1;
    ScriptToken ahead_;
};
