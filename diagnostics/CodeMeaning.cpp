#include "CodeMeaning.h"

#include <algorithm>
#include <array>

namespace diagnostics {

namespace {

constexpr std::array meanings = {
    // COM and the way to Word's process
    CodeMeaning{0x80004002, "The object does not have the interface that was asked for.",
                "Repair the Office installation: the registration of Word's type library is incomplete."},
    CodeMeaning{0x80004003, "There is no object to call: an earlier step failed, or the call came too early.",
                "Look for the first failure above; call start, then create, then the content calls."},
    CodeMeaning{0x8007000E, "There is not enough memory.",
                "Close other programs, or write smaller documents."},
    CodeMeaning{0x80010001, "Word is busy and refused the call.",
                "Close open dialogues in Word; leave Word alone while documents are generated."},
    CodeMeaning{
        0x80010105, "Word's process ran into an error of its own during the call.",
        "Look for add-ins and for a crash of Word in the event log; release the object and start again."},
    CodeMeaning{0x80010108, "Word has let go of the object: the document was closed, or Word has ended.",
                "Do not close the document or Word meanwhile; release the object and start again."},
    CodeMeaning{0x8001010A, "Word is busy and asks to be called again later.",
                "Close open dialogues in Word; leave Word alone while documents are generated."},
    CodeMeaning{0x8001010E, "The object was called on another thread than its own.",
                "Call it on the thread that made it, or have COM marshal it."},
    CodeMeaning{0x80040154, "Word is not registered on this computer.",
                "Install Word, or repair the Office installation."},
    CodeMeaning{0x800401F3, "Word is not registered on this computer.",
                "Install Word, or repair the Office installation."},
    CodeMeaning{0x80070005, "Access is denied.",
                "Give this user the right to launch Word, and to read and write the files concerned."},
    CodeMeaning{0x800706BA, "Word's process is gone.",
                "See why Word ended (the event log, add-ins); release the object and start again."},
    CodeMeaning{0x800706BE, "Word's process ended during the call.",
                "See why Word ended (the event log, add-ins); release the object and start again."},
    CodeMeaning{0x80080005, "Word could not be started.",
                "Start Word once by hand as this user; a service needs a profile and a desktop for it."},
    // Word's own
    CodeMeaning{0x800A1040, "Word does not take the name for a file's.",
                "Check the name for characters that no file name may have."},
    CodeMeaning{0x800A1066, "Word could not carry out the command, or was stopped by a dialogue.",
                "Start Word by hand and see whether it asks something; check the disk's space."},
    CodeMeaning{0x800A107A, "Word expected another kind of value.", "Report it together with these lines."},
    CodeMeaning{0x800A11FD, "The command is not available in this place or state.",
                "The document may be protected, read-only or without a window; check the template."},
    CodeMeaning{0x800A1200, "A value is outside the range that Word allows.",
                "Check sizes, heights and numbers that the client gives."},
    CodeMeaning{0x800A1201, "A text is longer than Word allows in this place.",
                "Shorten the name or the text that the client gives."},
    CodeMeaning{0x800A1420, "Word does not accept the file: the name is wrong, or it cannot read the format.",
                "Check that the file exists where Word looks for it, and opens in Word by hand."},
    CodeMeaning{0x800A1423, "The file may not be read or written.",
                "Check the rights of this user in the folder, and whether the file is read-only."},
    CodeMeaning{0x800A1424, "The file is in use.", "Close the program that has it open."},
    CodeMeaning{0x800A1436, "Word cannot find the file.",
                "Give the full path; Word does not know the client's current folder."},
    CodeMeaning{0x800A1483, "The action is not possible at the end of a table's row.",
                "Report it together with these lines."},
    CodeMeaning{0x800A1499, "The document's name or path is not valid.",
                "Check that the folder exists, that the path is a full one and not too long."},
    CodeMeaning{0x800A14EC, "The document cannot be saved, because the file is open elsewhere.",
                "Close the document of that name, also in other Words and on other computers."},
    CodeMeaning{0x800A16C1, "The object has been deleted: the document was closed or changed meanwhile.",
                "Do not close or edit the document while it is generated."},
    CodeMeaning{0x800A16C4, "Word does not take the name for a bookmark's.",
                "Report it together with these lines."},
    CodeMeaning{0x800A16CA, "There is no item of that name.",
                "Check the name; a style must be in the template."},
    CodeMeaning{0x800A16D3, "A value is outside the range that Word allows.",
                "Check sizes, heights and numbers that the client gives."},
    CodeMeaning{0x800A1735, "What was asked for is not in the document, such as a style or a section.",
                "Check the name; a style must be in the template."},
    CodeMeaning{0x800A1767, "A table with merged cells has no single rows.",
                "Report it together with these lines."},
    CodeMeaning{0x800A1768, "A table with cells of several widths has no single columns.",
                "Report it together with these lines."},
    CodeMeaning{0x800A178C, "Word does not let the range be deleted.",
                "The document may be protected; check the template."},
};

} // namespace

const CodeMeaning* meaningOf(std::uint32_t code) noexcept
{
    const auto found = std::ranges::find(meanings, code, &CodeMeaning::code);
    return found == meanings.end() ? nullptr : &*found;
}

} // namespace diagnostics
