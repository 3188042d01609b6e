#pragma once

#include "QdxObject.h"

#include "Word.h"

#include <cstdint>

/// The start of an alignment run that a writer has recorded and not yet applied.
///
/// Copies share the Word range (a counted reference).
class SaveAlign : public QdxObject
{
public:
    std::int32_t start = 0; ///< Position at which the alignment begins, as Word reported it.
    std::int16_t align = 0; ///< The client's alignment number.
    Word::RangePtr range;   ///< The range the run belongs to: the writer's output range, or a cell's.

    /// @name Comparisons
    /// All four answer true for any two runs: nothing orders or searches them by value.
    /// @{
    virtual bool operator==(const SaveAlign& other) const;
    virtual bool operator!=(const SaveAlign& other) const;
    virtual bool operator<(const SaveAlign& other) const;
    virtual bool operator>(const SaveAlign& other) const;
    /// @}
};
