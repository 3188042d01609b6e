#pragma once

#include <StandinBases.h>

namespace standin {
class ApplicationObject : public ApplicationBase
{
public:
    ApplicationObject(std::shared_ptr<Server> server, bool visible)
        : ApplicationBase(std::move(server)), visible_(visible)
    {
    }

protected:
    std::u16string getName() override { return u"Microsoft Word"; }
    std::u16string getVersion() override { return u"9.0"; }
    std::u16string getBuild() override { return u"9.0.0"; }
    Word::DocumentsPtr getDocuments() override;
    Word::_DocumentPtr getActiveDocument() override;
    Word::OptionsPtr getOptions() override;
    bool getVisible() override { return visible_; }
    void putVisible(bool visible) override { visible_ = visible; }
    long getDisplayAlerts() override { return displayAlerts_; }
    void putDisplayAlerts(long level) override;
    void doQuit(const VARIANT& saveChanges, const VARIANT& originalFormat,
                const VARIANT& routeDocument) override;

private:
    bool visible_;
    long displayAlerts_ = -1; // wdAlertsAll
};
} // namespace standin
