#pragma once

#include "BuiltServer.h"

#include <functional>
#include <memory>
#include <thread>

/// A single-threaded apartment with a message loop. In it live a Word and an object of the built DLL, which
/// other apartments reach through proxies. The DLL must be registered, for its type library.
class ObjectApartment
{
public:
    explicit ObjectApartment(const BuiltServer& server);
    ~ObjectApartment();
    ObjectApartment(const ObjectApartment&) = delete;
    ObjectApartment& operator=(const ObjectApartment&) = delete;

    /// A proxy for the calling thread.
    [[nodiscard]] IDocumentPtr proxy();
    /// Does `work` in the apartment.
    void run(const std::function<void()>& work);

    std::unique_ptr<ObservedWord> word;
    IDocumentPtr object; ///< For use in the apartment alone.

private:
    void live(const BuiltServer& server);

    HANDLE event_;
    DWORD id_ = 0;
    std::thread thread_;
};
