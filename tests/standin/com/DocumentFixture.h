#pragma once

#include <InProcessWord.h>

#include "Invariants.h"
#include "TestSupport.h"

#include <gmock/gmock.h>

namespace standin_test {

/// A stand-in in this process, with a new document.
class DocumentFixture : public testing::Test
{
protected:
    Word::RangePtr range(long start, long end) const
    {
        return document->Range(Word::integer(start), Word::integer(end));
    }
    /// The whole main story of a document whose model is in order.
    std::u16string text(const Word::_DocumentPtr& of) const
    {
        const auto model = word.model(of);
        EXPECT_EQ(checkInvariants(*model), "");
        return model->mainStory()->text(0, model->mainStory()->length());
    }
    std::u16string text() const { return text(document); }

    Apartment apartment;
    standin::InProcessWord word;
    Word::_DocumentPtr document = word.application()->GetDocuments()->Add();
};

/// Besides, files to read.
class FilesFixture : public DocumentFixture
{
protected:
    /// The path of a new file with that content.
    std::wstring write(const std::wstring& name, const std::string& bytes) const
    {
        const std::wstring file = folder.file(name);
        const HANDLE handle = CreateFileW(file.c_str(), GENERIC_WRITE, 0, nullptr, CREATE_ALWAYS, 0, nullptr);
        EXPECT_NE(handle, INVALID_HANDLE_VALUE);
        DWORD written = 0;
        EXPECT_TRUE(WriteFile(handle, bytes.data(), static_cast<DWORD>(bytes.size()), &written, nullptr));
        CloseHandle(handle);
        return file;
    }

    ScratchFolder folder;
};

} // namespace standin_test
