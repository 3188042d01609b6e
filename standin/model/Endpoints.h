#pragma once

#include "Constants.h"

#include <set>

namespace standin::model {

class EndpointSet;

/// One end of a live range or bookmark, registered with its story's EndpointSet.
class Endpoint
{
public:
    Endpoint() = default;
    Endpoint(const Endpoint&) = delete;
    Endpoint& operator=(const Endpoint&) = delete;

private:
    friend class EndpointSet;

    struct ByKey
    {
        using is_transparent = void;
        bool operator()(const Endpoint* a, const Endpoint* b) const { return a->key_ < b->key_; }
        bool operator()(const Endpoint* a, Position b) const { return a->key_ < b; }
        bool operator()(Position a, const Endpoint* b) const { return a < b->key_; }
    };
    using Set = std::multiset<Endpoint*, ByKey>;

    Position key_ = 0; ///< distance from the story's start or, behind the gap, from its end
    bool behind_ = false;
    Set::iterator place_;
};

/// All endpoints of a story. An edit moves only those between it and the edit before: endpoints before the
/// gap are kept by their distance from the story's start, those behind it by their distance from the end.
class EndpointSet
{
public:
    explicit EndpointSet(Position length) : length_(length) {}
    EndpointSet(const EndpointSet&) = delete;
    EndpointSet& operator=(const EndpointSet&) = delete;

    void add(Endpoint& endpoint, Position position);
    void remove(Endpoint& endpoint);
    void set(Endpoint& endpoint, Position position);
    Position position(const Endpoint& endpoint) const;
    std::size_t size() const { return before_.size() + behind_.size(); }

    /// `count` characters were inserted at `at`: endpoints > at move.
    void inserted(Position at, Position count);
    /// [start,end) was deleted: endpoints inside go to its start.
    void erased(Position start, Position end);

    /// False if the inner order is broken.
    bool isConsistent() const;

private:
    /// Makes the endpoints <= at lie before the gap and the others behind it.
    void moveGap(Position at);

    Position length_;
    Position gap_ = 0;
    Endpoint::Set before_;
    Endpoint::Set behind_;
};

} // namespace standin::model
