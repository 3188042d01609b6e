#include "FileInsertion.h"

#include "FragmentFile.h"
#include "StyleBook.h"
#include "TagsInFront.h"
#include "WideText.h"

#include <algorithm>
#include <array>
#include <filesystem>
#include <fstream>
#include <string_view>

namespace compose {

namespace {

bool endsParagraph(wchar_t unit)
{
    return unit == L'\r' || unit == L'\n' || unit == L'\a';
}

bool isRichText(const std::u16string& file)
{
    constexpr std::string_view start = "{\\rtf";
    std::array<char, start.size()> found{};
    std::ifstream(std::filesystem::path(file), std::ios::binary).read(found.data(), found.size());
    return std::string_view(found.data(), found.size()) == start;
}

} // namespace

// A paragraph of the file's own takes up its last one. Where the file ends its last paragraph itself, one too
// many is there afterwards.
bool FileInsertion::insert(const std::u16string& file, const Where& where, const std::function<long()>& end)
{
    range_->SetRange(where.at, where.at);
    range_->InsertAfter(L"\r");
    makePlain(where.ground);
    range_->SetRange(where.at, where.at);
    try {
        read(wide(file));
    } catch (const _com_error&) {
        range_->SetRange(where.at, where.at + 1);
        range_->Delete();
        throw;
    }
    keepTags(collections_, range_, where.tags, where.at);
    const long past = end() - 1; // in front of the paragraph's own end
    if (past == where.at)
        return false;
    const std::wstring last = textInFrontOf(past, where.at);
    if (last.empty() || !endsParagraph(last.back()))
        return false;
    const bool endsInTable = last.back() == L'\a';
    const bool hasSurplus = last == L"\r\r" && isRichText(file) && leavesSurplus(past);
    range_->SetRange(hasSurplus ? past - 1 : past, past + 1);
    range_->Delete();
    return endsInTable;
}

/// The paragraph that the range covers looks as `ground` says; it comes to look as one of which nothing was
/// said.
void FileInsertion::makePlain(const Ground& ground)
{
    if (ground.style != Ground().style)
        range_->PutStyle(StyleBook::argumentOf(Ground().style));
    if (ground.alignment || !ground.isAlignmentKnown)
        range_->GetParagraphFormat()->Reset();
    if (!ground.isPlain)
        range_->GetFont()->Reset();
}

/// The last two characters between the places, or the last one, if another is not shown.
std::wstring FileInsertion::textInFrontOf(long end, long limit)
{
    const auto textFrom = [&](long start) {
        range_->SetRange(start, end);
        const _bstr_t text = range_->GetText();
        return text.length() == 0 ? std::wstring() : std::wstring(text, text.length());
    };
    const long start = std::max(limit, end - 2);
    std::wstring text = textFrom(start);
    const bool isWhole = std::ssize(text) - std::ranges::count(text, L'\a') == end - start;
    return isWhole || start == end - 1 ? text : textFrom(end - 1);
}

// An empty paragraph at the end may be the file's own. What Word makes of a file of ours tells.
bool FileInsertion::leavesSurplus(long at)
{
    constexpr long ownLength = 2;
    if (!leavesSurplus_) {
        const FragmentFile probe("{\\rtf1\\ansi\\pard\\plain x\\par}");
        const long before = range_->GetStoryLength();
        range_->SetRange(at, at);
        read(probe.path());
        const long length = range_->GetStoryLength() - before;
        range_->SetRange(at, at + length);
        range_->Delete();
        leavesSurplus_ = length > ownLength;
    }
    return *leavesSurplus_;
}

void FileInsertion::read(const std::wstring& path)
{
    const bool confirmConversions = false;
    const bool isLinked = false;
    const bool asAttachment = false;
    collections_.forgetSection();
    range_->InsertFile(path.c_str(), L"", confirmConversions, isLinked, asAttachment);
}

} // namespace compose
