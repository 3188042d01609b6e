#pragma once

#include "PageSetup.h"

#include <array>
#include <memory>

namespace standin::model {

class Document;
class Story;

/// A section of a document: page setup, and headers and footers of its own or linked to the section before.
class Section
{
public:
    enum class Part
    {
        header,
        footer
    };

    explicit Section(Document& document) : document_(&document) {}
    Section(const Section&) = delete;
    Section& operator=(const Section&) = delete;
    ~Section();

    PageSetup pageSetup;

    /// The section's document; raises 5825 when it is closed or the section deleted.
    Document& document() const;
    void kill();

    /// True when the item shows the content of the section before. The first section answers false.
    bool linkToPrevious(Part part, HeaderFooterIndex index) const;
    /// False: the content shown so far is copied and then independent. True: own content is dropped. Nothing
    /// in the first section.
    void setLinkToPrevious(Part part, HeaderFooterIndex index, bool linked);
    /// The story that holds the item's content: its own, or that of the nearest section before that has one.
    /// Made when it is asked for the first time.
    std::shared_ptr<Story> story(Part part, HeaderFooterIndex index);
    /// The section's own story, null when it has none.
    std::shared_ptr<Story> ownStory(Part part, HeaderFooterIndex index) const;
    bool owns(const Story& story) const;
    /// Primary always; first and even pages only when the page setup asks for them.
    bool exists(HeaderFooterIndex index) const;

private:
    struct Item
    {
        bool linked = true;
        std::shared_ptr<Story> story;
    };

    Item& item(Part part, HeaderFooterIndex index);
    const Item& item(Part part, HeaderFooterIndex index) const;

    Document* document_;
    std::array<std::array<Item, 3>, 2> items_;
};

using SectionPtr = std::shared_ptr<Section>;

} // namespace standin::model
