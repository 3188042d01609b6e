#include "HyperLink.h"

#include "sysSupport/SysFile.h"

HyperLink::HyperLink(const QdxString& target, std::int32_t startPos, std::int32_t endPos,
                     const Word::RangePtr& textRange, bool isResolved)
    : start(startPos), end(endPos), resolved(isResolved), range(textRange)
{
    const bool external = SysFile::isHyperLink(target) || SysFile::exists(target);
    (external ? address : subAddress) = target;
}
