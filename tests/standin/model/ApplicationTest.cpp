#include "Application.h"
#include "ModelFixture.h"

namespace standin::model {
namespace {

TEST(ApplicationTest, DocumentsAreNumberedForLifeAndListedNewestFirst)
{
    Application word;
    const DocumentPtr first = word.addDocument();
    const DocumentPtr second = word.addDocument();
    EXPECT_EQ(first->name(), u"Document1");
    EXPECT_EQ(second->fullName(), u"Document2");
    EXPECT_TRUE(first->isSaved());
    EXPECT_EQ(word.document(1), second);
    EXPECT_EQ(word.document(2), first);
    word.close(*second);
    EXPECT_EQ(word.documentCount(), 1);
    EXPECT_TRUE(second->isClosed());
    EXPECT_EQ(word.addDocument()->name(), u"Document3");
}

TEST(ApplicationTest, DocumentThatCannotBeFilledIsNotThere)
{
    Application word;
    EXPECT_EQ(errorOf([&] {
                  word.addDocument([](Document&) { throw WordError(WordErrorNumber::commandFailed); });
              }),
              4198);
    EXPECT_EQ(word.documentCount(), 0);
    EXPECT_EQ(word.addDocument()->name(), u"Document1");
}

TEST(ApplicationTest, DocumentsByName)
{
    Application word;
    const DocumentPtr document = word.addDocument();
    EXPECT_EQ(word.document(u"DOCUMENT1"), document);
    document->setFile(u"C:\\out", u"Report.doc");
    EXPECT_EQ(document->fullName(), u"C:\\out\\Report.doc");
    EXPECT_EQ(word.document(u"report.doc"), document);
    EXPECT_EQ(word.document(u"c:\\OUT\\report.DOC"), document);
    EXPECT_EQ(errorOf([&] { word.document(u"Document1"); }), 4160);
    EXPECT_EQ(errorOf([&] { word.document(2); }), 5941);
    EXPECT_EQ(errorOf([&] { word.document(0); }), 5941);
}

TEST(ApplicationTest, ClosingTwiceFindsNoDocument)
{
    Application word;
    const DocumentPtr document = word.addDocument();
    word.closeAll();
    EXPECT_TRUE(document->isClosed());
    EXPECT_EQ(errorOf([&] { word.close(*document); }), 5825);
}

TEST(ApplicationTest, DocumentsCanStillBeReadWhenTheirClosingIsTold)
{
    Application word;
    std::vector<std::u16string> closing;
    word.whenClosing = [&closing](const Document& document) {
        closing.push_back(document.name());
        EXPECT_FALSE(document.isClosed());
    };
    word.addDocument();
    word.close(*word.addDocument());
    EXPECT_EQ(closing, std::vector<std::u16string>{u"Document2"});
    word.closeAll();
    EXPECT_EQ(closing.size(), 2u);
}

TEST(ApplicationTest, SwitchesAreThoseOfDocumentsMadeFromNowOn)
{
    Application word;
    const DocumentPtr first = word.addDocument();
    word.setSwitches({.deleteAnswersOne = false});
    EXPECT_FALSE(word.addDocument()->switches().deleteAnswersOne);
    EXPECT_TRUE(first->switches().deleteAnswersOne);
}

TEST(ApplicationTest, EndingTheApplicationClosesItsDocuments)
{
    DocumentPtr document;
    {
        Application word;
        document = word.addDocument();
    }
    EXPECT_TRUE(document->isClosed());
}

} // namespace
} // namespace standin::model
