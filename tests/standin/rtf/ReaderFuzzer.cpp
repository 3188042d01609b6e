// Reads arbitrary bytes; what was read must hold together and survive being written and read again.
#include "FileContent.h"
#include "Invariants.h"
#include "RtfReader.h"
#include "RtfWriter.h"
#include "WordError.h"

#include <cstdio>
#include <cstdlib>

namespace {

using namespace standin;

void check(bool good, const std::string& what)
{
    if (!good) {
        std::fprintf(stderr, "%s\n", what.c_str());
        std::abort();
    }
}

bool reads(std::string_view bytes, model::Document& document)
{
    try {
        rtf::readRtf(bytes, document);
        return true;
    } catch (const model::WordError&) {
        return false;
    } catch (const model::NotSupported&) {
        return false;
    }
}

/// The same bytes as a fragment in the middle of a text, under every reading of its end.
void checkFragment(std::string_view bytes)
{
    for (const auto last :
         {model::LastParagraph::mark, model::LastParagraph::dropped, model::LastParagraph::surplus}) {
        const auto document = model::Document::make(
            u"Document1", {.insertFileLastParagraph = last,
                           .insertFileLeavesDefaultFont = last == model::LastParagraph::mark,
                           .insertFileKeepsDifferencesOnly = last == model::LastParagraph::mark});
        model::LiveRange place(document->mainStory(), 0, 0);
        place.insertAfter(u"a#b");
        place.setRange(1, 1);
        try {
            rtf::insertFileContent(place, bytes);
        } catch (const model::WordError&) {
        } catch (const model::NotSupported&) {
        }
        const std::string wrong = checkInvariants(*document);
        check(wrong.empty(), wrong);
        const std::u16string text = document->mainStory()->text(0, document->mainStory()->length());
        check(text.starts_with(u"a") && text.ends_with(u"#b\r"), "the text around a fragment changed");
    }
}

} // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size)
{
    // Half of the inputs start as RTF does, so that they get beyond the first look.
    std::string bytes(reinterpret_cast<const char*>(data), size);
    if (size > 0 && data[0] % 2 == 0)
        bytes = "{\\rtf1 " + bytes + "}";
    const auto document = model::Document::make(u"Document1");
    const bool whole = reads(bytes, *document);
    const std::string wrong = checkInvariants(*document);
    check(wrong.empty(), wrong);
    if (whole) {
        const auto again = model::Document::make(u"Document2");
        check(reads(rtf::writeRtf(*document), *again), "what was written does not read");
        check(again->mainStory()->length() == document->mainStory()->length(), "the text changed its length");
    }
    checkFragment(bytes);
    return 0;
}
