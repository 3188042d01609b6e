#include "ObjectApartment.h"

ObjectApartment::ObjectApartment(const BuiltServer& server)
    : event_(CreateEventW(nullptr, FALSE, FALSE, nullptr)), thread_([this, &server] { live(server); })
{
    WaitForSingleObject(event_, INFINITE);
}

ObjectApartment::~ObjectApartment()
{
    PostThreadMessageW(id_, WM_QUIT, 0, 0);
    thread_.join();
    CloseHandle(event_);
}

IDocumentPtr ObjectApartment::proxy()
{
    IStream* stream = nullptr;
    run([&] { CoMarshalInterThreadInterfaceInStream(IID_IDocument, object, &stream); });
    IDocumentPtr unmarshaled;
    _com_util::CheckError(
        CoGetInterfaceAndReleaseStream(stream, IID_IDocument, reinterpret_cast<void**>(&unmarshaled)));
    return unmarshaled;
}

void ObjectApartment::run(const std::function<void()>& work)
{
    PostThreadMessageW(id_, WM_APP, 0, reinterpret_cast<LPARAM>(&work));
    WaitForSingleObject(event_, INFINITE);
}

void ObjectApartment::live(const BuiltServer& server)
{
    CoInitializeEx(nullptr, COINIT_APARTMENTTHREADED);
    id_ = GetCurrentThreadId();
    word = std::make_unique<ObservedWord>();
    object = server.make();
    MSG message{};
    PeekMessageW(&message, nullptr, 0, 0, PM_NOREMOVE); // makes the queue
    SetEvent(event_);
    while (GetMessageW(&message, nullptr, 0, 0) > 0) {
        if (!message.hwnd && message.message == WM_APP) {
            (*reinterpret_cast<const std::function<void()>*>(message.lParam))();
            SetEvent(event_);
        }
        DispatchMessageW(&message);
    }
    object = nullptr;
    word.reset();
    CoUninitialize();
}
