#include "PageSetupObject.h"

namespace standin {
namespace {
// Word's own limit for lengths on a page: 22 inches.
constexpr float longestLength = 1584;

/// The value that all sections agree on.
template <typename Value>
std::optional<Value> common(const std::vector<model::SectionPtr>& sections, Value model::PageSetup::*member)
{
    std::optional<Value> value;
    for (const model::SectionPtr& section : sections) {
        section->document(); // raises when it is gone
        const Value here = section->pageSetup.*member;
        if (value && *value != here)
            return std::nullopt;
        value = here;
    }
    return value;
}
} // namespace

std::vector<model::SectionPtr> sectionsOf(const model::Document& document)
{
    std::vector<model::SectionPtr> sections;
    for (std::int32_t index = 1; index <= document.sectionCount(); ++index)
        sections.push_back(document.section(index));
    return sections;
}

PageSetupObject::PageSetupObject(std::shared_ptr<Server> server, std::vector<model::SectionPtr> sections)
    : PageSetupBase(std::move(server)), sections_(std::move(sections))
{
}

float PageSetupObject::points(float model::PageSetup::*member) const
{
    return common(sections_, member).value_or(static_cast<float>(model::mixedValue));
}

long PageSetupObject::getOrientation()
{
    const auto orientation = common(sections_, &model::PageSetup::orientation);
    return orientation ? static_cast<long>(*orientation) : model::mixedValue;
}

template <typename Change>
void PageSetupObject::change(Change&& change)
{
    for (const model::SectionPtr& section : sections_) {
        model::Document& document = section->document();
        change(section->pageSetup);
        document.touched();
    }
}

void PageSetupObject::putPoints(float model::PageSetup::*member, float value)
{
    if (!(value >= 0 && value <= longestLength))
        throw model::WordError(model::WordErrorNumber::valueOutOfRange);
    change([&](model::PageSetup& setup) { setup.*member = value; });
}

void PageSetupObject::putOrientation(long value)
{
    if (value != static_cast<long>(model::Orientation::portrait) &&
        value != static_cast<long>(model::Orientation::landscape))
        throw model::WordError(model::WordErrorNumber::valueOutOfRange);
    change([&](model::PageSetup& setup) { setup.setOrientation(static_cast<model::Orientation>(value)); });
}
} // namespace standin
