#include "edit/recordset_list.h"

#include "core/format_text.h"
#include "platform/com_ptr.h"
#include "platform/variant.h"

#include <cwchar>
#include <new>
#include <string>
#include <vector>

namespace
{
constexpr size_t MostFields = 20;
constexpr size_t ChunkLength = 5000; // what is appended to is kept short
constexpr wchar_t FieldDelimiters[] = L",|\t\n\r";

// An object that is known by the names of its members only.
class LateBound
{
public:
    LateBound() noexcept = default;
    explicit LateBound(IDispatch* object) noexcept : object_(object) {}
    explicit LateBound(const VARIANT& value) noexcept
        : object_(value.vt == VT_DISPATCH ? value.pdispVal : nullptr)
    {
    }
    explicit operator bool() const noexcept { return static_cast<bool>(object_); }

    bool Find(const wchar_t* name, DISPID& id) const
    {
        auto* writable = const_cast<LPOLESTR>(name);
        return object_ && SUCCEEDED(object_->GetIDsOfNames(IID_NULL, &writable, 1, LOCALE_USER_DEFAULT, &id));
    }
    bool Get(DISPID id, OwnedVariant& value, VARIANT* argument = nullptr) const
    {
        DISPPARAMS parameters = {argument, nullptr, argument ? 1u : 0u, 0};
        return Invoke(id, DISPATCH_PROPERTYGET, parameters, value.Put());
    }
    bool GetNamed(const wchar_t* name, OwnedVariant& value, VARIANT* argument = nullptr) const
    {
        DISPID id = DISPID_UNKNOWN;
        return Find(name, id) && Get(id, value, argument);
    }
    bool Put(DISPID id, VARIANT& value) const
    {
        DISPID put = DISPID_PROPERTYPUT;
        DISPPARAMS parameters = {&value, &put, 1, 1};
        return Invoke(id, DISPATCH_PROPERTYPUT, parameters, nullptr);
    }
    bool Call(DISPID id) const
    {
        DISPPARAMS none = {};
        OwnedVariant ignored;
        return Invoke(id, DISPATCH_METHOD, none, ignored.Put());
    }

private:
    bool Invoke(DISPID id, WORD flags, DISPPARAMS& parameters, VARIANT* result) const
    {
        return object_ && SUCCEEDED(object_->Invoke(id, IID_NULL, LOCALE_USER_DEFAULT, flags, &parameters,
                                                    result, nullptr, nullptr));
    }

    ComPtr<IDispatch> object_;
};

// A null value is an empty text.
bool TextOf(const VARIANT& value, std::wstring& text)
{
    const VARIANT& end = FollowVariant(value);
    text.clear();
    if (end.vt == VT_NULL)
        return true;
    OwnedVariant converted;
    if (IsNullReference(end) ||
        FAILED(VariantChangeType(&converted.Get(), const_cast<VARIANT*>(&end), 0, VT_BSTR)))
        return false;
    if (BSTR bstr = converted.Get().bstrVal)
        text = bstr;
    return true;
}

class Builder
{
public:
    explicit Builder(IDispatch* recordset) : records_(recordset) {}

    bool Run(const wchar_t* fieldList, const VARIANT& keyField, const VARIANT& backColor)
    {
        OwnedVariant fields;
        if (!records_.GetNamed(L"Fields", fields))
            return false;
        fields_ = LateBound(fields.Get());
        if (!fields_ || !FindColumns(fieldList))
            return false;
        backColor_ = VariantToLong(backColor, 0);
        if (!FindKey(keyField))
            return false;
        OwnedVariant bookmark;
        DISPID place = DISPID_UNKNOWN;
        bool kept = records_.Find(L"Bookmark", place) && records_.Get(place, bookmark);
        bool read = FindMoves() && ReadRecords();
        if (kept)
            records_.Put(place, bookmark.Get());
        return read;
    }

    std::wstring Take()
    {
        result_ += chunk_;
        return std::move(result_);
    }

private:
    bool FindField(std::wstring name, LateBound& field) const
    {
        OwnedVariant argument, found;
        argument.Get().vt = VT_BSTR;
        argument.Get().bstrVal = SysAllocString(name.c_str());
        if (!argument.Get().bstrVal || !fields_.GetNamed(L"Item", found, &argument.Get()))
            return false;
        field = LateBound(found.Get());
        return static_cast<bool>(field);
    }

