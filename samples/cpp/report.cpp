// Writes a report with everything that a document can hold, from a C++ host that calls the interface's
// virtual table:
//   scripts/run-client build/mingw-release/samples/sample_report.exe --log /tmp/report.log --
//       'Z:\tmp\report.doc' 'Z:\...\samples\report-files'
//
// It is composed (the setting Word/Compose): links, tags and the table of contents stand where they were
// asked for, and formatting reaches exactly as far as it was set.
//
// By virtual table a failure in Word arrives as a QdxException; what has no text for the user stays a
// _com_error.
#include "general/QdxException.h"

#include <windows.h>

#include <IDocument.h>
#include <comdef.h>

#include <cstdio>
#include <string>
#include <utility>

_COM_SMARTPTR_TYPEDEF(IDocument, __uuidof(IDocument));

namespace {

constexpr short alignLeft = 1, alignCentred = 2, alignRight = 3, alignJustified = 4;
constexpr short bold = 1, italic = 2, underline = 4, strike = 8;
constexpr short fieldDate = 1, fieldTime = 2, fieldFileName = 3, fieldPage = 4;
constexpr short embedded = 0;
constexpr short textSetting = 1, numberSetting = 2;
constexpr wchar_t homePage[] = L"http://www.lindholm.example/";

struct Apartment
{
    Apartment() { _com_util::CheckError(CoInitializeEx(nullptr, COINIT_APARTMENTTHREADED)); }
    ~Apartment() { CoUninitialize(); }
    Apartment(const Apartment&) = delete;
    Apartment& operator=(const Apartment&) = delete;
};

_bstr_t bstr(const std::wstring& text)
{
    return text.c_str();
}

class Report
{
public:
    explicit Report(std::wstring files) : files_(std::move(files)) {}

    void writeReport(const std::wstring& fileName)
    {
        startDocument(fileName);
        makeOldCalls();
        writeTitlePage();
        writeHeaderAndFooter();
        writeContentsPage();
        writeYear();
        writeMonths();
        writeMethod();
        writeSigns();
        writeFigures();
        writeContact();
        mirovel_->close();
        mirovel_->showLast();
        mirovel_->stop();
    }

private:
    void print(const char* label, HRESULT (STDMETHODCALLTYPE IDocument::*method)(BSTR*))
    {
        BSTR answer = nullptr;
        _com_util::CheckError((mirovel_.GetInterfacePtr()->*method)(&answer));
        const _bstr_t owned(answer, false);
        std::printf("%s%s\n", label, static_cast<const char*>(owned));
    }

    void startDocument(const std::wstring& fileName)
    {
        _com_util::CheckError(mirovel_.CreateInstance(L"Mirovel.Mirovel"));
        print("Document type: ", &IDocument::getDocType);
        print("Settings page: ", &IDocument::getPropPages);
        mirovel_->overrideRegistry(bstr(L"Word"), bstr(L"WordTemplateName"), bstr(files_ + L"\\report.dot"),
                                   textSetting);
        mirovel_->overrideRegistry(bstr(L"Word"), bstr(L"TableStyle"), bstr(L"Report Table"), textSetting);
        mirovel_->overrideRegistry(bstr(L"Word"), bstr(L"TOCTitle"), bstr(L"Contents"), textSetting);
        mirovel_->overrideRegistry(bstr(L"Word"), bstr(L"TOCLevel"), bstr(L"2"), numberSetting);
        mirovel_->overrideRegistry(bstr(L"Word"), bstr(L"Compose"), bstr(L"1"), numberSetting);
        // To find out why a document fails, have it written down:
        // mirovel_->overrideRegistry(_bstr_t(L"Log"), _bstr_t(L"Diagnostics"), _bstr_t(L"sample.log"), 1);
        mirovel_->trace(10);
        mirovel_->start();
        _com_util::CheckError(mirovel_->create(bstr(fileName)));
    }

