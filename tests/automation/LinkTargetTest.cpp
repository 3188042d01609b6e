// insertXref, insertTag and insertImage: which tags, addresses and files links lead to.
#include "FrontEndTest.h"

#include "SamplePictures.h"

namespace {

class LinkTargetTest : public FrontEndTest
{
protected:
    LinkTargetTest() { openDocument(); }

    /// Closes the document and gives the targets of the links that this draws, as `address|sub-address`.
    Lines linksAtClose()
    {
        word.clearTranscript();
        EXPECT_THAT(client->close(), isHresult(S_OK));
        Lines links;
        for (const std::string& call : takeTranscript()) {
            if (call.find(".Hyperlinks.Add(") == std::string::npos)
                continue;
            const std::size_t from = call.find(", \"") + 3;
            const std::size_t to = call.find("\", missing");
            std::string targets = call.substr(from, to - from);
            targets.replace(targets.find("\", \""), 4, "|");
            links.push_back(targets);
        }
        return links;
    }

    /// The names of the bookmarks that are placed.
    Lines bookmarksPlaced()
    {
        Lines names;
        for (const std::string& call : takeTranscript()) {
            const std::size_t from = call.find(".Add(\"b");
            if (call.find(".Bookmarks.Add(") != std::string::npos && from != std::string::npos)
                names.push_back(call.substr(from + 6, call.find('"', from + 6) - from - 6));
        }
        return names;
    }
};

TEST_F(LinkTargetTest, ATextWithoutTagIsPlainText)
{
    EXPECT_THAT(client->insertXref(L"label"_b, L""_b), isHresult(S_OK));
    EXPECT_THAT(client->insertXref(L"!"_b, nullptr), isHresult(S_OK));
    EXPECT_LINES(takeTranscript(), (Lines{"body.InsertAfter(\"label\")", "body.InsertAfter(\"!\")"}));
    EXPECT_LINES(linksAtClose(), Lines());
}

TEST_F(LinkTargetTest, WithoutTextNothingIsInsertedAndNoTagEntered)
{
    EXPECT_THAT(client->insertXref(L""_b, L"tag"_b), isHresult(S_OK));
    EXPECT_THAT(client->insertXref(L""_b, L""_b), isHresult(S_OK));
    EXPECT_THAT(client->insertXref(nullptr, L"http://example.org"_b), isHresult(S_OK));
    EXPECT_LINES(takeTranscript(), Lines());
    client->insertText(L"x"_b);
    client->insertTag(L"first"_b);
    EXPECT_LINES(bookmarksPlaced(), Lines{"b1"});
}

TEST_F(LinkTargetTest, ATagWithoutNameIsNone)
{
    EXPECT_THAT(client->insertTag(L""_b), isHresult(S_OK));
    EXPECT_THAT(client->insertTag(nullptr), isHresult(S_OK));
    EXPECT_LINES(takeTranscript(), Lines());
}

TEST_F(LinkTargetTest, TagsAreNumberedInTheOrderOfTheirFirstUse)
{
    client->insertXref(L"1"_b, L"one"_b);
    client->insertTag(L"two"_b);
    client->insertXref(L"3"_b, L"three"_b);
    client->insertTag(L"three"_b);
    client->insertTag(L"one"_b);
    EXPECT_LINES(bookmarksPlaced(), (Lines{"b2", "b3", "b1"}));
    EXPECT_LINES(linksAtClose(), (Lines{"|b1", "|b3"}));
}

TEST_F(LinkTargetTest, AReferenceWrittenBeforeTheTagIsResolvedByIt)
{
    client->insertXref(L"label"_b, L"tag"_b);
    client->insertText(L" "_b);
    client->insertTag(L"tag"_b);
    EXPECT_LINES(linksAtClose(), Lines{"|b1"});
}

TEST_F(LinkTargetTest, AReferenceWrittenBehindTheTagIsResolved)
{
    client->insertText(L"x"_b);
    client->insertTag(L"tag"_b);
    client->insertXref(L"label"_b, L"tag"_b);
    EXPECT_LINES(linksAtClose(), Lines{"|b1"});
}

TEST_F(LinkTargetTest, AReferenceToATagThatIsNeverPlacedStaysPlain)
{
    client->insertXref(L"label"_b, L"tag"_b);
    EXPECT_EQ(documentText(), "label");
    EXPECT_LINES(linksAtClose(), Lines());
}

TEST_F(LinkTargetTest, TagsDifferInCase)
{
    client->insertXref(L"x"_b, L"Tag"_b);
    client->insertXref(L"y"_b, L"tag"_b);
    client->insertTag(L"tag"_b);
    EXPECT_LINES(bookmarksPlaced(), Lines{"b2"});
    EXPECT_LINES(linksAtClose(), Lines{"|b2"});
}

TEST_F(LinkTargetTest, AnchorsReferToTags)
{
    client->insertText(L"see <a href=\"#GUID 7\">item</a> here"_b);
    client->insertTag(L"GUID 7"_b);
    EXPECT_EQ(documentText(), "see item here");
    EXPECT_LINES(linksAtClose(), Lines{"|b1"});
}

TEST_F(LinkTargetTest, AddressesAndFilesArePassedThrough)
{
    const std::string file = folder.write("a b.txt", "text");
    client->insertXref(L"1"_b, L"http://example.org/"_b);
    client->insertXref(L"2"_b, L"WWW.example.org"_b);
    client->insertXref(L"3"_b, L"mailto:someone@example.org"_b);
    client->insertXref(L"4"_b, bstr(file));
    std::string escaped;
    for (const char c : file)
        escaped += c == '\\' ? "\\\\" : std::string(1, c);
    EXPECT_LINES(linksAtClose(), (Lines{"http://example.org/|", "WWW.example.org|",
                                        "mailto:someone@example.org|", escaped + "|"}));
}

/// The process's current directory, for the length of a test.
class CurrentDirectory
{
public:
    explicit CurrentDirectory(const std::string& path)
    {
        before_.resize(GetCurrentDirectoryW(0, nullptr));
        before_.resize(GetCurrentDirectoryW(static_cast<DWORD>(before_.size()), before_.data()));
        SetCurrentDirectoryW(bstr(path));
    }
    ~CurrentDirectory() { SetCurrentDirectoryW(before_.c_str()); }
    CurrentDirectory(const CurrentDirectory&) = delete;
    CurrentDirectory& operator=(const CurrentDirectory&) = delete;

private:
    std::wstring before_;
};

TEST_F(LinkTargetTest, AFileWithTheNameOfABookmarkDoesNotTakeItsPlace)
{
    const _bstr_t picture = bstr(folder.write("a.bmp", sample::bmp()));
    folder.write("b1", "text");
    const CurrentDirectory inFolder(folder.file(""));
    client->insertXref(L"label"_b, L"tag"_b);
    client->insertImage(picture, L"tag"_b);
    client->insertTag(L"tag"_b);
    EXPECT_LINES(linksAtClose(), (Lines{"|b1", "|b1"}));
}

TEST_F(LinkTargetTest, AMissingFileIsATag)
{
    client->insertXref(L"x"_b, L"c:\\no such.txt"_b);
    client->insertTag(L"c:\\no such.txt"_b);
    EXPECT_LINES(bookmarksPlaced(), Lines{"b1"});
    EXPECT_LINES(linksAtClose(), Lines{"|b1"});
}

TEST_F(LinkTargetTest, AnyTextIsATag)
{
    const std::wstring huge(100'000, L't');
    for (const wchar_t* tag : {L" ", L"a b", L"\u4e2d", L"?", L"\"", huge.c_str()})
        EXPECT_THAT(client->insertXref(L"x"_b, _bstr_t(tag)), isHresult(S_OK));
    client->insertTag(L"?"_b); // what becomes of a character outside the code page
    EXPECT_LINES(bookmarksPlaced(), Lines{"b3"});
    client->insertTag(_bstr_t(huge.c_str()));
    EXPECT_LINES(bookmarksPlaced(), Lines{"b5"});
    EXPECT_LINES(linksAtClose(), (Lines{"|b3", "|b3", "|b5"}));
}

TEST_F(LinkTargetTest, TheTagsOfADocumentAreForgottenByTheNext)
{
    client->insertTag(L"one"_b);
    client->insertText(L"xx"_b);
    client->close();
    client->create(bstr(folder.file("second.doc")));
    word.clearTranscript();
    client->insertText(L"x"_b);
    client->insertXref(L"label"_b, L"one"_b);
    client->insertTag(L"two"_b);
    EXPECT_LINES(bookmarksPlaced(), Lines{"b2"});
    EXPECT_LINES(linksAtClose(), Lines());
}

// The document before stays the open one.
TEST_F(LinkTargetTest, TheTagsAreKeptWhenTheNextDocumentFails)
{
    client->insertText(L"x"_b);
    client->insertTag(L"one"_b);
    word.failCall(1, E_ACCESSDENIED);
    EXPECT_EQ(outcome([&] { return client->create(bstr(folder.file("second.doc"))); }),
              "_com_error 0x80070005");
    client->insertXref(L"label"_b, L"one"_b);
    EXPECT_LINES(linksAtClose(), Lines{"|b1"});
}

TEST_F(LinkTargetTest, ATagThatFailsIsEnteredAndNotPlaced)
{
    client->insertXref(L"label"_b, L"tag"_b);
    word.failCall(1, E_ACCESSDENIED);
    EXPECT_EQ(outcome([&] { return client->insertTag(L"tag"_b); }), "_com_error 0x80070005");
    EXPECT_THAT(client->insertTag(L"tag"_b), isHresult(S_OK));
    EXPECT_LINES(linksAtClose(), Lines{"|b1"});
}

TEST_F(LinkTargetTest, ATagThatFailsResolvesNothing)
{
    client->insertXref(L"label"_b, L"tag"_b);
    word.failCall(2, E_ACCESSDENIED); // Bookmarks.Add
    EXPECT_EQ(outcome([&] { return client->insertTag(L"tag"_b); }), "_com_error 0x80070005");
    EXPECT_THAT(word.transcript().back(), testing::HasSubstr(".Add(\"b1\", missing) !! 0x80070005"));
    EXPECT_LINES(linksAtClose(), Lines());
}

TEST_F(LinkTargetTest, AnAddressOrAFileIsNeverATag)
{
    const std::string file = folder.write("tag.txt", "text");
    client->insertText(L"x"_b);
    client->insertTag(bstr(file));
    client->insertText(L"x"_b);
    client->insertTag(L"http://example.org/"_b);
    client->insertXref(L"1"_b, bstr(file));
    client->insertXref(L"2"_b, L"http://example.org/"_b);
    client->insertXref(L"3"_b, L"mailto:someone@example.org"_b);
    client->insertTag(L"tag"_b);
    EXPECT_LINES(bookmarksPlaced(), (Lines{"b1", "b2", "b3"})) << "targets that are no tags take no number";
    std::string escaped;
    for (const char c : file)
        escaped += c == '\\' ? "\\\\" : std::string(1, c);
    EXPECT_LINES(linksAtClose(),
                 (Lines{escaped + "|", "http://example.org/|", "mailto:someone@example.org|"}));
}

TEST_F(LinkTargetTest, ALinksTextIsCountedThoughWordRefusesIt)
{
    client->insertText(L"abc"_b);
    word.clearTranscript();
    word.failCall(2, E_ACCESSDENIED); // InsertAfter
    EXPECT_EQ(outcome([&] { return client->insertXref(L"label"_b, L"tag"_b); }), "_com_error 0x80070005");
    EXPECT_EQ(word.transcript().back(), "body.InsertAfter(\"label\") !! 0x80070005");
    word.clearTranscript();
    word.failCall(1, E_ACCESSDENIED);
    EXPECT_NE(outcome([&] { return client->insertPageBreak(); }), "0x00000000");
    EXPECT_LINES(takeTranscript(), Lines{"body.Start = 8 !! 0x80070005"});
}

// The bookmark before ends one in front of the position.
TEST_F(LinkTargetTest, TwoTagsInFrontOfAllTextFail)
{
    EXPECT_THAT(client->insertTag(L"one"_b), isHresult(S_OK));
    EXPECT_EQ(outcome([&] { return client->insertTag(L"two"_b); }), "_com_error 0x800a1200");
    client->insertXref(L"label"_b, L"two"_b);
    EXPECT_LINES(linksAtClose(), Lines()) << "the tag was not placed";
}

TEST_F(LinkTargetTest, ATagInAnEmptyDocumentFailsTheFirstClose)
{
    EXPECT_THAT(client->insertTag(L"one"_b), isHresult(S_OK));
    EXPECT_EQ(outcome([&] { return client->close(); }),
              "QdxException: Saving document\nCOMERROR 0x800a1200\nUnknown error 0x800A1200");
    EXPECT_THAT(client->close(), isHresult(S_OK));
    EXPECT_THAT(contentOf(documentName()), testing::StartsWith("{\\rtf"));
}

TEST_F(LinkTargetTest, AnImageLeadsToAnAddressAFileOrATag)
{
    const _bstr_t picture = bstr(folder.write("a.bmp", sample::bmp()));
    EXPECT_THAT(client->insertImage(picture, L"http://example.org/"_b), isHresult(S_OK));
    EXPECT_THAT(client->insertImage(picture, L"tag"_b), isHresult(S_OK));
    EXPECT_THAT(client->insertImage(picture, L"other"_b), isHresult(S_OK));
    EXPECT_THAT(client->insertImage(picture, L""_b), isHresult(S_OK));
    EXPECT_THAT(client->insertImage(picture, nullptr), isHresult(S_OK));
    client->insertTag(L"tag"_b);
    EXPECT_LINES(linksAtClose(), (Lines{"http://example.org/|", "|b1"}));
}

TEST_F(LinkTargetTest, AMissingImageEntersItsTagAllTheSame)
{
    client->insertImage(L"c:\\no such.bmp"_b, L"tag"_b);
    client->insertText(L"x"_b);
    client->insertTag(L"other"_b);
    EXPECT_LINES(bookmarksPlaced(), Lines{"b2"});
}

} // namespace
