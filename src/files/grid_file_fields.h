#pragma once
// Which property of a grid stands where in the header of a grid file.

#include "core/grid_object.h"
#include "files/grid_file_format.h"

struct HeaderColour {
    uint32_t GridFileHeader::*Stored;
    OLE_COLOR Grid::*Property;
};
constexpr HeaderColour headerColours[] = {
    {&GridFileHeader::BackColor, &Grid::BackColor},
    {&GridFileHeader::BackColorAlternate, &Grid::BackColorAlternate},
    {&GridFileHeader::ForeColor, &Grid::ForeColor},
    {&GridFileHeader::BackColorFixed, &Grid::BackColorFixed},
    {&GridFileHeader::ForeColorFixed, &Grid::ForeColorFixed},
    {&GridFileHeader::BackColorSel, &Grid::BackColorSel},
    {&GridFileHeader::ForeColorSel, &Grid::ForeColorSel},
    {&GridFileHeader::BackColorBkg, &Grid::BackColorBkg},
    {&GridFileHeader::TreeColor, &Grid::TreeColor},
    {&GridFileHeader::SheetBorder, &Grid::SheetBorder},
    {&GridFileHeader::GridColor, &Grid::GridColor},
    {&GridFileHeader::GridColorFixed, &Grid::GridColorFixed},
};

struct HeaderWord {
    int16_t GridFileHeader::*Stored;
    int16_t Grid::*Property;
    int Largest; // a file's word past it is not taken
};
constexpr HeaderWord headerWords[] = {
    {&GridFileHeader::TextStyle, &Grid::TextStyle, lorvTextInsetLight},
    {&GridFileHeader::TextStyleFixed, &Grid::TextStyleFixed, lorvTextInsetLight},
    {&GridFileHeader::ScrollBars, &Grid::ScrollBars, lorvScrollBarBoth},
    {&GridFileHeader::GridLines, &Grid::GridLines, 14},
    {&GridFileHeader::GridLinesFixed, &Grid::GridLinesFixed, 14},
    {&GridFileHeader::SelectionMode, &Grid::SelectionMode, lorvSelectionListBox},
    {&GridFileHeader::SubtotalPosition, &Grid::SubtotalPosition, lorvSTAbove},
    {&GridFileHeader::OutlineBar, &Grid::OutlineBar, lorvOutlineBarSymbolsLeaf},
};
