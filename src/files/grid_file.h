#pragma once
// The control's own files: a grid's data, its format, or both.

#include "core/errors.h"
#include "core/grid_object.h"
#include "files/byte_stream.h"
#include "files/grid_file_format.h"

class BufferedWriter;
class GridFileReader;

// LORV_E_CANNOTWRITE when the target takes no more, E_OUTOFMEMORY.
HRESULT SaveBinaryGrid(Grid& grid, ByteWriter& target, GridFileKind kind);

// `kind` says what to take from the file, whatever was saved in it. What was read before a failure stays.
// LORV_E_BADFORMAT, LORV_E_MEMORY, E_OUTOFMEMORY.
HRESULT LoadBinaryGrid(Grid& grid, ByteReader& source, GridFileKind kind);

// A text of at most 0x3FFFFFFE units in the thread's code page, with its zero; null and what cannot be
// converted is the empty text. E_OUTOFMEMORY.
HRESULT WriteNarrowText(BufferedWriter& out, const wchar_t* text);

// LORV_E_VALUE, and nothing written, for a type that cannot be stored. E_OUTOFMEMORY.
HRESULT WriteVariantImage(BufferedWriter& out, const VARIANT& value);
// Replaces `value`. LORV_E_VALUE for a type that cannot be stored; a text is then not read. E_OUTOFMEMORY.
HRESULT ReadVariantImage(GridFileReader& file, VARIANT& value);

// Shows the first rows while the rest of a long file is still being read.
constexpr int FirstScreenRows = 500;
void ShowFirstScreen(Grid& grid);
