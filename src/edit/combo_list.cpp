#include "edit/combo_list.h"

#include "core/cell_store.h"
#include "core/upcalls.h"
#include "edit/list_text.h"
#include "platform/memory.h"

#include <algorithm>
#include <cwchar>

static_assert(MaxListColumns == MaxComboColumns);

namespace
{
constexpr int ColumnPadding = 8; // pixels, both sides together
constexpr wchar_t HeightSample[] = L"Hj";

SIZE Measure(HDC dc, TextSpan text) noexcept
{
    SIZE size = {};
    if (dc)
        GetTextExtentPoint32W(dc, text.Begin, text.Length(), &size);
    return size;
}

class Parser
{
public:
    Parser(ComboListState& state, HDC dc, HWND comboBox) noexcept
        : state_(state), dc_(dc), comboBox_(comboBox)
    {
    }

    void Run(const wchar_t* text)
    {
        state_.ItemHeight = Measure(dc_, {HeightSample, HeightSample + 2}).cy;
        state_.ListText = DuplicateText(text);
        Reserve(CountListItems(text));
        ListItem item;
        ListItems items(text);
        for (bool first = true; items.Next(item); first = false) {
            if (first)
                ReadHead(item.Key);
            AddItem(item);
        }
        SumWidths();
    }

private:
    void Reserve(int count)
    {
        if (count == 0)
            return;
        state_.ComboKeys =
            static_cast<wchar_t**>(AllocateZeroed(static_cast<size_t>(count), sizeof(wchar_t*)));
        state_.ComboTexts =
            static_cast<wchar_t**>(AllocateZeroed(static_cast<size_t>(count), sizeof(wchar_t*)));
        if (state_.ComboKeys && state_.ComboTexts)
            capacity_ = count;
        if (comboBox_)
            SendMessageW(comboBox_, CB_INITSTORAGE, static_cast<WPARAM>(count), 0);
    }

    void ReadHead(TextSpan& key) noexcept
    {
        if (!key.Begin)
            return;
        ListHead head = ReadListHead(key);
        key = head.Key;
        state_.KeyColumn = head.KeyColumn;
        state_.KeyColumnBackColor = head.KeyColumnBackColor;
        if (!head.BoldKeyColumn)
            state_.ComboBits &= static_cast<uint8_t>(~ComboBoldKeyColumn);
    }

    // Measures the columns; the text of the key column, Begin null when the item does not reach it.
    TextSpan ReadColumns(TextSpan columns)
    {
        TextSpan text, column;
        TextParts parts(columns, L"\t");
        for (int number = 0; number < MaxComboColumns && parts.Next(column); ++number) {
            if (number == state_.KeyColumn)
                text = column;
            state_.ColumnCount = std::max(state_.ColumnCount, number + 1);
            int32_t& width = state_.ColumnWidth[number];
            width = std::max<int32_t>({width, 0, Measure(dc_, FirstLine(column)).cx});
        }
        return text;
    }

    void AddItem(const ListItem& item)
    {
        TextSpan text = ReadColumns(item.Columns);
        if (state_.ComboCount >= capacity_)
            return;
        wchar_t* key = item.Key.Begin ? Copy(item.Key) : nullptr;
        wchar_t* shown = text.Begin ? Copy(text) : nullptr;
        if ((item.Key.Begin && !key) || (text.Begin && !shown)) {
            FreeBlock(key);
            FreeBlock(shown);
            return;
        }
        if (shown)
            RestoreBars(shown);
        state_.ComboKeys[state_.ComboCount] = key;
        state_.ComboTexts[state_.ComboCount] = shown;
        ++state_.ComboCount;
        if (comboBox_)
            AddToBox(item.Key, shown);
    }

    // An item that does not reach the key column shows as empty, so that the items of the box and those of
    // the list count alike.
    void AddToBox(TextSpan key, const wchar_t* text)
    {
        LRESULT index = SendMessageW(comboBox_, CB_ADDSTRING, 0, reinterpret_cast<LPARAM>(text ? text : L""));
        if (index >= 0 && key.Begin)
            SendMessageW(comboBox_, CB_SETITEMDATA, static_cast<WPARAM>(index), NumberOf(key));
    }

    static wchar_t* Copy(TextSpan text) noexcept
    {
        return DuplicateText(text.Begin, static_cast<size_t>(text.Length()));
    }

    void SumWidths() noexcept
    {
        for (int column = 0; column < state_.ColumnCount; ++column)
            state_.TotalWidth += state_.ColumnWidth[column] += ColumnPadding;
    }

    ComboListState& state_;
    HDC dc_;
    HWND comboBox_;
    int capacity_ = 0;
};
} // namespace

void ParseComboList(ComboListState& state, const wchar_t* text, HDC dc, HWND comboBox)
{
    ClearComboList(state, comboBox);
    Parser(state, dc, comboBox).Run(text);
}

void ClearComboList(ComboListState& state, HWND comboBox) noexcept
{
    ReleaseComboState(state);
    if (comboBox)
        SendMessageW(comboBox, CB_RESETCONTENT, 0, 0);
    state.ComboBits |= ComboBoldKeyColumn;
    state.KeyColumnBackColor = 0;
    state.TotalWidth = state.ColumnCount = state.KeyColumn = 0;
    std::fill_n(state.ColumnWidth, MaxComboColumns, -1);
}

const wchar_t* ComboKeyOf(const ComboListState& state, int item) noexcept
{
    return item >= 0 && item < state.ComboCount ? state.ComboKeys[item] : nullptr;
}

void ReleaseComboState(ComboListState& state)
{
    for (int item = 0; item < state.ComboCount; ++item) {
        FreeBlock(state.ComboKeys[item]);
        FreeBlock(state.ComboTexts[item]);
    }
    FreeAndClear(state.ComboKeys);
    FreeAndClear(state.ComboTexts);
    FreeAndClear(state.ListText);
    state.ComboCount = 0;
}

HRESULT SetColumnList(ColRecord& column, const wchar_t* list, bool& changed) noexcept
{
    const wchar_t* present = column.ColComboList ? column.ColComboList : L"";
    if (!list)
        list = L"";
    // The collation takes its time over long texts, which are mostly the same to the letter.
    if (std::wcscmp(present, list) == 0 ||
        CompareStringW(LOCALE_USER_DEFAULT, 0, present, -1, list, -1) == CSTR_EQUAL)
        return S_OK;
    if (!IsComboList(list))
        return LORV_E_VALUE;
    if (HRESULT result = ReplaceText(column.ColComboList, list); FAILED(result))
        return result;
    ParseComboList(column.ComboState, list);
    changed = true;
    return S_OK;
}
