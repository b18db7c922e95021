#include "shell/variant_stream.h"

#include "platform/com_ptr.h"
#include "platform/memory.h"
#include "platform/variant.h"

#include <ocidl.h>
#include <ole2.h>

#include <algorithm>
#include <cstdint>

namespace
{
constexpr struct {
    VARTYPE Type;
    ULONG Size;
} numberSizes[] = {
    {VT_I2, 2},  {VT_BOOL, 2}, {VT_UI2, 2},  {VT_I4, 4},  {VT_R4, 4}, {VT_ERROR, 4},
    {VT_UI4, 4}, {VT_INT, 4},  {VT_UINT, 4}, {VT_R8, 8},  {VT_CY, 8}, {VT_DATE, 8},
    {VT_I8, 8},  {VT_UI8, 8},  {VT_I1, 1},   {VT_UI1, 1},
};

// 0 for what is stored in another way.
ULONG NumberSize(VARTYPE type) noexcept
{
    for (const auto& number : numberSizes)
        if (number.Type == type)
            return number.Size;
    return 0;
}

bool IsObject(VARTYPE type) noexcept
{
    return type == VT_DISPATCH || type == VT_UNKNOWN;
}

// The two interfaces differ in their first and last member only; what a stream calls is the same in both.
ComPtr<IPersistStream> StreamInterface(IUnknown* object)
{
    if (auto persist = QueryFor<IPersistStream>(object, IID_IPersistStream))
        return persist;
    return QueryFor<IPersistStream>(object, IID_IPersistStreamInit);
}

HRESULT WriteObject(IStream& stream, IUnknown* object)
{
    if (!object)
        return WriteClassStm(&stream, CLSID_NULL);
    auto persist = StreamInterface(object);
    return persist ? OleSaveToStream(persist.Get(), &stream) : E_NOINTERFACE;
}

// The terminating zero is counted and stored.
HRESULT WriteText(IStream& stream, BSTR text)
{
    uint32_t size = text ? SysStringByteLen(text) + sizeof(wchar_t) : 0;
    HRESULT result = WriteBytes(stream, &size, sizeof(size));
    return SUCCEEDED(result) && size ? WriteBytes(stream, text, size) : result;
}

HRESULT WriteAsText(IStream& stream, const VARIANT& value)
{
    if (value.vt == VT_BSTR)
        return WriteText(stream, value.bstrVal);
    OwnedVariant text;
    HRESULT result =
        VariantChangeType(&text.Get(), const_cast<VARIANT*>(&value), VARIANT_NOVALUEPROP, VT_BSTR);
    return SUCCEEDED(result) ? WriteText(stream, text.Get().bstrVal) : result;
}

// A stored count may lie: room is taken as the bytes come.
constexpr uint32_t TextBlock = 1 << 16; // bytes

class TextBytes
{
public:
    TextBytes() noexcept = default;
    TextBytes(const TextBytes&) = delete;
    TextBytes& operator=(const TextBytes&) = delete;
    ~TextBytes() { FreeBlock(bytes_); }

    HRESULT Read(IStream& stream, uint32_t size)
    {
        while (size_ < size) {
            uint32_t step = std::min(size - size_, TextBlock);
            void* grown = ReallocateBlock(bytes_, size_ + step);
            if (!grown)
                return E_OUTOFMEMORY;
            bytes_ = static_cast<char*>(grown);
            if (HRESULT result = ReadBytes(stream, bytes_ + size_, step); FAILED(result))
                return result;
            size_ += step;
        }
        return S_OK;
    }

