#pragma once

#include "Apartment.h"
#include "BuiltServer.h"

#include <functional>
#include <memory>

/// An apartment in which a Word and an object of the built DLL live. The DLL must be registered, for its type
/// library.
class ObjectApartment
{
public:
    explicit ObjectApartment(const BuiltServer& server);
    ~ObjectApartment();
    ObjectApartment(const ObjectApartment&) = delete;
    ObjectApartment& operator=(const ObjectApartment&) = delete;

    /// The object, for the calling thread.
    [[nodiscard]] IDocumentPtr proxy() { return apartment_.proxyOf(object); }
    /// Does `work` in the apartment.
    void run(const std::function<void()>& work) { apartment_.run(work); }

    std::unique_ptr<ObservedWord> word;
    IDocumentPtr object; ///< For use in the apartment alone.

private:
    Apartment apartment_;
};
