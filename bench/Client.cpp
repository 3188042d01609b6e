#include "Client.h"

#include "Mirovel.h"

#include "CComObject.h"

namespace {

constexpr CLSID wordClass = {0x000209FF, 0, 0, {0xC0, 0, 0, 0, 0, 0, 0, 0x46}};
constexpr short textValue = 1;
constexpr short numberValue = 2;

} // namespace

RunningWord::RunningWord(Word::_Application& application)
{
    _com_util::CheckError(RegisterActiveObject(&application, wordClass, ACTIVEOBJECT_STRONG, &registration_));
}

RunningWord::~RunningWord()
{
    RevokeActiveObject(registration_, nullptr);
}

IDocumentPtr makeGenerator(Writer writer)
{
    const IDocumentPtr generator(CComObject<Mirovel>::create(), false);
    generator->overrideRegistry(_bstr_t(L"Word"), _bstr_t(L"WordTemplateName"), _bstr_t(L""), textValue);
    generator->overrideRegistry(_bstr_t(L"Word"), _bstr_t(L"Compose"), _bstr_t(static_cast<long>(writer)),
                                numberValue);
    return generator;
}
