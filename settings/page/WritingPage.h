#pragma once

#include "SettingsStore.h"
#include "WindowPage.h"
#include "WritingPageWindow.h"
#include "WritingSettings.h"

#include <array>
#include <optional>
#include <string>

/// The settings program's own page: how documents are written, and the log about it. It is made by the
/// program that shows it, and no class of the DLL's, whose clients know one page.
///
/// The fields are filled when the page is shown for the first time after `Activate`; from then on the user's
/// edits make it dirty, until they are applied or the fields are filled anew. Only settings that were changed
/// are judged and stored.
///
/// Used on one thread; its life is its owner's affair.
class WritingPage final : public WindowPage<WritingPageWindow>
{
public:
    /// `store` is borrowed.
    explicit WritingPage(SettingsStore& store);

    // IUnknown
    STDMETHODIMP QueryInterface(REFIID iid, void** out) noexcept override;
    STDMETHODIMP_(ULONG) AddRef() noexcept override { return 2; }
    STDMETHODIMP_(ULONG) Release() noexcept override { return 1; }

    // IPropertyPage
    STDMETHODIMP TranslateAccelerator(MSG* message) noexcept override;

private:
    struct Change
    {
        SettingName setting;
        std::optional<std::wstring> input;
    };

    [[nodiscard]] std::wstring_view title() const override { return L"Writing"; }
    [[nodiscard]] std::wstring_view description() const override { return L"How documents are written"; }
    void fill() override;
    /// What was refused stands below its field. Inputs that are no good keep all others from being stored;
    /// what the system refuses does not take back what came before.
    bool store() override;
    void openLog();
    [[nodiscard]] std::vector<Change> changes() const;
    /// The first setting with an input that is no good; what is wrong stands at each.
    [[nodiscard]] std::optional<SettingName> refused(const std::vector<Change>& changes);
    [[nodiscard]] std::optional<SettingName> refusedByStore(const std::vector<Change>& changes);

    WritingSettings settings_;
};
