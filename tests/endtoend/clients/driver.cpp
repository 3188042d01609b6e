// A C++ client that a test writes in lines: each line of the file named by the first argument is one step,
// its words separated by tabs. Calls go through the virtual table. Every step answers with one line on the
// output:
//   insertText -> ok
//   insertText -> QdxException insertText\nCOMERROR 0x800706be\n...
//   create -> 0x80004005
//
// Besides the methods of IDocument (those that tests need) a step may be:
//   new, release          make the object, let go of it
//   run EXE ARGUMENTS     start a program; wait until Word is in the running object table
//   together FILE...      another driver for each file of steps, all at once; waits until all have ended.
//   What each
//                         of them writes goes to FILE.out
//   isWordRunning         whether it is there
//   write TEXT            as its user: a new document with that text in the running Word
//   documents             what the running Word has open: for each document whether it is saved, and its text
//   showWord              make Word visible, from outside
//   wordInside            a Word in this process, for the objects that start from now on
//   takeTurn              until letTurn, of the drivers that do so only this one goes on
//   environment NAME TEXT for the Words that start from now on
//   awaitNoWord           until no process of the stand-in's is left
//   answer yes|no         press that in the next message box
//   answered              wait for it and show its text
//
// In words \n, \r, \t, \\ and \uXXXX are understood; the word \0 is a null BSTR.
#include "ClassRegistration.h"
#include "InProcessWord.h"
#include "general/QdxException.h"

#include <windows.h>

#include <IDocument.h>
#include <comdef.h>
#include <tlhelp32.h>

#include <cstdio>
#include <fstream>
#include <functional>
#include <iostream>
#include <iterator>
#include <map>
#include <memory>
#include <stdexcept>
#include <string>
#include <thread>
#include <vector>

_COM_SMARTPTR_TYPEDEF(IDocument, __uuidof(IDocument));
_COM_SMARTPTR_TYPEDEF(IDispatch, __uuidof(IDispatch));
_COM_SMARTPTR_TYPEDEF(IUnknown, __uuidof(IUnknown));

namespace {

constexpr CLSID wordApplication = {0x000209FF, 0x0000, 0x0000, {0xC0, 0, 0, 0, 0, 0, 0, 0x46}};
constexpr int patience = 20000; // milliseconds
constexpr DWORD togetherPatience = 180000;

using Words = std::vector<std::wstring>;

std::wstring fromUtf8(const std::string& text)
{
    const int size = static_cast<int>(text.size());
    std::wstring wide(
        static_cast<std::size_t>(MultiByteToWideChar(CP_UTF8, 0, text.data(), size, nullptr, 0)), L'\0');
    MultiByteToWideChar(CP_UTF8, 0, text.data(), size, wide.data(), static_cast<int>(wide.size()));
    return wide;
}

std::string toUtf8(const std::wstring& wide)
{
    const int size = static_cast<int>(wide.size());
    std::string text(static_cast<std::size_t>(
                         WideCharToMultiByte(CP_UTF8, 0, wide.data(), size, nullptr, 0, nullptr, nullptr)),
                     '\0');
    WideCharToMultiByte(CP_UTF8, 0, wide.data(), size, text.data(), static_cast<int>(text.size()), nullptr,
                        nullptr);
    return text;
}

std::wstring unescape(const std::wstring& word)
{
    std::wstring result;
    for (std::size_t i = 0; i < word.size(); ++i) {
        if (word[i] != L'\\' || i + 1 == word.size()) {
            result += word[i];
            continue;
        }
        switch (const wchar_t escaped = word[++i]) {
        case L'n':
            result += L'\n';
            break;
        case L'r':
            result += L'\r';
            break;
        case L't':
            result += L'\t';
            break;
        case L'u':
            result += static_cast<wchar_t>(std::stoi(word.substr(i + 1, 4), nullptr, 16));
            i += 4;
            break;
        default:
            result += escaped;
        }
    }
    return result;
}

std::string escapeLines(const std::string& text)
{
    std::string result;
    for (const char c : text)
        result += c == '\n' ? "\\n" : c == '\r' ? "\\r" : std::string(1, c);
    return result;
}

// The ANSI text of an exception, for a UTF-8 output.
std::string ansiToUtf8(const char* text)
{
    return toUtf8(std::wstring(static_cast<const wchar_t*>(_bstr_t(text))));
}

Words split(const std::wstring& line)
{
    Words words(1);
    for (const wchar_t c : line)
        if (c == L'\t')
            words.emplace_back();
        else
            words.back() += c;
    return words;
}

_bstr_t text(const Words& words, std::size_t index)
{
    if (words.at(index) == L"\\0")
        return {};
    const std::wstring value = unescape(words[index]);
    return {SysAllocStringLen(value.data(), static_cast<UINT>(value.size())), false};
}

short number(const Words& words, std::size_t index)
{
    return static_cast<short>(std::stoi(words.at(index)));
}

std::string hex(HRESULT hr)
{
    char buffer[16];
    std::snprintf(buffer, sizeof buffer, "0x%lx", static_cast<unsigned long>(static_cast<DWORD>(hr)));
    return buffer;
}

IUnknownPtr runningWord()
{
    IUnknownPtr word;
    GetActiveObject(wordApplication, nullptr, &word);
    return word;
}

// Presses a button of the next message box, from a thread of its own: the box is shown by the thread that
// makes calls.
class BoxAnswer
{
public:
    explicit BoxAnswer(int button) : thread_([this, button] { answer(button); }) {}
    ~BoxAnswer()
    {
        if (thread_.joinable())
            thread_.join();
    }
    BoxAnswer(const BoxAnswer&) = delete;
    BoxAnswer& operator=(const BoxAnswer&) = delete;

