// What hosts store of the control and hand it again: the property stream, the storage, the property bag.

#include "support/contract.h"
#include "support/control_fixture.h"

#include <cstring>
#include <map>
#include <string>
#include <utility>

namespace
{
using Bytes = std::vector<unsigned char>;

template<class T> void Append(Bytes& bytes, T value)
{
    const auto* raw = reinterpret_cast<const unsigned char*>(&value);
    bytes.insert(bytes.end(), raw, raw + sizeof(value));
}

template<class T> T TakeFrom(const Bytes& bytes, size_t at)
{
    T value = {};
    if (at + sizeof(T) <= bytes.size())
        memcpy(&value, &bytes[at], sizeof(T));
    return value;
}

ComPtr<IStream> StreamOf(const Bytes& bytes)
{
    ComPtr<IStream> stream;
    EXPECT_EQ(S_OK, CreateStreamOnHGlobal(nullptr, TRUE, stream.Put()));
    stream->Write(bytes.data(), static_cast<ULONG>(bytes.size()), nullptr);
    stream->Seek({}, STREAM_SEEK_SET, nullptr);
    return stream;
}

Bytes BytesOf(IStream* stream)
{
    ULARGE_INTEGER size = {};
    stream->Seek({}, STREAM_SEEK_END, &size);
    stream->Seek({}, STREAM_SEEK_SET, nullptr);
    Bytes bytes(static_cast<size_t>(size.QuadPart));
    stream->Read(bytes.data(), static_cast<ULONG>(bytes.size()), nullptr);
    return bytes;
}

constexpr uint32_t StreamVersion = 0xE00;
constexpr size_t FirstVariant = 12; // after the version and the two numbers of the extent

// A stream that has only the rows named; the others are empty and leave their properties alone.
Bytes StreamWith(const std::map<std::string, Bytes>& rows, uint32_t version = StreamVersion)
{
    Bytes bytes;
    Append<uint32_t>(bytes, version);
    Append<uint32_t>(bytes, 4321);
    Append<uint32_t>(bytes, 1234);
    Bytes empty;
    Append<uint16_t>(empty, VT_EMPTY);
    Append<uint32_t>(empty, 0);
    for (const auto& row : ContractRows(L"persisted.tsv")) {
        if (row[0][0] == '_')
            continue;
        auto given = rows.find(row[0]);
        const Bytes& value = given == rows.end() ? empty : given->second;
        bytes.insert(bytes.end(), value.begin(), value.end());
    }
    return bytes;
}

Bytes LongRow(LONG value)
{
    Bytes bytes;
    Append<uint16_t>(bytes, VT_I4);
    Append<int32_t>(bytes, value);
    return bytes;
}

Bytes ObjectRow(VARTYPE type, REFCLSID id)
{
    Bytes bytes;
    Append<uint16_t>(bytes, type);
    Append<CLSID>(bytes, id);
    return bytes;
}

class ControlPersistence : public ControlTest
{
protected:
    HRESULT Load(const Bytes& bytes) { return Persist()->Load(StreamOf(bytes).Get()); }

    Bytes Save(BOOL clearDirty = FALSE)
    {
        ComPtr<IStream> stream;
        EXPECT_EQ(S_OK, CreateStreamOnHGlobal(nullptr, TRUE, stream.Put()));
        EXPECT_EQ(S_OK, Persist()->Save(stream.Get(), clearDirty));
        return BytesOf(stream.Get());
    }

    ComPtr<IPersistStreamInit> Persist() { return As<IPersistStreamInit>(IID_IPersistStreamInit); }

    LONG Rows()
    {
        LONG rows = 0;
        EXPECT_EQ(S_OK, grid_->get_Rows(&rows));
        return rows;
    }
};

using ControlStream = ControlPersistence;
using ControlStorage = ControlPersistence;
using ControlBag = ControlPersistence;
} // namespace

TEST_F(ControlStream, BeginsWithVersionAndExtent)
{
    Bytes bytes = Save();
    EXPECT_EQ(StreamVersion, TakeFrom<uint32_t>(bytes, 0));
    EXPECT_EQ(5080u, TakeFrom<uint32_t>(bytes, 4));
    EXPECT_EQ(5080u, TakeFrom<uint32_t>(bytes, 8));
    EXPECT_LE(TakeFrom<uint16_t>(bytes, FirstVariant), VT_I4) << "Appearance is a number";
}

