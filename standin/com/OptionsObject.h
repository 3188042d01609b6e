#pragma once

#include <StandinBases.h>

namespace standin {
class OptionsObject : public OptionsBase
{
public:
    using OptionsBase::OptionsBase;

protected:
    bool getCheckSpellingAsYouType() override { return options().checkSpellingAsYouType; }
    void putCheckSpellingAsYouType(bool check) override { options().checkSpellingAsYouType = check; }
    bool getCheckGrammarAsYouType() override { return options().checkGrammarAsYouType; }
    void putCheckGrammarAsYouType(bool check) override { options().checkGrammarAsYouType = check; }

private:
    model::Options& options() const { return server().model().options; }
};
} // namespace standin