    std::wstring waitForText()
    {
        thread_.join();
        return text_;
    }

private:
    void answer(int button)
    {
        HWND box = nullptr;
        HWND target = nullptr;
        for (int waited = 0; !target && waited < patience; waited += 20) {
            Sleep(20);
            box = FindWindowW(L"#32770", L"Lumarkscribe");
            target = box ? GetDlgItem(box, button) : nullptr;
        }
        if (!target) {
            text_ = L"(no message box came)";
            return;
        }
        EnumChildWindows(box, readText, reinterpret_cast<LPARAM>(this));
        SendMessageW(target, BM_CLICK, 0, 0);
    }

    static BOOL CALLBACK readText(HWND child, LPARAM self)
    {
        wchar_t className[32] = L"";
        wchar_t caption[2000] = L"";
        GetClassNameW(child, className, static_cast<int>(std::size(className)));
        GetWindowTextW(child, caption, static_cast<int>(std::size(caption)));
        if (lstrcmpiW(className, L"Static") == 0 && *caption)
            reinterpret_cast<BoxAnswer*>(self)->text_ = caption;
        return TRUE;
    }

    std::wstring text_;
    std::thread thread_;
};

class Driver
{
public:
    // What the step answers: "ok", an HRESULT, or a text.
    std::string perform(const Words& words)
    {
        const auto step = steps_.find(toUtf8(words[0]));
        if (step == steps_.end())
            throw std::invalid_argument("unknown step: " + toUtf8(words[0]));
        try {
            return step->second(words);
        } catch (const QdxException& e) {
            return "QdxException " + escapeLines(ansiToUtf8(e.reasonText()));
        } catch (const _com_error& e) {
            return "_com_error " + hex(e.Error());
        }
    }

private:
    using Step = std::function<std::string(const Words&)>;

    static std::string said(HRESULT hr) { return hr == S_OK ? "ok" : hex(hr); }

    // A method without arguments, with one text, with one number.
    Step call(HRESULT (STDMETHODCALLTYPE IDocument::*method)())
    {
        return [this, method](const Words&) { return said((object()->*method)()); };
    }
    Step call(HRESULT (STDMETHODCALLTYPE IDocument::*method)(BSTR))
    {
        return [this, method](const Words& words) { return said((object()->*method)(text(words, 1))); };
    }
    Step call(HRESULT (STDMETHODCALLTYPE IDocument::*method)(short))
    {
        return [this, method](const Words& words) { return said((object()->*method)(number(words, 1))); };
    }
    Step call(HRESULT (STDMETHODCALLTYPE IDocument::*method)(BSTR, BSTR))
    {
        return [this, method](const Words& words) {
            return said((object()->*method)(text(words, 1), text(words, 2)));
        };
    }
    Step call(HRESULT (STDMETHODCALLTYPE IDocument::*method)(BSTR, short))
    {
        return [this, method](const Words& words) {
            return said((object()->*method)(text(words, 1), number(words, 2)));
        };
    }
    Step call(HRESULT (STDMETHODCALLTYPE IDocument::*method)(long))
    {
        return [this, method](const Words& words) { return said((object()->*method)(number(words, 1))); };
    }
    Step call(HRESULT (STDMETHODCALLTYPE IDocument::*method)(BSTR*))
    {
        return [this, method](const Words&) {
            BSTR result = nullptr;
            const HRESULT hr = (object()->*method)(&result);
            return hr == S_OK ? toUtf8(std::wstring(_bstr_t(result, false))) : hex(hr);
        };
    }

