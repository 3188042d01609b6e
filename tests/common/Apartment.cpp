#include "Apartment.h"

#include <exception>

namespace {

struct Work
{
    const std::function<void()>& function;
    std::exception_ptr failure = nullptr;
};

} // namespace

Apartment::Apartment() : event_(CreateEventW(nullptr, FALSE, FALSE, nullptr)), thread_([this] { live(); })
{
    WaitForSingleObject(event_, INFINITE);
}

Apartment::~Apartment()
{
    PostThreadMessageW(id_, WM_QUIT, 0, 0);
    thread_.join();
    CloseHandle(event_);
}

void Apartment::run(const std::function<void()>& work)
{
    Work given{work};
    PostThreadMessageW(id_, WM_APP, 0, reinterpret_cast<LPARAM>(&given));
    WaitForSingleObject(event_, INFINITE);
    if (given.failure)
        std::rethrow_exception(given.failure);
}

void Apartment::live()
{
    CoInitializeEx(nullptr, COINIT_APARTMENTTHREADED);
    id_ = GetCurrentThreadId();
    MSG message{};
    PeekMessageW(&message, nullptr, 0, 0, PM_NOREMOVE); // makes the queue
    SetEvent(event_);
    while (GetMessageW(&message, nullptr, 0, 0) > 0) {
        if (!message.hwnd && message.message == WM_APP) {
            Work& work = *reinterpret_cast<Work*>(message.lParam);
            try {
                work.function();
            } catch (...) {
                work.failure = std::current_exception();
            }
            SetEvent(event_);
        }
        DispatchMessageW(&message);
    }
    CoUninitialize();
}

IStream* Apartment::marshaled(IUnknown* object, const IID& id)
{
    IStream* stream = nullptr;
    run([&] { _com_util::CheckError(CoMarshalInterThreadInterfaceInStream(id, object, &stream)); });
    return stream;
}

void* Apartment::unmarshaled(IStream* stream, const IID& id)
{
    void* proxy = nullptr;
    _com_util::CheckError(CoGetInterfaceAndReleaseStream(stream, id, &proxy));
    return proxy;
}