    // They do nothing; clients that still make them go on working.
    void makeOldCalls()
    {
        mirovel_->setOption(bstr(L"quality"), bstr(L"best"));
        mirovel_->pushDirectory(bstr(files_));
        mirovel_->startFile(bstr(L"report"));
        mirovel_->insertDiagram(0, 100, 100);
        mirovel_->insertMark(0, VARIANT_TRUE);
        mirovel_->insertLocate();
        mirovel_->popDirectory();
    }

    void writeLine(const std::wstring& style, const std::wstring& text)
    {
        mirovel_->setStyle(bstr(style));
        mirovel_->insertText(bstr(text));
        mirovel_->insertEndl();
    }

    void writeParagraph(const std::wstring& text) { writeLine(L"Body Text", text); }

    void writePoint(const std::wstring& sign, const std::wstring& text)
    {
        writeLine(L"Point", sign + L"\t" + text);
    }

    static std::wstring link(const std::wstring& label, const std::wstring& target)
    {
        return L"<a href=\"" + target + L"\">" + label + L"</a>";
    }

    void writeTitle(const std::wstring& tag, const std::wstring& title)
    {
        mirovel_->insertTag(bstr(tag));
        mirovel_->insertText(bstr(title));
        mirovel_->insertEndl();
    }

    void startChapter(const std::wstring& tag, const std::wstring& title)
    {
        mirovel_->setStyle(bstr(L"Heading 1"));
        mirovel_->insertPageBreak();
        writeTitle(tag, title);
    }

    void writeEmphasized(short attribute, const std::wstring& text)
    {
        mirovel_->setFontAttribute(attribute, VARIANT_TRUE);
        mirovel_->insertText(bstr(text));
        mirovel_->setFontAttribute(attribute, VARIANT_FALSE);
    }

    void startCell(short alignment)
    {
        mirovel_->addCell();
        mirovel_->setTextAlign(alignment);
    }

    void writeCell(const std::wstring& text)
    {
        startCell(alignLeft);
        mirovel_->insertText(bstr(text));
    }

    void writeNumberCell(std::wstring text)
    {
        if (text.starts_with(L'-'))
            text.replace(0, 1, minus_);
        startCell(alignRight);
        mirovel_->insertText(bstr(text));
    }

    void setTableFont(bool isBold)
    {
        mirovel_->setFontName(bstr(L"Arial"));
        mirovel_->setFontSize(9);
        mirovel_->setFontAttribute(bold, isBold ? VARIANT_TRUE : VARIANT_FALSE);
    }

    void startTable(const std::wstring& caption, long rowHeight)
    {
        writeLine(L"Caption", caption);
        mirovel_->startTable();
        mirovel_->addRow();
        mirovel_->setTableRowHeight(rowHeight);
        setTableFont(true);
    }

    void endTable(const std::wstring& note)
    {
        mirovel_->endTable();
        mirovel_->setTextAlign(alignJustified);
        writeLine(L"Table Note", note);
    }

    void writeTitlePage()
    {
        mirovel_->insertTag(bstr(L"start"));
        mirovel_->insertTag(bstr(L"cover"));
        mirovel_->setTextAlign(alignCentred);
        for (int i = 0; i < 6; ++i)
            mirovel_->insertEndl();
        mirovel_->insertImage(bstr(files_ + L"\\logo.gif"), bstr(L"contents"));
        mirovel_->insertEndl();
        writeLine(L"Title", L"The Weather of 2025");
        writeLine(L"Subtitle", L"Yearly report of the Lindholm Observatory");
        mirovel_->setStyle(bstr(L"Normal"));
        for (int i = 0; i < 12; ++i)
            mirovel_->insertEndl();
        mirovel_->insertText(bstr(L"Printed on "));
        mirovel_->insertField(fieldDate);
        mirovel_->insertEndl();
        mirovel_->setTextAlign(alignJustified);
        mirovel_->insertPageBreak();
    }

