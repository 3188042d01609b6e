#include "ParamDesc.h"

ParamDesc::ParamDesc(const QdxString& name, short code) : name_(name), code_(code) {}

bool ParamDesc::operator==(const ParamDesc& other) const
{
    return name_ == other.name_ && code_ == other.code_;
}

bool ParamDesc::operator!=(const ParamDesc& other) const
{
    return !(*this == other);
}

bool ParamDesc::operator>(const ParamDesc& other) const
{
    return other < *this;
}

bool ParamDesc::operator<(const ParamDesc& other) const
{
    return name_ < other.name_ || (name_ == other.name_ && code_ < other.code_);
}
