#include "Endpoints.h"

#include <algorithm>

namespace standin::model {

void EndpointSet::add(Endpoint& endpoint, Position position)
{
    endpoint.behind_ = position > gap_;
    endpoint.key_ = endpoint.behind_ ? length_ - position : position;
    endpoint.place_ = (endpoint.behind_ ? behind_ : before_).insert(&endpoint);
}

void EndpointSet::remove(Endpoint& endpoint)
{
    (endpoint.behind_ ? behind_ : before_).erase(endpoint.place_);
}

void EndpointSet::set(Endpoint& endpoint, Position position)
{
    if (this->position(endpoint) == position)
        return;
    remove(endpoint);
    add(endpoint, position);
}

Position EndpointSet::position(const Endpoint& endpoint) const
{
    return endpoint.behind_ ? length_ - endpoint.key_ : endpoint.key_;
}

void EndpointSet::inserted(Position at, Position count)
{
    moveGap(at);
    length_ += count;
}

void EndpointSet::erased(Position start, Position end)
{
    moveGap(end);
    while (!before_.empty() && (*before_.rbegin())->key_ > start) {
        Endpoint& endpoint = **before_.rbegin();
        before_.erase(std::prev(before_.end()));
        endpoint.key_ = start;
        endpoint.place_ = before_.insert(&endpoint);
    }
    length_ -= end - start;
    gap_ = start;
}

void EndpointSet::moveGap(Position at)
{
    while (!before_.empty() && (*before_.rbegin())->key_ > at) {
        Endpoint& endpoint = **before_.rbegin();
        before_.erase(std::prev(before_.end()));
        endpoint.behind_ = true;
        endpoint.key_ = length_ - endpoint.key_;
        endpoint.place_ = behind_.insert(&endpoint);
    }
    while (!behind_.empty() && length_ - (*behind_.rbegin())->key_ <= at) {
        Endpoint& endpoint = **behind_.rbegin();
        behind_.erase(std::prev(behind_.end()));
        endpoint.behind_ = false;
        endpoint.key_ = length_ - endpoint.key_;
        endpoint.place_ = before_.insert(&endpoint);
    }
    gap_ = at;
}

bool EndpointSet::isConsistent() const
{
    const auto inside = [this](const Endpoint* e) { return position(*e) >= 0 && position(*e) <= length_; };
    const auto rightSide = [this](const Endpoint* e) { return e->behind_ == (position(*e) > gap_); };
    return std::all_of(before_.begin(), before_.end(), inside) &&
           std::all_of(behind_.begin(), behind_.end(), inside) &&
           std::all_of(before_.begin(), before_.end(), rightSide) &&
           std::all_of(behind_.begin(), behind_.end(), rightSide) &&
           std::is_sorted(before_.begin(), before_.end(), Endpoint::ByKey()) &&
           std::is_sorted(behind_.begin(), behind_.end(), Endpoint::ByKey());
}

} // namespace standin::model
