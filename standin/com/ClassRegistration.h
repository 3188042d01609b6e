#pragma once

#include <memory>

namespace standin {
class InProcessWord;

/// While it lives, CoCreateInstance by Word's Application class or by the ProgID "Word.Application" gives
/// `word`'s application in this apartment. It registers a class object and adds what the look-up of the
/// ProgID needs to HKEY_CLASSES_ROOT, and takes away what it added. Raises _com_error.
class ClassRegistration
{
public:
    explicit ClassRegistration(const InProcessWord& word);
    ~ClassRegistration();
    ClassRegistration(const ClassRegistration&) = delete;
    ClassRegistration& operator=(const ClassRegistration&) = delete;

    /// How many objects were created through it.
    long created() const;

private:
    struct State;
    std::unique_ptr<State> state_;
};
} // namespace standin
