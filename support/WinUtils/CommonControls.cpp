#include "CommonControls.h"

#include <commctrl.h>

CommonControls::CommonControls(DWORD classes) : library_(L"comctl32.dll")
{
    const INITCOMMONCONTROLSEX wanted{sizeof wanted, classes};
    library_.function<decltype(InitCommonControlsEx)>("InitCommonControlsEx")(&wanted);
}
