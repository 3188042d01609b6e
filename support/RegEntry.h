#pragma once

#include "QdxObject.h"
#include "QdxString.h"

/// One registry value, held by value: its group, its name, its value as text and as an integer, and its kind.
///
/// Conversions are tolerant and never fail:
///  1. A text reads as an integer by its leading decimal number (0 without one, clamped to 32 bits), as a
///     boolean when it is "1", "true", "yes" or "on" in any case.
///  2. An integer reads as its decimal text, as a boolean when it is not 0.
///  3. A boolean is true when its text is one of the words of rule 1 or its integer is not 0; it reads as 1
///     or 0.
class RegEntry : public QdxObject
{
public:
    /// The numbering of the entry kinds; what a client's setKind() may be given besides is kept and read as
    /// text.
    static constexpr int integerKind = 0;
    static constexpr int booleanKind = 1;
    static constexpr int textKind = 2;

    /// Empty text without group and name; its integer is not to be relied on.
    RegEntry() = default;
    /// A text, as defaults are given.
    RegEntry(const QdxString& value);
    RegEntry(const char* value);
    /// An integer, as defaults are given.
    RegEntry(int value);
    RegEntry(const QdxString& group, const QdxString& name, const QdxString& value);
    RegEntry(const QdxString& group, const QdxString& name, int value);

    [[nodiscard]] const QdxString& getGroup() const noexcept { return group_; }
    [[nodiscard]] const QdxString& getName() const noexcept { return name_; }
    /// The text as it was put in, whatever the kind (for an integer its decimal text).
    [[nodiscard]] const QdxString& getValue() const noexcept { return value_; }
    [[nodiscard]] int getKind() const noexcept { return kind_; }
    /// Changes how the value is read and written, not the value.
    void setKind(int kind) noexcept { kind_ = kind; }

    operator int() const noexcept;
    operator bool() const noexcept;
    operator QdxString() const;

    /// Same group, name, kind and value.
    bool operator==(const RegEntry& other) const noexcept;
    /// Entries have no order of their own: both comparisons are true for every pair, by intention.
    bool operator<(const RegEntry&) const noexcept { return true; }
    bool operator>(const RegEntry&) const noexcept { return true; }

private:
    QdxString group_;
    QdxString name_;
    QdxString value_;
    int integer_ = 0;
    int kind_ = textKind;
};
