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
    float getBottomMargin() override { return points(&model::PageSetup::bottomMargin); }
    float getLeftMargin() override { return points(&model::PageSetup::leftMargin); }
    void putLeftMargin(float value) override { putPoints(&model::PageSetup::leftMargin, value); }
    float getRightMargin() override { return points(&model::PageSetup::rightMargin); }
    float getPageWidth() override { return points(&model::PageSetup::pageWidth); }
    float getPageHeight() override { return points(&model::PageSetup::pageHeight); }
    long getOrientation() override;
    void putOrientation(long value) override;

private:
    float points(float model::PageSetup::*member) const;
    void putPoints(float model::PageSetup::*member, float value);
    template <typename Change>
    void change(Change&& change);

    std::vector<model::SectionPtr> sections_;
};
} // namespace standin
