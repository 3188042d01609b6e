#pragma once

#include "registry/RegisterBase.h"

/// The registry as it stands at this moment: no cache, no overrides.
class RegisterDynamic : public RegisterBase
{
public:
    /// The value, or `defaultEntry` when there is none that can be read. With `allUsersOnly` the user's own
    /// value is passed over.
    static RegEntry read(const QdxString& group, const QdxString& name, const RegEntry& defaultEntry,
                         bool allUsersOnly = false);

    /// Writes `entry` by its kind: integer and boolean as REG_DWORD, text as REG_SZ; its own group and name
    /// play no part. For the current user, or with `forAllUsers` for the machine. Raises `_com_error` when
    /// Windows refuses.
    static void write(const QdxString& group, const QdxString& name, const RegEntry& entry,
                      bool forAllUsers = false);
};
