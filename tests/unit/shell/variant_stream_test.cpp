#include "shell/variant_stream.h"

#include "platform/bstr.h"
#include "platform/com_ptr.h"
#include "platform/variant.h"
#include "shell/property_table.h"
#include "support/contract.h"

#include <cstring>
#include <string>

namespace
{
ComPtr<IStream> NewStream()
{
    ComPtr<IStream> stream;
    EXPECT_EQ(S_OK, CreateStreamOnHGlobal(nullptr, TRUE, stream.Put()));
    return stream;
}

void Rewind(IStream* stream)
{
    stream->Seek({}, STREAM_SEEK_SET, nullptr);
}

ULONG SizeOf(IStream* stream)
{
    STATSTG status = {};
    stream->Stat(&status, STATFLAG_NONAME);
    return status.cbSize.LowPart;
}
} // namespace

TEST(VariantStream, NumbersAreStoredInTheirOwnSize)
{
    constexpr struct {
        VARTYPE Type;
        ULONG Size;
    } rows[] = {
        {VT_I2, 2},  {VT_BOOL, 2}, {VT_UI2, 2},  {VT_I4, 4},  {VT_R4, 4}, {VT_ERROR, 4},
        {VT_UI4, 4}, {VT_INT, 4},  {VT_UINT, 4}, {VT_R8, 8},  {VT_CY, 8}, {VT_DATE, 8},
        {VT_I8, 8},  {VT_UI8, 8},  {VT_I1, 1},   {VT_UI1, 1},
    };
    for (auto [type, size] : rows) {
        auto stream = NewStream();
        VARIANT value = {};
        value.vt = type;
        value.llVal = 0x1122334455667788;
        EXPECT_EQ(S_OK, WriteVariantToStream(*stream.Get(), value));
        EXPECT_EQ(2 + size, SizeOf(stream.Get())) << type;
        Rewind(stream.Get());
        OwnedVariant read;
        EXPECT_EQ(S_OK, ReadVariantFromStream(*stream.Get(), read.Get()));
        EXPECT_EQ(type, read.Type());
        EXPECT_EQ(0, memcmp(&value.bVal, &read.Get().bVal, size)) << type;
    }
}

TEST(VariantStream, TextCountsItsTerminator)
{
    auto stream = NewStream();
    Bstr text(L"h\u00e9");
    VARIANT value = {};
    value.vt = VT_BSTR;
    value.bstrVal = text.Get();
    EXPECT_EQ(S_OK, WriteVariantToStream(*stream.Get(), value));
    Rewind(stream.Get());
    unsigned char bytes[13] = {};
    ULONG read = 0;
    stream->Read(bytes, sizeof(bytes), &read);
    const unsigned char expected[] = {8, 0, 6, 0, 0, 0, 'h', 0, 0xe9, 0, 0, 0};
    ASSERT_EQ(sizeof(expected), read);
    EXPECT_EQ(0, memcmp(expected, bytes, read));
    Rewind(stream.Get());
    OwnedVariant back;
    EXPECT_EQ(S_OK, ReadVariantFromStream(*stream.Get(), back.Get()));
    EXPECT_STREQ(text.Get(), back.Get().bstrVal);
}

TEST(VariantStream, ANullTextHasNoBytes)
{
    auto stream = NewStream();
    VARIANT value = {};
    value.vt = VT_BSTR;
    EXPECT_EQ(S_OK, WriteVariantToStream(*stream.Get(), value));
    EXPECT_EQ(6u, SizeOf(stream.Get()));
    Rewind(stream.Get());
    OwnedVariant back;
    EXPECT_EQ(S_OK, ReadVariantFromStream(*stream.Get(), back.Get()));
    EXPECT_EQ(VT_BSTR, back.Type());
    EXPECT_EQ(0u, SysStringLen(back.Get().bstrVal));
}

TEST(VariantStream, OtherTypesTravelAsText)
{
    for (VARTYPE type : {VARTYPE(VT_EMPTY), VARTYPE(VT_DECIMAL)}) {
        auto stream = NewStream();
        OwnedVariant value, back;
        if (type == VT_DECIMAL)
            VarDecFromI4(42, &value.Get().decVal);
        value.Get().vt = type;
        EXPECT_EQ(S_OK, WriteVariantToStream(*stream.Get(), value.Get()));
        Rewind(stream.Get());
        EXPECT_EQ(S_OK, ReadVariantFromStream(*stream.Get(), back.Get()));
        EXPECT_EQ(type, back.Type());
    }
}

