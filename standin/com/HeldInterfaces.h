#pragma once

#include <Word.h>

#include <vector>

namespace standin {
_COM_SMARTPTR_TYPEDEF(IStream, __uuidof(IStream));

/// Keeps COM ready to serve the interfaces of Word's objects, in this apartment, for as long as it lives.
///
/// Otherwise COM forgets an interface with its last object and learns it again with the next. Wine waits
/// meanwhile for calls that are just ending and can miss their end for ever, and the client waits with it.
/// Raises _com_error.
class HeldInterfaces
{
public:
    HeldInterfaces();
    ~HeldInterfaces();
    HeldInterfaces(const HeldInterfaces&) = delete;
    HeldInterfaces& operator=(const HeldInterfaces&) = delete;

private:
    std::vector<IStreamPtr> marshaled_;
};

} // namespace standin
