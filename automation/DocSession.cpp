#include "DocSession.h"

#include "Placement.h"
#include "TextConversion.h"
#include "mirovelsection.h"
#include "sysSupport/SysDirectory.h"

#include <memory>
#include <utility>

DocSession::DocSession() : placement(&Placement::counted()), startDirectory(SysDirectory::current()) {}

DocSession::~DocSession() = default;

void DocSession::releaseSections()
{
    currentSection = nullptr;
    destroySection(headerSection);
    destroySection(footerSection);
    destroySection(mainSection);
    while (!waitingSections.empty()) {
        MirovelSection* waiting = waitingSections.front().writer;
        waitingSections.pop_front();
        destroySection(waiting);
    }
}

bool DocSession::hasSections() const
{
    return headerSection || footerSection || mainSection || !waitingSections.empty();
}

MirovelSection& DocSession::writer() const
{
    if (!currentSection)
        _com_issue_error(E_POINTER);
    return *currentSection;
}

MirovelSection& DocSession::dividingWriter() const
{
    if (!placement->joinsWriters())
        return writer();
    if (!mainSection)
        _com_issue_error(E_POINTER);
    return *mainSection;
}

bool DocSession::isWriting(const MirovelSection* const& section, std::int32_t number) const
{
    const std::int32_t written = isHeader(section) ? headerSectionNumber : footerSectionNumber;
    return placement->joinsWriters() && section && written == number;
}

void DocSession::beginSection(MirovelSection*& section, std::int32_t number, const Word::RangePtr& range)
{
    forgetWaiting(isHeader(section), number);
    if (numberOf(section) != 0)
        placement->clearPart(range);
    section = new MirovelSection(application, document, range, *placement);
    numberOf(section) = number;
}

void DocSession::endSection(MirovelSection*& section)
{
    if (!section || !placement->joinsWriters() || !section->awaitsTags()) {
        destroySection(section);
        return;
    }
    waitingSections.push_back({section, isHeader(section), numberOf(section)});
    std::exchange(section, nullptr)->settle();
}

std::int32_t& DocSession::numberOf(const MirovelSection* const& section)
{
    return isHeader(section) ? headerSectionNumber : footerSectionNumber;
}

// What they wrote is gone.
void DocSession::forgetWaiting(bool isHeader, std::int32_t number)
{
    for (auto waiting = waitingSections.begin(); waiting != waitingSections.end();) {
        if (waiting->isHeader != isHeader || waiting->sectionNumber != number) {
            ++waiting;
            continue;
        }
        MirovelSection* writer = waiting->writer;
        waiting = waitingSections.erase(waiting);
        writer->abandonDrawing();
        destroySection(writer);
    }
}

void DocSession::tagPlaced(const QdxString& bookmark)
{
    writer().resolve(bookmark);
    if (!placement->joinsWriters())
        return;
    for (MirovelSection* const section : {mainSection, headerSection, footerSection})
        if (section && section != currentSection)
            section->resolve(bookmark);
    for (const WaitingSection& waiting : waitingSections)
        waiting.writer->resolve(bookmark);
}

QdxString DocSession::held(const wchar_t* text) const
{
    return toNarrow(text, placement->narrowForm());
}

_bstr_t DocSession::said(std::string_view text) const
{
    return toWide(QdxString(text.data(), text.size()), placement->narrowForm());
}

void destroySection(MirovelSection*& section)
{
    const std::unique_ptr<MirovelSection> ended(std::exchange(section, nullptr));
    if (ended)
        ended->finish();
}
