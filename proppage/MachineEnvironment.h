#pragma once

#include "PageEnvironment.h"

/// The registry and the file system of this machine. Settings are written for the current user.
class MachineEnvironment : public PageEnvironment
{
public:
    [[nodiscard]] RegEntry read(const QdxString& group, const QdxString& name,
                                const RegEntry& defaultEntry) const override;
    /// Raises `_com_error` when Windows refuses.
    void write(const QdxString& group, const QdxString& name, const RegEntry& entry) override;

    [[nodiscard]] bool fileExists(const QdxString& name) const override;
    [[nodiscard]] QdxString appendToDir(const QdxString& dir, const QdxString& name) const override;
};
