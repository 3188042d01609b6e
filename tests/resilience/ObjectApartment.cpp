#include "ObjectApartment.h"

ObjectApartment::ObjectApartment(const BuiltServer& server)
{
    apartment_.run([&] {
        word = std::make_unique<ObservedWord>();
        object = server.make();
    });
}

ObjectApartment::~ObjectApartment()
{
    apartment_.run([this] {
        object = nullptr;
        word.reset();
    });
}
