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

// An entry of text that ends a paragraph may stand in a paragraph that holds nothing else.
TEST_P(HiddenTextTest, AFieldInFrontOfAnEntryShows)
{
    const Session line = {{M::startTOCEntry}, {M::insertText, u"entry"}, {M::insertEndl}};
    const Session table = {{M::startTable},           {M::addRow}, {M::addCell}, {M::startTOCEntry},
                           {M::insertText, u"entry"}, {M::addCell}};
    const ClientCall time = {M::insertField, {}, {}, 2};
    const ClientCall page = {M::insertField, {}, {}, 4};
    const ClientCall end = {M::endTOCEntry};
    const std::vector<Session> fields = {
        {time, end},
        {time, page, end},
        {time, end, page},
        {time, end, {M::startTOCEntry}, {M::insertText, u"another"}, end},
        {time, end, {M::insertText, u"behind"}},
        {time, end, {M::insertPageBreak}, time},
        {time, {M::insertTag, u"tag"}, end},
        {{M::insertTag, u"tag"}, time, end},
        {time, end, {M::insertTag, u"tag"}},
        {time, end, {M::insertXref, u"label", u"http://a.example/"}},
        {{M::setFontAttribute, {}, {}, 1, true}, time, end},
        {time, end, {M::insertImage, std::u16string(pictureNames[0])}},
        {time, {M::insertImage, std::u16string(pictureNames[0])}, end},
        {time, end, {M::insertFile, u"sheet.xls", {}, 1}, time},
        {time, {M::insertFile, u"lines.txt", {}, 0}, time, end},
    };
    for (const Session& each : fields)
        for (const std::vector<Session>& parts : std::vector<std::vector<Session>>{
                 {{{M::insertTOC}}, line, each},
                 {{{M::insertTOC}, {M::startTOCEntry}, {M::insertFile, u"lines.txt", {}, 0}}, each},
                 {{{M::insertTOC}}, table, each},
                 {{{M::insertTOC}},
                  inATable,
                  {{M::addCell}, {M::startTOCEntry}, {M::insertText, u"entry"}, {M::addRow}, {M::addCell}},
                  each,
                  {{M::endTable}}},
                 {{{M::startHeader}, {M::insertTOC}}, line, each},
                 {{{M::startHeader}, {M::insertTOC}}, line, each, {{M::endHeader}, {M::insertText, u"body"}}},
                 {{{M::insertTOC}}, line, each, {{M::insertEndl}, {M::insertText, u"behind"}}},
                 {{{M::insertTOC}},
                  line,
                  each,
                  {{M::insertPageBreak},
                   {M::insertText, u"behind"},
                   {M::startHeader},
                   {M::insertText, u"head"}}},
             }) {
            Session session;
            for (const Session& part : parts)
                session.insert(session.end(), part.begin(), part.end());
            for (const bool shows : {true, false}) {
                switches = {};
                switches.textBehindHiddenFieldShows = shows;
                law.check(session, stepsOf(session), switches);
            }
        }
    law.conclude();
}

TEST_P(HiddenTextTest, WhatFollowsAnEntryShows)
{
    const ClientCall picture = {M::insertImage, u"old.gif"}; // Word has what is in front of it at once.
    const ClientCall head = {M::startHeader};
    const ClientCall endHead = {M::endHeader};
    const ClientCall text = {M::insertText, u"text"};
    const ClientCall pageBreak = {M::insertPageBreak};
    const ClientCall time = {M::insertField, {}, {}, 2};
    const std::vector<Session> behind = {
        {text},
        {time},
        {{M::insertTag, u"tag"}, time},
        {{M::insertXref, u"label", u"http://a.example/"}},
        {{M::insertEndl}, text},
        {pageBreak, text},
        {pageBreak, head, text},
        {{M::insertTag, u"tag"}, pageBreak, head, text},
        {pageBreak, {M::insertTag, u"tag"}, head, text, endHead, text},
        {pageBreak, text, head, text, endHead, text},
        {pageBreak, picture, head, text, endHead, text},
        {pageBreak, picture, text, head, text, endHead, text},
        {pageBreak, text, picture, head, text, endHead, text},
        {pageBreak, time, picture, head, text, endHead, text},
        {text, pageBreak, picture, head, text, endHead, text},
        {{M::startTable}, {M::addRow}, {M::addCell}, text, {M::endTable}},
        {{M::insertTOC}, text},
        {{M::startTOCEntry}, text, {M::insertEndl}, {M::endTOCEntry}, pageBreak, head},
        {{M::insertFile, u"lines.txt"}, text},
        {{M::setStyle, u"Heading 1"}, text},
        {{M::setTextAlign, {}, {}, 1}, text},
    };
    for (const Session& each : behind)
        for (const Session& before : {Session(), Session{text}, Session{{M::insertEndl}}})
            check(before, each);
    law.conclude();
}

INSTANTIATE_TEST_SUITE_P(Pens, HiddenTextTest, testing::Values(Writer::typed, Writer::fragments),
                         nameOfWriter);

} // namespace
} // namespace reference
