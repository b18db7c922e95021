#pragma once
// The grammar of `FormatString`: plain text work, no grid and no system.
//
//   bar form     column items, then optionally `;` and row items, then optionally a line feed and a record
//                per column. Items stand apart by `|` or tab.
//   record form  "(Format)" VT count VT record VT ... and optionally "(Text)" VT with the cells' texts.

// A stretch of a text: begin and end, the end not included.
struct TextSpan {
    const wchar_t* Begin = nullptr;
    const wchar_t* End = nullptr;
    bool Empty() const noexcept { return Begin == End; }
    int Length() const noexcept { return static_cast<int>(End - Begin); }
};

constexpr wchar_t VerticalTab = 11;

// Up to the first of `separators` or the end of `text`; `text` then begins behind the separator. False when
// the text has ended: a text that ends in a separator has an empty last part.
class TextParts
{
public:
    TextParts(TextSpan text, const wchar_t* separators) noexcept : rest_(text), separators_(separators) {}
    bool Next(TextSpan& part) noexcept;
    // Whether the part handed out last was the last one.
    bool Ended() const noexcept { return ended_; }

private:
    TextSpan rest_;
    const wchar_t* separators_;
    bool ended_ = false;
};

TextSpan WholeText(const wchar_t* text) noexcept;
int CountParts(TextSpan text, const wchar_t* separators) noexcept;
// Without the characters below code 33 at both ends.
TextSpan Trimmed(TextSpan text) noexcept;
// Up to the first carriage return or line feed.
TextSpan FirstLine(TextSpan text) noexcept;
// Decimal digits with an optional sign behind blanks; what follows is ignored, as `_wtoi` does.
int NumberOf(TextSpan text) noexcept;

struct BarSections {
    TextSpan Columns;
    TextSpan RowTitles; // Begin null without a `;`
    TextSpan Records;   // Begin null without a line feed
};
BarSections SplitBar(const wchar_t* text) noexcept;

struct BarItem {
    wchar_t Alignment; // one of < > ^ or 0
    TextSpan Text;     // behind the alignment, not trimmed
};
BarItem ReadBarItem(TextSpan part) noexcept;

struct RecordSections {
    int Count;        // as the text says
    TextSpan Records; // behind the count
    TextSpan Texts;   // Begin null without a text section
};
// Whether the text is in the record form.
bool HasRecordHead(const wchar_t* text) noexcept;
RecordSections SplitRecords(const wchar_t* text) noexcept;
