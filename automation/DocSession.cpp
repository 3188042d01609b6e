#include "DocSession.h"

#include "mirovelsection.h"
#include "sysSupport/SysDirectory.h"

#include <utility>

DocSession::DocSession() : startDirectory(SysDirectory::current()) {}

DocSession::~DocSession() = default;

void DocSession::releaseSections()
{
    currentSection = nullptr;
    destroySection(headerSection);
    destroySection(footerSection);
    destroySection(mainSection);
}

MirovelSection& DocSession::writer() const
{
    if (!currentSection)
        _com_issue_error(E_POINTER);
    return *currentSection;
}

void destroySection(MirovelSection*& section)
{
    delete std::exchange(section, nullptr);
}
