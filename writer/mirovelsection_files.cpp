#include "mirovelsection.h"

#include "MirovelSectionData.h"
#include "TextConversion.h"
#include "sysSupport/FileNames.h"
#include "sysSupport/SysFile.h"

#include <ostream>

namespace {

constexpr std::int16_t asLink = 2;
constexpr std::int16_t asHyperLink = 4;
constexpr std::int16_t defaultIcon = 1;

} // namespace

void MirovelSection::insertFile(const QdxString& name, std::int16_t insertAsType)
{
    if (name.isEmpty())
        return;
    if (SysFile::isHyperLink(name)) {
        insertHyperLink(name, toAddress(name));
        return;
    }
    QdxString fileName = name;
    const bool found = foundFile(fileName);
    if (!found && insertAsType != asHyperLink)
        return;

    const bool link = insertAsType == asLink;
    const QdxString extension = SysFile::getExtension(fileName);
    if (extension == ".ppt") {
        insertOleObject(fileName, "PowerPoint.Show", "PowerPnt.exe", link);
    } else if (extension == ".xls") {
        insertOleObject(fileName, "Excel.Sheet", "excel.exe", link);
    } else if (insertAsType == asLink || insertAsType == asHyperLink) {
        if (insertAsType == asHyperLink)
            fileName.replaceStr("\\", "\\\\");
        insertHyperLink(SysFile::stripDir(fileName),
                        found ? toAddress(fileName) : toBookmark(fileName, true));
    } else if (itsAPicture(fileName)) {
        insertImage(fileName, {}, 0, 0);
    } else {
        wordInsertFile(fileName, false);
    }
}

void MirovelSection::insertImage(const QdxString& name, const LinkDestination& destination,
                                 std::int16_t width, std::int16_t height)
{
    QdxString fileName = name;
    if (!foundFile(fileName))
        return;

    const bool inTable = isTableOpen();
    if (!inTable)
        insertPlaceholder();
    const Word::RangePtr& target = inTable ? data_->cellRange : data_->range;
    const std::int32_t start = (inTable ? target->GetEnd() : data_->pos) - 1;
    target->PutStart(start);

    const Word::InlineShapePtr picture = target->GetInlineShapes()->AddPicture(toWide(fileName), false, true);
    if (!inTable)
        ++data_->pos;
    if (width != 0)
        picture->PutWidth(width);
    if (height != 0)
        picture->PutHeight(height);
    insertLink(destination, start, start + 1, target);
    if (!inTable)
        deleteLastChar();
}

void MirovelSection::insertOleObject(const QdxString& fileName, const QdxString& classType,
                                     const QdxString& iconProgram, bool link)
{
    const bool inTable = isTableOpen();
    if (!inTable)
        insertPlaceholder();
    const Word::RangePtr& target = inTable ? data_->cellRange : data_->range;
    target->PutStart((inTable ? target->GetEnd() : data_->pos) - 1);

    const _variant_t objectClass = link ? _variant_t() : _variant_t(toWide(classType));
    const bool displayAsIcon = true;
    target->GetInlineShapes()->AddOLEObject(objectClass, toWide(fileName), link, displayAsIcon,
                                            toWide(iconProgram), defaultIcon,
                                            toWide(SysFile::stripDir(fileName)));
    if (inTable)
        return;
    data_->pos = target->GetEnd();
    deleteLastChar();
}

void MirovelSection::wordInsertFile(const QdxString& fileName, bool link)
{
    const auto insert = [&](long place) {
        const bool confirmConversions = false;
        const bool asAttachment = false;
        data_->document->Range(place, place)
            ->InsertFile(toWide(fileName), L"", confirmConversions, link, asAttachment);
    };
    if (isTableOpen()) {
        insert(data_->cellRange->GetEnd() - 1);
        return;
    }
    applyRuns();
    insertPlaceholder();
    insert(data_->pos - 1);
    data_->pos = data_->range->GetEnd();
    deleteLastChar();
}

// Only pictures are looked for in the installation, and only under a bare name.
bool MirovelSection::foundFile(QdxString& fileName)
{
    if (fileName.isEmpty())
        return false;
    if (SysFile::exists(fileName))
        return true;
    if (const QdxString installed = SysFile::installedPicture(data_->installDir, fileName);
        !installed.isEmpty() && SysFile::exists(installed)) {
        fileName = installed;
        return true;
    }
    if (data_->trace.isTrace(1))
        data_->trace << "ERR File not found: " << fileName << std::endl;
    ignored(Silence::missingFile, fileName);
    return false;
}

bool MirovelSection::itsAPicture(const QdxString& fileName)
{
    return fileNames::isPictureExtension(SysFile::getExtension(fileName).data());
}
