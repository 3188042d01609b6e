#include "DocumentCalls.h"

#include "Client.h"
#include "TemporaryFile.h"
#include "Transcript.h"

#include "InProcessWord.h"
#include "RunningApplication.h"

#include <chrono>
#include <cstdio>
#include <string>

namespace {

constexpr short bold = 1;
constexpr short left = 1;
constexpr short right = 3;

_bstr_t numbered(const wchar_t* value, int number)
{
    return text(value) + _bstr_t(static_cast<long>(number));
}

const _bstr_t& sentence()
{
    static const _bstr_t value(L"A sentence of the length that documents are made of, more or less. ");
    return value;
}

void writeWithBoldWord(IDocument& d)
{
    d.insertText(text(L"A sentence with one "));
    d.setFontAttribute(bold, VARIANT_TRUE);
    d.insertText(text(L"bold"));
    d.setFontAttribute(bold, VARIANT_FALSE);
    d.insertText(text(L" word in it."));
    d.insertEndl();
}

constexpr int paragraphs = 1000;
constexpr int untilNextHeading = 10;

template <class WriteHeading>
void writeParagraphs(IDocument& d, WriteHeading&& writeHeading)
{
    for (int i = 0; i < paragraphs; ++i) {
        if (i % untilNextHeading != 0) {
            writeWithBoldWord(d);
            continue;
        }
        d.setStyle(text(L"Heading 1"));
        writeHeading(d);
        d.setStyle(text(L"Normal"));
    }
}

void writeWithBoldWords(IDocument& d)
{
    writeParagraphs(d, writeWithBoldWord);
}

void writeWithPlainHeadings(IDocument& d)
{
    writeParagraphs(d, [](IDocument& each) {
        each.insertText(text(L"A heading in the font of its style"));
        each.insertEndl();
    });
}

void writeTable(IDocument& d)
{
    constexpr int rows = 1000;
    constexpr int columns = 10;
    d.startTable();
    for (int row = 0; row < rows; ++row) {
        d.addRow();
        for (int column = 0; column < columns; ++column) {
            d.addCell();
            d.setTextAlign(column == 0 ? left : right);
            d.setFontAttribute(bold, row == 0 ? VARIANT_TRUE : VARIANT_FALSE);
            d.insertText(numbered(L"Cell ", row * columns + column));
        }
    }
    d.endTable();
}

/// What report-by-mirovel.vbs says.
void writeReport(IDocument& d)
{
    constexpr int chapters = 150;
    constexpr int rows = 20;
    constexpr int columns = 4;
    for (int chapter = 1; chapter <= chapters; ++chapter) {
        d.setStyle(text(L"Heading 1"));
        d.insertText(numbered(L"Chapter ", chapter));
        d.insertEndl();
        d.setStyle(text(L"Normal"));
        for (int paragraph = 0; paragraph < 3; ++paragraph) {
            d.insertText(sentence());
            d.insertText(sentence());
            d.insertEndl();
        }
        d.setFontSize(9);
        d.insertText(text(L"Small print."));
        d.setFontSize(12);
        d.insertEndl();
    }
    d.startTable();
    for (int row = 1; row <= rows; ++row) {
        d.addRow();
        for (int column = 1; column <= columns; ++column) {
            d.addCell();
            d.insertText(numbered(L"Cell ", row) + numbered(L".", column));
        }
    }
    d.endTable();
}

void writeReferences(IDocument& d)
{
    constexpr int count = 1000;
    for (int i = 0; i < count; ++i) {
        d.insertXref(numbered(L"to place ", i), numbered(L"tag ", i));
        d.insertEndl();
    }
    for (int i = 0; i < count; ++i) {
        d.insertTag(numbered(L"tag ", i));
        d.insertText(numbered(L"place ", i));
        d.insertEndl();
    }
}

void printDocument(const char* shown, void (*write)(IDocument&))
{
    std::printf("| %s |", shown);
    for (const Writer writer : {Writer::counting, Writer::typed, Writer::fragments}) {
        const std::wstring file = temporaryFile(L"bench.doc");
        standin::InProcessWord word;
        const standin::RunningApplication running(*word.application());
        const IDocumentPtr generator = makeGenerator(writer);
        generator->start();
        word.clearTranscript();
        const auto start = std::chrono::steady_clock::now();
        _com_util::CheckError(generator->create(text(file.c_str())));
        write(*generator);
        _com_util::CheckError(generator->close());
        const std::chrono::duration<double> seconds = std::chrono::steady_clock::now() - start;
        std::printf(" %s, %.2f s |", callsIn(word.calledMembers()).c_str(), seconds.count());
        std::fflush(stdout);
    }
    std::puts("");
}

} // namespace

void printDocumentCalls()
{
    std::puts("\nCalls that Word receives for a document from `create` to `close`, in brackets those of them "
              "that return an object; seconds with the stand-in in this process\n");
    std::puts("| document | counting | typed calls | fragments |\n|---|---|---|---|");
    const TemporaryFile output(L"bench.doc", "");
    printDocument("1,000 paragraphs with a bold word each, 100 of them headings", &writeWithBoldWords);
    printDocument("1,000 paragraphs, 100 of them headings, with a bold word in each of the others",
                  &writeWithPlainHeadings);
    printDocument("a table of 1,000 rows and 10 columns, the first row bold, nine columns right-aligned",
                  &writeTable);
    printDocument("what bench/report-by-mirovel.vbs writes", &writeReport);
    printDocument("1,000 references and their tags", &writeReferences);
}
