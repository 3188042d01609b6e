#pragma once

#include "QdxObject.h"
#include "QdxString.h"

/// A named parameter: its name and a 16-bit kind or value code. Ordered by name, then by code.
class ParamDesc : public QdxObject
{
public:
    /// Empty name; the code is not to be relied on.
    ParamDesc() = default;
    ParamDesc(const QdxString& name, short code);

    [[nodiscard]] const QdxString& getName() const noexcept { return name_; }
    [[nodiscard]] short getCode() const noexcept { return code_; }

    virtual bool operator==(const ParamDesc& other) const;
    virtual bool operator!=(const ParamDesc& other) const;
    virtual bool operator>(const ParamDesc& other) const;
    virtual bool operator<(const ParamDesc& other) const;

private:
    QdxString name_;
    short code_ = 0;
};
