#include "FailingFunction.h"

#include <cerrno>
#include <cstdio>
#include <share.h>
#include <stdexcept>

namespace {

struct Refusals
{
    long ordinal = 0; ///< 0: none
    bool onwards = false;
    long calls = 0;
};

Refusals refusals;

bool isRefused()
{
    ++refusals.calls;
    return refusals.ordinal != 0 &&
           (refusals.calls == refusals.ordinal || (refusals.onwards && refusals.calls > refusals.ordinal));
}

BOOL WINAPI writeFile(HANDLE file, const void* bytes, DWORD size, DWORD* written, OVERLAPPED* overlapped)
{
    if (!isRefused())
        return WriteFile(file, bytes, size, written, overlapped);
    if (written)
        *written = 0;
    SetLastError(ERROR_DISK_FULL);
    return FALSE;
}

HANDLE WINAPI createFile(const wchar_t* name, DWORD access, DWORD sharing, SECURITY_ATTRIBUTES* security,
                         DWORD disposition, DWORD attributes, HANDLE pattern)
{
    if (!isRefused())
        return CreateFileW(name, access, sharing, security, disposition, attributes, pattern);
    SetLastError(ERROR_ACCESS_DENIED);
    return INVALID_HANDLE_VALUE;
}

std::size_t writeStream(const void* bytes, std::size_t size, std::size_t count, std::FILE* stream)
{
    if (!isRefused())
        return std::fwrite(bytes, size, count, stream);
    errno = ENOSPC;
    return 0;
}

int flushStream(std::FILE* stream)
{
    if (!isRefused())
        return std::fflush(stream);
    errno = ENOSPC;
    return EOF;
}

std::FILE* openStream(const wchar_t* name, const wchar_t* mode, int sharing)
{
    if (!isRefused())
        return _wfsopen(name, mode, sharing);
    errno = EACCES;
    return nullptr;
}

LSTATUS WINAPI createKey(HKEY key, const wchar_t* name, DWORD reserved, wchar_t* type, DWORD options,
                         REGSAM access, const SECURITY_ATTRIBUTES* security, HKEY* made, DWORD* disposition)
{
    if (isRefused())
        return ERROR_ACCESS_DENIED;
    return RegCreateKeyExW(key, name, reserved, type, options, access,
                           const_cast<SECURITY_ATTRIBUTES*>(security), made, disposition);
}

LSTATUS WINAPI setValue(HKEY key, const wchar_t* name, DWORD reserved, DWORD type, const BYTE* bytes,
                        DWORD size)
{
    return isRefused() ? ERROR_ACCESS_DENIED : RegSetValueExW(key, name, reserved, type, bytes, size);
}

ImportedFunction replace(HMODULE module, std::string_view name)
{
    if (name == "WriteFile")
        return {module, name, writeFile};
    if (name == "CreateFileW")
        return {module, name, createFile};
    if (name == "fwrite")
        return {module, name, writeStream};
    if (name == "fflush")
        return {module, name, flushStream};
    if (name == "_wfsopen")
        return {module, name, openStream};
    if (name == "RegCreateKeyExW")
        return {module, name, createKey};
    if (name == "RegSetValueExW")
        return {module, name, setValue};
    throw std::invalid_argument("no such function to fail");
}

} // namespace

FailingFunction::FailingFunction(HMODULE module, std::string_view name) : function_(replace(module, name)) {}

FailingFunction::~FailingFunction()
{
    refusals = {};
}

void FailingFunction::refuse(long ordinal, bool onwards)
{
    refusals = {ordinal, onwards, 0};
}

long FailingFunction::grantAll()
{
    refusals.ordinal = 0;
    return refusals.calls;
}
