// Writes a report with everything that a document can hold, from a C++ host that calls the interface's
// virtual table:
//   scripts/run-client build/mingw-release/samples/sample_report.exe --log /tmp/report.log --
//       'Z:\tmp\report.doc' 'Z:\...\samples\report-files'
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
constexpr short embedded = 0, portrait = 0;
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
        writeContentsPage();
        writeYear();
        writeMonths();
        writeMethod();
        writeContact();
        writeAppendix();
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
        mirovel_->overrideRegistry(bstr(L"Word"), bstr(L"TOCLevel"), bstr(L"2"), numberSetting);
        mirovel_->trace(10);
        mirovel_->start();
        _com_util::CheckError(mirovel_->create(bstr(fileName)));
        mirovel_->setOrientation(portrait);
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

    // The table of contents lists the first part of the heading only.
    void writeHeadingWithEntry(const std::wstring& text, const std::wstring& more)
    {
        mirovel_->setStyle(bstr(L"Heading 3"));
        mirovel_->startTOCEntry();
        mirovel_->insertText(bstr(text));
        mirovel_->endTOCEntry();
        mirovel_->insertText(bstr(more));
        mirovel_->insertEndl();
    }

    void writeEmphasized(short attribute, const std::wstring& text)
    {
        mirovel_->setFontAttribute(attribute, VARIANT_TRUE);
        mirovel_->insertText(bstr(text));
        mirovel_->setFontAttribute(attribute, VARIANT_FALSE);
    }

    void writeCell(const std::wstring& text)
    {
        mirovel_->addCell();
        mirovel_->setTextAlign(alignLeft);
        mirovel_->insertText(bstr(text));
    }

    // An alignment reaches to the next one, and a table's last no further than its cell. So every cell begins
    // its own.
    void writeNumberCell(const std::wstring& text)
    {
        mirovel_->addCell();
        mirovel_->setTextAlign(alignLeft);
        mirovel_->setTextAlign(alignRight);
        mirovel_->insertText(bstr(text));
    }

    // A font reaches to the cell where the next one is set, and in each row no further than that cell's
    // column. So a font for whole rows is set in a first column and ended in a last one.
    void setTableFont(bool isBold)
    {
        mirovel_->setFontName(bstr(L"Arial"));
        mirovel_->setFontSize(9);
        mirovel_->setFontAttribute(bold, isBold ? VARIANT_TRUE : VARIANT_FALSE);
    }

    // What is in force when a table begins must be Normal: the text behind the table would otherwise go
    // astray.
    void startTable(const std::wstring& caption, long rowHeight)
    {
        writeLine(L"Caption", caption);
        mirovel_->setStyle(bstr(L"Normal"));
        mirovel_->startTable();
        mirovel_->addRow();
        mirovel_->setTableRowHeight(rowHeight);
        mirovel_->addCell();
        setTableFont(true);
    }

    // A table leaves a space at the start of the paragraph behind it.
    void endTable(const std::wstring& note)
    {
        mirovel_->endTable();
        mirovel_->insertEndl();
        writeLine(L"Table Note", note);
    }

    void writeTitlePage()
    {
        mirovel_->setTextAlign(alignCentred);
        for (int i = 0; i < 6; ++i) {
            mirovel_->insertEndl();
        }
        mirovel_->insertImage(bstr(files_ + L"\\logo.gif"), bstr(L""));
        mirovel_->insertEndl();
        writeLine(L"Title", L"The Weather of 2025");
        writeLine(L"Subtitle", L"Yearly report of the Lindholm Observatory");
        mirovel_->setStyle(bstr(L"Normal"));
        for (int i = 0; i < 12; ++i) {
            mirovel_->insertEndl();
        }
        mirovel_->insertText(bstr(L"Printed on "));
        mirovel_->insertField(fieldDate);
        mirovel_->insertText(bstr(L" at "));
        mirovel_->insertField(fieldTime);
        mirovel_->insertText(bstr(L" from the file "));
        mirovel_->insertField(fieldFileName);
        mirovel_->insertEndl();
        mirovel_->setTextAlign(alignJustified);
        mirovel_->insertPageBreak();
    }

    // The footer comes before the tag: it turns the page break into a new section, and what stands at the
    // break would get in front of it. The header comes behind the tag, because it leads there.
    //
    // A tag reaches to the next one. Not all readers find one that has a table of contents in it, so another
    // one ends it before that.
    void writeContentsPage()
    {
        mirovel_->startFooter();
        mirovel_->insertField(fieldDate);
        mirovel_->insertText(bstr(L"\tPage "));
        mirovel_->insertField(fieldPage);
        mirovel_->insertText(bstr(std::wstring(L"\t<a href=\"") + homePage + L"\">www.lindholm.example</a>"));
        mirovel_->endFooter();

        mirovel_->insertTag(bstr(L"contents"));
        mirovel_->insertEndl();
        mirovel_->insertTag(bstr(L"list"));
        mirovel_->insertTOC();

        mirovel_->startHeader();
        mirovel_->insertText(bstr(L"Lindholm Observatory\t"));
        writeEmphasized(italic, L"The Weather of 2025");
        mirovel_->insertText(bstr(L"\t"));
        mirovel_->insertXref(bstr(L"Contents"), bstr(L"contents"));
        mirovel_->endHeader();
        mirovel_->insertPageBreak();
    }

    void writeSeason(const std::wstring& name, const std::wstring& picture, const std::wstring& mean,
                     const std::wstring& rain)
    {
        mirovel_->addRow();
        writeCell(name);
        mirovel_->addCell();
        mirovel_->setTextAlign(alignCentred);
        mirovel_->insertImage(bstr(files_ + L"\\" + picture), bstr(L""));
        writeNumberCell(mean + degrees_);
        writeNumberCell(rain + L" mm");
    }

    void writeYear()
    {
        writeLine(L"Heading 1", L"The year at a glance");
        mirovel_->setStyle(bstr(L"Body Text"));
        mirovel_->insertText(bstr(
            L"2025 was a mild year with a wet second half. The mean temperature was 7.8" + degrees_ + L", "));
        writeEmphasized(italic, L"0.6 degrees above");
        mirovel_->insertText(
            bstr(L" that of the thirty years before. 655 millimetres of rain and melted snow fell, and "
                 L"six tenths of it fell in the six months from July to December. The station was read "
                 L"without a gap on "
                 L"363 days."));
        mirovel_->insertEndl();

        writeLine(L"Heading 2", L"The seasons");
        writeParagraph(
            L"Winter stands for January, February and December of the same year. Spring stayed dry until "
            L"the last week of May; summer and autumn brought nearly the same rain, though summer's came in "
            L"a few "
            L"heavy storms.");
        startTable(L"Table 1. Mean temperature and rain of the seasons", 26);
        mirovel_->insertText(bstr(L"Season"));
        writeCell(L"");
        writeNumberCell(L"Mean temperature");
        writeNumberCell(L"Rain");
        setTableFont(false);
        writeSeason(L"Winter", L"winter.bmp", L"-0.8", L"139");
        writeSeason(L"Spring", L"spring.bmp", L"7.1", L"125");
        writeSeason(L"Summer", L"summer.bmp", L"17.0", L"196");
        writeSeason(L"Autumn", L"autumn.bmp", L"7.9", L"195");
        setTableFont(false);
        endTable(L"The mean of a season is that of its three months.");

        writeHeadingWithEntry(L"Summer", L": 31.4" + degrees_ + L" on the 12th of July");
        writeParagraph(
            L"The highest reading of the year was taken at 15:40 on the second day of a week without "
            L"wind. Only three summers of the station's records were warmer.");
        writeHeadingWithEntry(L"Autumn", L": a wet October");
        writeParagraph(
            L"69 millimetres fell in October, most of them in the night to the 21st, when the brook "
            L"behind the station rose above its banks for the first time since the gauge was built.");
    }

    void writeMonths()
    {
        mirovel_->insertPageBreak();
        mirovel_->insertTag(bstr(L"months"));
        writeLine(L"Heading 1", L"Month by month");
        writeLine(L"Heading 2", L"Temperature and rain");
        writeParagraph(
            L"July was both the warmest month and one of the wettest. The coldest night, that to the 9th "
            L"of January, brought 12.9 degrees of frost. The line shows the mean of each month, the bars the "
            L"rain "
            L"of each month; the appendix has the figures.");
        mirovel_->setTextAlign(alignCentred);
        mirovel_->insertImage(bstr(files_ + L"\\chart.emf"), bstr(L""));
        mirovel_->insertEndl();
        writeLine(L"Figure Note", L"Figure 1. Rain and mean temperature of each month");
        mirovel_->setTextAlign(alignJustified);

        writeLine(L"Heading 2", L"The figures to work with");
        writeParagraph(
            L"The sheet below belongs to this document. A double click opens it with the figures of all "
            L"months, to be sorted, summed up or drawn in another way.");
        mirovel_->setTextAlign(alignCentred);
        mirovel_->insertFile(bstr(files_ + L"\\yearly.xls"), embedded);
        mirovel_->insertEndl();
        mirovel_->setTextAlign(alignJustified);
    }

    void writeMethod()
    {
        mirovel_->insertPageBreak();
        writeLine(L"Heading 1", L"How we measure");
        writeLine(L"Heading 2", L"From a reading to a mean");
        writeParagraph(
            L"The thermometers hang two metres above the grass in a white louvred box; the rain gauge "
            L"stands ten metres to the south of it. What happens to a reading before it reaches a table has "
            L"been "
            L"the same since 1931:");
        mirovel_->insertFile(bstr(files_ + L"\\method.rtf"), embedded);

        writeLine(L"Heading 2", L"The log");
        writeParagraph(
            L"Observers keep the log by hand. Its columns are the time, the temperature and the rain "
            L"since midnight. A line through a reading says that it was corrected, and the correction is "
            L"underlined:");
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
        writeEmphasized(bold, L"highest of the year");
        mirovel_->insertEndl();
    }

    void writeContact()
    {
        writeLine(L"Heading 2", L"The observatory");
        mirovel_->setTextAlign(alignJustified);
        writeParagraph(
            L"The observatory is open to visitors on the first Sunday of each month. Its sign leads to "
            L"the readings of today:");
        mirovel_->setTextAlign(alignCentred);
        mirovel_->insertImage(bstr(files_ + L"\\sign.bmp"), bstr(homePage));
        mirovel_->insertEndl();
        mirovel_->setStyle(bstr(L"Body Text"));
        mirovel_->setTextAlign(alignRight);
        mirovel_->insertText(bstr(L"A. Berg, for the observers"));
        mirovel_->insertEndl();
        mirovel_->setTextAlign(alignJustified);
    }

    void writeMonth(const std::wstring& name, const std::wstring& mean, const std::wstring& highest,
                    const std::wstring& lowest, const std::wstring& rain)
    {
        mirovel_->addRow();
        writeCell(name);
        writeNumberCell(mean);
        writeNumberCell(highest);
        writeNumberCell(lowest);
        writeNumberCell(rain);
    }

    void writeAppendix()
    {
        mirovel_->insertPageBreak();
        mirovel_->startHeader();
        mirovel_->insertText(bstr(L"Lindholm Observatory\t"));
        writeEmphasized(italic, L"Appendix");
        mirovel_->insertText(bstr(L"\t"));
        mirovel_->insertXref(bstr(L"Month by month"), bstr(L"months"));
        mirovel_->endHeader();

        writeLine(L"Heading 1", L"Appendix: the months in figures");
        writeParagraph(L"Temperatures are in degrees Celsius, rain is in millimetres.");
        startTable(L"Table 2. The months of 2025", 20);
        mirovel_->insertText(bstr(L"Month"));
        writeNumberCell(L"Mean");
        writeNumberCell(L"Highest");
        writeNumberCell(L"Lowest");
        writeNumberCell(L"Rain");
        setTableFont(false);
        writeMonth(L"January", L"-1.8", L"6.4", L"-12.9", L"48");
        writeMonth(L"February", L"-0.9", L"8.1", L"-11.2", L"36");
        writeMonth(L"March", L"2.7", L"14.6", L"-6.8", L"41");
        writeMonth(L"April", L"6.9", L"20.3", L"-2.1", L"39");
        writeMonth(L"May", L"11.8", L"25.7", L"1.4", L"45");
        writeMonth(L"June", L"15.6", L"28.9", L"5.8", L"58");
        writeMonth(L"July", L"18.3", L"31.4", L"8.9", L"67");
        writeMonth(L"August", L"17.1", L"30.2", L"7.7", L"71");
        writeMonth(L"September", L"12.9", L"24.8", L"2.6", L"62");
        writeMonth(L"October", L"7.8", L"17.9", L"-1.9", L"69");
        writeMonth(L"November", L"3.1", L"11.5", L"-5.3", L"64");
        writeMonth(L"December", L"0.2", L"8.8", L"-9.6", L"55");
        setTableFont(false);
        mirovel_->addRow();
        mirovel_->addCell();
        mirovel_->setTextAlign(alignLeft);
        setTableFont(true);
        mirovel_->insertText(bstr(L"Year"));
        writeNumberCell(L"7.8");
        writeNumberCell(L"31.4");
        writeNumberCell(L"-12.9");
        writeNumberCell(L"655");
        setTableFont(false);
        endTable(L"The year's row holds the mean of the means, the extremes, and the sum of the rain.");
    }

    IDocumentPtr mirovel_;
    std::wstring files_;
    const std::wstring degrees_ = L" \u00b0C";
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
