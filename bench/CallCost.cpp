#include "CallCost.h"

#include "Allocations.h"
#include "Client.h"
#include "LogFileName.h"
#include "NullWord.h"
#include "RunningApplication.h"
#include "TemporaryFile.h"

#include <algorithm>
#include <array>
#include <chrono>
#include <cstdio>
#include <functional>
#include <numeric>
#include <vector>

namespace {

constexpr int runs = 15;
constexpr int operationRuns = 5;
constexpr int sliceLength = 100;
constexpr std::array callCounts = {1'000, 10'000, 100'000};
constexpr int endlsPerUndoClear = 101; // as the writer does it

/// Does something `count` times.
using Work = std::function<void(int count)>;

/// A document open in a generator whose Word is the one that does nothing.
class OpenDocument
{
public:
    OpenDocument() : running_(NullWord::application()), generator_(makeGenerator())
    {
        generator_->start();
        _com_util::CheckError(generator_->create(_bstr_t(L"c:\\bench.doc")));
    }

    IDocument& operator*() const { return *generator_.GetInterfacePtr(); }

private:
    standin::RunningApplication running_;
    IDocumentPtr generator_;
};

BSTR sample()
{
    static const _bstr_t text(L"A sentence of the length that documents are made of, more or less.");
    return text;
}

BSTR heading()
{
    static const _bstr_t style(L"Heading 1");
    return style;
}

BSTR normal()
{
    static const _bstr_t style(L"Normal");
    return style;
}

// The bare loops call the virtual table directly with a BSTR made beforehand: no automation client can do it
// cheaper.

void bareText(int count)
{
    Word::Range& range = NullWord::range();
    for (int i = 0; i < count; ++i)
        range.raw_InsertAfter(sample());
}

void bareEndl(int count)
{
    const _bstr_t lineFeed(L"\n");
    Word::Range& range = NullWord::range();
    for (int i = 1; i <= count; ++i) {
        range.raw_InsertAfter(lineFeed);
        if (i % endlsPerUndoClear == 0)
            NullWord::document().raw_UndoClear();
    }
}

void insertText(IDocument& generator, int count)
{
    for (int i = 0; i < count; ++i)
        generator.insertText(sample());
}

void insertEndl(IDocument& generator, int count)
{
    for (int i = 0; i < count; ++i)
        generator.insertEndl();
}

// One slice of an operation's work: the operations from `first` on.

void writeParagraphs(IDocument& generator, int, int count)
{
    for (int i = 0; i < count; ++i) {
        generator.setStyle(heading());
        generator.insertText(sample());
        generator.insertEndl();
        generator.setStyle(normal());
        generator.setFontSize(static_cast<short>(8 + i % 2));
        generator.insertText(sample());
        generator.insertEndl();
    }
}

void changeFonts(IDocument& generator, int, int count)
{
    for (int i = 0; i < count; ++i) {
        generator.setFontSize(static_cast<short>(8 + i % 2));
        generator.insertText(sample());
    }
}

void changeAlignment(IDocument& generator, int first, int count)
{
    for (int i = first; i < first + count; ++i)
        generator.setTextAlign(static_cast<short>(2 + i % 2));
}

void fillCells(IDocument& generator, int first, int count)
{
    constexpr int columns = 10;
    if (first == 0)
        generator.startTable();
    for (int i = 0; i < count; ++i) {
        if (i % columns == 0)
            generator.addRow();
        generator.addCell();
        generator.insertText(sample());
    }
}

_bstr_t tagName(int number)
{
    return _bstr_t(L"tag ") + _bstr_t(static_cast<long>(number));
}

void referToTags(IDocument& generator, int first, int count)
{
    for (int i = first; i < first + count; ++i)
        generator.insertXref(sample(), tagName(i));
}

void placeTags(IDocument& generator, int first, int count)
{
    for (int i = first; i < first + count; ++i)
        generator.insertTag(tagName(i));
}

void writeLinks(IDocument& generator, int, int count)
{
    static const _bstr_t address(L"http://example.org/");
    for (int i = 0; i < count; ++i)
        generator.insertXref(sample(), address);
}

/// What is done so and so often in a document. Each phase goes through all operations before the next begins.
struct Operation
{
    const char* shown;
    std::vector<void (*)(IDocument&, int first, int count)> phases;
};

using Clock = std::chrono::steady_clock;
using Nanoseconds = std::chrono::duration<double, std::nano>;

/// How long work takes when nothing else runs on the machine: it is timed in slices that are shorter than the
/// time for which a busy system takes the processor away, and of each slice the fastest of several runs
/// counts. A cost that grows from slice to slice stays visible.
class SlicedTime
{
public:
    void begin() { slice_ = 0; }
    void run(const Work& work, int count)
    {
        const auto start = Clock::now();
        work(count);
        const Nanoseconds time = Clock::now() - start;
        if (slice_ == fastest_.size())
            fastest_.push_back(time);
        else
            fastest_[slice_] = std::min(fastest_[slice_], time);
        ++slice_;
    }
    double total() const { return std::accumulate(fastest_.begin(), fastest_.end(), Nanoseconds()).count(); }

private:
    std::vector<Nanoseconds> fastest_;
    std::size_t slice_ = 0;
};

double bareNanoseconds(const Work& work, int count)
{
    SlicedTime time;
    for (int run = 0; run < runs; ++run) {
        time.begin();
        for (int done = 0; done < count; done += sliceLength)
            time.run(work, sliceLength);
    }
    return time.total() / count;
}

/// What a client's calls take in a document that has nothing else in it, without opening and closing it.
double clientNanoseconds(void (*work)(IDocument&, int), int count)
{
    SlicedTime time;
    for (int run = 0; run < runs; ++run) {
        const OpenDocument document;
        time.begin();
        for (int done = 0; done < count; done += sliceLength)
            time.run([&](int n) { work(*document, n); }, sliceLength);
    }
    return time.total() / count;
}

void printTimesBeside(const char* shown, void (*client)(IDocument&, int), void (*bare)(int), int count)
{
    const double ours = clientNanoseconds(client, count);
    const double least = bareNanoseconds(bare, count);
    std::printf("| %s | %d | %.0f | %.1f | %.0f |\n", shown, count, ours, least, ours - least);
}

/// For one operation, with its part in what is put off until `close`.
double operationNanoseconds(const Operation& operation, int count)
{
    SlicedTime time;
    for (int run = 0; run < operationRuns; ++run) {
        const OpenDocument document;
        time.begin();
        for (const auto phase : operation.phases)
            for (int done = 0; done < count; done += sliceLength)
                time.run([&](int n) { phase(*document, done, n); }, sliceLength);
        time.run([&](int) { (*document).close(); }, 1);
    }
    return time.total() / count;
}

/// The diagnostics' file, while the environment names it.
class DiagnosticsOn
{
public:
    DiagnosticsOn() { SetEnvironmentVariableW(variable_, name_); }
    ~DiagnosticsOn()
    {
        SetEnvironmentVariableW(variable_, nullptr);
        const std::wstring folder = temporaryFile(L"");
        DeleteFileW(diagnostics::logFileName(name_, folder, GetCurrentProcessId()).c_str());
    }
    DiagnosticsOn(const DiagnosticsOn&) = delete;
    DiagnosticsOn& operator=(const DiagnosticsOn&) = delete;

private:
    static constexpr wchar_t variable_[] = L"MIROVEL_DIAGNOSTICS";
    static constexpr wchar_t name_[] = L"mirovel-bench.log";
};

void callWithoutEffect(IDocument& generator, int count)
{
    for (int i = 0; i < count; ++i)
        generator.insertLocate();
}

void printDiagnosticsTimes(const char* shown, void (*client)(IDocument&, int), int count)
{
    const double off = clientNanoseconds(client, count);
    const DiagnosticsOn diagnostics;
    const double on = clientNanoseconds(client, count);
    std::printf("| %s | %.1f | %.1f | %.2f |\n", shown, off, on, on / off);
}

void printOperationTimes(const Operation& operation)
{
    std::printf("| %s |", operation.shown);
    for (const int count : callCounts)
        std::printf(" %.0f |", operationNanoseconds(operation, count));
    std::puts("");
}

struct PerCall
{
    double cpp;
    double com;
};

PerCall allocationsPerCall(const Work& work)
{
    constexpr int count = 10'000;
    const Allocations before = allocationsSoFar();
    work(count);
    const Allocations made = allocationsSoFar() - before;
    return {static_cast<double>(made.cpp) / count, static_cast<double>(made.com) / count};
}

void printAllocationsRow(const char* shown, const Work& work)
{
    const PerCall made = allocationsPerCall(work);
    std::printf("| %s | %.4f | %.4f |\n", shown, made.cpp, made.com);
}

/// Bytes for each operation whose Word calls are put off.
void printMemoryRow(const Operation& operation)
{
    constexpr int count = 10'000;
    const OpenDocument document;
    const long before = bytesHeld();
    for (const auto phase : operation.phases)
        phase(*document, 0, count);
    std::printf("| %s | %.0f |\n", operation.shown, static_cast<double>(bytesHeld() - before) / count);
}

} // namespace

void printTimes()
{
    std::puts("\nTime per call with a Word that does nothing (fastest slices of 15 runs), beside a bare loop "
              "of the same Word calls\n");
    std::puts("| client call | calls made | ns per call | bare loop, ns | ours, ns |\n|---|---|---|---|---|");
    for (const int count : callCounts)
        printTimesBeside("insertText", &insertText, &bareText, count);
    for (const int count : callCounts)
        printTimesBeside("insertEndl", &insertEndl, &bareEndl, count);
    std::puts("\nNanoseconds per operation for so many of them, `close` included\n");
    std::puts("| operation | 1,000 | 10,000 | 100,000 |\n|---|---|---|---|");
    for (const Operation& operation : {
             Operation{"a heading and a paragraph (7 calls)", {&writeParagraphs}},
             Operation{"a font change and text (2 calls)", {&changeFonts}},
             Operation{"a cell with text (2 calls, a row after every 10)", {&fillCells}},
             Operation{"a reference to a tag and the tag (2 calls), all references first",
                       {&referToTags, &placeTags}},
             Operation{"a link to an address (1 call)", {&writeLinks}},
         })
        printOperationTimes(operation);
    std::puts("\nNanoseconds per call with the diagnostics off and on\n");
    std::puts("| client call | off | on | ratio |\n|---|---|---|---|");
    printDiagnosticsTimes("insertText: nothing to tell", &insertText, callCounts[1]);
    printDiagnosticsTimes("insertEndl: nothing to tell", &insertEndl, callCounts[1]);
    printDiagnosticsTimes("insertLocate: a line for each call", &callWithoutEffect, callCounts[0]);
}

void printAllocations()
{
    const ComAllocationCounter counter;
    const OpenDocument document;
    std::puts("\nHeap allocations per call with a Word that does nothing\n");
    std::puts("| what | operator new | COM allocator (BSTRs) |\n|---|---|---|");
    printAllocationsRow("insertText", [&](int count) { insertText(*document, count); });
    printAllocationsRow("insertText, bare loop", &bareText);
    printAllocationsRow("insertEndl", [&](int count) { insertEndl(*document, count); });
    printAllocationsRow("insertEndl, bare loop", &bareEndl);
    std::puts("\nMemory held for what is put off until a style changes or the document is closed\n");
    std::puts("| what | bytes each |\n|---|---|");
    printMemoryRow({"a font run", {&changeFonts}});
    printMemoryRow({"an alignment run", {&changeAlignment}});
    printMemoryRow({"a link to an address", {&writeLinks}});
    printMemoryRow({"a reference to a tag not yet placed, and the tag's name", {&referToTags}});
}
