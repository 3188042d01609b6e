#pragma once

#include <StandinBases.h>
#include <vector>

namespace standin {
std::vector<model::SectionPtr> sectionsOf(const model::Document& document);

/// The page setup of one or several sections: what differs between them reads as 9999999, what is put reaches
/// all.
class PageSetupObject : public PageSetupBase
{
public:
    PageSetupObject(std::shared_ptr<Server> server, std::vector<model::SectionPtr> sections);

protected:
    float getTopMargin() override { return points(&model::PageSetup::topMargin); }
    void putTopMargin(float value) override { putPoints(&model::PageSetup::topMargin, value); }
    float getBottomMargin() override { return points(&model::PageSetup::bottomMargin); }
    void putBottomMargin(float value) override { putPoints(&model::PageSetup::bottomMargin, value); }
    float getLeftMargin() override { return points(&model::PageSetup::leftMargin); }
    void putLeftMargin(float value) override { putPoints(&model::PageSetup::leftMargin, value); }
    float getRightMargin() override { return points(&model::PageSetup::rightMargin); }
    void putRightMargin(float value) override { putPoints(&model::PageSetup::rightMargin, value); }
    float getPageWidth() override { return points(&model::PageSetup::pageWidth); }
    void putPageWidth(float value) override { putPoints(&model::PageSetup::pageWidth, value); }
    float getPageHeight() override { return points(&model::PageSetup::pageHeight); }
    void putPageHeight(float value) override { putPoints(&model::PageSetup::pageHeight, value); }
    float getHeaderDistance() override { return points(&model::PageSetup::headerDistance); }
    void putHeaderDistance(float value) override { putPoints(&model::PageSetup::headerDistance, value); }
    float getFooterDistance() override { return points(&model::PageSetup::footerDistance); }
    void putFooterDistance(float value) override { putPoints(&model::PageSetup::footerDistance, value); }
    long getOrientation() override;
    void putOrientation(long value) override;
    long getDifferentFirstPageHeaderFooter() override { return flag(&model::PageSetup::differentFirstPage); }
    void putDifferentFirstPageHeaderFooter(long value) override;
    long getOddAndEvenPagesHeaderFooter() override { return flag(&model::PageSetup::oddAndEvenPages); }

private:
    float points(float model::PageSetup::*member) const;
    void putPoints(float model::PageSetup::*member, float value);
    long flag(bool model::PageSetup::*member) const;
    template <typename Change>
    void change(Change&& change);

    std::vector<model::SectionPtr> sections_;
};
} // namespace standin