    IDocument* object()
    {
        if (!object_)
            throw std::logic_error("a call before \"new\"");
        return object_;
    }

    std::string make(const Words&)
    {
        return said(object_.CreateInstance(L"Mirovel.Mirovel", nullptr, CLSCTX_INPROC_SERVER));
    }

    std::string release(const Words&)
    {
        object_ = nullptr;
        return "ok";
    }

    static std::string run(const Words& words)
    {
        std::wstring command = L"\"" + unescape(words.at(1)) + L"\" " + unescape(words.at(2));
        STARTUPINFOW startup{};
        startup.cb = sizeof startup;
        PROCESS_INFORMATION process{};
        if (!CreateProcessW(nullptr, command.data(), nullptr, nullptr, FALSE, 0, nullptr, nullptr, &startup,
                            &process))
            return said(HRESULT_FROM_WIN32(GetLastError()));
        CloseHandle(process.hProcess);
        CloseHandle(process.hThread);
        for (int waited = 0; waited < patience; waited += 20) {
            if (runningWord())
                return "ok";
            Sleep(20);
        }
        return "no Word came";
    }

    static std::string together(const Words& words)
    {
        std::vector<HANDLE> processes;
        for (std::size_t i = 1; i < words.size(); ++i)
            processes.push_back(beginDriver(unescape(words[i])));
        std::string failures;
        for (std::size_t i = 0; i < processes.size(); ++i) {
            DWORD status = 1;
            if (WaitForSingleObject(processes[i], togetherPatience) == WAIT_OBJECT_0)
                GetExitCodeProcess(processes[i], &status);
            else
                TerminateProcess(processes[i], 1);
            CloseHandle(processes[i]);
            if (status != 0)
                failures += " " + toUtf8(words[i + 1]) + " " + std::to_string(status);
        }
        return failures.empty() ? "ok" : "failed:" + failures;
    }

    static HANDLE beginDriver(const std::wstring& steps)
    {
        SECURITY_ATTRIBUTES inherited{sizeof inherited, nullptr, TRUE};
        const HANDLE output = CreateFileW((steps + L".out").c_str(), GENERIC_WRITE, FILE_SHARE_READ,
                                          &inherited, CREATE_ALWAYS, FILE_ATTRIBUTE_NORMAL, nullptr);
        std::wstring program(32768, L'\0');
        program.resize(GetModuleFileNameW(nullptr, program.data(), static_cast<DWORD>(program.size())));
        std::wstring command = L"\"" + program + L"\" \"" + steps + L"\"";
        STARTUPINFOW startup{};
        startup.cb = sizeof startup;
        startup.dwFlags = STARTF_USESTDHANDLES;
        startup.hStdOutput = output;
        startup.hStdError = output;
        PROCESS_INFORMATION process{};
        const BOOL begun = CreateProcessW(nullptr, command.data(), nullptr, nullptr, TRUE, 0, nullptr,
                                          nullptr, &startup, &process);
        CloseHandle(output);
        if (!begun)
            throw std::runtime_error("cannot start another driver");
        CloseHandle(process.hThread);
        return process.hProcess;
    }

    static std::string write(const Words& words)
    {
        const IDispatchPtr document = invoke(get(runningWord(), L"Documents"), L"Add", DISPATCH_METHOD);
        invoke(get(document, L"Content"), L"InsertAfter", DISPATCH_METHOD,
               {_variant_t(static_cast<const wchar_t*>(unescape(words.at(1)).c_str()))});
        return "ok";
    }

