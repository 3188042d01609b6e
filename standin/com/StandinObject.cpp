#include "StandinObject.h"

#include "Failure.h"
#include "ObjectExpression.h"

#include <new>

namespace standin {
StandinObject::StandinObject(std::shared_ptr<Server> server, std::string_view interfaceName,
                             const IID& interfaceId)
    : server_(std::move(server)), interfaceName_(interfaceName), interfaceId_(interfaceId),
      life_(server_->life())
{
    server_->objectBorn();
}

StandinObject::~StandinObject()
{
    server_->objectDied();
}

StandinObject* StandinObject::of(IUnknown* object)
{
    IStandinObject* found = nullptr;
    if (!object || FAILED(object->QueryInterface(__uuidof(IStandinObject), reinterpret_cast<void**>(&found))))
        return nullptr;
    StandinObject* result = found->standinObject();
    found->Release();
    return result;
}

const std::string& StandinObject::name()
{
    if (name_.empty())
        name_ = chooseName({});
    return name_;
}

std::string StandinObject::chooseName(const std::string& expression)
{
    return expression.empty() ? server_->ordinalName(interfaceName_) : expression;
}

void StandinObject::notImplemented() const
{
    throw model::NotSupported("this member is not part of the stand-in");
}

HRESULT StandinObject::receiveErased(const ReceivedCall& call, ErasedBody body, void* context) noexcept
try {
    // A Word that has ended receives nothing: no count, no line.
    if (server_->hasEnded() || life_ != server_->life())
        return RPC_E_DISCONNECTED;
    if (server_->transcript)
        name(); // of what is found by no call, the receiver gets its number in front of the arguments
    TranscriptValue result;
    HRESULT outcome = server_->countCall();
    if (FAILED(outcome))
        leaveErrorInformation(outcome, interfaceId_);
    else if (outcome == S_OK)
        outcome = run(body, context, result);
    if (server_->transcript)
        writeLine(call, outcome, result);
    return outcome;
} catch (...) {
    return translateCurrentException(interfaceId_);
}

HRESULT StandinObject::run(ErasedBody body, void* context, TranscriptValue& result) noexcept
try {
    body(context, result);
    return S_OK;
} catch (...) {
    return translateCurrentException(interfaceId_);
}

std::vector<std::string> StandinObject::shown(std::span<const TranscriptValue> values) const
{
    std::vector<std::string> all;
    for (const TranscriptValue& value : values)
        value.appendTo(all.emplace_back(), server_->names());
    return all;
}

void StandinObject::writeLine(const ReceivedCall& call, HRESULT outcome, const TranscriptValue& result)
{
    std::vector<std::string> arguments = shown(call.arguments);
    std::string put;
    if (call.kind == CallKind::propertyPut) {
        put = " = " + arguments.back();
        arguments.pop_back();
    }
    std::string line = name() + '.' + std::string(call.member);
    if (call.kind == CallKind::method || !arguments.empty()) {
        line += '(';
        for (const std::string& argument : arguments)
            line += (&argument == arguments.data() ? "" : ", ") + argument;
        line += ')';
    }
    line += put;
    StandinObject* const given = of(result.object());
    if (given && given->name_.empty())
        given->name_ = given->chooseName(
            objectExpression(name(), call.member, call.kind == CallKind::method, arguments));
    if (FAILED(outcome)) {
        char code[16];
        wsprintfA(code, " !! 0x%08x", static_cast<unsigned>(outcome));
        line += code;
    } else if (!result.isNothing()) {
        line += " -> ";
        result.appendTo(line, server_->names());
    }
    server_->note(line,
                  {std::string(interfaceName_) + '.' + std::string(call.member) + (put.empty() ? "" : " ="),
                   given != nullptr});
}

HRESULT StandinObject::typeInfo(UINT index, ITypeInfo** result) noexcept
try {
    if (!result)
        return E_POINTER;
    *result = nullptr;
    if (index != 0)
        return DISP_E_BADINDEX;
    *result = server_->typeInfo(interfaceId_).Detach();
    return S_OK;
} catch (...) {
    return translateCurrentException(interfaceId_);
}

HRESULT StandinObject::namesToIds(LPOLESTR* names, UINT count, DISPID* ids) noexcept
try {
    return server_->typeInfo(interfaceId_)->GetIDsOfNames(names, count, ids);
} catch (...) {
    return translateCurrentException(interfaceId_);
}

HRESULT StandinObject::invokeByTypeInfo(void* instance, DISPID id, WORD flags, DISPPARAMS* arguments,
                                        VARIANT* result, EXCEPINFO* exception, UINT* badArgument) noexcept
try {
    const ITypeInfoPtr information = server_->typeInfo(interfaceId_);
    SetErrorInfo(0, nullptr);
    return information->Invoke(instance, id, flags, arguments, result, exception, badArgument);
} catch (...) {
    return translateCurrentException(interfaceId_);
}
} // namespace standin
