#pragma once

#include <windows.h>

#include <comdef.h>

#include <functional>
#include <thread>

/// A single-threaded apartment: a thread with a message loop. Objects that `run` makes live in it, and
/// whoever made them lets go of them by `run`, too.
class Apartment
{
public:
    Apartment();
    ~Apartment();
    Apartment(const Apartment&) = delete;
    Apartment& operator=(const Apartment&) = delete;

    /// Does `work` in the apartment and waits for it. What `work` throws is thrown here.
    void run(const std::function<void()>& work);

    /// For the calling thread a proxy of `object`, which lives in the apartment. Throws _com_error.
    template <class Pointer>
    [[nodiscard]] Pointer proxyOf(const Pointer& object)
    {
        const IID& id = Pointer::GetIID();
        return {static_cast<typename Pointer::Interface*>(unmarshaled(marshaled(object, id), id)), false};
    }

private:
    void live();
    IStream* marshaled(IUnknown* object, const IID& id);
    static void* unmarshaled(IStream* stream, const IID& id);

    HANDLE event_;
    DWORD id_ = 0;
    std::thread thread_;
};
