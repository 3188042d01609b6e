#pragma once

#include <StandinBases.h>

namespace standin {
class StyleObject : public StyleBase
{
public:
    StyleObject(std::shared_ptr<Server> server, model::DocumentPtr document, model::StylePtr style);

    /// The style behind a client's argument; raises WordError 4218 for anything else.
    static const model::Style& of(IUnknown* object);
    /// The style; raises WordError 5825 when its document is closed.
    static model::Style& ofOpen(const model::DocumentPtr& document, const model::StylePtr& style);

    model::DocumentPtr documentModel() const override { return document_; }

protected:
    std::u16string getNameLocal() override { return style().name(); }
    long getType() override;
    Word::_FontPtr getFont() override;
    Word::_ParagraphFormatPtr getParagraphFormat() override;

private:
    model::Style& style() const { return ofOpen(document_, style_); }

    model::DocumentPtr document_;
    model::StylePtr style_;
};
} // namespace standin