    void writeHeaderAndFooter()
    {
        mirovel_->startHeader();
        mirovel_->insertTag(bstr(L"head"));
        mirovel_->insertText(bstr(L"Lindholm Observatory\t"));
        writeEmphasized(italic, L"The Weather of 2025");
        mirovel_->insertText(bstr(L"\t"));
        mirovel_->insertXref(bstr(L"Start"), bstr(L"start"));
        mirovel_->insertText(bstr(dot_));
        mirovel_->insertXref(bstr(L"Contents"), bstr(L"contents"));
        mirovel_->insertText(bstr(dot_));
        mirovel_->insertXref(bstr(L"End"), bstr(L"end"));
        mirovel_->endHeader();

        mirovel_->startFooter();
        mirovel_->insertField(fieldDate);
        mirovel_->insertText(bstr(L"\tPage "));
        mirovel_->insertField(fieldPage);
        mirovel_->insertText(
            bstr(L"\t" + link(L"Sources", L"sources") + dot_ + link(L"www.lindholm.example", homePage)));
        mirovel_->endFooter();
    }

    void writeContentsPage()
    {
        mirovel_->insertTag(bstr(L"contents"));
        writeLine(L"TOC Heading", L"The year in brief");
        writePoint(bullet_, L"The " + link(L"highest reading", L"July") + L" was 31.4" + degrees_ +
                                L", in a hot " + link(L"summer", L"Summer") + L".");
        writePoint(bullet_, L"The " + link(L"lowest reading", L"January") + L" was " + minus_ + L"12.9" +
                                degrees_ + L", in a mild " + link(L"winter", L"Winter") + L".");
        writePoint(bullet_, L"The brook behind the station " + link(L"rose above its banks", L"flood") +
                                L" in October.");
        writePoint(bullet_, link(L"How we measure", L"method") + L" has not changed since 1931; " +
                                link(L"the signs", L"signs") + L" we use are explained.");
        writePoint(bullet_, L"The " + link(L"head of each page", L"head") + L" leads back to this list.");
        mirovel_->insertTOC();
    }

    // The table of contents lists the first part of the heading only.
    void writeSeasonHeading(const std::wstring& name, const std::wstring& deviation, const std::wstring& more)
    {
        mirovel_->setStyle(bstr(L"Heading 3"));
        mirovel_->insertTag(bstr(name));
        mirovel_->startTOCEntry();
        mirovel_->insertText(bstr(name + L" ("));
        mirovel_->insertXref(bstr(deltaT_), bstr(L"delta"));
        mirovel_->insertText(bstr(L" +" + deviation + L")"));
        mirovel_->endTOCEntry();
        mirovel_->insertText(bstr(more));
        mirovel_->insertEndl();
    }

    void writeSeason(const std::wstring& name, const std::wstring& picture, const std::wstring& mean,
                     const std::wstring& rain)
    {
        mirovel_->addRow();
        startCell(alignLeft);
        mirovel_->insertTag(bstr(L"Table 1, " + name));
        mirovel_->insertXref(bstr(name), bstr(name));
        startCell(alignCentred);
        mirovel_->insertImage(bstr(files_ + L"\\" + picture), bstr(L""));
        writeNumberCell(mean + degrees_);
        writeNumberCell(rain + L" mm");
    }