TEST(VariantStream, ObjectsTravelWithTheirClass)
{
    wchar_t face[] = L"Arial";
    FONTDESC description = {sizeof(description), face, {}, FW_BOLD, DEFAULT_CHARSET, FALSE, FALSE, FALSE};
    description.cySize.int64 = 120000;
    ComPtr<IFont> font;
    ASSERT_EQ(S_OK, OleCreateFontIndirect(&description, IID_IFont, font.PutVoid()));
    auto dispatch = QueryFor<IDispatch>(font.Get(), IID_IDispatch);
    VARIANT value = {};
    value.vt = VT_DISPATCH;
    value.pdispVal = dispatch.Get();
    auto stream = NewStream();
    ASSERT_EQ(S_OK, WriteVariantToStream(*stream.Get(), value));
    Rewind(stream.Get());
    OwnedVariant back;
    ASSERT_EQ(S_OK, ReadVariantFromStream(*stream.Get(), back.Get()));
    ASSERT_EQ(VT_DISPATCH, back.Type());
    auto read = QueryFor<IFont>(back.Get().pdispVal, IID_IFont);
    ASSERT_TRUE(read);
    EXPECT_EQ(S_OK, font->IsEqual(read.Get()));
}

TEST(VariantStream, ANullObjectIsANullClass)
{
    auto stream = NewStream();
    VARIANT value = {};
    value.vt = VT_UNKNOWN;
    EXPECT_EQ(S_OK, WriteVariantToStream(*stream.Get(), value));
    EXPECT_EQ(2u + sizeof(CLSID), SizeOf(stream.Get()));
    Rewind(stream.Get());
    OwnedVariant back;
    EXPECT_EQ(S_OK, ReadVariantFromStream(*stream.Get(), back.Get()));
    EXPECT_EQ(VT_UNKNOWN, back.Type());
    EXPECT_EQ(nullptr, back.Get().punkVal);
}

// A count that promises more than the stream has costs neither memory nor a crash.
TEST(VariantStream, LyingCountsFail)
{
    for (uint32_t count : {0xFFFFFFFEu, 0xFFFFFFFFu, 7u, 100u}) {
        auto stream = NewStream();
        uint16_t type = VT_BSTR;
        EXPECT_EQ(S_OK, WriteBytes(*stream.Get(), &type, sizeof(type)));
        EXPECT_EQ(S_OK, WriteBytes(*stream.Get(), &count, sizeof(count)));
        EXPECT_EQ(S_OK, WriteBytes(*stream.Get(), L"abc", 8));
        Rewind(stream.Get());
        OwnedVariant back;
        EXPECT_EQ(E_FAIL, ReadVariantFromStream(*stream.Get(), back.Get())) << count;
        EXPECT_EQ(VT_EMPTY, back.Type());
    }
}

TEST(VariantStream, WildTypesFail)
{
    for (uint16_t type : {uint16_t(VT_ARRAY | VT_I4), uint16_t(VT_BYREF | VT_I4), uint16_t(999)}) {
        auto stream = NewStream();
        uint32_t count = 8;
        WriteBytes(*stream.Get(), &type, sizeof(type));
        WriteBytes(*stream.Get(), &count, sizeof(count));
        WriteBytes(*stream.Get(), L"123", 8);
        Rewind(stream.Get());
        OwnedVariant back;
        EXPECT_TRUE(FAILED(ReadVariantFromStream(*stream.Get(), back.Get()))) << type;
    }
}

TEST(PropertyTable, NamesAndNumbersAreTheContracts)
{
    std::vector<const PropertyRow*> named;
    for (const PropertyRow& row : PropertyTable)
        if (IsPersisted(row))
            named.push_back(&row);
    auto contract = ContractRows(L"persisted.tsv");
    ASSERT_EQ(contract.size(), named.size());
    for (size_t i = 0; i < named.size(); ++i) {
        std::wstring wide = named[i]->Name;
        EXPECT_EQ(contract[i][0], std::string(wide.begin(), wide.end()));
        if (named[i]->Extent) {
            EXPECT_EQ('_', contract[i][0][0]);
        } else {
            EXPECT_EQ(std::stoi(contract[i][1]), named[i]->Dispid) << contract[i][0];
        }
    }
}

TEST(PropertyTable, FivePageRowsFollowTheExtent)
{
    for (int row = 2; row < 7; ++row) {
        EXPECT_FALSE(IsPersisted(PropertyTable[row]));
        EXPECT_NE(nullptr, PropertyTable[row].Page);
    }
    EXPECT_TRUE(IsPersisted(PropertyTable[7]));
}
