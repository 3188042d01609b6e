#pragma once

#include "QdxString.h"

#include <ostream>

/// An argument that is echoed between double quotes; nothing inside it is escaped.
struct Quoted
{
    QdxString text;
};

/// Writes the echo lines of a client's calls, which together read as a script of the session. `Sink` is a
/// `Trace`, or anything else that takes text, numbers and `std::endl`.
template <class Sink>
class EchoLine
{
public:
    explicit EchoLine(Sink& sink) : sink_(sink) {}

    /// `mirovel->method(argument,argument);` and the end of the line.
    template <class... Arguments>
    void call(const char* method, const Arguments&... arguments)
    {
        begin(method);
        [[maybe_unused]] const char* separator = "";
        ((sink_ << separator, separator = ",", write(arguments)), ...);
        end();
    }

    /// `mirovel->method(`, for a call whose arguments become known one by one.
    void begin(const char* method) { sink_ << "mirovel->" << method << "("; }
    /// `);` and the end of the line.
    void end() { sink_ << ");" << std::endl; }

private:
    void write(const Quoted& argument) { sink_ << "\"" << argument.text << "\""; }
    template <class Argument>
    void write(const Argument& argument)
    {
        sink_ << argument;
    }

    Sink& sink_;
};
