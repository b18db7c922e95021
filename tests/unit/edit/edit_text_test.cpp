// The members over the text of the editor.

#include "platform/com_ptr.h"
#include "support/edit_grid.h"

namespace
{
class EditMembers : public EditTest
{
protected:
    std::wstring TextOf(HRESULT (STDMETHODCALLTYPE GridMembers::*get)(BSTR*))
    {
        BSTR text = nullptr;
        EXPECT_EQ((grid.*get)(&text), S_OK);
        std::wstring result = text ? text : L"";
        SysFreeString(text);
        return result;
    }
    long NumberOf(HRESULT (STDMETHODCALLTYPE GridMembers::*get)(LONG*))
    {
        LONG number = -99;
        EXPECT_EQ((grid.*get)(&number), S_OK);
        return number;
    }
    static Bstr B(const wchar_t* text) { return Bstr(text); }
};
} // namespace

TEST_F(EditMembers, DoNothingWithoutAnEditor)
{
    EXPECT_EQ(TextOf(&GridMembers::get_EditText), L"");
    EXPECT_EQ(TextOf(&GridMembers::get_EditSelText), L"");
    EXPECT_EQ(NumberOf(&GridMembers::get_EditSelStart), 0);
    EXPECT_EQ(NumberOf(&GridMembers::get_EditSelLength), 0);
    EXPECT_EQ(NumberOf(&GridMembers::get_EditWindow), 0);
    EXPECT_EQ(grid.put_EditText(B(L"x").Get()), S_OK);
    EXPECT_EQ(grid.put_EditSelText(B(L"x").Get()), S_OK);
    EXPECT_EQ(grid.put_EditSelStart(3), S_OK);
    EXPECT_EQ(grid.put_EditSelLength(3), S_OK);
    EXPECT_EQ(live.Fired(), "");
}

TEST_F(EditMembers, AreRefusedInAFormDesigner)
{
    AmbientHost host;
    host.UserMode = false;
    host.Attach(grid);
    grid.DesignModeCache = -1;
    BSTR text = nullptr;
    LONG number = 0;
    EXPECT_EQ(grid.get_EditText(&text), LORV_E_DESIGNMODE);
    EXPECT_EQ(grid.get_EditSelText(&text), LORV_E_DESIGNMODE);
    EXPECT_EQ(grid.get_EditSelStart(&number), LORV_E_DESIGNMODE);
    EXPECT_EQ(grid.get_EditSelLength(&number), LORV_E_DESIGNMODE);
    EXPECT_EQ(grid.get_EditMaxLength(&number), LORV_E_DESIGNMODE);
    EXPECT_EQ(grid.get_EditWindow(&number), S_OK);
    ReplaceReference<IDispatch>(grid.AmbientProperties, nullptr);
}

TEST_F(EditMembers, RefuseNullResults)
{
    EXPECT_EQ(grid.get_EditText(nullptr), E_POINTER);
    EXPECT_EQ(grid.get_EditSelText(nullptr), E_POINTER);
    EXPECT_EQ(grid.get_EditSelStart(nullptr), E_POINTER);
    EXPECT_EQ(grid.get_EditSelLength(nullptr), E_POINTER);
    EXPECT_EQ(grid.get_EditMaxLength(nullptr), E_POINTER);
    EXPECT_EQ(grid.get_EditWindow(nullptr), E_POINTER);
}

TEST_F(EditMembers, ReadAndWriteTheText)
{
    live.Put(1, 1, L"old");
    live.Open();
    live.Fired();
    EXPECT_EQ(TextOf(&GridMembers::get_EditText), L"old");
    grid.put_EditText(B(L"longer").Get());
    EXPECT_EQ(live.Fired(), "ChangeEdit");
    EXPECT_EQ(live.Shown(), L"longer");
    EXPECT_EQ(live.Selected(), "6-6");
    grid.put_EditText(nullptr);
    EXPECT_EQ(live.Shown(), L"");
    live.Pump();
    EXPECT_EQ(live.Fired(), "ChangeEdit") << "a text set as a whole is no change by the user";
}

TEST_F(EditMembers, ReadAndWriteTheSelection)
{
    live.Put(1, 1, L"0123456789");
    live.Open();
    live.Fired();
    EXPECT_EQ(NumberOf(&GridMembers::get_EditSelLength), 10);
    grid.put_EditSelStart(2);
    EXPECT_EQ(live.Selected(), "2-2");
    grid.put_EditSelLength(3);
    EXPECT_EQ(live.Selected(), "2-5");
    EXPECT_EQ(NumberOf(&GridMembers::get_EditSelStart), 2);
    EXPECT_EQ(NumberOf(&GridMembers::get_EditSelLength), 3);
    EXPECT_EQ(TextOf(&GridMembers::get_EditSelText), L"234");
    EXPECT_EQ(grid.put_EditSelLength(-1), LORV_E_VALUE);
    EXPECT_EQ(live.Selected(), "2-5");
    EXPECT_EQ(live.Fired(), "");
    grid.put_EditSelText(B(L"x").Get());
    EXPECT_EQ(live.Fired(), "ChangeEdit");
    EXPECT_EQ(live.Shown(), L"01x56789");
    EXPECT_EQ(TextOf(&GridMembers::get_EditSelText), L"");
    grid.put_EditSelLength(LONG_MAX);
    EXPECT_EQ(live.Selected(), "3-8");
}

TEST_F(EditMembers, TheReplacementOfTheSelectionCannotBeTakenBack)
{
    live.Put(1, 1, L"abc");
    live.Open();
    grid.put_EditSelText(B(L"x").Get());
    EXPECT_FALSE(SendMessageW(live.Box(), EM_CANUNDO, 0, 0));
}

TEST_F(EditMembers, AMaskShapesWhatAProgramSets)
{
    ReplaceText(grid.EditMask, L"00/00");
    live.Open();
    live.Fired();
    grid.put_EditText(B(L"12").Get());
    EXPECT_EQ(live.Fired(), "ChangeEdit");
    EXPECT_EQ(live.Shown(), L"12/__");
}

TEST_F(EditMembers, EditMaxLengthRefusesNegativeValues)
{
    EXPECT_EQ(NumberOf(&GridMembers::get_EditMaxLength), 0);
    EXPECT_EQ(grid.put_EditMaxLength(-1), LORV_E_VALUE);
    EXPECT_EQ(grid.put_EditMaxLength(5), S_OK);
    EXPECT_EQ(NumberOf(&GridMembers::get_EditMaxLength), 5);
}

TEST_F(EditMembers, EditWindowIsTheOpenEditor)
{
    live.Open();
    EXPECT_EQ(NumberOf(&GridMembers::get_EditWindow),
              static_cast<LONG>(reinterpret_cast<INT_PTR>(live.Box())));
    CommitEdit(grid);
    EXPECT_EQ(NumberOf(&GridMembers::get_EditWindow), 0);
}
