#include "Client.h"

#include "Mirovel.h"

#include "CComObject.h"

namespace {

constexpr short textValue = 1;
constexpr short numberValue = 2;

} // namespace

IDocumentPtr makeGenerator(Writer writer)
{
    const IDocumentPtr generator(CComObject<Mirovel>::create(), false);
    generator->overrideRegistry(_bstr_t(L"Word"), _bstr_t(L"WordTemplateName"), _bstr_t(L""), textValue);
    generator->overrideRegistry(_bstr_t(L"Word"), _bstr_t(L"Compose"), _bstr_t(static_cast<long>(writer)),
                                numberValue);
    return generator;
}