TEST_F(ControlStream, WhatIsSavedIsLoadedAgain)
{
    ASSERT_EQ(S_OK, grid_->put_Rows(17));
    ASSERT_EQ(S_OK, grid_->put_FixedRows(3));
    ASSERT_EQ(S_OK, grid_->put_BackColor(0x00123456));
    ASSERT_EQ(S_OK, grid_->put_WordWrap(VARIANT_TRUE));
    Bstr face; // asking for it settles which face and character set the font object has from now on
    ASSERT_EQ(S_OK, grid_->get_FontName(face.Put()));
    Bytes saved = Save();
    ComPtr<ILorvGrid> other;
    ASSERT_EQ(S_OK, CoCreateInstance(CLSID_LorvGridL, nullptr, CLSCTX_INPROC_SERVER, IID_ILorvGrid,
                                     other.PutVoid()));
    std::swap(grid_, other);
    EXPECT_EQ(S_OK, Load(saved));
    EXPECT_EQ(17, Rows());
    LONG fixedRows = 0;
    grid_->get_FixedRows(&fixedRows);
    EXPECT_EQ(3, fixedRows);
    OLE_COLOR colour = 0;
    grid_->get_BackColor(&colour);
    EXPECT_EQ(0x00123456u, colour);
    VARIANT_BOOL wraps = VARIANT_FALSE;
    grid_->get_WordWrap(&wraps);
    EXPECT_EQ(VARIANT_TRUE, wraps);
    Bytes again = Save();
    EXPECT_EQ(saved, again) << "from byte "
                            << std::mismatch(saved.begin(), saved.end(), again.begin(), again.end()).first -
                                   saved.begin();
}

TEST_F(ControlStream, ALaterVersionIsRefused)
{
    EXPECT_EQ(E_FAIL, Load(StreamWith({{"Rows", LongRow(7)}}, 0xE01)));
    EXPECT_EQ(50, Rows());
    EXPECT_EQ(S_OK, Load(StreamWith({{"Rows", LongRow(7)}}, 0xDFF)));
    EXPECT_EQ(7, Rows());
}

TEST_F(ControlStream, AShortStreamFailsAndKeepsWhatWasSet)
{
    Bytes bytes = StreamWith({{"Rows", LongRow(7)}});
    for (size_t length : {size_t(0), size_t(3), size_t(7), size_t(13), bytes.size() - 1})
        EXPECT_EQ(E_FAIL, Load(Bytes(bytes.begin(), bytes.begin() + length))) << length;
    EXPECT_EQ(7, Rows());
}

TEST_F(ControlStream, TheExtentIsLoaded)
{
    EXPECT_EQ(S_OK, Load(StreamWith({})));
    SIZEL extent = {};
    As<IOleObject>(IID_IOleObject)->GetExtent(DVASPECT_CONTENT, &extent);
    EXPECT_EQ(4321, extent.cx);
    EXPECT_EQ(1234, extent.cy);
}

TEST_F(ControlStream, ANullFontLeavesTheFont)
{
    OwnedVariant before, after;
    ASSERT_EQ(S_OK, Get(DISPID_FONT, before));
    EXPECT_EQ(S_OK, Load(StreamWith({{"Font", ObjectRow(VT_DISPATCH, CLSID_NULL)}})));
    ASSERT_EQ(S_OK, Get(DISPID_FONT, after));
    ASSERT_EQ(VT_DISPATCH, after.Type());
    EXPECT_NE(nullptr, after.Get().pdispVal);
    auto first = QueryFor<IFont>(before.Get().pdispVal, IID_IFont);
    auto second = QueryFor<IFont>(after.Get().pdispVal, IID_IFont);
    ASSERT_TRUE(first && second);
    EXPECT_EQ(S_OK, first->IsEqual(second.Get()));
}

TEST_F(ControlStream, AnObjectOfAnUnknownClassIsPassedOver)
{
    constexpr CLSID nobody = {0x12345678, 0x9abc, 0x4def, {1, 2, 3, 4, 5, 6, 7, 8}};
    EXPECT_EQ(S_OK, Load(StreamWith({{"WallPaper", ObjectRow(VT_DISPATCH, nobody)}, {"Rows", LongRow(9)}})));
    EXPECT_EQ(9, Rows());
}

