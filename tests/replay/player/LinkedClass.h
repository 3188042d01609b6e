#pragma once

#include "ClientObject.h"

#include "Mirovel.h"

namespace replay {

/// The class in this process, without registration.
class LinkedClass final : public ObjectSource
{
public:
    ObjectPtr make() override
    {
        void* created = nullptr;
        _com_util::CheckError(Mirovel::createInstance(nullptr, IID_IDocument, &created));
        ++made;
        return {static_cast<IDocument*>(created), false};
    }

    int made = 0;
};

} // namespace replay