    void writeYear()
    {
        startChapter(L"year", L"The year at a glance");
        mirovel_->setStyle(bstr(L"Body Text"));
        mirovel_->insertText(bstr(
            L"2025 was a mild year with a wet second half. The mean temperature was 7.8" + degrees_ + L", "));
        writeEmphasized(italic, L"0.6 degrees above");
        mirovel_->insertText(
            bstr(L" that of the thirty years before (" + link(deltaT_ + L" +0.6", L"delta") +
                 L"). 655 millimetres of rain and melted snow fell, and six tenths of it fell in the six "
                 L"months from July to December. The station was read without a gap on 363 days; the " +
                 link(L"appendix", L"figures") + L" has the figures."));
        mirovel_->insertEndl();

        writeLine(L"Heading 2", L"The seasons");
        writeParagraph(L"Winter stands for January, February and December of the same year. Spring stayed "
                       L"dry until the last week of May; summer and autumn brought nearly the same rain, "
                       L"though summer's came in a few heavy storms.");
        mirovel_->insertTag(bstr(L"seasons"));
        startTable(L"Table 1. Mean temperature and rain of the seasons", 26);
        writeCell(L"Season");
        writeCell(L"");
        writeNumberCell(L"Mean temperature");
        writeNumberCell(L"Rain");
        setTableFont(false);
        writeSeason(L"Winter", L"winter.bmp", L"-0.8", L"139");
        writeSeason(L"Spring", L"spring.bmp", L"7.1", L"125");
        writeSeason(L"Summer", L"summer.bmp", L"17.0", L"196");
        writeSeason(L"Autumn", L"autumn.bmp", L"7.9", L"195");
        endTable(L"The mean of a season is that of its three months. Each season's name leads to what "
                 L"happened in it.");

        writeSeasonHeading(L"Winter", L"0.4", L": snow on 31 days");
        writeParagraph(L"A mean of " + link(minus_ + L"0.8" + degrees_, L"Table 1, Winter") +
                       L" hides one cold week: the night to the 9th of January brought " +
                       link(L"12.9 degrees of frost", L"January") + L".");
        writeSeasonHeading(L"Spring", L"0.2", L": 26 days without rain");
        writeParagraph(L"April began dry, as " + link(L"winter", L"Winter") +
                       L" had ended. The drought broke with the storms that led over to " +
                       link(L"summer", L"Summer") + L".");
        writeSeasonHeading(L"Summer", L"1.2", L": 31.4" + degrees_ + L" on the 12th of July");
        writeParagraph(L"The " + link(L"highest reading", L"July") +
                       L" of the year was taken at 15:40 on the second day of a week without wind; " +
                       link(L"the log", L"log") + L" has it. Only three summers were warmer " +
                       link(L"[1]", L"source 1") + L".");
        mirovel_->insertTag(bstr(L"flood"));
        writeSeasonHeading(L"Autumn", L"0.6", L": a flood in October");
        writeParagraph(link(L"69 millimetres", L"October") +
                       L" fell in October, most of them in the night to the 21st, when the brook behind the "
                       L"station rose above its banks for the first time since the gauge was built " +
                       link(L"[1]", L"source 1") + link(L"[2]", L"source 2") + L".");
    }

    void writeMonths()
    {
        startChapter(L"months", L"Month by month");
        writeLine(L"Heading 2", L"Temperature and rain");
        writeParagraph(link(L"July", L"July") +
                       L" was both the warmest month and one of the wettest. The coldest night came in " +
                       link(L"January", L"January") +
                       L". The line shows the mean of each month, the bars the rain of each month. " +
                       link(L"Table 1", L"seasons") + L" has the seasons, the " +
                       link(L"appendix", L"figures") + L" the figures of each month.");
        mirovel_->setTextAlign(alignCentred);
        mirovel_->insertImage(bstr(files_ + L"\\chart.emf"), bstr(L""));
        mirovel_->insertEndl();
        writeLine(L"Figure Note", L"Figure 1. Rain and mean temperature of each month");
        mirovel_->setTextAlign(alignJustified);

        writeLine(L"Heading 2", L"The figures to work with");
        writeParagraph(L"The sheet below belongs to this document. A double click opens it with the figures "
                       L"of all months, to be sorted, summed up or drawn in another way.");
        mirovel_->setTextAlign(alignCentred);
        mirovel_->insertFile(bstr(files_ + L"\\yearly.xls"), embedded);
        mirovel_->insertEndl();
        mirovel_->setTextAlign(alignJustified);
    }