TEST_F(ControlStream, AValueThatIsRefusedStopsTheLoadThere)
{
    EXPECT_EQ(E_FAIL, Load(StreamWith({{"Rows", LongRow(-1)}, {"Cols", LongRow(3)}})));
    LONG cols = 0;
    grid_->get_Cols(&cols);
    EXPECT_EQ(10, cols);
    EXPECT_EQ(E_FAIL, Load(StreamWith({{"Rows", LongRow(6)}, {"FixedRows", LongRow(99)}})));
    EXPECT_EQ(6, Rows());
}

TEST_F(ControlStream, DirtyFollowsInitNewSaveAndLoad)
{
    EXPECT_EQ(S_OK, Persist()->InitNew());
    EXPECT_EQ(S_OK, Persist()->IsDirty());
    Save(FALSE);
    EXPECT_EQ(S_OK, Persist()->IsDirty());
    Save(TRUE);
    EXPECT_EQ(S_FALSE, Persist()->IsDirty());
    ASSERT_EQ(S_OK, grid_->put_Rows(7));
    EXPECT_EQ(S_OK, Persist()->IsDirty());
    EXPECT_EQ(S_OK, Load(StreamWith({{"Rows", LongRow(8)}})));
    EXPECT_EQ(S_FALSE, Persist()->IsDirty());
    EXPECT_EQ(E_FAIL, Load(StreamWith({{"Rows", LongRow(8)}}, 0xE01)));
    EXPECT_EQ(S_FALSE, Persist()->IsDirty());
}

TEST_F(ControlStream, NullArgumentsAreRefused)
{
    EXPECT_EQ(E_POINTER, Persist()->Load(nullptr));
    EXPECT_EQ(E_POINTER, Persist()->Save(nullptr, TRUE));
    EXPECT_EQ(E_POINTER, Persist()->GetClassID(nullptr));
    CLSID id = {};
    EXPECT_EQ(S_OK, Persist()->GetClassID(&id));
    EXPECT_TRUE(IsEqualCLSID(CLSID_LorvGridL, id));
}

TEST_F(ControlStorage, HoldsTheStreamAsContents)
{
    ComPtr<IStorage> storage;
    ASSERT_EQ(S_OK, StgCreateDocfile(
                        nullptr, STGM_CREATE | STGM_READWRITE | STGM_SHARE_EXCLUSIVE | STGM_DELETEONRELEASE,
                        0, storage.Put()));
    auto persist = As<IPersistStorage>(IID_IPersistStorage);
    EXPECT_EQ(S_OK, persist->InitNew(storage.Get()));
    EXPECT_EQ(S_OK, persist->IsDirty());
    ASSERT_EQ(S_OK, grid_->put_Rows(21));
    ASSERT_EQ(S_OK, persist->Save(storage.Get(), TRUE));
    EXPECT_EQ(S_OK, persist->SaveCompleted(nullptr));
    EXPECT_EQ(S_FALSE, persist->IsDirty());
    ComPtr<IStream> contents;
    ASSERT_EQ(S_OK,
              storage->OpenStream(L"Contents", nullptr, STGM_READ | STGM_SHARE_EXCLUSIVE, 0, contents.Put()));
    EXPECT_EQ(Save(), BytesOf(contents.Get()));
    contents.Reset();
    ASSERT_EQ(S_OK, grid_->put_Rows(5));
    EXPECT_EQ(S_OK, persist->Load(storage.Get()));
    EXPECT_EQ(21, Rows());
    EXPECT_EQ(S_OK, persist->HandsOffStorage());
    EXPECT_EQ(E_POINTER, persist->Load(nullptr));
    EXPECT_EQ(E_POINTER, persist->Save(nullptr, FALSE));
}

namespace
{
// A bag that keeps what is written, and notes the types that it is asked for.
class TestBag : public LocalObject<IPropertyBag>
{
public:
    std::vector<std::string> Written;
    std::map<std::string, VARTYPE> Asked;
    std::map<std::string, VARIANT> Values;

