#pragma once

#include "Hresult.h"
#include "InProcessWord.h"
#include "MirovelSectionProbe.h"
#include "WriterCalls.h"
#include "general/QdxException.h"

#include "Document.h"
#include "Table.h"
#include "Word.h"

#include <gtest/gtest.h>

#include <cstdint>
#include <optional>
#include <string>
#include <utility>
#include <vector>

/// Finishes and destroys a writer, as its owners do; null is none.
void endWriter(MirovelSection* writer);

class Apartment
{
public:
    Apartment();
    ~Apartment();
    Apartment(const Apartment&) = delete;
    Apartment& operator=(const Apartment&) = delete;
};

/// A Word with one new document. In the transcript it is `document`, and its whole range `body`.
class DocumentTest : public testing::Test
{
protected:
    DocumentTest();
    /// Expects that nothing of Word is held any more.
    void TearDown() override;

    /// The calls since the last question.
    Calls takeCalls();
    standin::model::Document& model() const;
    /// All text of the document but its last paragraph mark.
    std::u16string text() const;
    std::u16string styleAt(std::int32_t position) const;
    standin::model::FontProperties fontAt(std::int32_t position) const;
    standin::model::Alignment alignmentAt(std::int32_t position) const;
    void addStyle(const char16_t* name, const standin::model::FontProperties& font = {});
    std::vector<standin::model::Table> tables() const;
    /// What the cells of the only table hold: "one|two/three|four".
    std::u16string cellTexts() const;
    /// The primary header, for a writer beside that of the body. The calls for it are not left in the
    /// transcript; there it is `document.Sections(1).Headers(1).Range`.
    Word::RangePtr headerRange();

    Apartment apartment_;
    standin::InProcessWord word_;
    Word::_ApplicationPtr application_;
    Word::_DocumentPtr document_;
    Word::RangePtr range_;
};

inline const std::string firstCell = "table.Rows(1).Cells(1).Range";

/// As a transcript shows it, between quotes.
inline std::string quoted(const QdxString& text)
{
    std::string result = "\"";
    for (std::size_t i = 0; i < text.length(); ++i)
        result += text.data()[i] == '\\' ? "\\\\" : std::string(1, text.data()[i]);
    return result + '"';
}

/// Besides, a writer over the whole document, which has been emptied, as it is for a client: the output range
/// ends where the writer has written last. Its first calls are not left in the transcript.
class WriterTest : public DocumentTest
{
protected:
    void SetUp() override;
    /// Ends the writer if the test has not; expects no failure.
    void TearDown() override;

    MirovelSection& writer() { return *writer_; }
    /// Where the writer's count has come to: where it would place a tag. Word refuses the tag, so nothing
    /// changes. Of the calls nothing is left.
    std::int32_t insertionPosition();
    /// Lets the writer go without its end, when a failure or the test itself has left what would not bear it.
    void abandon();
    /// Abandons the writer and begins another in a document that is empty again.
    void startOver();
    /// Finishes and destroys the writer and gives the calls that this took.
    Calls finish();
    /// Where the style in force began and how far the writer has come, by the run that its end applies.
    /// Finishes.
    std::pair<std::int32_t, std::int32_t> styleRunAtEnd();

    /// The hyperlinks that the end draws, in order: the range, where it is laid, address and sub-address, as
    /// in `body 4-8: "", "b1"`. Finishes.
    Calls linksAtEnd();

    /// Opens a table and its first cell, whose range the transcript calls `firstCell`. Of the calls nothing
    /// is left.
    void openCell();

private:
    MirovelSection* writer_ = nullptr; // finished where a failure can pass
};

/// "(none)" when there is none.
std::string firstOf(const Calls& calls);
std::string lastOf(const Calls& calls);

/// The text of the QdxException that `act` raises; nothing when it does not.
template <class Act>
std::optional<std::string> reasonOf(Act&& act)
{
    try {
        act();
        return std::nullopt;
    } catch (const QdxException& exception) {
        return exception.reasonText();
    }
}
