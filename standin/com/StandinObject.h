#pragma once

#include "Server.h"
#include "TranscriptValue.h"
#include "WordError.h"

#include <Word.h>
#include <atomic>
#include <memory>
#include <span>
#include <string>
#include <string_view>
#include <vector>

#ifdef _MSC_VER
#define STANDIN_OBJECT_ID __declspec(uuid("b2a1c0f4-51d3-4be1-9c0e-7d361f0a942b"))
#else
#define STANDIN_OBJECT_ID
#endif

namespace standin {
enum class CallKind
{
    method,
    propertyGet,
    propertyPut
};

/// A call as it came in.
struct ReceivedCall
{
    std::string_view member;
    CallKind kind;
    std::span<const TranscriptValue> arguments; ///< of a property's put, the last one is the value
};

/// What the stand-in's objects have in common, whatever interface they show.
class StandinObject
{
public:
    StandinObject(const StandinObject&) = delete;
    StandinObject& operator=(const StandinObject&) = delete;

    /// The stand-in's object behind a COM pointer; null for null and for objects of anyone else.
    static StandinObject* of(IUnknown* object);

    /// The name in the transcript. It is chosen when a call first gives the object, or at the first question.
    const std::string& name();

    /// The document that the object is, for InProcessWord::model.
    virtual model::DocumentPtr documentModel() const { return nullptr; }

protected:
    StandinObject(std::shared_ptr<Server> server, std::string_view interfaceName, const IID& interfaceId);
    virtual ~StandinObject();

    Server& server() const { return *server_; }
    const std::shared_ptr<Server>& sharedServer() const { return server_; }
    Word::_ApplicationPtr application() const { return server_->application(); }

    /// The way of every call: counts it, fails it when that is asked for, runs `body` and writes the line.
    /// `body` takes the TranscriptValue of the result.
    template <typename Body>
    HRESULT receive(const ReceivedCall& call, Body&& body) noexcept
    {
        return receiveErased(
            call, [](void* erased, TranscriptValue& result) { (*static_cast<Body*>(erased))(result); },
            &body);
    }

    /// What a member answers that this stand-in does not have.
    [[noreturn]] void notImplemented() const;

    /// The name by what a program says to reach the object (`body.Font`), which may be empty: nothing has led
    /// to it, or it is new. Two objects have one name where they stand for no more than the expression says.
    virtual std::string chooseName(const std::string& expression);

    HRESULT typeInfo(UINT index, ITypeInfo** result) noexcept;
    HRESULT namesToIds(LPOLESTR* names, UINT count, DISPID* ids) noexcept;
    HRESULT invokeByTypeInfo(void* instance, DISPID id, WORD flags, DISPPARAMS* arguments, VARIANT* result,
                             EXCEPINFO* exception, UINT* badArgument) noexcept;

    std::atomic<ULONG> references_ = 1;

private:
    using ErasedBody = void (*)(void*, TranscriptValue&);

    HRESULT receiveErased(const ReceivedCall& call, ErasedBody body, void* context) noexcept;
    HRESULT run(ErasedBody body, void* context, TranscriptValue& result) noexcept;
    void writeLine(const ReceivedCall& call, HRESULT outcome, const TranscriptValue& result);
    std::vector<std::string> shown(std::span<const TranscriptValue> values) const;

    std::shared_ptr<Server> server_;
    std::string_view interfaceName_;
    const IID& interfaceId_;
    int life_;
    std::string name_;
};

/// How one of the stand-in's objects is told from others; never leaves the process.
struct STANDIN_OBJECT_ID IStandinObject : public IUnknown
{
    virtual StandinObject* STDMETHODCALLTYPE standinObject() noexcept = 0;
};
} // namespace standin
#undef STANDIN_OBJECT_ID

#ifndef _MSC_VER
__CRT_UUID_DECL(standin::IStandinObject, 0xb2a1c0f4, 0x51d3, 0x4be1, 0x9c, 0x0e, 0x7d, 0x36, 0x1f, 0x0a, 0x94,
                0x2b)
#endif

namespace standin {
/// The COM part of an object that shows one of Word's dual interfaces. Born with one reference.
template <typename Interface>
class DispatchObject : public Interface, public ISupportErrorInfo, public IStandinObject, public StandinObject
{
public:
    // IUnknown
    HRESULT STDMETHODCALLTYPE QueryInterface(REFIID id, void** result) noexcept override
    {
        if (!result)
            return E_POINTER;
        *result = find(id);
        if (!*result)
            return E_NOINTERFACE;
        AddRef();
        return S_OK;
    }

    ULONG STDMETHODCALLTYPE AddRef() noexcept override { return ++references_; }

    ULONG STDMETHODCALLTYPE Release() noexcept override
    {
        const ULONG left = --references_;
        if (left == 0)
            delete this;
        return left;
    }

    // IDispatch
    HRESULT STDMETHODCALLTYPE GetTypeInfoCount(UINT* count) noexcept override
    {
        if (!count)
            return E_POINTER;
        *count = 1;
        return S_OK;
    }

    HRESULT STDMETHODCALLTYPE GetTypeInfo(UINT index, LCID, ITypeInfo** result) noexcept override
    {
        return typeInfo(index, result);
    }

    HRESULT STDMETHODCALLTYPE GetIDsOfNames(REFIID, LPOLESTR* names, UINT count, LCID,
                                            DISPID* ids) noexcept override
    {
        return namesToIds(names, count, ids);
    }

    HRESULT STDMETHODCALLTYPE Invoke(DISPID id, REFIID, LCID, WORD flags, DISPPARAMS* arguments,
                                     VARIANT* result, EXCEPINFO* exception,
                                     UINT* badArgument) noexcept override
    {
        return invokeByTypeInfo(static_cast<Interface*>(this), id, flags, arguments, result, exception,
                                badArgument);
    }

    // ISupportErrorInfo
    HRESULT STDMETHODCALLTYPE InterfaceSupportsErrorInfo(REFIID id) noexcept override
    {
        return id == __uuidof(Interface) ? S_OK : S_FALSE;
    }

    // IStandinObject
    StandinObject* STDMETHODCALLTYPE standinObject() noexcept override { return this; }

protected:
    DispatchObject(std::shared_ptr<Server> server, std::string_view interfaceName)
        : StandinObject(std::move(server), interfaceName, __uuidof(Interface))
    {
    }

private:
    void* find(REFIID id) noexcept
    {
        if (id == __uuidof(Interface) || id == __uuidof(IDispatch) || id == __uuidof(IUnknown))
            return static_cast<Interface*>(this);
        if (id == __uuidof(ISupportErrorInfo))
            return static_cast<ISupportErrorInfo*>(this);
        return id == __uuidof(IStandinObject) ? static_cast<IStandinObject*>(this) : nullptr;
    }
};

/// Makes an object; the pointer takes over its first reference.
template <typename Object, typename... Arguments>
auto makeObject(Arguments&&... arguments)
{
    using Interface = typename Object::ShownInterface;
    return _com_ptr_t<_com_IIID<Interface, &__uuidof(Interface)>>(
        new Object(std::forward<Arguments>(arguments)...), false);
}
} // namespace standin