    static std::string documents(const Words&)
    {
        const IDispatchPtr all = get(runningWord(), L"Documents");
        const long count = get(all, L"Count");
        std::string shown = std::to_string(count);
        for (long i = 1; i <= count; ++i) {
            const IDispatchPtr document = invoke(all, L"Item", DISPATCH_METHOD, {_variant_t(i, VT_I4)});
            const auto content = static_cast<_bstr_t>(get(get(document, L"Content"), L"Text"));
            const auto saved = static_cast<bool>(get(document, L"Saved"));
            shown += std::string(saved ? " saved " : " unsaved ") +
                     escapeLines(toUtf8(std::wstring(static_cast<const wchar_t*>(content))));
        }
        return shown;
    }

    static _variant_t get(const IDispatchPtr& object, const wchar_t* member)
    {
        return invoke(object, member, DISPATCH_PROPERTYGET);
    }

    static _variant_t invoke(const IDispatchPtr& object, const wchar_t* memberName, WORD kind,
                             std::vector<_variant_t> arguments = {})
    {
        if (!object)
            throw std::runtime_error("no Word runs");
        std::wstring name = memberName;
        LPOLESTR member = name.data();
        DISPID id = 0;
        _com_util::CheckError(object->GetIDsOfNames(IID_NULL, &member, 1, LOCALE_USER_DEFAULT, &id));
        DISPPARAMS parameters{arguments.data(), nullptr, static_cast<UINT>(arguments.size()), 0};
        _variant_t result;
        _com_util::CheckError(
            object->Invoke(id, IID_NULL, LOCALE_USER_DEFAULT, kind, &parameters, &result, nullptr, nullptr));
        return result;
    }

    std::string wordInside(const Words&)
    {
        insideRegistration_.reset();
        inside_ = std::make_unique<standin::InProcessWord>();
        insideRegistration_ = std::make_unique<standin::ClassRegistration>(*inside_);
        return "ok";
    }

    std::string takeTurn(const Words&)
    {
        turn_ = CreateMutexW(nullptr, FALSE, L"endtoend_driver");
        const DWORD waited = WaitForSingleObject(turn_, togetherPatience);
        return waited == WAIT_OBJECT_0 || waited == WAIT_ABANDONED ? "ok" : "no turn";
    }

    std::string letTurn(const Words&)
    {
        ReleaseMutex(turn_);
        CloseHandle(turn_);
        return "ok";
    }

    static std::string isWordRunning(const Words&) { return runningWord() ? "yes" : "no"; }

    static std::string environment(const Words& words)
    {
        SetEnvironmentVariableW(words.at(1).c_str(), unescape(words.at(2)).c_str());
        return "ok";
    }

    // One that has been told to quit stays for a moment, for those who still hold its objects.
    static std::string awaitNoWord(const Words&)
    {
        int running = 0;
        for (int waited = 0; waited < patience; waited += 20) {
            running = wordProcesses();
            if (running == 0)
                return "ok";
            Sleep(20);
        }
        return std::to_string(running) + " left";
    }

    static int wordProcesses()
    {
        const HANDLE processes = CreateToolhelp32Snapshot(TH32CS_SNAPPROCESS, 0);
        PROCESSENTRY32W process{};
        process.dwSize = sizeof process;
        int count = 0;
        for (BOOL found = Process32FirstW(processes, &process); found;
             found = Process32NextW(processes, &process))
            if (_wcsicmp(process.szExeFile, L"wordstandin.exe") == 0)
                ++count;
        CloseHandle(processes);
        return count;
    }

    static std::string showWord(const Words&)
    {
        const IDispatchPtr word = runningWord();
        if (!word)
            return "no Word";
        wchar_t memberName[] = L"Visible";
        LPOLESTR member = memberName;
        DISPID id = 0;
        _com_util::CheckError(word->GetIDsOfNames(IID_NULL, &member, 1, LOCALE_USER_DEFAULT, &id));
        _variant_t on(true);
        DISPID named = DISPID_PROPERTYPUT;
        DISPPARAMS parameters{&on, &named, 1, 1};
        return said(word->Invoke(id, IID_NULL, LOCALE_USER_DEFAULT, DISPATCH_PROPERTYPUT, &parameters,
                                 nullptr, nullptr, nullptr));
    }

    std::string answer(const Words& words)
    {
        boxAnswer_ = std::make_unique<BoxAnswer>(words.at(1) == L"yes" ? IDYES : IDNO);
        return "ok";
    }

