#include "platform/dpi.h"

#include "platform/gdi.h"

namespace
{
int ScreenCaps(int index) noexcept
{
    ScreenDC screen;
    int value = screen.Get() ? GetDeviceCaps(screen.Get(), index) : 0;
    return value > 0 ? value : USER_DEFAULT_SCREEN_DPI;
}
} // namespace

int LogPixelsX() noexcept
{
    static const short pixels = static_cast<short>(ScreenCaps(LOGPIXELSX));
    return pixels;
}

int LogPixelsY() noexcept
{
    static const short pixels = static_cast<short>(ScreenCaps(LOGPIXELSY));
    return pixels;
}

int PixelsToTwipsX(int pixels) noexcept
{
    return MulDiv(pixels, 1440, LogPixelsX());
}
int PixelsToTwipsY(int pixels) noexcept
{
    return MulDiv(pixels, 1440, LogPixelsY());
}
int TwipsToPixelsX(int twips) noexcept
{
    return MulDiv(LogPixelsX(), twips, 1440);
}
int TwipsToPixelsY(int twips) noexcept
{
    return MulDiv(LogPixelsY(), twips, 1440);
}
int HimetricToPixelsX(int extent) noexcept
{
    return MulDiv(LogPixelsX(), extent, 2540);
}
int HimetricToPixelsY(int extent) noexcept
{
    return MulDiv(LogPixelsY(), extent, 2540);
}

int DpiScale(int pixels) noexcept
{
    return static_cast<int>(static_cast<float>(pixels) * static_cast<float>(LogPixelsY()) / 96.0f);
}
