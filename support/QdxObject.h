#pragma once

/// Root of the in-house classes. Holds nothing but its virtual table, whose only slot is the destructor.
class QdxObject
{
public:
    QdxObject() = default;
    QdxObject(const QdxObject&) = default;
    QdxObject& operator=(const QdxObject&) = default;
    virtual ~QdxObject() = default;
};
