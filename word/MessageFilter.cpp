#include "MessageFilter.h"

#include <comdef.h>

namespace Word {
bool hasMessageFilter() noexcept
{
    IMessageFilter* filter = nullptr;
    if (FAILED(CoRegisterMessageFilter(nullptr, &filter)) || !filter)
        return false;
    IMessageFilter* none = nullptr;
    CoRegisterMessageFilter(filter, &none);
    filter->Release();
    return true;
}
} // namespace Word
