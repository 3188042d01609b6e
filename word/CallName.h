#pragma once

namespace Word {
enum class CallKind
{
    method,
    propertyGet,
    propertyPut
};

/// What a call is called: Word's own names, which live as long as the program.
struct CallName
{
    const char* interfaceName; ///< "_Document"; for the calls that connect, what is connected to.
    const char* member;        ///< "SaveAs"
    CallKind kind = CallKind::method;
};
} // namespace Word
