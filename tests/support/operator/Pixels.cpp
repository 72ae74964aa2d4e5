#include "tests/support/operator/Pixels.h"

std::vector<BYTE> pixels(HBITMAP bitmap)
{
    BITMAP size = {};
    if (!::GetObjectW(bitmap, sizeof(size), &size))
        return {};
    BITMAPINFOHEADER header = {};
    header.biSize = sizeof(header);
    header.biWidth = size.bmWidth;
    header.biHeight = size.bmHeight;
    header.biPlanes = 1;
    header.biBitCount = 32;
    std::vector<BYTE> bits(static_cast<std::size_t>(size.bmWidth * size.bmHeight * 4));
    const HDC screen = ::GetDC(nullptr);
    ::GetDIBits(screen, bitmap, 0, static_cast<UINT>(size.bmHeight), bits.data(),
                reinterpret_cast<BITMAPINFO*>(&header), DIB_RGB_COLORS);
    ::ReleaseDC(nullptr, screen);
    return bits;
}

std::vector<BYTE> pixels(HICON icon)
{
    ICONINFO info = {};
    if (!::GetIconInfo(icon, &info))
        return {};
    std::vector<BYTE> bits = pixels(info.hbmColor);
    ::DeleteObject(info.hbmColor);
    ::DeleteObject(info.hbmMask);
    return bits;
}
