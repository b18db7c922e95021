#include "shell/persist.h"

#include "core/events.h"
#include "platform/com_ptr.h"
#include "platform/variant.h"
#include "shell/control.h"
#include "shell/property_table.h"
#include "shell/variant_stream.h"

namespace
{
constexpr uint32_t StreamVersion = 0x00000E00;
constexpr wchar_t ContentsName[] = L"Contents";
constexpr DWORD CreateMode = STGM_CREATE | STGM_SHARE_EXCLUSIVE | STGM_READWRITE;
constexpr DWORD OpenMode = STGM_SHARE_EXCLUSIVE | STGM_READ;
static_assert(CreateMode == 0x1012 && OpenMode == 0x10);

constexpr VARTYPE ByReferenceOrArray = VT_BYREF | VT_ARRAY;

// Some getters answer otherwise while the properties are being stored.
class SavingScope
{
public:
    explicit SavingScope(Grid& grid) noexcept : grid_(grid) { grid_.Saving = true; }
    SavingScope(const SavingScope&) = delete;
    SavingScope& operator=(const SavingScope&) = delete;
    ~SavingScope() { grid_.Saving = false; }

private:
    Grid& grid_;
};

HRESULT ReadClass(CLSID* id) noexcept
{
    if (!id)
        return E_POINTER;
    *id = CLSID_LorvGridL;
    return S_OK;
}

HRESULT DirtyAnswer(const Grid& grid) noexcept
{
    return grid.RequiresSave ? S_OK : S_FALSE;
}

HRESULT StartNew(Grid& grid) noexcept
{
    grid.RequiresSave = true;
    return S_OK;
}

bool IsObject(VARTYPE type) noexcept
{
    return type == VT_DISPATCH || type == VT_UNKNOWN;
}

bool IsNullObject(const VARIANT& value) noexcept
{
    return IsObject(value.vt) && !value.punkVal;
}

HRESULT GetProperty(Grid& grid, DISPID dispid, VARIANT* value)
{
    DISPPARAMS none = {};
    return ControlOf(grid).Invoke(dispid, IID_NULL, LOCALE_USER_DEFAULT, DISPATCH_PROPERTYGET, &none, value,
                                  nullptr, nullptr);
}

HRESULT InvokePut(Grid& grid, DISPID dispid, WORD kind, VARIANT& value)
{
    DISPID put = DISPID_PROPERTYPUT;
    DISPPARAMS parameters = {&value, &put, 1, 1};
    return ControlOf(grid).Invoke(dispid, IID_NULL, LOCALE_USER_DEFAULT, kind, &parameters, nullptr, nullptr,
                                  nullptr);
}

// A grid is never without a font: a stored null leaves the one it has. Empty stands for a property that
// could not be read when it was stored.
bool LeavesProperty(DISPID dispid, const VARIANT& value) noexcept
{
    return value.vt == VT_EMPTY || (dispid == DISPID_FONT && IsNullObject(value));
}

HRESULT PutProperty(Grid& grid, DISPID dispid, VARIANT& value)
{
    if (LeavesProperty(dispid, value))
        return S_OK;
    bool byReference = IsObject(value.vt) || (value.vt & ByReferenceOrArray);
    if (byReference && SUCCEEDED(InvokePut(grid, dispid, DISPATCH_PROPERTYPUTREF, value)))
        return S_OK;
    return SUCCEEDED(InvokePut(grid, dispid, DISPATCH_PROPERTYPUT, value)) ? S_OK : E_FAIL;
}

HRESULT SaveRow(Grid& grid, const PropertyRow& row, IStream& stream)
{
    if (row.Extent)
        return WriteBytes(stream, &(grid.Extent.*row.Extent), sizeof(LONG));
    OwnedVariant value;
    if (FAILED(GetProperty(grid, row.Dispid, value.Put())))
        VariantClear(&value.Get());
    return WriteVariantToStream(stream, value.Get());
}

HRESULT LoadRow(Grid& grid, const PropertyRow& row, IStream& stream)
{
    if (row.Extent)
        return ReadBytes(stream, &(grid.Extent.*row.Extent), sizeof(LONG));
    OwnedVariant value;
    HRESULT result = ReadVariantFromStream(stream, value.Get());
    return result == S_OK ? PutProperty(grid, row.Dispid, value.Get()) : result;
}

HRESULT SaveProperties(Grid& grid, IStream& stream)
{
    SavingScope saving(grid);
    HRESULT result = WriteBytes(stream, &StreamVersion, sizeof(StreamVersion));
    for (const PropertyRow& row : PropertyTable)
        if (SUCCEEDED(result) && IsPersisted(row))
            result = SaveRow(grid, row, stream);
    return result;
}

HRESULT LoadProperties(Grid& grid, IStream& stream)
{
    uint32_t version = 0;
    HRESULT result = ReadBytes(stream, &version, sizeof(version));
    if (SUCCEEDED(result) && version > StreamVersion)
        result = E_FAIL;
    for (const PropertyRow& row : PropertyTable)
        if (SUCCEEDED(result) && IsPersisted(row))
            result = LoadRow(grid, row, stream);
    if (SUCCEEDED(result))
        grid.RequiresSave = false;
    return SUCCEEDED(result) ? S_OK : result;
}
} // namespace