    ~TestBag() override
    {
        for (auto& [name, value] : Values)
            VariantClear(&value);
    }
    HRESULT STDMETHODCALLTYPE Read(LPCOLESTR name, VARIANT* value, IErrorLog*) override
    {
        Asked[Narrow(name)] = value->vt;
        auto found = Values.find(Narrow(name));
        return found == Values.end() ? E_INVALIDARG : VariantCopy(value, &found->second);
    }
    HRESULT STDMETHODCALLTYPE Write(LPCOLESTR name, VARIANT* value) override
    {
        Written.push_back(Narrow(name));
        VARIANT& kept = Values[Narrow(name)];
        VariantInit(&kept);
        return VariantCopy(&kept, value);
    }
    void Set(const char* name, double number)
    {
        VARIANT value = {};
        value.vt = VT_R8;
        value.dblVal = number;
        Values[name] = value;
    }

private:
    static std::string Narrow(const wchar_t* text)
    {
        std::wstring wide = text;
        return std::string(wide.begin(), wide.end());
    }
};
} // namespace

TEST_F(ControlBag, NamesAreWrittenInTheirOrder)
{
    TestBag bag;
    auto persist = As<IPersistPropertyBag>(IID_IPersistPropertyBag);
    ASSERT_EQ(S_OK, persist->InitNew());
    ASSERT_EQ(S_OK, persist->Save(&bag, TRUE, TRUE));
    EXPECT_EQ(S_FALSE, Persist()->IsDirty());
    auto contract = ContractRows(L"persisted.tsv");
    EXPECT_EQ(84u, contract.size());
    size_t at = 0;
    for (const auto& row : contract)
        if (at < bag.Written.size() && bag.Written[at] == row[0])
            ++at;
    EXPECT_EQ(bag.Written.size(), at) << "out of order: " << (at < bag.Written.size() ? bag.Written[at] : "");
    EXPECT_EQ(VT_UI4, bag.Values["_cx"].vt);
    EXPECT_EQ(5080u, bag.Values["_cx"].ulVal);
    EXPECT_EQ(VT_I4, bag.Values["Rows"].vt);
    for (const char* picture : {"MouseIcon", "WallPaper", "CellButtonPicture"})
        EXPECT_EQ(0u, bag.Values.count(picture)) << "a picture that is not there";
    EXPECT_EQ(0u, bag.Values.count("MergeCellsFixed"));
}

TEST_F(ControlBag, WhatIsMissingStaysAsItIs)
{
    TestBag bag;
    bag.Set("Cols", 4);
    EXPECT_EQ(S_OK, As<IPersistPropertyBag>(IID_IPersistPropertyBag)->Load(&bag, nullptr));
    EXPECT_EQ(50, Rows());
    LONG cols = 0;
    grid_->get_Cols(&cols);
    EXPECT_EQ(4, cols);
    EXPECT_EQ(S_FALSE, Persist()->IsDirty());
}

TEST_F(ControlBag, TypesAreThoseOfThePresentValues)
{
    TestBag bag;
    EXPECT_EQ(S_OK, As<IPersistPropertyBag>(IID_IPersistPropertyBag)->Load(&bag, nullptr));
    EXPECT_EQ(VT_UI4, bag.Asked["_cx"]);
    EXPECT_EQ(VT_I4, bag.Asked["Rows"]);
    EXPECT_EQ(VT_I4, bag.Asked["BackColor"]);
    EXPECT_EQ(VT_BOOL, bag.Asked["WordWrap"]);
    EXPECT_EQ(VT_DISPATCH, bag.Asked["Font"]);
}

TEST_F(ControlBag, TheExtentIsLoaded)
{
    TestBag bag;
    bag.Set("_cx", 3000);
    EXPECT_EQ(S_OK, As<IPersistPropertyBag>(IID_IPersistPropertyBag)->Load(&bag, nullptr));
    SIZEL extent = {};
    As<IOleObject>(IID_IOleObject)->GetExtent(DVASPECT_CONTENT, &extent);
    EXPECT_EQ(3000, extent.cx);
    EXPECT_EQ(5080, extent.cy);
}

TEST_F(ControlBag, ARefusedValueStopsTheLoad)
{
    TestBag bag;
    bag.Set("Rows", -5);
    EXPECT_EQ(E_FAIL, As<IPersistPropertyBag>(IID_IPersistPropertyBag)->Load(&bag, nullptr));
    EXPECT_EQ(E_POINTER, As<IPersistPropertyBag>(IID_IPersistPropertyBag)->Load(nullptr, nullptr));
    EXPECT_EQ(E_POINTER, As<IPersistPropertyBag>(IID_IPersistPropertyBag)->Save(nullptr, TRUE, TRUE));
}
