#pragma once
// The binary grid file: little-endian records that follow one another without padding.
//   header, extension (version 7), then unless only the format was saved: columns with their extras (7),
//   formats, lists (7), masks (7) and keys (7) of the columns, cells row by row, rows, cell formats (not in a
//   data file), data of columns and rows, end record.
// Texts are zero-terminated bytes.

#include <cstddef>
#include <cstdint>
#include <cstring>

constexpr int GridFileVersion = 7;
constexpr int FirstExtendedVersion = 7; // from here on the file has the sections marked above

// What was saved, and what is to be loaded: the first three SaveLoadSettings.
enum GridFileKind : int { GridFileAll = 0, GridFileData = 1, GridFileFormat = 2 };

// A font as the system describes it, cut after 60 bytes.
struct FontImage {
    int32_t Height, Width, Escapement, Orientation, Weight;
    uint8_t Italic, Underline, StrikeOut, CharSet, OutPrecision, ClipPrecision, Quality, PitchAndFamily;
    uint8_t FaceName[32]; // narrow in the header, the first 16 units of the wide name in a record
};
static_assert(sizeof(FontImage) == 60 && offsetof(FontImage, FaceName) == 28);

struct GridFileHeader {
    uint8_t Signature[2]; // "LV"
    uint8_t HeaderSize;   // written, never tested
    uint8_t Zero;
    uint16_t Version;
    uint16_t MergeCoding; // 1 when MergeCells holds both modes
    uint16_t Saved;       // GridFileKind
    uint8_t Reserved1[2];
    FontImage Font;
    float FontSize, FontWidth; // points
    uint32_t BackColor, BackColorAlternate, ForeColor, BackColorFixed, ForeColorFixed, BackColorSel,
        ForeColorSel, BackColorBkg, TreeColor, SheetBorder, GridColor, GridColorFixed;
    uint8_t Reserved2[4];
    int32_t Rows, Cols, FixedRows, FixedCols;
    uint32_t WordWrap;
    uint8_t Reserved3[4];
    int32_t RowHeightMin; // twips
    int16_t TextStyle, TextStyleFixed, ScrollBars, GridLines, GridLinesFixed, SelectionMode;
    int16_t MergeCells; // see PackMergeModes
    uint16_t GridLineWidth;
    int16_t SubtotalPosition, OutlineBar;
};
static_assert(sizeof(GridFileHeader) == 180 && offsetof(GridFileHeader, FontSize) == 72 &&
              offsetof(GridFileHeader, Rows) == 132 && offsetof(GridFileHeader, OutlineBar) == 178);

struct GridFileExtension {
    int32_t FrozenRows, FrozenCols;
    uint32_t BackColorFrozen, ForeColorFrozen;
};
static_assert(sizeof(GridFileExtension) == 16);

struct GridFileColumn {
    int32_t Width; // pixels, negative: the default
    int8_t Alignment;
    uint8_t FixedAlignment;
    uint8_t MergeCol;
    uint8_t Reserved1;
    int32_t ColData; // as far as it is a number
    int32_t SourceCol;
    int16_t ColSort;
    uint16_t ColDataType; // with FileColumnHidden
    uint8_t Reserved2[12];
};
static_assert(sizeof(GridFileColumn) == 32);

constexpr uint16_t FileColumnHidden = 0x2000; // in ColDataType; an extra overrides it

struct GridFileColumnExtra {
    int32_t ColIndent; // pixels
    uint8_t ColHidden;
    uint8_t Reserved[3];
};
static_assert(sizeof(GridFileColumnExtra) == 8);

struct GridFileRow {
    int32_t Height; // pixels, negative: the default
    // The level of a subtotal row; the data of another row as far as it is a number.
    uint32_t LevelOrData;
    uint8_t MergeRow;
    uint8_t Flags; // FileRowFlags
    uint8_t Reserved[2];
};
static_assert(sizeof(GridFileRow) == 12);

constexpr uint8_t FileRowFlags = 0x3F;

constexpr uint8_t FileRecordHasFont = 1;
constexpr uint8_t FileRecordHasData = 2; // a variant image follows

// The format of a cell; the data of a row (column -1) or of a column (row -1); the end (both -1).
struct GridFileCellRecord {
    int32_t Row, Col;
    uint32_t BackColor, ForeColor, FloodColor;
    int8_t FloodPercent;
    uint8_t Alignment, TextStyle;
    uint8_t Reserved1;
    uint32_t BorderColor;
    uint8_t BorderLeft, BorderTop, BorderRight, BorderBottom;
    uint8_t Flags;
    uint8_t Reserved2[3];
    FontImage Font;
};
static_assert(sizeof(GridFileCellRecord) == 96 && offsetof(GridFileCellRecord, Font) == 36);

// A value with the shape of a 64-bit process's VARIANT; a text follows as a narrow string.
struct VariantImage {
    uint16_t Type;
    uint8_t Reserved1[6];
    uint8_t Value[8];
    uint8_t Reserved2[8];
};
static_assert(sizeof(VariantImage) == 24 && offsetof(VariantImage, Value) == 8);

constexpr uint16_t VariantImageText = 8; // VT_BSTR

// Bytes of the value of a storable type that is no text; 0 for every other type.
constexpr size_t VariantImageValueSize(uint16_t type) noexcept
{
    switch (type) {
    case 16: // VT_I1
    case 17: // VT_UI1
        return 1;
    case 2:  // VT_I2
    case 11: // VT_BOOL
    case 18: // VT_UI2
        return 2;
    case 3:  // VT_I4
    case 4:  // VT_R4
    case 10: // VT_ERROR
    case 19: // VT_UI4
    case 22: // VT_INT
    case 23: // VT_UINT
        return 4;
    case 5: // VT_R8
    case 6: // VT_CY
    case 7: // VT_DATE
        return 8;
    default:
        return 0;
    }
}

constexpr bool IsStorableType(uint16_t type) noexcept
{
    return type == VariantImageText || VariantImageValueSize(type) != 0;
}

// The two merge modes in one word: as one number below 100 where they are the same.
constexpr int PackedMergeBase = 100;
constexpr int PackMergeModes(int cells, int fixed) noexcept
{
    return cells == fixed ? cells : PackedMergeBase + 10 * fixed + cells;
}
struct MergeModes {
    int Cells, Fixed;
};
constexpr MergeModes UnpackMergeModes(int packed) noexcept
{
    if (packed < PackedMergeBase)
        return {packed, packed};
    packed -= PackedMergeBase;
    return {packed % 10, packed / 10};
}

// A first byte in this range is a cell's check state and not part of its text.
constexpr bool IsStateByte(unsigned unit) noexcept
{
    return unit >= 1 && unit <= 6;
}

inline bool IsKnownHeader(const GridFileHeader& header) noexcept
{
    return header.Signature[0] == 'L' && header.Signature[1] == 'V' && header.Version <= GridFileVersion &&
           header.MergeCoding <= 1;
}

// A cell takes a byte at least: whoever claims more of them has no grid file, and nothing is made for him.
constexpr bool CountsArePossible(const GridFileHeader& header, uint64_t fileSize) noexcept
{
    if (header.Rows < 0 || header.Cols < 0)
        return false;
    auto rows = static_cast<uint64_t>(header.Rows), cols = static_cast<uint64_t>(header.Cols);
    return rows <= fileSize && cols <= fileSize && rows * cols <= fileSize;
}