    void writeMethod()
    {
        startChapter(L"method", L"How we measure");
        writeLine(L"Heading 2", L"From a reading to a mean");
        writeParagraph(L"The thermometers hang two metres above the grass in a white louvred box; the rain "
                       L"gauge stands ten metres to the south of it. What happens to a reading before it "
                       L"reaches a table has been the same since 1931:");
        mirovel_->insertFile(bstr(files_ + L"\\method.rtf"), embedded);
        writeParagraph(L"A month whose readings scatter by more than three " + link(sigma_, L"sigma") +
                       L" is marked in the " + link(L"table of the months", L"figures") +
                       L". In 2025 there was none.");

        mirovel_->insertTag(bstr(L"log"));
        writeLine(L"Heading 2", L"The log");
        writeParagraph(L"Observers keep the log by hand. Its columns are the time, the temperature and the "
                       L"rain since midnight. A line through a reading says that it was corrected, and the "
                       L"correction is underlined:");
        mirovel_->setStyle(bstr(L"Normal"));
        mirovel_->setTextAlign(alignLeft);
        mirovel_->setFontName(bstr(L"Courier New"));
        mirovel_->setFontSize(9);
        mirovel_->insertText(bstr(L"15:20   31.1   0.0"));
        mirovel_->insertEndl();
        mirovel_->insertText(bstr(L"15:30   "));
        writeEmphasized(strike, L"13.2");
        mirovel_->insertText(bstr(L"   0.0   "));
        writeEmphasized(underline, L"31.2");
        mirovel_->insertText(bstr(L"  digits swapped, A. Berg"));
        mirovel_->insertEndl();
        mirovel_->insertText(bstr(L"15:40   31.4   0.0   "));
        writeEmphasized(bold, L"highest of the year, see " + link(L"Summer", L"Summer"));
        mirovel_->insertEndl();
        mirovel_->setTextAlign(alignJustified);
    }

    void writeMonth(const std::wstring& name, const std::wstring& season, const std::wstring& mean,
                    const std::wstring& highest, const std::wstring& lowest, const std::wstring& rain)
    {
        mirovel_->addRow();
        startCell(alignLeft);
        mirovel_->insertTag(bstr(name));
        mirovel_->insertText(bstr(name));
        startCell(alignLeft);
        mirovel_->insertXref(bstr(season), bstr(season));
        writeNumberCell(mean);
        writeNumberCell(highest);
        writeNumberCell(lowest);
        writeNumberCell(rain);
    }

    void writeFigures()
    {
        mirovel_->insertPageBreak();
        mirovel_->startHeader();
        mirovel_->insertText(bstr(L"Lindholm Observatory\t"));
        writeEmphasized(italic, L"Appendix");
        mirovel_->insertText(
            bstr(L"\t" + link(L"Month by month", L"months") + dot_ + link(L"Contents", L"contents")));
        mirovel_->endHeader();

        mirovel_->insertTag(bstr(L"figures"));
        writeLine(L"Heading 1", L"Appendix: the months in figures");
        writeParagraph(L"Temperatures are in degrees Celsius, rain is in millimetres.");
        startTable(L"Table 3. The months of 2025", 20);
        writeCell(L"Month");
        writeCell(L"Season");
        writeNumberCell(L"Mean");
        writeNumberCell(L"Highest");
        writeNumberCell(L"Lowest");
        writeNumberCell(L"Rain");
        setTableFont(false);
        writeMonth(L"January", L"Winter", L"-1.8", L"6.4", L"-12.9", L"48");
        writeMonth(L"February", L"Winter", L"-0.9", L"8.1", L"-11.2", L"36");
        writeMonth(L"March", L"Spring", L"2.7", L"14.6", L"-6.8", L"41");
        writeMonth(L"April", L"Spring", L"6.9", L"20.3", L"-2.1", L"39");
        writeMonth(L"May", L"Spring", L"11.8", L"25.7", L"1.4", L"45");
        writeMonth(L"June", L"Summer", L"15.6", L"28.9", L"5.8", L"58");
        writeMonth(L"July", L"Summer", L"18.3", L"31.4", L"8.9", L"67");
        writeMonth(L"August", L"Summer", L"17.1", L"30.2", L"7.7", L"71");
        writeMonth(L"September", L"Autumn", L"12.9", L"24.8", L"2.6", L"62");
        writeMonth(L"October", L"Autumn", L"7.8", L"17.9", L"-1.9", L"69");
        writeMonth(L"November", L"Autumn", L"3.1", L"11.5", L"-5.3", L"64");
        writeMonth(L"December", L"Winter", L"0.2", L"8.8", L"-9.6", L"55");
        mirovel_->addRow();
        setTableFont(true);
        writeCell(L"Year");
        writeCell(L"");
        writeNumberCell(L"7.8");
        writeNumberCell(L"31.4");
        writeNumberCell(L"-12.9");
        writeNumberCell(L"655");
        endTable(L"The year's row holds the mean of the means, the extremes, and the sum of the rain.");
    }