    // A field that is not there is left out.
    bool FindColumns(const wchar_t* fieldList)
    {
        TextSpan part;
        size_t names = 0;
        for (TextParts parts({fieldList, fieldList + std::wcslen(fieldList)}, FieldDelimiters);
             names < MostFields && parts.Next(part);) {
            TextSpan name = Trimmed(part);
            if (name.Empty())
                continue;
            ++names;
            bool isKey = *name.Begin == L'*';
            LateBound field;
            if (!FindField({name.Begin + isKey, name.End}, field))
                continue;
            if (isKey)
                keyColumn_ = static_cast<int>(columns_.size());
            columns_.push_back(std::move(field));
        }
        return !columns_.empty();
    }

    bool FindKey(const VARIANT& keyField)
    {
        std::wstring name;
        if (IsMissing(keyField))
            return true;
        if (!TextOf(keyField, name))
            return false;
        return name.empty() || FindField(std::move(name), key_);
    }

    bool FindMoves()
    {
        return records_.Find(L"EOF", end_) && records_.Find(L"MoveFirst", first_) &&
               records_.Find(L"MoveNext", next_);
    }

    bool AtEnd(bool& atEnd) const
    {
        OwnedVariant value;
        if (!records_.Get(end_, value) || FAILED(VariantChangeType(&value.Get(), &value.Get(), 0, VT_BOOL)))
            return false;
        atEnd = value.Get().boolVal != VARIANT_FALSE;
        return true;
    }

    bool ReadRecords()
    {
        if (!records_.Call(first_))
            return false;
        bool atEnd = false;
        for (bool first = true; AtEnd(atEnd); first = false) {
            if (atEnd)
                return true;
            if (!AddRecord(first) || !records_.Call(next_))
                return false;
        }
        return false;
    }

    // A tab in a value would be taken for the end of a column.
    static bool ReadValue(const LateBound& field, std::wstring& text)
    {
        OwnedVariant value;
        return field.Get(DISPID_VALUE, value) && TextOf(value.Get(), text) &&
               text.find(L'\t') == std::wstring::npos;
    }

    bool AddRecord(bool first)
    {
        std::wstring text;
        if (key_ && !ReadValue(key_, text))
            return false;
        if (!first)
            chunk_ += L'|';
        AddKey(first, text);
        for (size_t column = 0; column < columns_.size(); ++column) {
            if (!ReadValue(columns_[column], text))
                return false;
            if (column)
                chunk_ += L'\t';
            chunk_ += text;
        }
        if (chunk_.size() > ChunkLength) {
            result_ += chunk_;
            chunk_.clear();
        }
        return true;
    }

    // The first key carries what holds for the list; a star without a number is column 0.
    void AddKey(bool first, const std::wstring& key)
    {
        bool carriesColumn = first && keyColumn_ >= 0, carriesColor = first && backColor_ != 0;
        if (key.empty() && !carriesColumn && !carriesColor)
            return;
        chunk_ += L'#' + key;
        if (carriesColumn || carriesColor)
            chunk_ += L'*';
        if (carriesColumn)
            chunk_ += std::to_wstring(keyColumn_);
        if (carriesColor)
            chunk_ += L'&' + std::to_wstring(backColor_);
        chunk_ += L';';
    }

    LateBound records_, fields_, key_;
    std::vector<LateBound> columns_;
    int keyColumn_ = -1;
    long backColor_ = 0;
    DISPID end_ = DISPID_UNKNOWN, first_ = DISPID_UNKNOWN, next_ = DISPID_UNKNOWN;
    std::wstring result_, chunk_;
};
} // namespace

bool BuildRecordsetList(IDispatch* recordset, const wchar_t* fieldList, const VARIANT& keyField,
                        const VARIANT& backColor, Bstr& list)
{
    list = Bstr();
    if (!recordset)
        return false;
    try {
        Builder builder(recordset);
        if (!builder.Run(fieldList, keyField, backColor))
            return false;
        std::wstring text = builder.Take();
        *list.Put() = SysAllocStringLen(text.data(), static_cast<UINT>(text.size()));
        return list.Get() != nullptr;
    } catch (const std::bad_alloc&) {
        list = Bstr();
        return false;
    }
}
