#pragma once

#include "Hresult.h"
#include "IDocumentPtr.h"
#include "Lines.h"
#include "Mirovel.h"
#include "OwnRegistry.h"
#include "ScratchFolder.h"
#include "ShellOpen.h"
#include "WinUtils/QdxMessageBox.h"
#include "general/QdxException.h"

#include "ClassRegistration.h"
#include "InProcessWord.h"

#include <comdef.h>
#include <gmock/gmock.h>

#include <functional>
#include <memory>
#include <string>
#include <vector>

/// A BSTR argument.
inline _bstr_t operator""_b(const wchar_t* text, std::size_t length)
{
    return _bstr_t(SysAllocStringLen(text, static_cast<UINT>(length)), false);
}
_bstr_t bstr(const std::string& text);

/// Each line with the log's end of line.
std::string logLines(const Lines& lines);

/// What the system says about a code, without the end of line.
std::string systemMessage(HRESULT code);

/// What a call by the virtual table comes to: "0x00000000" for a HRESULT that it returned, "QdxException:
/// <text>",
/// "_com_error 0x80004003", "exception".
std::string outcome(const std::function<HRESULT()>& call);

inline constexpr char succeeds[] = "0x00000000";

/// A failure that Word has no number for.
inline constexpr HRESULT refused = static_cast<HRESULT>(0x800A1234);

/// What a call by IDispatch::Invoke comes to.
struct Invoked
{
    std::string outcome; ///< "0x00000000", or "Mirovel.Mirovel 0x80004003 <text>" from the EXCEPINFO.
    _variant_t value;
};
Invoked invoke(IDispatch& object, DISPID member, std::vector<_variant_t> arguments);

/// Keeps the lines of the exception log; both categories are on unless one is switched off.
class RecordedExceptionLog : public QdxLogBase
{
public:
    RecordedExceptionLog() : former_(QdxException::setLog(this)) {}
    ~RecordedExceptionLog() override { QdxException::setLog(former_); }

    bool isOn(const char* category) override { return category != off; }
    QdxLogBase& operator<<(const char* text) override
    {
        line_ += text;
        return *this;
    }
    QdxLogBase& operator<<(Manipulator) override
    {
        lines.push_back(line_);
        line_.clear();
        return *this;
    }

    std::string off;
    Lines lines;

private:
    QdxLogBase* former_;
    std::string line_;
};

/// A value in the user's registry settings for the length of a test.
class Setting
{
public:
    Setting(const char* group, const char* name, const std::string& value);
    ~Setting();
    Setting(const Setting&) = delete;
    Setting& operator=(const Setting&) = delete;

private:
    std::string group_;
    std::string name_;
};

/// A client with a Word of its own. Every test ends with all COM objects gone and the module unlocked;
/// questions to the user that a test does not expect are failures.
class FrontEndTest : public testing::Test
{
protected:
    explicit FrontEndTest(const standin::InProcessWordOptions& options = {});
    void TearDown() override;

    static IDocumentPtr newClient();
    /// Settings of one session.
    void setting(const char* group, const char* name, const std::string& value, short kind = 1) const;
    /// Writes the log to a file of the folder from now on.
    void trace(short level) const;
    [[nodiscard]] std::string log() const;

    void start() const;
    /// Starts Word and makes the document "test.doc" on Word's own template; the transcript is then empty.
    void openDocument();
    [[nodiscard]] std::string documentName() const { return folder.file("test.doc"); }
    /// What this process has written into the diagnostics file "<stem>.log" of the folder.
    [[nodiscard]] std::string diagnosticsOf(const std::string& stem) const;
    /// The text of Word's main story of the only open document, without its final mark.
    [[nodiscard]] std::string documentText() const;

    /// The transcript since the last call.
    Lines takeTranscript();

    const LONG locksAtStart = moduleLocks();
    OwnRegistry registry; ///< Settings that a test stores are the test's own.
    ScratchFolder folder;
    standin::InProcessWord word;
    std::unique_ptr<standin::ClassRegistration> installed;
    IDocumentPtr client;
    Lines opened; ///< By the shell.

private:
    static LONG moduleLocks();

    QdxMessageBoxOverride noQuestions_;
    ShellOpenOverride shell_;
};
