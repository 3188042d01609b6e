#include "SilenceText.h"

#include <array>
#include <cstddef>

namespace {

constexpr std::array texts = {
    SilenceText{Silence::notStarted, L"Word has not been started", L"call start first", true},
    SilenceText{Silence::noDocument, L"no document is open", L"call create first", true},
    SilenceText{Silence::unknownStyle, L"the document does not have the style",
                L"check the name; the style must be in the template", true},
    SilenceText{Silence::unknownAttribute, L"no font attribute has the number",
                L"give 1 (bold), 2 (italic), 4 (underlined) or 8 (struck)", true},
    SilenceText{Silence::unknownField, L"no field has the number",
                L"give 1 (date), 2 (time), 3 (file name) or 4 (page)", true},
    SilenceText{Silence::unknownAlignment, L"no alignment has the number",
                L"give 1 (left), 2 (centred), 3 (right) or 4 (justified)", true},
    SilenceText{Silence::tableOutOfOrder, L"the table is not ready for this call",
                L"call startTable, addRow, addCell for each cell, addRow again, at last endTable", true},
    SilenceText{Silence::insideTable, L"this cannot stand in a table", L"call endTable first", true},
    SilenceText{Silence::missingFile, L"the file is not there", L"check the name; give the full path", true},
    SilenceText{Silence::missingTag, L"links lead to a tag that never came",
                L"insert the tag, or check its name", true},
    SilenceText{Silence::wrongSetting, L"the setting's value cannot be of its kind",
                L"give it a value of its kind, or delete it", true},
    SilenceText{Silence::unknownSetting, L"there is no setting of this name", L"check group and name", true},
    SilenceText{Silence::missingTemplate, L"the template is not there, and nobody can be asked",
                L"check Word/WordTemplateName", true},
    SilenceText{Silence::unknownTableStyle, L"the document does not have the table style",
                L"check Word/TableStyle; the table style must be in the template", true},
    SilenceText{Silence::swallowed, L"a failure was swallowed", L"look into the diagnostics", true},
    SilenceText{Silence::startedAlready, L"Word has been started already", L"", false},
    SilenceText{Silence::ownStyle, L"headers and footers keep their own style, other than", L"", false},
    SilenceText{Silence::noContents, L"there is no table of contents for the entry", L"call insertTOC first",
                false},
    SilenceText{Silence::noTitleStyle, L"the heading of the contents is centred, without the style", L"",
                false},
    SilenceText{Silence::withoutEffect, L"the call has no effect; it is kept for older clients", L"", false},
};

static_assert([] {
    for (std::size_t i = 0; i < texts.size(); ++i)
        if (static_cast<std::size_t>(texts[i].why) != i)
            return false;
    return texts.size() == static_cast<std::size_t>(Silence::withoutEffect) + 1;
}());

} // namespace

const SilenceText& textOf(Silence why) noexcept
{
    return texts[static_cast<std::size_t>(why)];
}

std::wstring whatIsWrong(Silence why, std::wstring_view concerned)
{
    std::wstring text(textOf(why).what);
    if (!concerned.empty())
        text.append(L" \"").append(concerned).append(L"\"");
    return text;
}

std::wstring strictText(std::wstring_view method, Silence why, std::wstring_view concerned)
{
    return std::wstring(method) + L": " + whatIsWrong(why, concerned) + L": " +
           std::wstring(textOf(why).remedy);
}
