#include "TranscriptValue.h"

#include <array>
#include <charconv>

namespace standin {
namespace {
template <typename Number>
void appendNumber(std::string& line, Number value)
{
    std::array<char, 64> digits;
    const auto end = std::to_chars(digits.data(), digits.data() + digits.size(), value).ptr;
    line.append(digits.data(), end);
}

void appendCodeUnit(std::string& line, wchar_t unit)
{
    static constexpr char hexDigits[] = "0123456789abcdef";
    line += "\\u";
    for (int shift = 12; shift >= 0; shift -= 4)
        line += hexDigits[(unit >> shift) & 0xF];
}

void appendCharacter(std::string& line, wchar_t character)
{
    switch (character) {
    case L'\\':
        line += "\\\\";
        break;
    case L'"':
        line += "\\\"";
        break;
    case L'\n':
        line += "\\n";
        break;
    case L'\r':
        line += "\\r";
        break;
    case L'\t':
        line += "\\t";
        break;
    default:
        if (character >= 0x20 && character < 0x7F)
            line += static_cast<char>(character);
        else
            appendCodeUnit(line, character);
    }
}

void appendBstr(std::string& line, BSTR text)
{
    appendQuoted(line, text, SysStringLen(text));
}

void appendVariant(std::string& line, const VARIANT& value, ObjectNames& names);

void appendReferenced(std::string& line, const VARIANT& value, ObjectNames& names)
{
    _variant_t copy;
    if (SUCCEEDED(VariantCopyInd(&copy, const_cast<VARIANT*>(&value))))
        appendVariant(line, copy, names);
    else
        line += "unreadable";
}

void appendVariant(std::string& line, const VARIANT& value, ObjectNames& names)
{
    if ((value.vt & VT_BYREF) != 0) {
        appendReferenced(line, value, names);
        return;
    }
    switch (value.vt) {
    case VT_EMPTY:
        line += "empty";
        break;
    case VT_NULL:
        line += "null";
        break;
    case VT_I4:
        appendNumber(line, value.lVal);
        break;
    case VT_I2:
        appendNumber(line, value.iVal);
        line += 's';
        break;
    case VT_R4:
        appendNumber(line, value.fltVal);
        line += 'f';
        break;
    case VT_R8:
        appendNumber(line, value.dblVal);
        line += 'f';
        break;
    case VT_BOOL:
        line += value.boolVal ? "true" : "false";
        break;
    case VT_BSTR:
        appendBstr(line, value.bstrVal);
        break;
    case VT_DISPATCH:
    case VT_UNKNOWN:
        line += names.nameOf(value.punkVal);
        break;
    case VT_ERROR:
        if (value.scode == DISP_E_PARAMNOTFOUND) {
            line += "missing";
            break;
        }
        [[fallthrough]];
    default:
        // Kinds of values that Word's clients are not expected to send stand out by their number.
        line += "vt";
        appendNumber(line, static_cast<unsigned>(value.vt));
    }
}
} // namespace

void appendQuoted(std::string& line, const wchar_t* text, std::size_t length)
{
    line += '"';
    for (std::size_t index = 0; index < length; ++index)
        appendCharacter(line, text[index]);
    line += '"';
}

IUnknown* TranscriptValue::object() const
{
    if (const auto* const object = std::get_if<IUnknown*>(&value_))
        return *object;
    const auto* const variant = std::get_if<const VARIANT*>(&value_);
    return variant && ((*variant)->vt == VT_DISPATCH || (*variant)->vt == VT_UNKNOWN) ? (*variant)->punkVal
                                                                                      : nullptr;
}

void TranscriptValue::appendTo(std::string& line, ObjectNames& names) const
{
    struct Appender
    {
        std::string& line;
        ObjectNames& names;

        void operator()(std::monostate) const {}
        void operator()(long value) const { appendNumber(line, value); }
        void operator()(short value) const
        {
            appendNumber(line, value);
            line += 's';
        }
        void operator()(bool value) const { line += value ? "true" : "false"; }
        void operator()(float value) const
        {
            appendNumber(line, value);
            line += 'f';
        }
        void operator()(Text value) const { appendBstr(line, value.text); }
        void operator()(const VARIANT* value) const { appendVariant(line, *value, names); }
        void operator()(IUnknown* value) const { line += names.nameOf(value); }
        void operator()(Array) const { line += "array"; }
    };
    std::visit(Appender{line, names}, value_);
}
} // namespace standin
