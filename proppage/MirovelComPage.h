#pragma once

#include "CComCoClass.h"
#include "CComObjectRootEx.h"
#include "CComSingleThreadModel.h"
#include "InterfaceList.h"
#include "MachineEnvironment.h"
#include "PageWindow.h"
#include "WindowPage.h"
#include "WordSettings.h"

#include <IDocument.h>

/// The property page for the component's settings. It reads and writes the registry and has no use for the
/// objects that it is given.
///
/// The fields are filled when the page is shown for the first time after `Activate`; from then on the user's
/// edits make it dirty, until they are applied or the fields are filled anew.
///
/// Threading: single-threaded apartment.
class MirovelComPage : public CComObjectRootEx<CComSingleThreadModel>,
                       public CComCoClass<MirovelComPage, &CLSID_MirovelComPage>,
                       public WindowPage<PageWindow>
{
public:
    using Interfaces = InterfaceList<IPropertyPage>;

    MirovelComPage();

    // IPropertyPage
    STDMETHODIMP TranslateAccelerator(MSG* message) noexcept override;

private:
    [[nodiscard]] std::wstring_view title() const override;
    [[nodiscard]] std::wstring_view description() const override;
    void fill() override;
    /// When a field was refused, the user has confirmed the message about it.
    bool store() override;
    void browse();

    MachineEnvironment machine_;
    WordSettings settings_{machine_};
};