    std::string answered(const Words&) { return escapeLines(toUtf8(boxAnswer_->waitForText())); }

    std::string overrideRegistry(const Words& words)
    {
        return said(
            object()->overrideRegistry(text(words, 1), text(words, 2), text(words, 3), number(words, 4)));
    }

    std::string setFontAttribute(const Words& words)
    {
        const VARIANT_BOOL isOn = number(words, 2) != 0 ? VARIANT_TRUE : VARIANT_FALSE;
        return said(object()->setFontAttribute(number(words, 1), isOn));
    }

    Step member(std::string (Driver::*method)(const Words&))
    {
        return [this, method](const Words& words) { return (this->*method)(words); };
    }

    std::unique_ptr<standin::InProcessWord> inside_;
    std::unique_ptr<standin::ClassRegistration> insideRegistration_;
    IDocumentPtr object_;
    HANDLE turn_ = nullptr;
    std::unique_ptr<BoxAnswer> boxAnswer_;
    const std::map<std::string, Step> steps_ = {
        {"new", member(&Driver::make)},
        {"release", member(&Driver::release)},
        {"run", run},
        {"together", together},
        {"wordInside", member(&Driver::wordInside)},
        {"takeTurn", member(&Driver::takeTurn)},
        {"letTurn", member(&Driver::letTurn)},
        {"isWordRunning", isWordRunning},
        {"write", write},
        {"documents", documents},
        {"showWord", showWord},
        {"environment", environment},
        {"awaitNoWord", awaitNoWord},
        {"answer", member(&Driver::answer)},
        {"answered", member(&Driver::answered)},
        {"overrideRegistry", member(&Driver::overrideRegistry)},
        {"create", call(&IDocument::create)},
        {"close", call(&IDocument::close)},
        {"insertText", call(&IDocument::insertText)},
        {"insertEndl", call(&IDocument::insertEndl)},
        {"insertPageBreak", call(&IDocument::insertPageBreak)},
        {"setStyle", call(&IDocument::setStyle)},
        {"trace", call(&IDocument::trace)},
        {"getPropPages", call(&IDocument::getPropPages)},
        {"start", call(&IDocument::start)},
        {"stop", call(&IDocument::stop)},
        {"getDocType", call(&IDocument::getDocType)},
        {"startHeader", call(&IDocument::startHeader)},
        {"endHeader", call(&IDocument::endHeader)},
        {"startFooter", call(&IDocument::startFooter)},
        {"endFooter", call(&IDocument::endFooter)},
        {"insertField", call(&IDocument::insertField)},
        {"setFontName", call(&IDocument::setFontName)},
        {"setFontSize", call(&IDocument::setFontSize)},
        {"setFontAttribute", member(&Driver::setFontAttribute)},
        {"setTextAlign", call(&IDocument::setTextAlign)},
        {"insertTOC", call(&IDocument::insertTOC)},
        {"startTOCEntry", call(&IDocument::startTOCEntry)},
        {"endTOCEntry", call(&IDocument::endTOCEntry)},
        {"startTable", call(&IDocument::startTable)},
        {"endTable", call(&IDocument::endTable)},
        {"addRow", call(&IDocument::addRow)},
        {"addCell", call(&IDocument::addCell)},
        {"setTableRowHeight", call(&IDocument::setTableRowHeight)},
        {"insertTag", call(&IDocument::insertTag)},
        {"insertXref", call(&IDocument::insertXref)},
        {"insertImage", call(&IDocument::insertImage)},
        {"insertFile", call(&IDocument::insertFile)},
        {"setOrientation", call(&IDocument::setOrientation)},
    };
};

} // namespace

int wmain(int argc, wchar_t** argv)
{
    if (argc != 2)
        return 2;
    std::ifstream steps(argv[1], std::ios::binary);
    if (!steps)
        return 2;
    CoInitializeEx(nullptr, COINIT_APARTMENTTHREADED);
    int status = 0;
    {
        Driver driver;
        for (std::string line; status == 0 && std::getline(steps, line);) {
            const Words words = split(fromUtf8(line));
            try {
                std::cout << toUtf8(words[0]) << " -> " << driver.perform(words) << std::endl;
            } catch (const std::exception& e) {
                std::cout << "driver: " << e.what() << std::endl;
                status = 3;
            }
        }
    }
    CoUninitialize();
    return status;
}