HRESULT PersistStream::GetClassID(CLSID* id)
{
    return ReadClass(id);
}

HRESULT PersistStream::IsDirty()
{
    return DirtyAnswer(grid_);
}

HRESULT PersistStream::InitNew()
{
    return StartNew(grid_);
}

HRESULT PersistStream::Load(IStream* stream)
{
    if (!stream)
        return E_POINTER;
    KeepAlive alive(grid_);
    return LoadProperties(grid_, *stream);
}

HRESULT PersistStream::Save(IStream* stream, BOOL clearDirty)
{
    if (!stream)
        return E_POINTER;
    KeepAlive alive(grid_);
    HRESULT result = SaveProperties(grid_, *stream);
    if (SUCCEEDED(result) && clearDirty)
        grid_.RequiresSave = false;
    return result;
}

HRESULT PersistStorage::GetClassID(CLSID* id)
{
    return ReadClass(id);
}

HRESULT PersistStorage::IsDirty()
{
    return DirtyAnswer(grid_);
}

HRESULT PersistStorage::InitNew(IStorage*)
{
    return StartNew(grid_);
}

HRESULT PersistStorage::Load(IStorage* storage)
{
    if (!storage)
        return E_POINTER;
    ComPtr<IStream> stream;
    HRESULT result = storage->OpenStream(ContentsName, nullptr, OpenMode, 0, stream.Put());
    return SUCCEEDED(result) ? ControlOf(grid_).Stream.Load(stream.Get()) : result;
}

// A drop into a container stores what is dragged; the dragged grid itself is not to be copied so.
HRESULT PersistStorage::Save(IStorage* storage, BOOL sameAsLoad)
{
    if (grid_.OleDragRunning)
        return E_FAIL;
    if (!storage)
        return E_POINTER;
    ComPtr<IStream> stream;
    HRESULT result = storage->CreateStream(ContentsName, CreateMode, 0, 0, stream.Put());
    return SUCCEEDED(result) ? ControlOf(grid_).Stream.Save(stream.Get(), sameAsLoad) : result;
}

namespace
{
HRESULT SaveRow(Grid& grid, const PropertyRow& row, IPropertyBag& bag)
{
    OwnedVariant value;
    if (row.Extent) {
        value.Get().vt = VT_UI4;
        value.Get().ulVal = static_cast<ULONG>(grid.Extent.*row.Extent);
    } else if (FAILED(GetProperty(grid, row.Dispid, value.Put())) || IsNullObject(value.Get())) {
        return S_OK;
    }
    return bag.Write(row.Name, &value.Get());
}

HRESULT LoadExtent(LONG& extent, const PropertyRow& row, IPropertyBag& bag, IErrorLog* errors)
{
    OwnedVariant value;
    value.Get().vt = VT_UI4;
    if (SUCCEEDED(bag.Read(row.Name, &value.Get(), errors)) &&
        SUCCEEDED(VariantChangeType(&value.Get(), &value.Get(), 0, VT_UI4)))
        extent = static_cast<LONG>(value.Get().ulVal);
    return S_OK;
}

// The bag is told the type that the property has now. What it does not have is left as it stands.
HRESULT LoadRow(Grid& grid, const PropertyRow& row, IPropertyBag& bag, IErrorLog* errors)
{
    if (row.Extent)
        return LoadExtent(grid.Extent.*row.Extent, row, bag, errors);
    OwnedVariant value;
    if (FAILED(GetProperty(grid, row.Dispid, value.Put())))
        return S_OK;
    VARTYPE type = value.Type();
    VariantClear(&value.Get());
    value.Get() = {};
    value.Get().vt = type;
    if (FAILED(bag.Read(row.Name, &value.Get(), errors)))
        return S_OK;
    return PutProperty(grid, row.Dispid, value.Get());
}
} // namespace

HRESULT PersistPropertyBag::GetClassID(CLSID* id)
{
    return ReadClass(id);
}

HRESULT PersistPropertyBag::InitNew()
{
    return StartNew(grid_);
}

HRESULT PersistPropertyBag::Load(IPropertyBag* bag, IErrorLog* errors)
{
    if (!bag)
        return E_POINTER;
    KeepAlive alive(grid_);
    for (const PropertyRow& row : PropertyTable)
        if (IsPersisted(row))
            if (HRESULT result = LoadRow(grid_, row, *bag, errors); FAILED(result))
                return result;
    grid_.RequiresSave = false;
    return S_OK;
}

HRESULT PersistPropertyBag::Save(IPropertyBag* bag, BOOL clearDirty, BOOL)
{
    if (!bag)
        return E_POINTER;
    KeepAlive alive(grid_);
    SavingScope saving(grid_);
    for (const PropertyRow& row : PropertyTable)
        if (IsPersisted(row))
            if (HRESULT result = SaveRow(grid_, row, *bag); FAILED(result))
                return result;
    if (clearDirty)
        grid_.RequiresSave = false;
    return S_OK;
}
