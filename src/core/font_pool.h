#pragma once

#include <windows.h>

// Fonts of cells, shared by every grid of the process: 40 slots, each a font that any number of cells use.
constexpr int FontPoolSize = 40;

// A font like `description`, with one use counted; null when it cannot be made. When every slot is in use
// the font is a new one outside the pool.
HFONT AcquirePooledFont(const LOGFONTW& description) noexcept;
// Gives up one use; a font outside the pool is deleted. Null is nothing.
void ReleasePooledFont(HFONT font) noexcept;
// Deletes the fonts that nobody uses.
void PurgeFontPool() noexcept;

// Uses of a pooled font, -1 for one outside the pool. For tests.
int PooledFontUses(HFONT font) noexcept;
