#pragma once
// Lengths: the grid counts device pixels inside and twips (1/1440 inch) at its automation boundary.
// The conversions round as `MulDiv` does. Both resolutions are read once per process.

int LogPixelsX() noexcept;
int LogPixelsY() noexcept;

int PixelsToTwipsX(int pixels) noexcept;
int PixelsToTwipsY(int pixels) noexcept;
int TwipsToPixelsX(int twips) noexcept;
int TwipsToPixelsY(int twips) noexcept;

// HIMETRIC (0.01 mm) to pixels, for a control that has no window yet; reads the screen anew.
int HimetricToPixelsX(int extent) noexcept;
int HimetricToPixelsY(int extent) noexcept;

// `pixels` at 96 dpi in the screen's vertical resolution, cut toward zero. Horizontal lengths use the
// vertical resolution too, so that marks stay square.
int DpiScale(int pixels) noexcept;
