#pragma once

#include <StandinBases.h>

namespace standin {
class StylesObject : public StylesBase
{
public:
    StylesObject(std::shared_ptr<Server> server, model::DocumentPtr document);

    model::DocumentPtr documentModel() const override { return document_; }

protected:
    long getCount() override { return styles().count(); }
    Word::StylePtr doItem(const VARIANT& index) override;

private:
    model::Styles& styles() const;

    model::DocumentPtr document_;
};
} // namespace standin
