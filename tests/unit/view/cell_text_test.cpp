#include "view/cell_text.h"

#include "core/font_pool.h"
#include "platform/gdi.h"
#include "support/cells.h"

#include <algorithm>
#include <string>

namespace
{
// What a text looks like when the system draws it by flags alone: measured, placed, drawn.
class SystemText
{
public:
    bool Wraps = false, RightToLeft = false;
    int Ellipsis = lorvNoEllipsis;

    int DrawIn(HDC dc, const wchar_t* text, const RECT& room, int alignment) const
    {
        UINT flags = FlagsOf(dc, text, room, alignment);
        int length = static_cast<int>(std::min<size_t>(wcslen(text), 32000));
        RECT measured = room;
        DrawTextW(dc, text, length, &measured, flags | DT_CALCRECT);
        LONG height = std::min(measured.bottom - measured.top, room.bottom - room.top);
        RECT at = room;
        if (alignment % 3 == 1)
            at.top = (room.top + room.bottom - height) / 2;
        else if (alignment % 3 == 2)
            at.top = room.bottom - height;
        at.bottom = at.top + height;
        DrawTextW(dc, text, length, &at, flags);
        return measured.right - measured.left;
    }

private:
    UINT FlagsOf(HDC dc, const wchar_t* text, const RECT& room, int alignment) const
    {
        const UINT across[] = {DT_LEFT, DT_CENTER, DT_RIGHT}, down[] = {DT_TOP, DT_VCENTER, DT_BOTTOM};
        UINT flags = 0x2840 | across[alignment / 3] | down[alignment % 3];
        TEXTMETRICW metrics = {};
        GetTextMetricsW(dc, &metrics);
        if (Wraps) {
            flags |= DT_WORDBREAK;
            if (room.right - room.left + 1 <= metrics.tmMaxCharWidth)
                flags &= ~DT_EDITCONTROL;
        }
        if (RightToLeft && !wcspbrk(text, L"0123456789"))
            flags |= DT_RTLREADING;
        if (Ellipsis != lorvNoEllipsis && !wcschr(text, L'\n'))
            flags |= Ellipsis == lorvEllipsisEnd ? DT_END_ELLIPSIS : DT_PATH_ELLIPSIS;
        return flags;
    }
};

class DrawnTexts : public PaintTest
{
protected:
    DrawnTexts() : system_(160, 90)
    {
        for (HDC dc : {ours_.Get(), system_.Get()}) {
            SetBkMode(dc, TRANSPARENT);
            SelectObject(dc, grid.FontHandle);
        }
    }
    void Compare(const wchar_t* text, const RECT& room, int alignment)
    {
        SystemText reference = {HasOption(grid, OptionWordWrap), HasOption(grid, OptionRightToLeft),
                                grid.Ellipsis};
        ours_.Fill(Back), system_.Fill(Back);
        int width = DrawCellText(grid, ours_.Get(), text, room, alignment, lorvTextFlat, false);
        EXPECT_EQ(width, reference.DrawIn(system_.Get(), text, room, alignment));
        EXPECT_TRUE(ours_.SameAs(system_));
    }
    void CompareAllAlignments(const wchar_t* text, const RECT& room)
    {
        for (int alignment = 0; alignment <= 8; ++alignment) {
            SCOPED_TRACE(alignment);
            Compare(text, room, alignment);
        }
    }

