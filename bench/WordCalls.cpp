#include "WordCalls.h"

#include "Client.h"
#include "TemporaryFile.h"
#include "Transcript.h"

#include "InProcessWord.h"
#include "RunningApplication.h"
#include "general/QdxException.h"

#include <algorithm>
#include <cstdio>
#include <functional>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

namespace {

// What the writer's rules come to, in calls of Word.
constexpr int fontRead = 8;           // the style, its font, six properties
constexpr int fontRun = 9;            // start, end, font, six properties
constexpr int styleRun = 3 + fontRun; // start, end, style, and the run of the style's font
constexpr int alignmentRun = 4;       // start, end, paragraph format, alignment
constexpr int deletedCharacter = 2;   // start, delete
constexpr int drawnLink = 4;          // start, end, collection, the link
constexpr int pageRead = 4;           // page setup, width, two margins
constexpr int writerEnd = 1;          // the undo list
constexpr int documentEnd = 4;        // two proofing options, save, close
constexpr int headerFound = 7;        // down to the range, which is emptied
constexpr int newWriter =
    1 + pageRead; // the styles and the page; a style's font comes to it where it is not known

/// One call of a client, as the table shows it, and how many calls of Word the writer's rules imply for it.
struct Step
{
    const char* shown;
    int implied;
    std::function<void(IDocument&)> call;
};

/// Calls that are made on a document of their own, so that work put off until `close` shows up there.
struct Chapter
{
    const char* title;
    int impliedClose;
    std::vector<Step> steps;
};

Step write(const wchar_t* value, const char* shown = "insertText", int implied = 1)
{
    return {shown, implied, [value](IDocument& d) { d.insertText(text(value)); }};
}

const std::vector<Chapter>& chapters()
{
    static const std::vector<Chapter> all = {
        {"Text",
         styleRun + writerEnd + documentEnd,
         {
             write(L"one"),
             write(L"two", "insertText, again"),
             {"insertEndl", 1, [](IDocument& d) { d.insertEndl(); }},
             {"insertEndl, the next 100", 100 + 1,
              [](IDocument& d) {
                  for (int i = 0; i < 100; ++i)
                      d.insertEndl();
              }},
             write(L"see <a href=\"#GUID 7\">item</a> here", "insertText with one anchor", 5),
             {"insertPageBreak", 4, [](IDocument& d) { d.insertPageBreak(); }},
             {"setStyle", 1 + fontRead + styleRun, [](IDocument& d) { d.setStyle(text(L"Heading 1")); }},
             {"insertPageBreak, in a style", 4 + fontRead + 2 * styleRun,
              [](IDocument& d) { d.insertPageBreak(); }},
         }},
        {"Styles and fonts",
         styleRun + 3 * fontRun - 1 + writerEnd + documentEnd,
         {
             {"setStyle, first use of the style", fontRead + styleRun,
              [](IDocument& d) { d.setStyle(text(L"Heading 1")); }},
             {"setStyle, the style in force", 0, [](IDocument& d) { d.setStyle(text(L"Heading 1")); }},
             write(L"title"),
             {"setStyle, back to Normal", fontRead + styleRun,
              [](IDocument& d) { d.setStyle(text(L"Normal")); }},
             write(L"body"),
             {"setStyle, style used before", 1 + styleRun,
              [](IDocument& d) { d.setStyle(text(L"Heading 1")); }},
             {"setFontName", 0, [](IDocument& d) { d.setFontName(text(L"Courier New")); }},
             {"setFontSize", 0, [](IDocument& d) { d.setFontSize(14); }},
             {"setFontAttribute", 0, [](IDocument& d) { d.setFontAttribute(1, VARIANT_TRUE); }},
             write(L"bold"),
         }},
        {"Alignment and fields",
         1 + styleRun + 2 * alignmentRun + writerEnd + documentEnd,
         {
             {"setTextAlign, at a paragraph's beginning", 1, [](IDocument& d) { d.setTextAlign(2); }},
             write(L"centred"),
             {"setTextAlign, in a paragraph", 2, [](IDocument& d) { d.setTextAlign(3); }},
             {"insertField", 7 + deletedCharacter, [](IDocument& d) { d.insertField(4); }},
         }},
        {"Headers, footers and the page",
         styleRun + writerEnd + documentEnd,
         {
             {"startHeader", headerFound + newWriter + 2 * fontRead + styleRun,
              [](IDocument& d) { d.startHeader(); }},
             write(L"head"),
             {"endHeader", styleRun + writerEnd, [](IDocument& d) { d.endHeader(); }},
             {"startFooter", headerFound + newWriter + fontRead + styleRun,
              [](IDocument& d) { d.startFooter(); }},
             {"endFooter", styleRun + writerEnd, [](IDocument& d) { d.endFooter(); }},
             {"setOrientation", 3, [](IDocument& d) { d.setOrientation(1); }},
         }},
        {"Tags and links",
         styleRun + 1 + writerEnd + drawnLink + documentEnd,
         {
             {"insertXref", 3, [](IDocument& d) { d.insertXref(text(L"there"), text(L"tag")); }},
             {"insertTag", 3, [](IDocument& d) { d.insertTag(text(L"tag")); }},
             write(L"target"),
         }},
        {"Tables",
         writerEnd + documentEnd,
         {
             {"startTable", styleRun + 12, [](IDocument& d) { d.startTable(); }},
             {"addRow", 0, [](IDocument& d) { d.addRow(); }},
             {"addCell, first of the row", 0, [](IDocument& d) { d.addCell(); }},
             write(L"cell"),
             {"addCell, second of the first row", 3 + 2 * 2, [](IDocument& d) { d.addCell(); }},
             {"addRow, second", 2 * 2 + 5, [](IDocument& d) { d.addRow(); }},
             {"addCell, in the second row", 2, [](IDocument& d) { d.addCell(); }},
             {"setTableRowHeight", 1, [](IDocument& d) { d.setTableRowHeight(20); }},
             {"endTable", 1, [](IDocument& d) { d.endTable(); }},
         }},
        {"Table of contents",
         styleRun + 2 * alignmentRun + writerEnd + 6 + documentEnd,
         {
             {"insertTOC", fontRead + 2 * styleRun + 2 + 4, [](IDocument& d) { d.insertTOC(); }},
             {"startTOCEntry", 0, [](IDocument& d) { d.startTOCEntry(); }},
             write(L"entry"),
             {"endTOCEntry", 8 + deletedCharacter, [](IDocument& d) { d.endTOCEntry(); }},
         }},
        {"Files and pictures",
         writerEnd + documentEnd,
         {
             {"insertImage", 4 + deletedCharacter,
              [](IDocument& d) { d.insertImage(text(temporaryFile(L"bench.bmp").c_str()), text(L"")); }},
             {"insertFile, a document", styleRun + 4 + deletedCharacter,
              [](IDocument& d) { d.insertFile(text(temporaryFile(L"bench.txt").c_str()), 1); }},
         }},
    };
    return all;
}

/// A bitmap of one pixel in 24 bits.
constexpr std::string_view whitePixel{"BM\x3A\0\0\0\0\0\0\0\x36\0\0\0"
                                      "\x28\0\0\0\1\0\0\0\1\0\0\0\1\0\x18\0"
                                      "\0\0\0\0\4\0\0\0\0\0\0\0\0\0\0\0\0\0\0\0\0\0\0\0"
                                      "\xFF\xFF\xFF\0",
                                      58};

/// The members called, in the order of their first calls.
std::string memberNames(const std::vector<standin::CalledMember>& calls)
{
    std::vector<std::pair<std::string, int>> counts;
    for (const standin::CalledMember& call : calls) {
        const std::string& name = call.name;
        const auto known = std::ranges::find(counts, name, &std::pair<std::string, int>::first);
        if (known == counts.end())
            counts.emplace_back(name, 1);
        else
            ++known->second;
    }
    std::string names;
    for (const auto& [name, count] : counts) {
        names += names.empty() ? "" : ", ";
        names += count == 1 ? name : std::to_string(count) + " x " + name;
    }
    return names;
}

std::string failureOf(const standin::InProcessWord& word)
{
    for (std::size_t i = 0; i < word.transcript().size(); ++i) {
        const std::string& line = word.transcript()[i];
        if (line.find(" !! ") != line.npos)
            return " [the stand-in answers " + word.calledMembers()[i].name + " with " +
                   line.substr(line.find(" !! ") + 4) + "]";
    }
    return "";
}

const std::vector<standin::CalledMember>& take(standin::InProcessWord& word, IDocument& generator,
                                               const Step& step)
{
    word.clearTranscript();
    try {
        step.call(generator);
    } catch (const QdxException&) { // the row shows what failed
    } catch (const _com_error&) {
    }
    return word.calledMembers();
}

void printRow(standin::InProcessWord& word, IDocument& generator, const Step& step)
{
    const std::vector<standin::CalledMember>& calls = take(word, generator, step);
    std::printf("| %s | %u | %d | %s%s |\n", step.shown, static_cast<unsigned>(calls.size()), step.implied,
                memberNames(calls).c_str(), failureOf(word).c_str());
}

void printChapter(const Chapter& chapter)
{
    const std::wstring file = temporaryFile(L"bench.doc");
    standin::InProcessWord word;
    const standin::RunningApplication running(*word.application());
    const IDocumentPtr generator = makeGenerator();
    generator->start();
    generator->create(text(file.c_str()));
    for (const Step& step : chapter.steps)
        printRow(word, *generator, step);
    const std::string close = std::string("close, in \"") + chapter.title + "\"";
    printRow(word, *generator, {close.c_str(), chapter.impliedClose, [](IDocument& d) { d.close(); }});
}

/// The calls for each step of the chapter, and for `close`.
std::vector<std::string> callsOf(const Chapter& chapter, Writer writer)
{
    const std::wstring file = temporaryFile(L"bench.doc");
    standin::InProcessWord word;
    const standin::RunningApplication running(*word.application());
    const IDocumentPtr generator = makeGenerator(writer);
    generator->start();
    generator->create(text(file.c_str()));
    std::vector<std::string> calls;
    for (const Step& step : chapter.steps)
        calls.push_back(callsIn(take(word, *generator, step)));
    calls.push_back(callsIn(take(word, *generator, {"close", 0, [](IDocument& d) { d.close(); }})));
    return calls;
}

void printWriters(const Chapter& chapter)
{
    const std::vector<std::string> counting = callsOf(chapter, Writer::counting);
    const std::vector<std::string> typed = callsOf(chapter, Writer::typed);
    const std::vector<std::string> fragments = callsOf(chapter, Writer::fragments);
    for (std::size_t i = 0; i < counting.size(); ++i) {
        const std::string shown = i < chapter.steps.size()
                                      ? chapter.steps[i].shown
                                      : std::string("close, in \"") + chapter.title + "\"";
        std::printf("| %s | %s | %s | %s |\n", shown.c_str(), counting[i].c_str(), typed[i].c_str(),
                    fragments[i].c_str());
    }
}

void printSession()
{
    const std::wstring file = temporaryFile(L"bench.doc");
    standin::InProcessWord word;
    const standin::RunningApplication running(*word.application());
    const IDocumentPtr generator = makeGenerator();
    for (const Step& step : std::vector<Step>{
             {"start, Word running already", 1, [](IDocument& d) { d.start(); }},
             {"create", 5 + 3 + newWriter + fontRead + 1,
              [&](IDocument& d) { d.create(text(file.c_str())); }},
             {"setOption, trace, overrideRegistry, getDocType, getPropPages", 0,
              [](IDocument& d) {
                  d.setOption(text(L"a"), text(L"b"));
                  d.trace(0);
                  d.overrideRegistry(text(L"a"), text(L"b"), text(L"c"), 1);
                  _bstr_t out;
                  d.getDocType(out.GetAddress());
                  d.getPropPages(out.GetAddress());
              }},
             {"insertDiagram, insertMark, startFile, insertLocate, pushDirectory, popDirectory", 0,
              [](IDocument& d) {
                  d.insertDiagram(0, 0, 0);
                  d.insertMark(0, VARIANT_FALSE);
                  d.startFile(text(L"a"));
                  d.insertLocate();
                  d.pushDirectory(text(L"a"));
                  d.popDirectory();
              }},
             {"close, nothing written", styleRun + writerEnd + documentEnd, [](IDocument& d) { d.close(); }},
             {"stop, no document open", 2, [](IDocument& d) { d.stop(); }},
         })
        printRow(word, *generator, step);
}

} // namespace

void printWordCalls()
{
    std::puts("Calls that Word receives for one call of a client (Word stand-in, in process)\n");
    std::puts("| client call | Word calls | implied | which |\n|---|---|---|---|");
    const TemporaryFile picture(L"bench.bmp", whitePixel);
    const TemporaryFile document(L"bench.txt", "a file for the benchmark");
    const TemporaryFile output(L"bench.doc", "");
    printSession();
    for (const Chapter& chapter : chapters())
        printChapter(chapter);

    std::puts("\nThe same with each writer, in brackets the calls that return an object\n");
    std::puts("| client call | counting | typed calls | fragments |\n|---|---|---|---|");
    for (const Chapter& chapter : chapters())
        printWriters(chapter);
}
