#include "RtfPageWords.h"

#include "RtfText.h"

#include <map>

namespace standin::rtf {

using namespace model;

namespace {

void sectionStartWord(std::string_view name, PageSetup& setup)
{
    static const std::map<std::string_view, SectionStart> starts = {{"sbknone", SectionStart::continuous},
                                                                    {"sbkcol", SectionStart::newColumn},
                                                                    {"sbkpage", SectionStart::newPage},
                                                                    {"sbkeven", SectionStart::evenPage},
                                                                    {"sbkodd", SectionStart::oddPage}};
    if (const auto found = starts.find(name); found != starts.end())
        setup.sectionStart = found->second;
}

std::string_view wordOf(SectionStart start)
{
    switch (start) {
    case SectionStart::continuous:
        return "\\sbknone";
    case SectionStart::newColumn:
        return "\\sbkcol";
    case SectionStart::evenPage:
        return "\\sbkeven";
    case SectionStart::oddPage:
        return "\\sbkodd";
    case SectionStart::newPage:
        break;
    }
    return "\\sbkpage";
}

} // namespace

void PageReader::take(std::string_view name, std::int32_t number)
{
    static const std::map<std::string_view, float PageSetup::*> ofDocument = {
        {"paperw", &PageSetup::pageWidth}, {"paperh", &PageSetup::pageHeight},
        {"margl", &PageSetup::leftMargin}, {"margr", &PageSetup::rightMargin},
        {"margt", &PageSetup::topMargin},  {"margb", &PageSetup::bottomMargin}};
    static const std::map<std::string_view, float PageSetup::*> ofSection = {
        {"pgwsxn", &PageSetup::pageWidth},       {"pghsxn", &PageSetup::pageHeight},
        {"marglsxn", &PageSetup::leftMargin},    {"margrsxn", &PageSetup::rightMargin},
        {"margtsxn", &PageSetup::topMargin},     {"margbsxn", &PageSetup::bottomMargin},
        {"headery", &PageSetup::headerDistance}, {"footery", &PageSetup::footerDistance}};
    PageSetup& setup = document_.section(document_.sectionCount())->pageSetup;
    if (const auto length = ofDocument.find(name); length != ofDocument.end()) {
        defaults_.*length->second = points(number);
        setup.*length->second = points(number);
    } else if (const auto own = ofSection.find(name); own != ofSection.end()) {
        setup.*own->second = points(number);
    } else if (name == "landscape") {
        defaults_.orientation = setup.orientation = Orientation::landscape;
    } else if (name == "lndscpsxn") {
        setup.orientation = Orientation::landscape;
    } else if (name == "facingp") {
        defaults_.oddAndEvenPages = true;
        document_.setOddAndEvenPages(true);
    } else if (name == "titlepg") {
        setup.differentFirstPage = true;
    } else if (name == "sectd") {
        setup = defaults_;
    } else {
        sectionStartWord(name, setup);
    }
}

void PageReader::findLandscapes()
{
    for (std::int32_t index = 1; index <= document_.sectionCount(); ++index) {
        PageSetup& setup = document_.section(index)->pageSetup;
        if (setup.pageWidth > setup.pageHeight)
            setup.orientation = Orientation::landscape;
    }
}

std::string documentPageWords(const PageSetup& setup)
{
    std::string rtf =
        control("\\paperw", twips(setup.pageWidth)) + control("\\paperh", twips(setup.pageHeight)) +
        control("\\margl", twips(setup.leftMargin)) + control("\\margr", twips(setup.rightMargin)) +
        control("\\margt", twips(setup.topMargin)) + control("\\margb", twips(setup.bottomMargin));
    rtf += setup.orientation == Orientation::landscape ? "\\landscape" : "";
    rtf += setup.oddAndEvenPages ? "\\facingp" : "";
    return rtf;
}

std::string sectionPageWords(const PageSetup& setup, bool isFirst)
{
    std::string rtf = "\\sectd";
    // A first section that starts in place cuts words apart in some readers, and says nothing there.
    rtf +=
        isFirst && setup.sectionStart == SectionStart::continuous ? "\\sbkpage" : wordOf(setup.sectionStart);
    rtf += control("\\pgwsxn", twips(setup.pageWidth)) + control("\\pghsxn", twips(setup.pageHeight)) +
           control("\\marglsxn", twips(setup.leftMargin)) + control("\\margrsxn", twips(setup.rightMargin)) +
           control("\\margtsxn", twips(setup.topMargin)) + control("\\margbsxn", twips(setup.bottomMargin)) +
           control("\\headery", twips(setup.headerDistance)) +
           control("\\footery", twips(setup.footerDistance));
    rtf += setup.orientation == Orientation::landscape ? "\\lndscpsxn" : "";
    rtf += setup.differentFirstPage ? "\\titlepg" : "";
    return rtf;
}

} // namespace standin::rtf
