#pragma once

#include "Hyperlink.h"

#include <StandinBases.h>

namespace standin {
/// The links that start in a range; of a document, those of its main text.
class HyperlinksObject : public HyperlinksBase
{
public:
    HyperlinksObject(std::shared_ptr<Server> server, const model::LiveRange& scope);

protected:
    long getCount() override;
    Word::HyperlinkPtr doItem(const VARIANT& index) override;
    Word::HyperlinkPtr doAdd(IDispatch* anchor, const VARIANT& address, const VARIANT& subAddress,
                             const VARIANT& screenTip, const VARIANT& textToDisplay,
                             const VARIANT& target) override;

private:
    model::LiveRange scope_;
};
} // namespace standin