    // The text without its terminating zero.
    BSTR MakeText() const noexcept
    {
        UINT length = size_ / sizeof(wchar_t) - 1;
        return SysAllocStringLen(reinterpret_cast<const wchar_t*>(bytes_), length);
    }

private:
    char* bytes_ = nullptr;
    uint32_t size_ = 0;
};

HRESULT ReadText(IStream& stream, BSTR* text)
{
    uint32_t size = 0;
    if (HRESULT result = ReadBytes(stream, &size, sizeof(size)); FAILED(result))
        return result;
    if (size == 0)
        return S_OK;
    if (size % sizeof(wchar_t) != 0)
        return E_FAIL;
    TextBytes bytes;
    if (HRESULT result = bytes.Read(stream, size); FAILED(result))
        return result;
    *text = bytes.MakeText();
    return *text ? S_OK : E_OUTOFMEMORY;
}

// No text becomes an array or a reference: such a type is not from a stream of ours.
HRESULT ReadAsText(IStream& stream, VARTYPE type, VARIANT& value)
{
    if (type & ~VT_TYPEMASK)
        return DISP_E_BADVARTYPE;
    OwnedVariant text;
    text.Get().vt = VT_BSTR;
    if (HRESULT result = ReadText(stream, &text.Get().bstrVal); FAILED(result))
        return result;
    if (type == VT_EMPTY || type == VT_NULL) {
        value.vt = type;
        return S_OK;
    }
    return VariantChangeType(&value, &text.Get(), VARIANT_NOVALUEPROP, type);
}

HRESULT LoadObject(IStream& stream, const CLSID& id, IUnknown** object)
{
    ComPtr<IUnknown> made;
    HRESULT result = CoCreateInstance(id, nullptr, CLSCTX_INPROC_SERVER | CLSCTX_INPROC_HANDLER, IID_IUnknown,
                                      made.PutVoid());
    if (FAILED(result))
        return result;
    auto persist = StreamInterface(made.Get());
    if (!persist)
        return E_NOINTERFACE;
    result = persist->Load(&stream);
    if (SUCCEEDED(result))
        *object = made.Detach();
    return result;
}

HRESULT ReadObject(IStream& stream, VARTYPE type, VARIANT& value)
{
    value.vt = type;
    value.punkVal = nullptr;
    CLSID id = {};
    if (FAILED(ReadClassStm(&stream, &id)))
        return E_FAIL;
    if (IsEqualCLSID(id, CLSID_NULL))
        return S_OK;
    ComPtr<IUnknown> object;
    HRESULT result = LoadObject(stream, id, object.Put());
    if (result == REGDB_E_CLASSNOTREG)
        return S_FALSE;
    if (FAILED(result))
        return result;
    return object->QueryInterface(type == VT_DISPATCH ? IID_IDispatch : IID_IUnknown,
                                  reinterpret_cast<void**>(&value.punkVal));
}
} // namespace

HRESULT ReadBytes(IStream& stream, void* bytes, ULONG count)
{
    ULONG read = 0;
    HRESULT result = stream.Read(bytes, count, &read);
    return SUCCEEDED(result) && read == count ? S_OK : E_FAIL;
}

HRESULT WriteBytes(IStream& stream, const void* bytes, ULONG count)
{
    ULONG written = 0;
    HRESULT result = stream.Write(bytes, count, &written);
    if (FAILED(result))
        return result;
    return written == count ? S_OK : E_FAIL;
}

HRESULT WriteVariantToStream(IStream& stream, const VARIANT& value)
{
    uint16_t type = value.vt;
    if (HRESULT result = WriteBytes(stream, &type, sizeof(type)); FAILED(result))
        return result;
    if (ULONG size = NumberSize(type))
        return WriteBytes(stream, &value.bVal, size);
    return IsObject(type) ? WriteObject(stream, value.punkVal) : WriteAsText(stream, value);
}

HRESULT ReadVariantFromStream(IStream& stream, VARIANT& value)
{
    VariantClear(&value);
    uint16_t type = VT_EMPTY;
    if (HRESULT result = ReadBytes(stream, &type, sizeof(type)); FAILED(result))
        return result;
    if (ULONG size = NumberSize(type)) {
        HRESULT result = ReadBytes(stream, &value.bVal, size);
        value.vt = SUCCEEDED(result) ? static_cast<VARTYPE>(type) : static_cast<VARTYPE>(VT_EMPTY);
        return result;
    }
    return IsObject(type) ? ReadObject(stream, type, value) : ReadAsText(stream, type, value);
}
