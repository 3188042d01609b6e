#pragma once

#include "Collections.h"
#include "Plan.h"

#include "Word.h"

#include <functional>
#include <optional>
#include <string>
#include <vector>

namespace compose {

/// Has Word read files into a story, each in paragraphs of its own.
///
/// Errors: a failed Word call raises `_com_error`; of a file that Word refuses nothing stays.
///
/// Threading: that of the document.
class FileInsertion
{
public:
    /// `story`: a range of it, which is moved. The document's collections live longer.
    FileInsertion(const Word::RangePtr& story, Collections& collections)
        : range_(story), collections_(collections)
    {
    }

    /// The place for a file, at the beginning of an empty paragraph.
    struct Where
    {
        long at = 0;
        const Ground& ground;                    ///< how that paragraph looks
        const std::vector<std::u16string>& tags; ///< the bookmarks there
    };
    /// The paragraph at the place stays behind the file's. `end`: asks Word where that one ends. True when
    /// the file ends in a table.
    bool insert(const std::u16string& file, const Where& where, const std::function<long()>& end);

private:
    void read(const std::wstring& path);
    void makePlain(const Ground& ground);
    std::wstring textInFrontOf(long end, long limit);
    bool leavesSurplus(long at);

    Word::RangePtr range_;
    Collections& collections_;
    std::optional<bool>
        leavesSurplus_; ///< Word puts an empty paragraph behind rich text that ends its last one.
};

} // namespace compose
