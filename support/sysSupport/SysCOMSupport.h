#pragma once

#include "QdxObject.h"
#include "QdxString.h"
#include "StandardComPointers.h"

/// The running object table. COM must be initialised on the calling thread.
class SysCOMSupport : public QdxObject
{
public:
    /// The running server registered for that class id, given as "{000209FF-...}" (braces may be missing) or
    /// as a ProgID. Null when none runs or the text names no class.
    [[nodiscard]] static IUnknownPtr getRunningIUnknown(const QdxString& clsid);

    /// The same, and why there is none: what COM answered, S_OK with an object.
    [[nodiscard]] static HRESULT findRunning(const QdxString& clsid, IUnknownPtr& running);

    /// True when a running application has announced the file of that path (compared without case; a relative
    /// path counts from the current directory). False for a name that cannot be a file's.
    [[nodiscard]] static bool isFileRunning(const QdxString& path);
};
