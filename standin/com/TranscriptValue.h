#pragma once

#include <comdef.h>
#include <string>
#include <variant>

namespace standin {
class ObjectNames;

/// An argument or result of a call, as the transcript shows it. Holds no copy: it lives no longer than the
/// call.
class TranscriptValue
{
public:
    TranscriptValue() = default;
    TranscriptValue(long value) : value_(value) {}
    TranscriptValue(short value) : value_(value) {}
    TranscriptValue(bool value) : value_(value) {}
    TranscriptValue(float value) : value_(value) {}
    TranscriptValue(BSTR value) : value_(Text{value}) {}
    TranscriptValue(const VARIANT* value) : value_(value) {}
    TranscriptValue(IUnknown* value) : value_(value) {}
    TranscriptValue(IDispatch* value) : value_(static_cast<IUnknown*>(value)) {}
    TranscriptValue(SAFEARRAY**) : value_(Array{}) {}

    /// Nothing was answered, as by a method without a result.
    bool isNothing() const { return std::holds_alternative<std::monostate>(value_); }
    /// The object that it is; null for other values.
    IUnknown* object() const;
    void appendTo(std::string& line, ObjectNames& names) const;

private:
    struct Text
    {
        BSTR text;
    };
    struct Array
    {
    };

    std::variant<std::monostate, long, short, bool, float, Text, const VARIANT*, IUnknown*, Array> value_;
};

/// Gives the stand-in's objects their names in the transcript.
class ObjectNames
{
public:
    virtual std::string nameOf(IUnknown* object) = 0;

protected:
    ~ObjectNames() = default;
};

/// In double quotes; control and non-ASCII characters as \uXXXX.
void appendQuoted(std::string& line, const wchar_t* text, std::size_t length);
} // namespace standin