    void writeSign(const std::wstring& tag, const std::wstring& sign, const std::wstring& meaning,
                   const std::wstring& label, const std::wstring& target)
    {
        mirovel_->addRow();
        startCell(alignLeft);
        mirovel_->insertTag(bstr(tag));
        writeEmphasized(italic, sign);
        writeCell(meaning);
        startCell(alignLeft);
        mirovel_->insertXref(bstr(label), bstr(target));
    }

    void writeSigns()
    {
        mirovel_->setStyle(bstr(L"Heading 1"));
        writeTitle(L"signs", L"Signs and sources");
        startTable(L"Table 2. Signs", 20);
        writeCell(L"Sign");
        writeCell(L"Meaning");
        writeCell(L"First used in");
        setTableFont(false);
        writeSign(L"delta", deltaT_, L"mean above that of 1995 to 2024", L"The year at a glance", L"year");
        writeSign(L"sigma", sigma_, L"standard deviation", L"How we measure", L"method");
        endTable(L"Both are in degrees Celsius.");

        mirovel_->insertTag(bstr(L"sources"));
        writeLine(L"Heading 2", L"Sources");
        mirovel_->insertTag(bstr(L"source 1"));
        writePoint(L"[1]", L"Lindholm Observatory: Daily readings since 1931. Used for " +
                               link(L"Summer", L"Summer") + L" and " + link(L"Autumn", L"Autumn") + L".");
        mirovel_->insertTag(bstr(L"source 2"));
        writePoint(L"[2]",
                   L"M. Lund: The brook and its floods. Used for " + link(L"Autumn", L"Autumn") + L".");
    }

    void writeContact()
    {
        writeLine(L"Heading 1", L"The observatory");
        writeParagraph(L"The observatory is open to visitors on the first Sunday of each month. Its sign, "
                       L"which is also on " +
                       link(L"the cover", L"cover") + L", leads to the readings of today:");
        mirovel_->setTextAlign(alignCentred);
        mirovel_->insertImage(bstr(files_ + L"\\sign.bmp"), bstr(homePage));
        mirovel_->insertEndl();
        mirovel_->setStyle(bstr(L"Body Text"));
        mirovel_->setTextAlign(alignJustified);
        mirovel_->insertText(bstr(L"This report is the file "));
        mirovel_->insertField(fieldFileName);
        mirovel_->insertText(bstr(L", made at "));
        mirovel_->insertField(fieldTime);
        mirovel_->insertText(bstr(L"."));
        mirovel_->insertEndl();
        mirovel_->setTextAlign(alignRight);
        mirovel_->insertText(bstr(L"A. Berg, for the observers"));
        mirovel_->insertTag(bstr(L"end"));
    }

    IDocumentPtr mirovel_;
    std::wstring files_;
    const std::wstring bullet_ = L"\u2022", dot_ = L" \u00b7 ", degrees_ = L" \u00b0C";
    const std::wstring deltaT_ = L"\u0394T", sigma_ = L"\u03c3", minus_ = L"\u2212";
};

} // namespace

int wmain(int argc, wchar_t** argv)
{
    if (argc != 3) {
        std::puts("usage: sample_report DOCUMENT FOLDER-OF-FILES");
        return 2;
    }
    // Outside the try: leaving the apartment unloads the DLL, and its exceptions need its code.
    const Apartment apartment;
    try {
        Report(argv[2]).writeReport(argv[1]);
        return 0;
    } catch (const QdxException& e) {
        std::printf("The report could not be written: %s\n", e.reasonText());
    } catch (const _com_error& e) {
        std::printf("The report could not be written: error 0x%lx\n",
                    static_cast<unsigned long>(static_cast<DWORD>(e.Error())));
    }
    return 1;
}
