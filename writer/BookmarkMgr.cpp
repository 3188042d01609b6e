#include "BookmarkMgr.h"

#include <string>

bool BookmarkMgr::lookup(const QdxString& tag, QdxString& name, bool& defined) const
{
    const auto found = nodes_.find(tag);
    if (found == nodes_.end())
        return false;
    name = found->second.name;
    defined = found->second.defined;
    return true;
}

QdxString BookmarkMgr::tagOf(const QdxString& name) const
{
    for (const auto& [tag, node] : nodes_)
        if (node.name == name)
            return tag;
    return {};
}

QdxString BookmarkMgr::add(const QdxString& tag)
{
    QdxString name = "b";
    name.append(std::to_string(nodes_.size() + 1).c_str());
    nodes_[tag].name = name;
    return name;
}

void BookmarkMgr::markDefined(const QdxString& tag)
{
    const auto found = nodes_.find(tag);
    if (found != nodes_.end())
        found->second.defined = true;
}

void BookmarkMgr::clear()
{
    nodes_.clear();
}
