#pragma once

#include <oleauto.h>

#include <utility>

// Owner of a BSTR. A null BSTR counts as the empty text.
class Bstr
{
public:
    Bstr() noexcept = default;
    explicit Bstr(const wchar_t* text) noexcept : text_(text ? SysAllocString(text) : nullptr) {}
    Bstr(const Bstr&) = delete;
    Bstr(Bstr&& other) noexcept : text_(std::exchange(other.text_, nullptr)) {}
    ~Bstr() { SysFreeString(text_); }
    Bstr& operator=(Bstr other) noexcept
    {
        std::swap(text_, other.text_);
        return *this;
    }

    BSTR Get() const noexcept { return text_; }
    const wchar_t* Text() const noexcept { return text_ ? text_ : L""; }
    UINT Length() const noexcept { return SysStringLen(text_); }
    bool Empty() const noexcept { return Length() == 0; }
    [[nodiscard]] BSTR Detach() noexcept { return std::exchange(text_, nullptr); }
    [[nodiscard]] BSTR* Put() noexcept
    {
        SysFreeString(std::exchange(text_, nullptr));
        return &text_;
    }

private:
    BSTR text_ = nullptr;
};

// Fills an out argument: S_OK, E_POINTER, or E_OUTOFMEMORY. A null `text` gives a null BSTR.
inline HRESULT ReturnText(BSTR* out, const wchar_t* text) noexcept
{
    if (!out)
        return E_POINTER;
    *out = text ? SysAllocString(text) : nullptr;
    return text && !*out ? E_OUTOFMEMORY : S_OK;
}
