#pragma once

#include "ClientCall.h"
#include "DocumentContent.h"
#include "ReferenceStory.h"
#include "SessionLook.h"

#include <functional>
#include <map>
#include <optional>
#include <string_view>
#include <vector>

namespace reference {

/// What a document must hold after a session of calls, each taken at its word.
///
/// For sessions whose calls are valid: fields of kinds 1 to 4, well-formed anchors, pictures that are there,
/// files of sessionFiles() or addresses to insert, no page break in a header or footer.
class ReferenceDocument
{
public:
    /// Tells an address or a file that is there from the name of a tag.
    using AddressTest = std::function<bool(std::u16string_view)>;

    /// `areFileEndsLost`: the last paragraph of a file of rich text may be formatted in any way.
    explicit ReferenceDocument(AddressTest isAddress, bool areFileEndsLost = false, SessionLook look = {});

    /// \name A Word that refuses something
    ///@{
    /// Of files of rich text nothing comes from now on.
    void refuseRichText() { refusesRichText_ = true; }
    /// Such files that were inserted.
    [[nodiscard]] int refusedFiles() const { return refusedFiles_; }
    /// Takes the tables of contents out of headers and footers, and says how many there were.
    int refuseContentsInHeaders();
    ///@}

    void perform(const ClientCall& call);
    void perform(const Session& session);

    [[nodiscard]] DocumentContent content() const;

private:
    enum class Part
    {
        header,
        footer
    };

    /// Headers and footers of one section.
    using Section = std::map<Part, ReferenceStory>;

    void startPart(Part part);
    void endPart(Part part);
    ReferenceStory& current();
    void insertText(std::u16string_view text);
    void insertXref(std::u16string_view label, std::u16string_view target);
    void insertTag(const std::u16string& name);
    void insertFile(const std::u16string& name, int kind);
    void insertHyperlink(const std::u16string& label, const std::u16string& address);
    void setOrientation(int number);

    AddressTest isAddress_;
    bool areFileEndsLost_;
    bool refusesRichText_ = false;
    int refusedFiles_ = 0;
    SessionLook look_;
    ReferenceStory body_;
    std::vector<Section> sections_;
    std::vector<Page> pages_;          ///< of each section
    std::map<Part, std::size_t> open_; ///< the section whose header, or footer, is being written
    std::optional<Part> currentPart_;  ///< nothing: the body
};

} // namespace reference
