#pragma once

#include <cstdint>
#include <stdexcept>
#include <string>

namespace standin::model {

/// The numbers under which Word reports its failures; as an HRESULT a failure is 0x800A0000 + number.
enum class WordErrorNumber : std::int32_t
{
    badFileName = 4160,
    commandFailed = 4198,
    typeMismatch = 4218,
    notAvailable = 4605,
    valueOutOfRange = 4608,
    stringTooLong = 4609,
    notAValidFileName = 5152,
    filePermission = 5155,
    fileInUse = 5156,
    fileNotFound = 5174,
    atRowEnd = 5251,
    invalidDocumentName = 5273,
    objectDeleted = 5825,
    badBookmarkName = 5828,
    noSuchItem = 5834,
    badValue = 5843,
    noSuchMember = 5941,
    mixedRows = 5991,
    mixedColumns = 5992,
    cannotDeleteRange = 6028,
};

/// A failure that Word itself would report.
class WordError : public std::runtime_error
{
public:
    /// Carries Word's usual text for `number`.
    explicit WordError(WordErrorNumber number);
    WordError(WordErrorNumber number, const std::string& text) : std::runtime_error(text), number_(number) {}

    WordErrorNumber number() const noexcept { return number_; }
    /// The HRESULT bits, 0x800A0000 + number.
    std::uint32_t code() const noexcept { return 0x800A0000u + static_cast<std::uint32_t>(number_); }

private:
    WordErrorNumber number_;
};

/// Asked for something that Word can do and this stand-in cannot: reported as E_NOTIMPL, never passed over in
/// silence.
class NotSupported : public std::logic_error
{
public:
    using std::logic_error::logic_error;
};

} // namespace standin::model