    Canvas ours_{160, 90}, system_;
};

TEST_F(DrawnTexts, LookAsTheSystemDrawsThemByTheirFlags)
{
    const wchar_t* const texts[] = {L"Hello",
                                    L"12",
                                    L"blank  ",
                                    L"a few words that are too long for the room",
                                    L"C:\\folder\\another folder\\name.txt",
                                    L"two\nlines",
                                    L"carriage\r\nreturn and more than the room",
                                    L"a\ttab",
                                    L"WWWWWWWWWWWWWWWWWWWWWWWWWWWWWWWWWWWW"};
    const RECT rooms[] = {{20, 20, 120, 70}, {20, 20, 120, 27}, {20, 10, 32, 80}};
    for (const wchar_t* text : texts)
        for (const RECT& room : rooms)
            for (int ellipsis = lorvNoEllipsis; ellipsis <= lorvEllipsisPath; ++ellipsis)
                for (bool wraps : {false, true}) {
                    SCOPED_TRACE(testing::Message() << text << " in " << room.right << " x " << room.bottom
                                                    << (wraps ? ", wraps " : " ") << ellipsis);
                    SetOption(grid, OptionWordWrap, wraps);
                    grid.Ellipsis = static_cast<int16_t>(ellipsis);
                    CompareAllAlignments(text, room);
                }
}

TEST_F(DrawnTexts, FromRightToLeftReadSoUnlessTheyAreNumbers)
{
    SetOption(grid, OptionRightToLeft, true);
    const RECT room = {20, 20, 120, 70};
    CompareAllAlignments(L"words, and more.", room);
    CompareAllAlignments(L"12.5", room);
    CompareAllAlignments(L"far too long for the room, all of it.", room);
}

TEST_F(DrawnTexts, BreakInsideWordsOnlyWhereTheRoomIsWiderThanTheWidestCharacter)
{
    TEXTMETRICW metrics = {};
    GetTextMetricsW(ours_.Get(), &metrics);
    SetOption(grid, OptionWordWrap, true);
    const wchar_t* word = L"iiiiiiiiiiiiiiiiiiiiiiiiiiiiiiiiiiiiiiiiiiiiii";
    RECT narrow = {20, 10, 20 + metrics.tmMaxCharWidth - 1, 80};
    RECT wide = {20, 10, 20 + metrics.tmMaxCharWidth, 80};
    EXPECT_GT(DrawCellText(grid, ours_.Get(), word, narrow, 0, lorvTextFlat, false),
              narrow.right - narrow.left);
    EXPECT_LE(DrawCellText(grid, ours_.Get(), word, wide, 0, lorvTextFlat, false), wide.right - wide.left);
}

TEST_F(DrawnTexts, OfPrintedNumbersAreNotCutBelow)
{
    const RECT low = {20, 20, 120, 24};
    auto lowest = [&](int alignment) {
        ours_.Fill(Back);
        SetTextColor(ours_.Get(), Ink);
        DrawCellText(grid, ours_.Get(), L"123", low, alignment, lorvTextFlat, false);
        return ours_.ExtentBeside(ours_.Area(), Back).bottom;
    };
    EXPECT_LE(lowest(lorvAlignRightTop), 24);
    grid.PaintMode |= PaintPrinting;
    EXPECT_GT(lowest(lorvAlignRightTop), 24);
    EXPECT_LE(lowest(lorvAlignLeftTop), 24) << "those at the right alone";
}

TEST_F(DrawnTexts, OfEnormousLengthEndInEveryWay)
{
    std::wstring text(33000, L'w');
    for (size_t i = 9; i < text.size(); i += 10)
        text[i] = L'\\';
    const RECT room = {20, 20, 120, 70};
    for (int ellipsis = lorvNoEllipsis; ellipsis <= lorvEllipsisPath; ++ellipsis)
        for (bool wraps : {false, true}) {
            SetOption(grid, OptionWordWrap, wraps);
            grid.Ellipsis = static_cast<int16_t>(ellipsis);
            ours_.Fill(Back);
            EXPECT_GT(DrawCellText(grid, ours_.Get(), text.c_str(), room, 4, lorvTextRaised, true), 0);
            RECT ink = ours_.ExtentBeside(ours_.Area(), Back);
            EXPECT_GE(ink.left, room.left - 1);
            EXPECT_LE(ink.right, room.right + 1);
        }
}

TEST_F(DrawnTexts, HaveTheStyleOfTheirKindOfCell)
{
    const COLORREF light = GetSysColor(COLOR_BTNHIGHLIGHT);
    SetText(0, 1, L"HHH"), SetText(1, 1, L"HHH");
    grid.GridLines = grid.GridLinesFixed = lorvGridNone;
    grid.TextStyleFixed = lorvTextRaised;
    Paint();
    EXPECT_GT(canvas.Count(CellAt(0, 1), light), 0);
    EXPECT_EQ(canvas.Count(CellAt(1, 1), light), 0);
    grid.TextStyleFixed = lorvTextFlat, grid.TextStyle = lorvTextInset;
    Paint();
    EXPECT_EQ(canvas.Count(CellAt(0, 1), light), 0);
    EXPECT_GT(canvas.Count(CellAt(1, 1), light), 0);
    Format(1, 1).TextStyle = lorvTextFlat;
    Paint();
    EXPECT_EQ(canvas.Count(CellAt(1, 1), light), 0) << "the cell's own style goes first";
}

TEST_F(DrawnTexts, AreAsWideAsTheGridAsks)
{
    SetText(1, 1, L"ii");
    Paint();
    RECT plain = canvas.Extent(CellAt(1, 1), Ink);
    grid.FontWidth = 20;
    Paint();
    RECT wide = canvas.Extent(CellAt(1, 1), Ink);
    EXPECT_GT(wide.right - wide.left, 2 * (plain.right - plain.left));
    EXPECT_EQ(wide.bottom - wide.top, plain.bottom - plain.top);
    grid.FontWidth = -20;
    Paint();
    RECT negative = canvas.Extent(CellAt(1, 1), Ink);
    EXPECT_TRUE(EqualRect(&negative, &wide));
    grid.FontWidth = 1e9f;
    Paint();
}

TEST_F(DrawnTexts, OfAFontThatDoesNotExistAreDrawnInAnother)
{
    LOGFONTW description = {};
    GetObjectW(grid.FontHandle, sizeof(description), &description);
    wcscpy(description.lfFaceName, L"No such face on earth");
    Format(1, 1).Font = AcquirePooledFont(description);
    SetText(1, 1, L"HHH");
    Paint();
    EXPECT_GT(canvas.Count(CellAt(1, 1), Ink), 0);
}

TEST_F(DrawnTexts, AreMeasuredAnewWhenTheFontIsAnother)
{
    HFONT font = grid.FontHandle;
    grid.FontHandle = nullptr;
    grid.DefaultRowHeight = 1;
    Paint();
    EXPECT_EQ(grid.FontHandle, font);
    EXPECT_GT(grid.DefaultRowHeight, 8);
}
} // namespace
