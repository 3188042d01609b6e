// Where Word hides what is put behind an entry of the table of contents, as it hides the entry's field: the
// composing writer's pictures and objects show all the same.
#include "SessionFiles.h"
#include "SessionLaw.h"
#include "SessionPlayer.h"

#include <gtest/gtest.h>

namespace reference {
namespace {

using M = Method;

class HiddenTextTest : public testing::TestWithParam<Writer>
{
protected:
    HiddenTextTest() : player(GetParam()), law(player) { switches.textBehindHiddenFieldShows = false; }

    /// The calls behind an entry at the end of what `before` says.
    void check(const Session& before, const Session& behind)
    {
        Session session = {{M::insertTOC}};
        session.insert(session.end(), before.begin(), before.end());
        session.insert(session.end(), {{M::startTOCEntry}, {M::insertText, u"entry"}, {M::endTOCEntry}});
        session.insert(session.end(), behind.begin(), behind.end());
        law.check(session, stepsOf(session), switches);
    }

    SessionPlayer player;
    SessionLaw law;
    standin::model::Switches switches;
    // Word has the table when a file has come into it.
    const Session inATable = {
        {M::startTable}, {M::addRow}, {M::addCell}, {M::insertFile, u"sheet.xls", {}, 1}};
};

TEST_P(HiddenTextTest, APictureBehindAnEntryShows)
{
    for (const std::u16string_view picture : pictureNames) {
        check({}, {{M::insertImage, std::u16string(picture)}});
        check(
            {},
            {{M::insertTag, u"tag"}, {M::insertImage, std::u16string(picture)}, {M::insertText, u"behind"}});
        check(inATable, {{M::insertImage, std::u16string(picture)}, {M::endTable}});
    }
    law.conclude();
}

TEST_P(HiddenTextTest, AnObjectBehindAnEntryShows)
{
    const ClientCall object = {M::insertFile, u"sheet.xls", {}, 1};
    check({}, {object});
    check({}, {{M::insertTag, u"tag"}, object, {M::insertText, u"behind"}});
    check(inATable, {object, {M::endTable}});
    law.conclude();
}

INSTANTIATE_TEST_SUITE_P(Pens, HiddenTextTest, testing::Values(Writer::typed, Writer::fragments),
                         [](const auto& each) { return testName(each.param); });

} // namespace
} // namespace reference
