#pragma once

#include <comdef.h>

#include <functional>
#include <utility>

inline constexpr CLSID wordClass = {0x000209FF, 0, 0, {0xC0, 0, 0, 0, 0, 0, 0, 0x46}};

/// What takes Word's place where COM looks for it, as a running object or as a class object. Lives on the
/// stack.
class OtherWord : public IClassFactory
{
public:
    using Answer = std::function<HRESULT(REFIID iid, void** out)>;

    /// `answer` gives the interfaces but IUnknown, and the objects that are to be created.
    explicit OtherWord(Answer answer) : answer_(std::move(answer)) {}

    STDMETHODIMP QueryInterface(REFIID iid, void** out) override
    {
        if (!IsEqualIID(iid, IID_IUnknown) && !IsEqualIID(iid, IID_IClassFactory))
            return answer_(iid, out);
        *out = this;
        return S_OK;
    }
    STDMETHODIMP_(ULONG) AddRef() override { return 2; }
    STDMETHODIMP_(ULONG) Release() override { return 1; }
    STDMETHODIMP CreateInstance(IUnknown*, REFIID iid, void** out) override { return answer_(iid, out); }
    STDMETHODIMP LockServer(BOOL) override { return S_OK; }

private:
    Answer answer_;
};
